// Menus from resources and the popup menu's loop, driven headless.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/core/module.h"
#include "platform/core/thread.h"
#include "platform/docking/frame_wnd.h"
#include "platform/menu/popup_menu.h"
#include "platform/text/gbk.h"

extern "C" const ResourceTable* TestDockpanesResources();

namespace {

std::vector<std::string> g_events;

// An owner with one enabled-by-rule command, one plain command, one unhandled.
class MenuOwner : public CWnd {
public:
    bool allowSeek = false;

protected:
    DECLARE_MESSAGE_MAP()
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_ENTERMENULOOP) g_events.push_back("enter");
        if (message == WM_EXITMENULOOP) g_events.push_back("exit");
        return CWnd::WindowProc(message, wParam, lParam);
    }
    void OnSeek() { g_events.push_back("owner seek"); }
    void OnUpdateSeek(CCmdUI* ui)
    {
        g_events.push_back("update");
        ui->Enable(allowSeek);
    }
    void OnCopy() { g_events.push_back("owner copy"); }
};

BEGIN_MESSAGE_MAP(MenuOwner, CWnd)
    ON_COMMAND(32062, &MenuOwner::OnSeek)
    ON_UPDATE_COMMAND_UI(32062, &MenuOwner::OnUpdateSeek)
    ON_COMMAND(32061, &MenuOwner::OnCopy)
END_MESSAGE_MAP()

class MainFrame : public CFrameWnd {
protected:
    DECLARE_MESSAGE_MAP()
    void OnCopy() { g_events.push_back("frame copy"); }
};

BEGIN_MESSAGE_MAP(MainFrame, CFrameWnd)
    ON_COMMAND(32061, &MainFrame::OnCopy)
END_MESSAGE_MAP()

class PopupMenus : public ::testing::Test {
protected:
    void SetUp() override
    {
        g_events.clear();
        MenuDriver::Reset();
        module = AfxRegisterModule("resources", TestDockpanesResources());
        ASSERT_TRUE(AfxInitExtensionModule(state, module));
        new CDynLinkLibrary(state);
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 300, 200)));
        app.m_pMainWnd = &frame;
        ASSERT_TRUE(owner.Create(nullptr, "owner", WS_VISIBLE, CRect(0, 0, 100, 100), &frame, 1));
    }
    void TearDown() override
    {
        app.m_pMainWnd = nullptr;
        AfxTermExtensionModule(state);
        AfxUnregisterModule(module);
        MenuDriver::Reset();
    }

    // Shows the message menu's popup for the owner.
    void Show(BOOL ownMessage, POINT at = POINT{40, 50})
    {
        CMenu menu;
        ASSERT_TRUE(menu.LoadMenu(20005));
        auto* popup = new CBCGPPopupMenu;
        popup->Create(&owner, at.x, at.y, menu.GetSubMenu(0)->GetSafeHmenu(), FALSE, ownMessage);
    }

    CWinApp app;
    HINSTANCE module = nullptr;
    AFX_EXTENSION_MODULE state;
    MainFrame frame;
    MenuOwner owner;
};

TEST_F(PopupMenus, MenusLoadFromTheChainAndFreeTheirSubmenus)
{
    const int before = LiveMenuCount();
    {
        CMenu menu;
        ASSERT_TRUE(menu.LoadMenu(20009));
        CMenu* popup = menu.GetSubMenu(0);
        ASSERT_NE(popup, nullptr);
        CString text;
        popup->GetMenuString(0, text, MF_BYPOSITION);
        EXPECT_EQ(std::string(text), GBK(u8"进入编辑"));
        EXPECT_EQ(popup->GetMenuItemID(0), 32993u);
        EXPECT_EQ(popup->GetMenuItemID(4), static_cast<UINT>(-1));  // the format popup
        ASSERT_NE(popup->GetSubMenu(4), nullptr);
        EXPECT_EQ(popup->GetSubMenu(4)->GetMenuItemCount(), 3);
        EXPECT_GT(LiveMenuCount(), before);
        EXPECT_FALSE(menu.LoadMenu(20001));  // one menu per object
    }
    EXPECT_EQ(LiveMenuCount(), before);
    CMenu missing;
    EXPECT_FALSE(missing.LoadMenu(12345));
}

