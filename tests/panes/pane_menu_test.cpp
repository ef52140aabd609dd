// Each pane passes a context-menu request on to its view, which shows its own
// menu at the request's screen point.
#include "host/resource_ids.h"
#include "panes/dock_bar_book_mark.h"
#include "panes/dock_bar_brkpnt.h"
#include "panes/dock_bar_debug_message.h"
#include "panes/dock_bar_func_list.h"
#include "panes/dock_bar_message.h"
#include "panes/dock_bar_search.h"
#include "panes/dock_bar_watch.h"
#include "panes/dock_bar_workspace1.h"
#include "panes/dock_bar_workspace2.h"
#include "platform/input/input.h"
#include "tests/panes/pane_fixture.h"

namespace {

class PaneMenu : public PaneFixture {
protected:
    // Requests the menu at a point and checks it is the resource's menu, shown
    // there, with its commands going to the pane's view.
    template <class Pane>
    void ExpectMenu(Pane& pane, UINT menuId)
    {
        const CPoint point(40, 30);
        const int before = MenuDriver::ShownCount();
        RequestMenu(pane, point);
        ASSERT_EQ(MenuDriver::ShownCount(), before + 1) << "menu " << menuId;
        const std::vector<UINT> expected = ResourceMenuIds(menuId);
        ASSERT_FALSE(expected.empty()) << "menu " << menuId << " did not load";
        EXPECT_EQ(ShownMenuIds(), expected) << "menu " << menuId;
        EXPECT_EQ(MenuDriver::LastShown()->point.x, point.x);
        EXPECT_EQ(MenuDriver::LastShown()->point.y, point.y);
        EXPECT_EQ(MenuDriver::LastShown()->target, pane.GetViewHwnd());
    }
};

TEST_F(PaneMenu, TreePanesShowTheirViewsMenus)
{
    CDockBarBookMark bookmarks;
    CDockBarBrkpnt breakpoints;
    CDockBarFuncList functions;
    ASSERT_TRUE(CreatePane(bookmarks));
    ASSERT_TRUE(CreatePane(breakpoints));
    ASSERT_TRUE(CreatePane(functions));
    ExpectMenu(bookmarks, IDR_BOOKMARK_MENU);
    ExpectMenu(breakpoints, IDR_BREAKPOINT_MENU);
    ExpectMenu(functions, IDR_FUNCLIST_MENU);
}

TEST_F(PaneMenu, MessagePanesShareTheMessageMenu)
{
    CDockBarMessage messages;
    CDockBarSearch search;
    CDockBarDebugMessage debug;
    ASSERT_TRUE(CreatePane(messages));
    ASSERT_TRUE(CreatePane(search));
    ASSERT_TRUE(CreatePane(debug));
    ExpectMenu(messages, IDR_MESSAGE_MENU);
    ExpectMenu(search, IDR_MESSAGE_MENU);
    ExpectMenu(debug, IDR_MESSAGE_MENU);
}

TEST_F(PaneMenu, WatchPaneShowsTheWatchMenu)
{
    CDockBarWatch watch;
    ASSERT_TRUE(CreatePane(watch));
    ExpectMenu(watch, IDR_WATCH_MENU);
}

TEST_F(PaneMenu, WorkspacePanesShowTheirTreesMenus)
{
    CDockBarWorkspace1 files;
    CDockBarWorkspace2 targets;
    ASSERT_TRUE(CreatePane(files));
    ASSERT_TRUE(CreatePane(targets));
    RequestMenu(files, CPoint(5, 6));
    EXPECT_EQ(ShownMenuIds(), std::vector<UINT>{ID_WORKSPACE_REFRESH});
    EXPECT_EQ(MenuDriver::LastShown()->target, files.GetViewHwnd());
    RequestMenu(targets, CPoint(5, 6));
    EXPECT_EQ(ShownMenuIds(), std::vector<UINT>{ID_WORKSPACE_STOP});
    EXPECT_EQ(MenuDriver::LastShown()->target, targets.GetViewHwnd());
}

// A right click on the pane's own frame reaches the pane, which shows the
// view's menu at the screen point of the click.
TEST_F(PaneMenu, RightClickOnTheFrameShowsTheViewsMenu)
{
    CDockBarMessage messages;
    ASSERT_TRUE(CreatePane(messages, CRect(30, 40, 230, 140)));
    Input::RightClick(&messages, CPoint(0, 50));
    ASSERT_EQ(MenuDriver::ShownCount(), 1);
    EXPECT_EQ(ShownMenuIds(), ResourceMenuIds(IDR_MESSAGE_MENU));
    CPoint screen(0, 50);
    messages.ClientToScreen(&screen);
    EXPECT_EQ(MenuDriver::LastShown()->point.x, screen.x);
    EXPECT_EQ(MenuDriver::LastShown()->point.y, screen.y);
}

}  // namespace
