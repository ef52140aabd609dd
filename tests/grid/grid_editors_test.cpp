// The in-place editors: how editing starts, and which ways of ending it
// commit what was entered.
#include <climits>
#include <cstdint>
#include <string>

#include "tests/grid/test_grid.h"
#include "tests/support/clipboard_text.h"

namespace {

class GridEditorsTest : public GridFixture {
protected:
    void SetUp() override
    {
        GridFixture::SetUp();
        AddRow("first");
        AddRow("second");
        SyncCount();
        grid.SetFocus();
        grid.SelectItem(0);
    }

    // Opens the editor of a cell with Enter and replaces its text by typing.
    void EditAndType(int item, int column, const char* typed)
    {
        grid.SelectItem(item);
        while (grid.GetCurrentColumn() < column) Input::Key(VK_RIGHT);
        while (grid.GetCurrentColumn() > column) Input::Key(VK_LEFT);
        Input::Key(VK_RETURN);
        ASSERT_TRUE(Editing());
        Input::Type(typed);
    }

    using Texts = std::vector<std::string>;
};

TEST_F(GridEditorsTest, EnterCommitsExpressionsAndNumbersButNotOtherTexts)
{
    EditAndType(0, 0, "x1");
    EXPECT_EQ(grid.EditBox().GetDlgCtrlID(), 1020);
    Input::Key(VK_RETURN);
    EXPECT_FALSE(Editing());
    EXPECT_EQ(CWnd::GetFocus(), &grid);
    EXPECT_EQ(grid.editsDone, (Texts{"x1"}));

    EditAndType(0, 1, "99");
    Input::Key(VK_RETURN);
    EXPECT_EQ(grid.editsDone, (Texts{"x1", "99"}));

    grid.GetRowAt(0)->SetCellTextEdit(1, TRUE, -1);
    EditAndType(0, 1, "text");
    Input::Key(VK_RETURN);
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid.editsDone.size(), 2u);
}

TEST_F(GridEditorsTest, EscapeNeverCommitsAndDropsEmptyRowsAboveTheLast)
{
    EditAndType(0, 0, "x");
    Input::Key(VK_ESCAPE);
    EXPECT_FALSE(Editing());
    EXPECT_TRUE(grid.editsDone.empty());
    EXPECT_EQ(grid.deletes, 0);  // the row has a text

    CString placeholder;
    ASSERT_TRUE(placeholder.LoadString(32062));
    EXPECT_EQ(std::string(placeholder), GBK(u8"\"点击输入表达式\""));
    grid.GetRowAt(0)->text = placeholder;
    grid.GetRowAt(1)->text = placeholder;
    grid.SelectItem(0);
    Input::Key(VK_RETURN);
    EXPECT_STREQ(grid.GetEditText(), "");  // the placeholder is not edited
    Input::Key(VK_ESCAPE);
    EXPECT_EQ(grid.deletes, 1);

    grid.SelectItem(1);  // the last line keeps its input row
    Input::Key(VK_RETURN);
    Input::Key(VK_ESCAPE);
    EXPECT_EQ(grid.deletes, 1);
    EXPECT_TRUE(grid.editsDone.empty());
}

// Ctrl+V starts from an empty box: neither the text nor the modified state of
// an earlier edit comes along.
TEST_F(GridEditorsTest, PasteReplacesWhatAnEarlierEditLeftInTheBox)
{
    EditAndType(0, 0, "xyz");
    Input::Key(VK_RETURN);
    ASSERT_EQ(grid.editsDone, (Texts{"xyz"}));

    test_clipboard::PutClipboardText(grid.GetSafeHwnd(), "clip");
    grid.SelectItem(1);
    Input::Key('V', Input::kControl);
    ASSERT_TRUE(Editing());
    EXPECT_STREQ(grid.GetEditText(), "clip");
    int start = -1, end = -1;
    grid.EditBox().GetSel(start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 4);
    Input::Key(VK_RETURN);
    EXPECT_EQ(grid.editsDone, (Texts{"xyz", "clip"}));
    test_clipboard::CleanClipboard();
}

TEST_F(GridEditorsTest, EmptyPasteOpensAnEmptyBoxThatCommitsNothingOld)
{
    EditAndType(1, 0, "xyz");
    Input::Key(VK_RETURN);
    ASSERT_EQ(grid.editsDone, (Texts{"xyz"}));

    test_clipboard::CleanClipboard();
    grid.SelectItem(0);
    Input::Key('V', Input::kControl);
    ASSERT_TRUE(Editing());
    EXPECT_STREQ(grid.GetEditText(), "");
    ClickCell(1, 0);  // nothing was entered, so a click commits nothing
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid.editsDone, (Texts{"xyz"}));
    EXPECT_EQ(grid.deletes, 0);  // the row keeps its text

    grid.SelectItem(0);
    Input::Key('V', Input::kControl);
    ASSERT_TRUE(Editing());
    EXPECT_STREQ(grid.GetEditText(), "");
    Input::Key(VK_RETURN);  // Enter commits what the box holds: nothing
    EXPECT_EQ(grid.editsDone, (Texts{"xyz", ""}));
}

TEST_F(GridEditorsTest, ClickWheelAndScrollEndEditingWithTheEnterRules)
{
    EditAndType(0, 0, "clicked");
    ClickCell(1, 0);
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid.editsDone, (Texts{"clicked"}));

    EditAndType(0, 1, "5");
    Input::Wheel(&grid, CellCentre(1, 1), -120);
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid.editsDone, (Texts{"clicked", "5"}));

    EditAndType(0, 1, "6");
    grid.SendMessage(WM_VSCROLL, 1, 0);  // one line down
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid.editsDone.back(), "6");
}

