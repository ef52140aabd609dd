// The grid's drop target hands a watch grid's drag events to the grid's own
// handlers; over any other window it refuses, as the default target does.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "grid/grid_drop_target.h"
#include "platform/input/input.h"
#include "platform/ole/clipboard.h"
#include "platform/ole/global_text.h"
#include "tests/support/test_host.h"
#include "tests/support/test_pane.h"
#include "watch/watch_grid_ctrl.h"

namespace {

// A watch grid that records which of its drag handlers ran.
class RecordingWatch : public CWatchGridCtrl {
public:
    std::vector<std::string> calls;
    DROPEFFECT OnDragEnter(CWnd* w, COleDataObject* d, DWORD k, CPoint p) override
    {
        calls.push_back("enter");
        return CWatchGridCtrl::OnDragEnter(w, d, k, p);
    }
    DROPEFFECT OnDragOver(CWnd* w, COleDataObject* d, DWORD k, CPoint p) override
    {
        calls.push_back("over");
        return CWatchGridCtrl::OnDragOver(w, d, k, p);
    }
    DROPEFFECT OnDropEx(CWnd* w, COleDataObject* d, DROPEFFECT e, DROPEFFECT l, CPoint p) override
    {
        calls.push_back("dropex");
        return CWatchGridCtrl::OnDropEx(w, d, e, l, p);
    }
    void OnDragLeave(CWnd*) override { calls.push_back("leave"); }
};

// Watches the framework's side: whether OnDrop and the base leave ran.
class SpyTarget : public CGridDropTarget {
public:
    std::vector<std::string>* calls = nullptr;
    BOOL OnDrop(CWnd* w, COleDataObject* d, DROPEFFECT e, CPoint p) override
    {
        calls->push_back("ondrop");
        return CGridDropTarget::OnDrop(w, d, e, p);
    }
};

class GridDropTargetTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(pane.CreatePane(&host, CRect(0, 0, 400, 300)));
        ASSERT_TRUE(grid.Create(&pane));
        grid.Layout(0, 0, 400, 300);
        data.Attach(&blocks);
        blocks.Set(CF_TEXT, GlobalText::Alloc("count"));
    }

    TestHost host;
    TestPane pane;
    RecordingWatch grid;
    FormatBlocks blocks;
    COleDataObject data;
    CGridDropTarget target;
};

TEST_F(GridDropTargetTest, EventsOverAWatchGridReachItsHandlers)
{
    EXPECT_EQ(target.OnDragEnter(&grid, &data, 0, CPoint(5, 5)), DROPEFFECT_COPY);
    EXPECT_EQ(target.OnDragOver(&grid, &data, 0, CPoint(5, 5)), DROPEFFECT_COPY);
    target.OnDragLeave(&grid);
    EXPECT_EQ((std::vector<std::string>{"enter", "over", "leave"}), grid.calls);
}

TEST_F(GridDropTargetTest, ADropOnAWatchGridNeverReachesOnDrop)
{
    SpyTarget spy;
    spy.calls = &grid.calls;
    ASSERT_TRUE(spy.Register(&grid));
    grid.calls.clear();
    Input::Wait();
    Input::DropFromOutside(blocks, Input::Gesture().MoveTo(&grid, CPoint(60, 40), 2).Release());
    ASSERT_FALSE(grid.calls.empty());
    EXPECT_EQ(grid.calls.back(), "dropex");
    EXPECT_EQ(std::count(grid.calls.begin(), grid.calls.end(), "ondrop"), 0);
    EXPECT_EQ(std::string(grid.GetRowAt(0)->text), "count");
}

TEST_F(GridDropTargetTest, AnyOtherWindowRefusesEveryDrop)
{
    TestPane other;
    ASSERT_TRUE(other.CreatePane(&host, CRect(400, 0, 600, 300)));
    EXPECT_EQ(target.OnDragEnter(&other, &data, 0, CPoint(5, 5)), DROPEFFECT_NONE);
    EXPECT_EQ(target.OnDragOver(&other, &data, 0, CPoint(5, 5)), DROPEFFECT_NONE);
    EXPECT_EQ(target.OnDropEx(&other, &data, DROPEFFECT_COPY, DROPEFFECT_COPY, CPoint(5, 5)), static_cast<DROPEFFECT>(-1));
    EXPECT_FALSE(target.OnDrop(&other, &data, DROPEFFECT_COPY, CPoint(5, 5)));
    EXPECT_TRUE(grid.calls.empty());
}

}  // namespace
