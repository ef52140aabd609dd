// Expression rows and the input row: what typing, the host's messages and
// Insert do to the rows, and what the debugger service is asked on the way.
#include "tests/watch/watch_fixture.h"

namespace {

class WatchRowsTest : public WatchFixture {
protected:
    void SetUp() override
    {
        WatchFixture::SetUp();
        service.Define("x", MakeRecord(WT_INT, WS_DATA, 0x30, 2, 7));
        service.Define("a", MakeRecord(3, WS_DATA, 0x31, 1, 0x41));
        WatchRecord point = MakeRecord(32, WS_XDATA, 0x100, 4);
        point.typeRef = 5;
        point.count = 2;
        service.Define("point", point);
        service.DefineMembers(5, {MakeRecord(WT_INT, WS_XDATA, 0x100, 2, 1), MakeRecord(WT_INT, WS_XDATA, 0x102, 2, 2)});
        std::strcpy(service.list.emplace_back().name, "unused");  // only a fixed list reads it
    }

    void AddViaHost(const std::string& gbk)
    {
        grid.SendMessage(UWM_WATCH_ADD_EXPRESSION, reinterpret_cast<WPARAM>(gbk.c_str()), 0);
    }
};

TEST_F(WatchRowsTest, ANewGridShowsOnlyTheInputRowSelectedNowhere)
{
    EXPECT_EQ(Lines(), (Texts{Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), -1);
    EXPECT_EQ(grid.GetDlgCtrlID(), 1001);
    EXPECT_EQ(grid.GetStyle() & 0xFFFF, 0x1C05u);
    // Only the expression can be typed into the input row.
    const CGridRow* input = grid.GetRowAt(0);
    EXPECT_EQ(input->Cell(0)->kind, GCF_TEXT_EDIT);
    EXPECT_EQ(input->Cell(1)->kind, 0u);
    EXPECT_EQ(input->Cell(2)->kind, 0u);
    EXPECT_TRUE(service.requests.empty());
    EXPECT_STREQ(CRuntimeClass::FromName("CWatchGridCtrl")->m_lpszClassName, "CWatchGridCtrl");
}

TEST_F(WatchRowsTest, CommittingOnTheInputRowEvaluatesAndAppendsANewInputRow)
{
    // Typing with nothing selected starts on the last line, the input row.
    grid.SetFocus();
    Input::Type("x");
    Input::Key(VK_RETURN);
    EXPECT_EQ(Lines(), (Texts{"x", Prompt()}));
    ASSERT_EQ(service.requests.size(), 1u);
    EXPECT_EQ(service.requests[0].code, ScriptedDebugger::kEvaluate);
    EXPECT_EQ(service.requests[0].text, "x");
    // A zero-filled record goes out; the service's answer stays with the row.
    EXPECT_EQ(service.requests[0].sent.status, 0);
    EXPECT_EQ(RecordOf(grid.GetRowAt(0))->address, 0x30u);
    EXPECT_EQ(Cell(0, 1), "7");
    EXPECT_EQ(Cell(0, 3), "data:0030, int");
    EXPECT_EQ(grid.GetRowAt(0)->Cell(1)->kind, GCF_NUMBER_EDIT);
    EXPECT_EQ(grid.GetRowAt(0)->Cell(2)->kind, GCF_ICON | GCF_LIST_EDIT);

    // The same text in capitals is the same expression: nothing is asked again.
    TypeExpression("X", 0);
    EXPECT_EQ(Lines(), (Texts{"x", Prompt()}));
    EXPECT_EQ(service.requests.size(), 1u);
}

TEST_F(WatchRowsTest, EmptyCommitsRestoreThePromptOrDeleteTheRow)
{
    TypeExpression("x");
    TypeExpression("a");
    ASSERT_EQ(Lines(), (Texts{"x", "a", Prompt()}));

    // Emptying the last line gives the input row its prompt back.
    EditCell(2, 0, "");
    EXPECT_EQ(Lines(), (Texts{"x", "a", Prompt()}));

    EditCell(1, 0, "b");
    EXPECT_EQ(Lines(), (Texts{"x", "b", Prompt()}));
    EXPECT_EQ(Cell(1, 1), GBK(u8"变量未定义"));

    EditCell(0, 0, "");
    EXPECT_EQ(Lines(), (Texts{"b", Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), 0);
}

TEST_F(WatchRowsTest, TheHostAddsExpressionsBeforeTheInputRowAndSelectsThem)
{
    TypeExpression("x");
    AddViaHost("a");
    EXPECT_EQ(Lines(), (Texts{"x", "a", Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), 1);
    // Empty and missing texts are ignored.
    AddViaHost("");
    grid.SendMessage(UWM_WATCH_ADD_EXPRESSION, 0, 0);
    EXPECT_EQ(Lines(), (Texts{"x", "a", Prompt()}));
    // Taken as it is: no trimming, duplicates allowed.
    AddViaHost(" x");
    AddViaHost("x");
    EXPECT_EQ(Lines(), (Texts{"x", "a", " x", "x", Prompt()}));
}

TEST_F(WatchRowsTest, TheExpressionListRoundTripsThroughAnotherGrid)
{
    const std::string chinese = GBK(u8"温度[2]");
    service.Define(chinese, MakeRecord(WT_CHAR, WS_IDATA, 0x80, 1, 65));
    TypeExpression("x");
    AddViaHost(chinese);
    AddViaHost("point");
    grid.ToggleExpand(2);
    ASSERT_EQ(Lines().size(), 6u);

    CStringArray list;
    list.Add("stale");
    grid.SendMessage(UWM_WATCH_EXPRESSIONS, reinterpret_cast<WPARAM>(&list), TRUE);
    ASSERT_EQ(list.GetSize(), 3);
    EXPECT_EQ(std::string(list[0]), "x");
    EXPECT_EQ(std::string(list[1]), chinese);
    EXPECT_EQ(std::string(list[2]), "point");

    CWatchGridCtrl second;
    ASSERT_TRUE(second.Create(&other));
    service.ClearRequests();
    second.SendMessage(UWM_WATCH_EXPRESSIONS, reinterpret_cast<WPARAM>(&list), FALSE);
    EXPECT_EQ(second.GetItemCount(), 4);
    EXPECT_EQ(second.GetRowAt(1)->text, chinese.c_str());
    EXPECT_EQ(second.GetRowAt(1)->CellText(3), "idata:0080, char, \"A\"");
    // Freshly evaluated, collapsed, children not made yet.
    EXPECT_EQ(service.Codes(), (std::vector<unsigned>(3, ScriptedDebugger::kEvaluate)));
    const CGridRow* point = second.GetRowAt(2);
    EXPECT_EQ(point->Flags() & (GRF_PARENT | GRF_COLLAPSED), GRF_PARENT | GRF_COLLAPSED);
    EXPECT_EQ(point->children.GetSize(), 0);
}

TEST_F(WatchRowsTest, ClearLeavesNoRowAtAllAndTypingThenDoesNothing)
{
    TypeExpression("x");
    grid.SendMessage(UWM_WATCH_CLEAR, 0, 0);
    EXPECT_EQ(grid.GetItemCount(), 0);
    EXPECT_EQ(grid.Rows().GetSize(), 0);
    grid.SetFocus();
    Input::Type("a");
    EXPECT_EQ(grid.GetItemCount(), 0);
    EXPECT_FALSE(grid.EditBox().IsWindowVisible());
}

TEST_F(WatchRowsTest, InsertPutsAnEmptyEditedRowBeforeTheLinesTopLevelRow)
{
    TypeExpression("x");
    AddViaHost("point");
    grid.ToggleExpand(1);
    ASSERT_EQ(Lines(), (Texts{"x", "point", "", "", Prompt()}));
    ASSERT_EQ(grid.GetRowAt(2)->level, 1u);

    // On a child line: before that child's top-level row.
    grid.SetFocus();
    grid.SelectItem(3);
    Input::Key(VK_INSERT);
    EXPECT_EQ(grid.GetSelectedItem(), 1);
    EXPECT_TRUE(grid.EditBox().IsWindowVisible());
    EXPECT_EQ(std::string(grid.GetEditText()), "");
    EXPECT_EQ(grid.GetCurrentColumn(), 0);
    Input::Type("a");
    Input::Key(VK_RETURN);
    EXPECT_EQ(Lines()[1], "a");
    EXPECT_EQ(Lines()[2], "point");

    // On a top-level line: on that line.
    grid.SelectItem(0);
    Input::Key(VK_INSERT);
    EXPECT_EQ(grid.GetSelectedItem(), 0);
    Input::Key(VK_ESCAPE);
    // Left unchanged, the placeholder goes again.
    EXPECT_EQ(Lines()[0], "x");

    // With nothing selected: at the top.
    grid.SetItemState(grid.GetSelectedItem(), 0, LVIS_SELECTED | LVIS_FOCUSED);
    ASSERT_EQ(grid.GetSelectedItem(), -1);
    Input::Key(VK_INSERT);
    EXPECT_EQ(grid.GetSelectedItem(), 0);
    EXPECT_EQ(Lines()[0], Prompt());
}

TEST_F(WatchRowsTest, AFixedListTakesNoNewRowsAndNoExpressionEdits)
{
    grid.SendMessage(UWM_WATCH_CLEAR, 0, 0);
    grid.fixedRows = TRUE;
    grid.SendMessage(UWM_WATCH_EXPRESSIONS, 0, FALSE);  // a missing list: nothing
    grid.SendMessage(UWM_WATCH_REFRESH, 0, 0);
    ASSERT_EQ(Lines(), (Texts{"unused"}));
    AddViaHost("x");
    grid.SetFocus();
    grid.SelectItem(0);
    Input::Key(VK_INSERT);
    TypeExpression("a", 0);
    EXPECT_EQ(Lines(), (Texts{"unused"}));
    EXPECT_EQ(grid.GetRowAt(0)->Cell(0)->kind, 0u);
    EXPECT_FALSE(grid.EnsureInputRow());
    CGridRow* row = MakeWatchRow("y");
    EXPECT_EQ(grid.InsertRowAtLine(0, row), -1);
    delete row;
}

TEST_F(WatchRowsTest, WithoutAServiceWindowNewRowsKeepZeroFilledRecords)
{
    host.context.debuggerWindow = nullptr;
    TypeExpression("x");
    host.answersAppData = false;
    AddViaHost("a");
    EXPECT_EQ(Lines(), (Texts{"x", "a", Prompt()}));
    for (int line = 0; line < 2; ++line) {
        const WatchRecord* record = RecordOf(grid.GetRowAt(line));
        EXPECT_EQ(record->status, 0);
        EXPECT_EQ(record->errorId, 0u);
        EXPECT_EQ(Cell(line, 1), "");
    }
    EXPECT_TRUE(service.requests.empty());
}

TEST_F(WatchRowsTest, TheServiceIsLookedUpAfreshForEveryRequest)
{
    ScriptedDebugger second;
    ASSERT_TRUE(second.CreateService(&host));
    second.Define("a", MakeRecord(WT_INT, WS_DATA, 0x50, 2, 3));
    AddViaHost("x");
    host.context.debuggerWindow = second.GetSafeHwnd();
    AddViaHost("a");
    host.appData.context = nullptr;  // the project closed
    AddViaHost("x");
    host.appData.context = &host.context;
    EXPECT_EQ(service.Codes(), (std::vector<unsigned>{ScriptedDebugger::kEvaluate}));
    ASSERT_EQ(second.requests.size(), 1u);
    EXPECT_EQ(second.requests[0].text, "a");
    EXPECT_EQ(Cell(2, 1), "");
    // One question to the host for each request.
    EXPECT_EQ(host.Count(UWM_GET_APP_DATA), 3);
}

TEST_F(WatchRowsTest, FindRowAtTellsTheOutermostCallerTheTopLevelIndex)
{
    TypeExpression("x");
    AddViaHost("point");
    grid.ToggleExpand(1);
    int counter = 0;
    EXPECT_EQ(grid.FindRowAt(3, &grid.Rows(), &counter), grid.Rows().GetRow(1)->children.GetRow(1));
    EXPECT_EQ(counter, 1);
    counter = 0;
    EXPECT_EQ(grid.FindRowAt(4, &grid.Rows(), &counter), grid.Rows().GetRow(2));
    EXPECT_EQ(counter, 2);
    counter = 0;
    EXPECT_EQ(grid.FindRowAt(-1, &grid.Rows(), &counter), nullptr);
    EXPECT_EQ(grid.FindRowAt(5, &grid.Rows(), &counter), nullptr);
    EXPECT_EQ(grid.LineOfTopRow(2), 4);
    EXPECT_EQ(grid.LineOfTopRow(99), 5);
    EXPECT_EQ(grid.LineOfRow(grid.Rows().GetRow(1)->children.GetRow(0)), 2);
    grid.ToggleExpand(1);
    EXPECT_EQ(grid.LineOfRow(grid.Rows().GetRow(1)->children.GetRow(0)), -1);
}

}  // namespace
