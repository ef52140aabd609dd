// Popup menus tracked by the user: a right click opens one over a view, and
// the rest of the gesture (moves, clicks, keys) reaches the menu's loop.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/core/input_state.h"
#include "platform/core/thread.h"
#include "platform/core/window_registry.h"
#include "platform/docking/frame_wnd.h"
#include "platform/gdi/sys_color.h"
#include "platform/input/input.h"
#include "platform/menu/menu_layout.h"
#include "platform/menu/popup_menu.h"
#include "platform/text/gbk.h"
#include "tests/support/watched_events.h"
#include "tests/support/window_pixels.h"

namespace {

constexpr UINT kCopy = 100;
constexpr UINT kPaste = 101;
constexpr UINT kStop = 102;  // greyed
constexpr UINT kSave = 103;
constexpr UINT kSelectAll = 104;
constexpr UINT kHex = 105;      // in the Format submenu
constexpr UINT kDecimal = 106;  // in the Format submenu

// The items as the view's menu lists them.
enum Item { kCopyItem, kPasteItem, kSeparatorItem, kStopItem, kSaveItem, kSelectAllItem, kFormatItem, kItemCount };

// Opens its menu where it is right-clicked and logs what reaches it.
class MenuView : public CWnd {
public:
    std::vector<std::string> log;

protected:
    DECLARE_MESSAGE_MAP()
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_ENTERMENULOOP) log.push_back("enter");
        if (message == WM_EXITMENULOOP) log.push_back("exit");
        if (message == WM_LBUTTONDOWN) log.push_back("down");
        if (message == WM_LBUTTONUP) log.push_back("up");
        return CWnd::WindowProc(message, wParam, lParam);
    }
    void OnContextMenu(CWnd*, CPoint point)
    {
        CMenu menu;
        menu.CreatePopupMenu();
        menu.AppendMenu(MF_STRING, kCopy, GBK(u8"拷贝(&C)").c_str());
        menu.AppendMenu(MF_STRING, kPaste, "&Paste\tCtrl+V");
        menu.AppendMenu(MF_SEPARATOR);
        menu.AppendMenu(MF_STRING | MF_GRAYED, kStop, "&Stop");
        menu.AppendMenu(MF_STRING, kSave, "&Save");
        menu.AppendMenu(MF_STRING, kSelectAll, "Select &All");
        CMenu format;
        format.CreatePopupMenu();
        format.AppendMenu(MF_STRING, kHex, "&Hex");
        format.AppendMenu(MF_STRING, kDecimal, "&Decimal");
        menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(format.Detach()), "&Format");
        auto* popup = new CBCGPPopupMenu;
        popup->Create(this, point.x, point.y, menu.GetSafeHmenu(), FALSE, TRUE);
    }
    void OnCopy() { log.push_back("copy"); }
    void OnPaste() { log.push_back("paste"); }
    void OnSave() { log.push_back("save"); }
    void OnSelectAll() { log.push_back("select all"); }
    void OnHex() { log.push_back("hex"); }
    void OnDecimal() { log.push_back("decimal"); }
};

BEGIN_MESSAGE_MAP(MenuView, CWnd)
    ON_WM_CONTEXTMENU()
    ON_COMMAND(kCopy, &MenuView::OnCopy)
    ON_COMMAND(kPaste, &MenuView::OnPaste)
    ON_COMMAND(kSave, &MenuView::OnSave)
    ON_COMMAND(kSelectAll, &MenuView::OnSelectAll)
    ON_COMMAND(kHex, &MenuView::OnHex)
    ON_COMMAND(kDecimal, &MenuView::OnDecimal)
END_MESSAGE_MAP()

