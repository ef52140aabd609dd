// Rows dragged within the watch are moved, or copied with Ctrl; rows dragged
// out carry their expression as text; text from elsewhere becomes a row.
#include "platform/ole/clipboard.h"
#include "platform/ole/global_text.h"
#include "platform/ole/ole_drop_target.h"
#include "tests/watch/watch_fixture.h"

namespace {

// Another application's window that takes text drops.
class TextTarget : public COleDropTarget {
public:
    std::string dropped;
    DROPEFFECT OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint) override { return DROPEFFECT_COPY; }
    DROPEFFECT OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint) override { return DROPEFFECT_COPY; }
    BOOL OnDrop(CWnd*, COleDataObject* data, DROPEFFECT, CPoint) override
    {
        HGLOBAL block = data->GetGlobalData(CF_TEXT);
        const bool read = block && GlobalText::Read(block, &dropped);
        if (block) GlobalFree(block);
        return read;
    }
};

class WatchDragTest : public WatchFixture {
protected:
    void SetUp() override
    {
        WatchFixture::SetUp();
        for (const char* name : {"x", "y", "z"}) {
            service.Define(name, MakeRecord(3, WS_DATA, name[0], 1, 1));
            grid.SendMessage(UWM_WATCH_ADD_EXPRESSION, reinterpret_cast<WPARAM>(name), 0);
        }
        grid.SelectItem(3);
        blocksAtStart = GlobalMemory::BlockCount();
    }

    // A point on the expression of a line, away from the expand box.
    CPoint On(int line)
    {
        CRect r;
        grid.GetSubItemRect(line, 0, LVIR_LABEL, r);
        return CPoint(r.left + 40, r.CenterPoint().y);
    }

    CPoint BelowTheLines()
    {
        CRect client;
        grid.GetClientRect(&client);
        return CPoint(60, client.bottom - 10);
    }

    void DragLine(int from, CPoint to, unsigned modifiers = Input::kNone)
    {
        Input::Wait();
        Input::Drag(&grid, On(from), to, 4, modifiers);
    }

    DROPEFFECT DropText(const std::string& text, CPoint to)
    {
        FormatBlocks data;
        data.Set(CF_TEXT, GlobalText::Alloc(text));
        return Input::DropFromOutside(data, Input::Gesture().MoveTo(&grid, to, 3).Release());
    }

    std::size_t blocksAtStart = 0;
};

TEST_F(WatchDragTest, ARowDraggedDownLandsAfterTheRowUnderTheDrop)
{
    DragLine(0, On(2));
    EXPECT_EQ(Lines(), (Texts{"y", "z", "x", Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), 2);
    EXPECT_FALSE(grid.IsDragging());
    EXPECT_EQ(grid.DragSourceLine(), 0);
    EXPECT_EQ(grid.DropLine(), 2);
    EXPECT_EQ(GlobalMemory::BlockCount(), blocksAtStart);
}

TEST_F(WatchDragTest, WithCtrlACopyGoesBeforeTheRowUnderTheDrop)
{
    DragLine(0, On(2), Input::kControl);
    EXPECT_EQ(Lines(), (Texts{"x", "y", "x", "z", Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), 2);
    // The copy has a record of its own.
    EXPECT_NE(grid.GetRowAt(2)->record, grid.GetRowAt(0)->record);
}

TEST_F(WatchDragTest, BelowTheLinesAMoveStopsAboveTheInputRowAndACopyGoesToTheTop)
{
    DragLine(0, BelowTheLines());
    EXPECT_EQ(Lines(), (Texts{"y", "z", "x", Prompt()}));
    DragLine(1, BelowTheLines(), Input::kControl);
    EXPECT_EQ(Lines(), (Texts{"z", "y", "z", "x", Prompt()}));
}

TEST_F(WatchDragTest, EscapeCancelsAndLeavesTheGridIdle)
{
    Input::Wait();
    Input::Gesture().Press(&grid, On(0)).MoveTo(&grid, On(2), 4).Key(VK_ESCAPE).Release().Play();
    EXPECT_EQ(Lines(), (Texts{"x", "y", "z", Prompt()}));
    EXPECT_FALSE(grid.IsDragging());
}

TEST_F(WatchDragTest, NeitherTheInputRowNorAMemberNorAFixedListStartsADrag)
{
    DragLine(3, On(0));
    grid.fixedRows = TRUE;
    DragLine(0, On(2));
    EXPECT_EQ(Lines(), (Texts{"x", "y", "z", Prompt()}));
    // A text drop adds nothing to a fixed list either.
    DropText("count", On(1));
    EXPECT_EQ(Lines(), (Texts{"x", "y", "z", Prompt()}));
}

TEST_F(WatchDragTest, TextFromAnotherApplicationBecomesAnExpressionRow)
{
    service.Define("count", MakeRecord(WT_INT, WS_XDATA, 0x10, 2, 5));
    EXPECT_EQ(DropText("count", On(1)), DROPEFFECT_COPY);
    EXPECT_EQ(Lines(), (Texts{"x", "count", "y", "z", Prompt()}));
    EXPECT_EQ(Cell(1, 1), "5");
    EXPECT_EQ(CWnd::GetFocus(), &grid);
    DropText("count", BelowTheLines());
    EXPECT_EQ(Lines(), (Texts{"x", "count", "y", "z", "count", Prompt()}));
    EXPECT_EQ(GlobalMemory::BlockCount(), blocksAtStart);
}

TEST_F(WatchDragTest, DropsOnTheInputRowGoBeforeIt)
{
    DragLine(0, On(3));
    EXPECT_EQ(Lines(), (Texts{"y", "z", "x", Prompt()}));
    DropText("y", On(3));
    EXPECT_EQ(Lines(), (Texts{"y", "z", "x", "y", Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), 3);
}

TEST_F(WatchDragTest, ARowDroppedElsewhereLeavesTheGridIdleForLaterTextDrops)
{
    TestPane editor;
    ASSERT_TRUE(editor.CreatePane(&host, CRect(0, 420, 300, 560)));
    TextTarget target;
    ASSERT_TRUE(target.Register(&editor));
    Input::Wait();
    // From the grid into the other window: its client point, seen from the grid.
    CPoint there(100, 60);
    editor.ClientToScreen(&there);
    grid.ScreenToClient(&there);
    Input::Drag(&grid, On(1), there);
    EXPECT_EQ(target.dropped, "y");
    EXPECT_EQ(Lines(), (Texts{"x", "y", "z", Prompt()}));
    EXPECT_FALSE(grid.IsDragging());

    DropText("x", On(0));
    EXPECT_EQ(Lines(), (Texts{"x", "x", "y", "z", Prompt()}));
}

}  // namespace