TEST_F(GridEditorsTest, ColumnResizeAndSidewaysScrollEndEditing)
{
    EditAndType(0, 0, "wide");
    grid.SetColumnWidth(1, 140);
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid.editsDone, (Texts{"wide"}));

    EditAndType(0, 0, "scrolled");
    grid.SendMessage(WM_HSCROLL, 1, 0);  // one step right
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid.editsDone, (Texts{"wide", "scrolled"}));
}

TEST_F(GridEditorsTest, FocusToAnotherWindowCommitsExpressionsAndDropsNumbers)
{
    EditAndType(0, 1, "77");
    other.SetFocus();
    EXPECT_FALSE(Editing());
    EXPECT_TRUE(grid.editsDone.empty());

    grid.SetFocus();
    EditAndType(0, 0, "expr");
    other.SetFocus();
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid.editsDone, (Texts{"expr"}));

    // A text cell that also takes numbers commits when it was changed.
    grid.SetFocus();
    grid.GetRowAt(0)->SetCellKind(1, GCF_TEXT_EDIT | GCF_NUMBER_EDIT);
    EditAndType(0, 1, "8");
    other.SetFocus();
    EXPECT_EQ(grid.editsDone, (Texts{"expr", "8"}));

    grid.SetFocus();
    grid.GetRowAt(0)->SetCellKind(1, GCF_TEXT_EDIT);
    EditAndType(0, 1, "9");
    other.SetFocus();
    EXPECT_EQ(grid.editsDone.size(), 2u);
}

TEST_F(GridEditorsTest, CellLimitAppliesOnlyWhenSet)
{
    EditAndType(0, 0, "abcdef");  // limit 0: none
    EXPECT_STREQ(grid.GetEditText(), "abcdef");
    Input::Key(VK_ESCAPE);

    grid.GetRowAt(0)->SetCellNumberEdit(1, TRUE, 3);
    EditAndType(0, 1, "123456");
    EXPECT_STREQ(grid.GetEditText(), "123");
    Input::Key(VK_ESCAPE);

    // A cell without a limit leaves the edit box's limit as the last cell set it.
    EditAndType(0, 0, "abcdef");
    EXPECT_STREQ(grid.GetEditText(), "abc");
}

// A host's limit past the grid's own (any negative one reads as a huge
// unsigned number) is cut to it, so that pasting the box's text back in
// again and again stops there.
TEST_F(GridEditorsTest, AHostLimitPastTheGridsOwnIsCutToIt)
{
    for (const int limit : {INT_MAX, -2, static_cast<int>(kGridMaxEditLimit) + 1}) {
        grid.GetRowAt(0)->SetCellTextEdit(1, TRUE, limit);
        EditAndType(0, 1, "x");
        EXPECT_EQ(grid.EditBox().GetLimitText(), kGridMaxEditLimit) << limit;
        Input::Key(VK_ESCAPE);
    }
    EditAndType(0, 1, "0123456789");
    for (int i = 0; i < 16; ++i) Input::Type("\x01\x03\x16\x16");  // Ctrl+A, Ctrl+C, Ctrl+V twice
    EXPECT_EQ(static_cast<std::uint32_t>(grid.GetEditText().GetLength()), kGridMaxEditLimit);
}

TEST_F(GridEditorsTest, FullCellTextOpensWhole)
{
    grid.GetRowAt(0)->SetCellText(1, std::string(kGridCellTextBytes + 10, 'A'));
    grid.SelectItem(0);
    Input::Key(VK_RIGHT);
    Input::Key(VK_RETURN);
    ASSERT_TRUE(Editing());
    EXPECT_EQ(grid.GetEditText().GetLength(), kGridCellTextBytes - 1);
}

TEST_F(GridEditorsTest, ListOpensOnTheCellValueAndCommitsEverySelection)
{
    grid.SelectItem(0);
    Input::Key(VK_RIGHT);
    Input::Key(VK_RIGHT);
    Input::Key(VK_RETURN);
    ASSERT_TRUE(Listing());
    EXPECT_EQ(grid.GetComboSel(), 1);  // the cell's value
    EXPECT_EQ(CWnd::GetFocus(), &grid.ComboBox());

    Input::Key(VK_DOWN);  // changing the selection accepts at once
    EXPECT_FALSE(Listing());
    EXPECT_EQ(grid.listsDone, (std::vector<int>{2}));
    EXPECT_EQ(grid.moveDowns, 0);

    Input::Key(VK_RETURN);
    ASSERT_TRUE(Listing());
    Input::Key(VK_ESCAPE);  // closing commits whatever is selected
    EXPECT_FALSE(Listing());
    EXPECT_EQ(grid.listsDone.size(), 2u);

    Input::Key(VK_RETURN);
    other.SetFocus();
    EXPECT_FALSE(Listing());
    EXPECT_EQ(grid.listsDone.size(), 3u);
    EXPECT_TRUE(grid.editsDone.empty());
}

TEST_F(GridEditorsTest, ListNeverOpensInColumnZeroAndPlainCellsNeverOpen)
{
    grid.GetRowAt(0)->SetCellKind(0, GCF_LIST_EDIT);
    grid.SelectItem(0);
    Input::Key(VK_RETURN);
    EXPECT_FALSE(Listing());
    EXPECT_FALSE(Editing());
    grid.GetRowAt(0)->SetCellKind(1, 0);
    Input::Key(VK_RIGHT);
    Input::Key(VK_RETURN);
    EXPECT_FALSE(Editing());
    Input::Type("5");
    EXPECT_FALSE(Editing());
    grid.EndEdit();
    EXPECT_TRUE(grid.editsDone.empty());
    EXPECT_TRUE(grid.listsDone.empty());
}

}  // namespace
