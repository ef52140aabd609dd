// The docking pane base on its own: it exists only inside a frame, remembers
// its last size, and keeps context-menu requests from reaching the frame.
#include "platform/core/message_spy.h"
#include "platform/docking/bcgp_docking_control_bar.h"
#include "tests/panes/pane_fixture.h"

namespace {

using DockingBar = PaneFixture;

TEST_F(DockingBar, NeedsAFrameToBeCreatedIn)
{
    CBCGPDockingControlBar orphan;
    EXPECT_FALSE(orphan.Create("bar", nullptr, CRect(0, 0, 100, 50), kPaneId));
    EXPECT_EQ(orphan.GetSafeHwnd(), nullptr);

    CBCGPDockingControlBar bar;
    EXPECT_EQ(bar.GetLastSize(), CSize(0, 0));
    ASSERT_TRUE(CreatePane(bar, CRect(10, 10, 110, 60)));
    EXPECT_EQ(::GetParent(bar.GetSafeHwnd()), host.GetSafeHwnd());
    EXPECT_TRUE(bar.GetStyle() & WS_CHILD);
    EXPECT_EQ(bar.GetLastSize(), CSize(100, 50));
    bar.MoveWindow(0, 0, 80, 30);
    EXPECT_EQ(bar.GetLastSize(), CSize(80, 30));
}

TEST_F(DockingBar, KeepsContextMenuRequestsFromTheFrame)
{
    CBCGPDockingControlBar bar;
    ASSERT_TRUE(CreatePane(bar));
    const MessageSpy::Counter toFrame(host.GetSafeHwnd(), WM_CONTEXTMENU);
    bar.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(bar.GetSafeHwnd()), MAKELPARAM(5, 5));
    EXPECT_EQ(toFrame.Count(), 0);
    EXPECT_EQ(MenuDriver::ShownCount(), 0);
}

}  // namespace
