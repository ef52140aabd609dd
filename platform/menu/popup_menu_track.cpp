// The user's side of an open popup menu: a nested input loop that turns the
// mouse and keys into hot items, open submenus and finally a choice or a
// dismissal. Levels are the menu and the submenus open from it, deepest last.
#include <memory>

#include "platform/core/modal_loop.h"
#include "platform/menu/menu_layout.h"
#include "platform/menu/popup_menu.h"
#include "platform/menu/submenu_wnd.h"

namespace {

constexpr int kNone = MenuTracker::kNone;

bool IsPress(UINT message)
{
    return message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDOWN ||
           message == WM_RBUTTONDBLCLK;
}

// Letters and digits: the keys a mnemonic can name.
bool IsMnemonicKey(UINT key)
{
    return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
}

struct Level {
    CWnd* wnd;
    const std::vector<int>* rowTops;
    MenuTracker* tracker;
    std::unique_ptr<SubmenuWnd> submenu;  // null for the menu itself
};

}  // namespace

class CBCGPPopupMenu::TrackLoop : public ModalLoop {
public:
    explicit TrackLoop(CBCGPPopupMenu& menu) : m_menu(menu), m_hwnd(menu.GetSafeHwnd())
    {
        m_levels.push_back(Level{&menu, &menu.m_rowTops, &menu.m_tracker, nullptr});
    }

    void OnInput(const MSG& msg) override
    {
        if (!IsWindow(m_hwnd)) Finish(0);
        else if (msg.message == WM_KEYDOWN) OnKey(static_cast<UINT>(msg.wParam));
        else if (msg.message >= WM_MOUSEMOVE && msg.message <= WM_RBUTTONDBLCLK) OnMouse(msg.message, msg.pt);
        if (m_done) ModalInput::End(this);
    }

private:
    int Deepest() const { return static_cast<int>(m_levels.size()) - 1; }
    MenuTracker& TrackerOf(int level) { return *m_levels[static_cast<size_t>(level)].tracker; }

    void OnMouse(UINT message, POINT screen)
    {
        int item = kNone;
        const int level = LevelAt(screen, &item);
        if (IsPress(message)) {
            if (level < 0) m_pressedOutside = true;
            else Point(level, item);
        } else if (message == WM_LBUTTONUP || message == WM_RBUTTONUP) {
            // A press outside dismisses at its release, so that neither half
            // of the click reaches the window under it.
            if (m_pressedOutside) Finish(0);
            else if (level >= 0) Choose(level, item);
        } else if (message == WM_MOUSEMOVE) {
            if (level >= 0) Point(level, item);
            else Redraw(Deepest(), TrackerOf(Deepest()).Hover(kNone));
        }
    }

    void OnKey(UINT key)
    {
        const int level = KeyLevel();
        MenuTracker& tracker = TrackerOf(level);
        switch (key) {
        case VK_UP:
        case VK_DOWN:
            if (!tracker.Step(key == VK_UP ? -1 : 1)) break;
            CloseAbove(level);
            Redraw(level, true);
            break;
        case VK_RIGHT:
            if (const ShownMenuItem* hot = tracker.At(tracker.Hot()); hot && hot->IsPopup()) Activate(level, tracker.Hot());
            break;
        case VK_LEFT:
            if (Deepest() > 0) CloseAbove(Deepest() - 1);
            break;
        case VK_ESCAPE:
            // One submenu at a time, then the menu.
            if (Deepest() > 0) CloseAbove(Deepest() - 1);
            else Finish(0);
            break;
        case VK_RETURN:
            if (tracker.Hot() == kNone) Finish(0);
            else Activate(level, tracker.Hot());
            break;
        default:
            if (const int found = IsMnemonicKey(key) ? tracker.FindMnemonic(key) : kNone; found != kNone) {
                if (tracker.Hover(found)) CloseAbove(level);
                Redraw(level, true);
                Activate(level, found);
            }
            break;
        }
    }