class InteractiveMenus : public ::testing::Test {
protected:
    void SetUp() override
    {
        MenuDriver::Reset();
        MenuDriver::SetInteractive(true);
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 400, 300)));
        ASSERT_TRUE(view.Create(nullptr, "view", WS_CHILD | WS_VISIBLE, CRect(0, 0, 360, 240), &frame, 1));
        Input::Wait();
    }
    void TearDown() override
    {
        MenuDriver::SetInteractive(false);
        MenuDriver::Reset();
        EXPECT_FALSE(Input::PlayNext());  // nothing left behind in the queue
        EXPECT_EQ(CBCGPPopupMenu::LiveCount(), 0);
        frame.DestroyWindow();
    }

    // A right click at kOpenAt: the menu opens at that point.
    Input::Gesture OpenMenu()
    {
        Input::Gesture gesture;
        gesture.Press(&view, kOpenAt, true).Release();
        return gesture;
    }

    // The middle of an item's row, in the view's client coordinates.
    static CPoint ItemPoint(int item)
    {
        std::vector<ShownMenuItem> items(kItemCount);
        items[kSeparatorItem].separator = true;
        const std::vector<int> tops = MenuLayout::RowTops(items);
        return CPoint(kOpenAt.x + kInsideRow, kOpenAt.y + (tops[item] + tops[item + 1]) / 2);
    }

    // The pixel at the left end of an item's row of the open menu, which the
    // highlight fills and no text reaches.
    COLORREF RowColour(int item)
    {
        POINT screen = ItemPoint(item);
        view.ClientToScreen(&screen);
        const HWND popup = WindowFromPoint(screen);
        CWnd* menu = CWnd::FromHandle(popup);
        if (!popup || popup == view.GetSafeHwnd() || !menu) return 0xFFFFFFFF;
        POINT client = screen;
        ::ScreenToClient(popup, &client);
        return WindowPixels(*menu).At(MenuLayout::kBorder + 1, client.y);
    }

    static const CPoint kOpenAt;
    static constexpr int kInsideRow = 10;  // right of the frame, left of the text

    CFrameWnd frame;
    MenuView view;
};

const CPoint InteractiveMenus::kOpenAt(20, 20);

TEST_F(InteractiveMenus, HoverHighlightsAnItemAndAClickChoosesIt)
{
    std::vector<COLORREF> paste;
    std::vector<COLORREF> copy;
    WatchedEvents watch([&] {
        paste.push_back(RowColour(kPasteItem));
        copy.push_back(RowColour(kCopyItem));
    });
    OpenMenu().MoveTo(&view, ItemPoint(kPasteItem)).Press(&view, ItemPoint(kPasteItem)).Release().Play();

    ASSERT_GE(paste.size(), 1u);
    EXPECT_EQ(paste[0], GetSysColor(COLOR_HIGHLIGHT));  // after the move, while the menu is open
    EXPECT_EQ(copy[0], GetSysColor(COLOR_MENU));
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit", "paste"}));
    EXPECT_EQ(WindowFromPoint(CPoint(kOpenAt.x + 5, kOpenAt.y + 5)), view.GetSafeHwnd());  // the menu is gone
}

TEST_F(InteractiveMenus, EscapeDismissesWithoutACommand)
{
    OpenMenu().MoveTo(&view, ItemPoint(kCopyItem)).Key(VK_ESCAPE).Play();
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit"}));
}

TEST_F(InteractiveMenus, ArrowKeysWrapAndSkipSeparatorsAndDisabledItems)
{
    OpenMenu().Key(VK_DOWN).Key(VK_DOWN).Key(VK_DOWN).Key(VK_RETURN).Play();
    EXPECT_EQ(view.log.back(), "save");

    // Up from nothing starts at the bottom; Down from the bottom wraps to the top.
    OpenMenu().Key(VK_UP).Key(VK_DOWN).Key(VK_RETURN).Play();
    EXPECT_EQ(view.log.back(), "copy");

    OpenMenu().Key(VK_UP).Key(VK_UP).Key(VK_UP).Key(VK_UP).Key(VK_RETURN).Play();
    EXPECT_EQ(view.log.back(), "paste");

    // Enter with no hot item dismisses.
    view.log.clear();
    OpenMenu().Key(VK_RETURN).Play();
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit"}));
}

