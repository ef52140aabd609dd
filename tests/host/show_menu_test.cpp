// The context-menu routine every view shares.
#include <gtest/gtest.h>

#include "host/show_menu.h"
#include "platform/menu/menu.h"
#include "platform/menu/menu_driver.h"
#include "platform/menu/popup_menu.h"
#include "tests/support/test_host.h"

namespace {

class MenuView : public CWnd {
public:
    int loops = 0;
    int seeks = 0;

protected:
    DECLARE_MESSAGE_MAP()
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_ENTERMENULOOP) ++loops;
        return CWnd::WindowProc(message, wParam, lParam);
    }
    void OnSeek() { ++seeks; }
};

BEGIN_MESSAGE_MAP(MenuView, CWnd)
    ON_COMMAND(32056, &MenuView::OnSeek)
END_MESSAGE_MAP()

TEST(ShowViewMenu, CommandsGoToTheViewAndNotTheMainFrame)
{
    MenuDriver::Reset();
    TestHost host;
    MenuView view;
    ASSERT_TRUE(view.Create(nullptr, "view", WS_VISIBLE, CRect(0, 0, 50, 50), &host, 1));
    const int menus = LiveMenuCount();
    MenuDriver::Choose(32056);
    ShowViewMenu(&view, 20001, CPoint(20, 30));
    EXPECT_EQ(view.seeks, 1);
    EXPECT_EQ(view.loops, 1);
    EXPECT_TRUE(host.Commands().empty());
    ASSERT_NE(MenuDriver::LastShown(), nullptr);
    EXPECT_EQ(MenuDriver::LastShown()->items.size(), 2u);
    EXPECT_EQ(LiveMenuCount(), menus);  // the loaded menu is destroyed again
    EXPECT_EQ(CBCGPPopupMenu::LiveCount(), 0);
    MenuDriver::Reset();
}

TEST(ShowViewMenu, AMenuThatCannotBeLoadedShowsNothing)
{
    MenuDriver::Reset();
    TestHost host;
    MenuView view;
    ASSERT_TRUE(view.Create(nullptr, "view", WS_VISIBLE, CRect(0, 0, 50, 50), &host, 1));
    MenuDriver::Choose(32056);
    ShowViewMenu(&view, 29999, CPoint(20, 30));
    EXPECT_EQ(MenuDriver::ShownCount(), 0);
    EXPECT_EQ(view.loops, 0);
    EXPECT_EQ(view.seeks, 0);
    EXPECT_TRUE(host.Received().empty());
    MenuDriver::Reset();
}

}  // namespace