    // Keys act on the deepest level, or on the menu above it while the
    // mouse opened it and nothing in it is hot yet.
    int KeyLevel()
    {
        const int deepest = Deepest();
        return deepest > 0 && TrackerOf(deepest).Hot() == kNone ? deepest - 1 : deepest;
    }

    // The deepest level whose window holds a screen point, and the item
    // there; -1 when the point is outside every level.
    int LevelAt(POINT screen, int* item) const
    {
        for (int level = Deepest(); level >= 0; --level) {
            const Level& at = m_levels[static_cast<size_t>(level)];
            const HWND hwnd = at.wnd->GetSafeHwnd();
            CRect window(0, 0, 0, 0);
            ::GetWindowRect(hwnd, &window);
            if (!window.PtInRect(screen)) continue;
            POINT client = screen;
            ::ScreenToClient(hwnd, &client);
            *item = MenuLayout::ItemAt(*at.rowTops, client, window.Width());
            return level;
        }
        *item = kNone;
        return -1;
    }

    // The mouse over an item of a level: it turns hot, deeper submenus close
    // unless it opened them, and a popup item opens its own.
    void Point(int level, int item)
    {
        MenuTracker& tracker = TrackerOf(level);
        const bool opener = level < Deepest() && item != kNone && tracker.Hot() == item;
        if (opener) return;
        CloseAbove(level);
        Redraw(level, tracker.Hover(item));
        OpenHot(level);
    }

    // A release over an item: a command is chosen; anything else keeps the menu open.
    void Choose(int level, int item)
    {
        const ShownMenuItem* shown = TrackerOf(level).At(item);
        if (shown && MenuTracker::IsCommand(*shown)) Finish(shown->id);
    }

    // Enter on an item: a command is chosen, a popup's submenu opens with its
    // first item hot.
    void Activate(int level, int item)
    {
        const ShownMenuItem* shown = TrackerOf(level).At(item);
        if (!shown) return;
        if (MenuTracker::IsCommand(*shown)) return Finish(shown->id);
        if (!shown->IsPopup()) return;
        if (level == Deepest() && !OpenHot(level)) return;
        Redraw(level + 1, TrackerOf(level + 1).Step(1));
    }

    // Opens the submenu of the level's hot item when it is a popup item.
    bool OpenHot(int level)
    {
        const Level& at = m_levels[static_cast<size_t>(level)];
        const int hot = at.tracker->Hot();
        const ShownMenuItem* item = at.tracker->At(hot);
        if (!item || !item->IsPopup() || static_cast<size_t>(hot) + 1 >= at.rowTops->size()) return false;
        CRect row(0, 0, 0, 0);
        at.wnd->GetWindowRect(&row);
        row.top += (*at.rowTops)[static_cast<size_t>(hot)];
        row.bottom = row.top + MenuLayout::kItemHeight;
        auto submenu = std::make_unique<SubmenuWnd>(item->children);
        if (!submenu->Open(&m_menu, row)) return false;
        SubmenuWnd* wnd = submenu.get();
        m_levels.push_back(Level{wnd, &wnd->RowTops(), &wnd->Tracker(), std::move(submenu)});
        return true;
    }

    void CloseAbove(int level)
    {
        while (Deepest() > level) m_levels.pop_back();
    }

    void Redraw(int level, bool changed)
    {
        if (changed) m_levels[static_cast<size_t>(level)].wnd->Invalidate(FALSE);
    }

    void Finish(UINT chosen)
    {
        m_menu.m_chosen = chosen;
        m_done = true;
        CloseAbove(0);
    }

    CBCGPPopupMenu& m_menu;
    HWND m_hwnd;
    std::vector<Level> m_levels;
    bool m_pressedOutside = false;
    bool m_done = false;
};

UINT CBCGPPopupMenu::Track()
{
    if (!m_hWnd) return 0;
    auto loop = std::make_unique<TrackLoop>(*this);
    const ModalLoop* running = loop.get();
    m_tracking = true;
    m_chosen = 0;
    ModalInput::Begin(std::move(loop));
    // An event source that runs dry ends the loop: the menu is dismissed.
    ModalInput::Run(running);
    m_tracking = false;
    return m_chosen;
}