TEST_F(PopupMenus, TheLoopAsksUpdateHandlersAndDeliversTheChoiceToTheOwner)
{
    owner.allowSeek = true;
    MenuDriver::Choose(32062);
    Show(TRUE);
    EXPECT_EQ(g_events, (std::vector<std::string>{"enter", "update", "exit", "owner seek"}));
    const ShownMenu* shown = MenuDriver::LastShown();
    ASSERT_NE(shown, nullptr);
    ASSERT_EQ(shown->items.size(), 6u);
    EXPECT_TRUE(shown->items[1].separator);
    EXPECT_EQ(shown->items[0].text, GBK(u8"拷贝"));
    EXPECT_TRUE(shown->Find(32061)->enabled);   // handled, no update handler
    EXPECT_FALSE(shown->Find(32063)->enabled);  // nobody handles Stop here
    EXPECT_EQ(shown->point.x, 40);
    EXPECT_EQ(CBCGPPopupMenu::LiveCount(), 0);
}

TEST_F(PopupMenus, DisabledOrDismissedChoicesSendNothing)
{
    MenuDriver::Choose(32062);  // disabled by the update handler
    Show(TRUE);
    Show(TRUE);  // no answer queued: dismissed
    EXPECT_EQ(g_events, (std::vector<std::string>{"enter", "update", "exit", "enter", "update", "exit"}));
    EXPECT_EQ(MenuDriver::ShownCount(), 2);
    EXPECT_EQ(CBCGPPopupMenu::LiveCount(), 0);
}

TEST_F(PopupMenus, WithoutOwnRoutingCommandsGoToTheMainFrame)
{
    MenuDriver::Choose(32061);
    Show(FALSE);
    EXPECT_EQ(g_events, (std::vector<std::string>{"enter", "exit", "frame copy"}));
}

TEST_F(PopupMenus, TheOpenMenuIsAWindowThatShowsItsItems)
{
    bool sawWindow = false;
    MenuDriver::Queue([&](const ShownMenu& menu) {
        const HWND popup = WindowFromPoint(POINT{menu.point.x + 5, menu.point.y + 5});
        sawWindow = popup && popup != frame.GetSafeHwnd() && GetParent(popup) == owner.GetSafeHwnd();
        return 0u;
    });
    Show(TRUE);
    EXPECT_TRUE(sawWindow);
    EXPECT_NE(WindowFromPoint(POINT{45, 55}), nullptr);
    EXPECT_EQ(CBCGPPopupMenu::LiveCount(), 0);
}

TEST_F(PopupMenus, AMenuNearTheScreensEdgeFlipsToStayOnIt)
{
    // The main frame is the screen a desktop window shows: 300 x 200.
    CRect shown;
    MenuDriver::Queue([&](const ShownMenu& menu) {
        ::GetWindowRect(WindowFromPoint(POINT{menu.point.x - 5, menu.point.y - 5}), &shown);
        return 0u;
    });
    Show(TRUE, POINT{290, 190});
    CRect screen;
    frame.GetWindowRect(&screen);
    EXPECT_EQ(shown.right, 290);
    EXPECT_EQ(shown.bottom, 190);
    EXPECT_GE(shown.left, screen.left);
    EXPECT_GE(shown.top, screen.top);
}

TEST_F(PopupMenus, BadArgumentsFailAndFreeThePopup)
{
    auto* popup = new CBCGPPopupMenu;
    EXPECT_FALSE(popup->Create(&owner, 0, 0, nullptr, FALSE, TRUE));
    auto* orphan = new CBCGPPopupMenu;
    CMenu menu;
    menu.CreatePopupMenu();
    EXPECT_FALSE(orphan->Create(nullptr, 0, 0, menu, FALSE, TRUE));
    EXPECT_EQ(CBCGPPopupMenu::LiveCount(), 0);
    EXPECT_TRUE(g_events.empty());
}

}  // namespace