TEST_F(InteractiveMenus, TheKeyboardHighlightIsDrawn)
{
    std::vector<COLORREF> save;
    WatchedEvents watch([&] { save.push_back(RowColour(kSaveItem)); });
    OpenMenu().Key(VK_DOWN).Key(VK_DOWN).Key(VK_DOWN).Key(VK_ESCAPE).Play();
    // Events taken by the loop: three downs and their ups, then Escape.
    ASSERT_EQ(save.size(), 7u);
    EXPECT_EQ(save[3], GetSysColor(COLOR_MENU));       // on Paste
    EXPECT_EQ(save[4], GetSysColor(COLOR_HIGHLIGHT));  // the third Down reached Save
}

TEST_F(InteractiveMenus, AMnemonicChoosesTheFirstEnabledItemWithIt)
{
    OpenMenu().Key('S').Play();  // Stop is greyed: Save
    EXPECT_EQ(view.log.back(), "save");
    OpenMenu().Key('A').Play();
    EXPECT_EQ(view.log.back(), "select all");
    OpenMenu().Key('C').Play();  // after '&' in a double-byte text
    EXPECT_EQ(view.log.back(), "copy");

    view.log.clear();
    OpenMenu().Key('Z').Key(VK_ESCAPE).Play();  // no item has it: the menu stays open
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit"}));
}

TEST_F(InteractiveMenus, AClickOutsideDismissesAndReachesNothing)
{
    const CPoint away(300, 200);
    OpenMenu().Press(&view, away).Release().Play();
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit"}));

    // With the menu gone the same click reaches the view.
    Input::Wait();
    Input::Click(&view, away);
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit", "down", "up"}));
}

TEST_F(InteractiveMenus, ClicksOnDisabledItemsAndSeparatorsLeaveTheMenuOpen)
{
    std::vector<int> open;
    WatchedEvents watch([&] { open.push_back(CBCGPPopupMenu::LiveCount()); });
    OpenMenu()
        .MoveTo(&view, ItemPoint(kStopItem))
        .Press(&view, ItemPoint(kStopItem))
        .Release()
        .MoveTo(&view, ItemPoint(kSeparatorItem))
        .Press(&view, ItemPoint(kSeparatorItem))
        .Release()
        .Key(VK_ESCAPE)
        .Play();
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit"}));
    ASSERT_EQ(open.size(), 7u);  // every event up to Escape reached the open menu
    EXPECT_EQ(open[5], 1);
}

TEST_F(InteractiveMenus, ARightButtonReleaseOverAnItemChoosesIt)
{
    OpenMenu().MoveTo(&view, ItemPoint(kSelectAllItem)).Press(&view, ItemPoint(kSelectAllItem), true).Release().Play();
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit", "select all"}));
}

TEST_F(InteractiveMenus, AnEventSourceThatRunsDryDismisses)
{
    OpenMenu().MoveTo(&view, ItemPoint(kPasteItem)).Play();
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit"}));
    EXPECT_EQ(MenuDriver::ShownCount(), 1);
}

TEST_F(InteractiveMenus, QueuedAnswersWinAndTheDefaultStaysHeadless)
{
    MenuDriver::Choose(kSave);
    OpenMenu().Play();
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit", "save"}));

    // Not interactive: the menu closes at once and the click after it reaches the view.
    MenuDriver::SetInteractive(false);
    view.log.clear();
    Input::Wait();
    OpenMenu().Press(&view, ItemPoint(kCopyItem)).Release().Play();
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit", "down", "up"}));
}

