// The user's side of an open popup menu: a nested input loop that turns the
// mouse and keys into the tracker's moves until an item is chosen or the
// menu dismissed.
#include <memory>

#include "platform/core/modal_loop.h"
#include "platform/menu/menu_layout.h"
#include "platform/menu/popup_menu.h"

namespace {

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

}  // namespace

class CBCGPPopupMenu::TrackLoop : public ModalLoop {
public:
    explicit TrackLoop(CBCGPPopupMenu& menu) : m_menu(menu), m_hwnd(menu.GetSafeHwnd()) {}

    void OnInput(const MSG& msg) override
    {
        MenuTracker& tracker = m_menu.m_tracker;
        if (!IsWindow(m_hwnd)) tracker.Dismiss();
        else if (msg.message == WM_KEYDOWN) OnKey(static_cast<UINT>(msg.wParam));
        else if (msg.message >= WM_MOUSEMOVE && msg.message <= WM_RBUTTONDBLCLK) OnMouse(msg.message, msg.pt);
        if (tracker.Done()) ModalInput::End(this);
    }

private:
    void OnMouse(UINT message, POINT screen)
    {
        CRect window;
        ::GetWindowRect(m_hwnd, &window);
        const bool inside = window.PtInRect(screen) != FALSE;
        POINT client = screen;
        ::ScreenToClient(m_hwnd, &client);
        const int item = inside ? MenuLayout::ItemAt(m_menu.m_rowTops, client, window.Width()) : MenuTracker::kNone;
        MenuTracker& tracker = m_menu.m_tracker;
        if (IsPress(message)) {
            if (!inside) m_pressedOutside = true;
            else Hover(item);
        } else if (message == WM_LBUTTONUP || message == WM_RBUTTONUP) {
            // A press outside dismisses at its release, so that neither half
            // of the click reaches the window under it.
            if (m_pressedOutside) tracker.Dismiss();
            else if (inside) tracker.Choose(item);
        } else if (message == WM_MOUSEMOVE) {
            Hover(item);
        }
    }

    void OnKey(UINT key)
    {
        MenuTracker& tracker = m_menu.m_tracker;
        switch (key) {
        case VK_UP: Redraw(tracker.Step(-1)); break;
        case VK_DOWN: Redraw(tracker.Step(1)); break;
        case VK_RETURN: tracker.ChooseHot(); break;
        case VK_ESCAPE: tracker.Dismiss(); break;
        default:
            if (IsMnemonicKey(key)) tracker.ChooseByMnemonic(key);
            break;
        }
    }

    void Hover(int item) { Redraw(m_menu.m_tracker.Hover(item)); }

    void Redraw(bool changed)
    {
        if (changed) m_menu.Invalidate(FALSE);
    }

    CBCGPPopupMenu& m_menu;
    HWND m_hwnd;
    bool m_pressedOutside = false;
};

UINT CBCGPPopupMenu::Track()
{
    if (!m_hWnd) return 0;
    auto loop = std::make_unique<TrackLoop>(*this);
    const ModalLoop* running = loop.get();
    m_tracking = true;
    ModalInput::Begin(std::move(loop));
    // An event source that runs dry ends the loop: the menu is dismissed.
    ModalInput::Run(running);
    m_tracking = false;
    return m_tracker.Chosen();
}
