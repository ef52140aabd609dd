// The breakpoint view: what differs from the bookmark view.
#include "marks/breakpoint_tree_ctrl.h"
#include "tests/marks/mark_view_fixture.h"
#include "tests/support/window_pixels.h"

namespace {

using BreakpointView = MarkViewFixture<CBreakPointListTreeCtrl, CBreakPointList>;

TEST_F(BreakpointView, ImagesFollowTheStateAndTheHold)
{
    Group* group = AddGroup("a.c", {3, 8});
    group->ItemAt(0)->active = 1;
    Refresh();
    EXPECT_EQ(Images(), (std::vector<int>{6, 7}));
    Refresh(1);
    EXPECT_EQ(Images(), (std::vector<int>{7, 7}));
    Refresh(1);  // still held
    group->ItemAt(1)->active = 1;
    Refresh(0);
    EXPECT_EQ(Images(), (std::vector<int>{6, 6}));
}

TEST_F(BreakpointView, ChangingOnlyTheStateRewritesOnlyThatImage)
{
    Group* group = AddGroup("a.c", {3, 8, 9});
    Refresh();
    SetItemCounter texts(view, TVIF_TEXT);
    SetItemCounter images(view, TVIF_IMAGE);
    SetItemCounter data(view, TVIF_PARAM);
    group->ItemAt(1)->active = 1;
    Refresh();
    EXPECT_EQ(images.Count(), 1);
    EXPECT_EQ(texts.Count(), 0);
    EXPECT_EQ(data.Count(), 0);
    EXPECT_EQ(Images(), (std::vector<int>{7, 6, 7}));
}

TEST_F(BreakpointView, ClearAllReachesTheHostAsItsOwnCommand)
{
    AddGroup("a.c", {3});
    Refresh();
    ShownMenu menu = RightClickMenu(LabelPoint(Nodes()[0]), 32032);
    ASSERT_EQ(menu.items.size(), 2u);
    EXPECT_EQ(menu.items[0].text, GBK(u8"定位到"));
    EXPECT_EQ(menu.items[1].text, GBK(u8"清除所有断点"));
    EXPECT_EQ(host.Commands(), std::vector<UINT>{32194});
    RightClickMenu(LabelPoint(Nodes()[0]), 32057);
    ASSERT_EQ(host.Count(UWM_GOTO_SOURCE), 1);
    EXPECT_EQ(host.Received(UWM_GOTO_SOURCE)[0].lParam, 3);
}

TEST_F(BreakpointView, ClickGoesToTheBreakpointAndTheStyleHasNoFullRowSelect)
{
    AddGroup("b.c", {12});
    Refresh();
    Input::Click(&view, LabelPoint(Nodes()[0]));
    ASSERT_EQ(host.Count(UWM_GOTO_SOURCE), 1);
    EXPECT_EQ(host.Received(UWM_GOTO_SOURCE)[0].text, "C:\\work\\demo\\b.c");
    EXPECT_EQ(view.GetStyle() & 0xFFFF, 0x0A27u);
    EXPECT_TRUE(view.GetStyle() & WS_VISIBLE);
}

TEST_F(BreakpointView, ActiveAndHeldImagesDifferInPixels)
{
    Group* group = AddGroup("a.c", {3});
    group->ItemAt(0)->active = 1;
    Refresh();
    // Yellow fills the active triangle; the outline image has none.
    const auto yellowPixels = [this] {
        Paint::UpdateAllWindows();
        CRect label;
        view.GetItemRect(Nodes()[0], &label, TRUE);
        const CRect badge(std::max(0, static_cast<int>(label.left) - 24), label.top, label.left, label.bottom);
        return WindowPixels(view).Count(RGB(255, 255, 0), badge);
    };
    EXPECT_GT(yellowPixels(), 20);
    Refresh(1);
    EXPECT_EQ(yellowPixels(), 0);
}

}  // namespace