TEST_F(InteractiveMenus, HoverOpensASubmenuBesideItsItemAndAClickInItChooses)
{
    const size_t windows = WindowRegistry::TopLevelWindows().size();
    CRect menu;
    CRect submenu;
    WatchedEvents watch([&] {
        if (!submenu.IsRectEmpty()) return;
        const std::vector<HWND> tops = WindowRegistry::TopLevelWindows();
        if (tops.size() != windows + 2) return;
        ::GetWindowRect(tops[tops.size() - 2], &menu);
        ::GetWindowRect(tops.back(), &submenu);
        // The submenu's second row, reached only now that it is open.
        POINT decimal{submenu.left + kInsideRow, submenu.top + MenuLayout::kBorder + MenuLayout::kItemHeight * 3 / 2};
        view.ScreenToClient(&decimal);
        Input::Gesture().MoveTo(&view, decimal).Press(&view, decimal).Release().Queue();
    });
    OpenMenu().MoveTo(&view, ItemPoint(kFormatItem)).Play();

    ASSERT_FALSE(submenu.IsRectEmpty());
    POINT format = ItemPoint(kFormatItem);
    view.ClientToScreen(&format);
    EXPECT_GT(submenu.left, menu.left + menu.Width() / 2);  // beside the menu
    EXPECT_LE(submenu.top, format.y);
    EXPECT_GT(submenu.top + MenuLayout::kBorder + MenuLayout::kItemHeight, format.y);  // first row level with Format
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit", "decimal"}));
    EXPECT_EQ(WindowRegistry::TopLevelWindows().size(), windows);
}

TEST_F(InteractiveMenus, KeysOpenAndCloseSubmenusOneLevelAtATime)
{
    const size_t windows = WindowRegistry::TopLevelWindows().size();
    std::vector<size_t> open;  // menu windows after each key down; the last closes the submenu with the choice
    WatchedEvents watch([&] {
        if (IsKeyDown(VK_UP) || IsKeyDown(VK_RIGHT) || IsKeyDown(VK_ESCAPE) || IsKeyDown(VK_RETURN) || IsKeyDown(VK_DOWN) ||
            IsKeyDown(VK_LEFT))
            open.push_back(WindowRegistry::TopLevelWindows().size() - windows);
    });
    // Up to Format, Right opens it (Hex hot), Down to Decimal, Left closes
    // it, Right opens it again, Escape closes it, Enter opens it once more.
    OpenMenu()
        .Key(VK_UP).Key(VK_RIGHT).Key(VK_DOWN).Key(VK_LEFT).Key(VK_RIGHT).Key(VK_ESCAPE).Key(VK_RETURN).Key(VK_DOWN)
        .Key(VK_RETURN)
        .Play();
    EXPECT_EQ(open, (std::vector<size_t>{1, 2, 2, 1, 2, 1, 2, 2, 1}));
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit", "decimal"}));

    view.log.clear();
    OpenMenu().Key('F').Key('H').Play();  // mnemonics open the submenu, then choose in it
    EXPECT_EQ(view.log, (std::vector<std::string>{"enter", "exit", "hex"}));
}

TEST(MenuMnemonics, TheLetterAfterTheMarkerUpperCased)
{
    EXPECT_EQ(MenuLayout::MnemonicOf("&open"), static_cast<UINT>('O'));
    EXPECT_EQ(MenuLayout::MnemonicOf("Save &as..."), static_cast<UINT>('A'));
    EXPECT_EQ(MenuLayout::MnemonicOf("Fish && &Chips"), static_cast<UINT>('C'));
    EXPECT_EQ(MenuLayout::MnemonicOf(GBK(u8"拷贝(&C)")), static_cast<UINT>('C'));
    EXPECT_EQ(MenuLayout::MnemonicOf("A && B"), 0u);
    EXPECT_EQ(MenuLayout::MnemonicOf("trailing &"), 0u);
    EXPECT_EQ(MenuLayout::MnemonicOf(GBK(u8"&拷贝")), 0u);  // a double-byte character names no key
    EXPECT_EQ(MenuLayout::MnemonicOf(""), 0u);
}

}  // namespace
