#include "platform/core/scroll_bar_track.h"

#include "platform/core/messages.h"
#include "platform/core/modal_loop.h"
#include "platform/core/scroll_bar.h"
#include "platform/core/window_frame.h"
#include "platform/core/window_registry.h"
#include "platform/core/wnd.h"

namespace scrollbar {
namespace {

void Request(HWND hwnd, int bar, UINT code, int pos = 0)
{
    const WPARAM wParam = MAKEWPARAM(code, static_cast<WORD>(pos));
    ::SendMessage(hwnd, bar == SB_VERT ? WM_VSCROLL : WM_HSCROLL, wParam, 0);
}

void Redraw(HWND hwnd)
{
    if (WindowData* data = WindowRegistry::Find(hwnd)) data->frameNeeded = true;
}

// Holds the mouse from the press to the release, as the platform's own
// tracking loop does.
class Tracker : public ModalLoop {
public:
    Tracker(HWND hwnd, int bar, Part part, int grab) : m_hwnd(hwnd), m_bar(bar), m_part(part), m_grab(grab) {}
    // However the loop ends, the bar stops looking pressed and tracking.
    ~Tracker() override
    {
        if (ScrollBarState* s = ScrollBarOf(m_hwnd, m_bar)) {
            s->tracking = false;
            s->pressedPart = kNoPart;
            Redraw(m_hwnd);
        }
    }

    void OnInput(const MSG& msg) override
    {
        // A window gone, or a press whose release never came, ends the drag.
        if (!IsWindow(m_hwnd)) return ModalInput::End(this);
        if (msg.message == WM_MOUSEMOVE && m_part == kThumb) Drag(msg.pt);
        else if (msg.message == WM_LBUTTONUP || msg.message == WM_LBUTTONDOWN || msg.message == WM_RBUTTONDOWN) Release();
    }

private:
    void Drag(POINT screen)
    {
        ScrollBarState* s = ScrollBarOf(m_hwnd, m_bar);
        if (!s) return ModalInput::End(this);
        const Layout l = ScreenLayout(m_hwnd, m_bar);
        const int pos = PosForThumbAt(l, *s, (l.vertical ? screen.y : screen.x) - m_grab);
        if (pos == s->trackPos) return;
        s->trackPos = pos;
        Redraw(m_hwnd);
        Request(m_hwnd, m_bar, SB_THUMBTRACK, pos);
    }

    void Release()
    {
        ModalInput::End(this);
        ScrollBarState* s = ScrollBarOf(m_hwnd, m_bar);
        if (!s) return;
        if (m_part == kThumb) {
            Request(m_hwnd, m_bar, SB_THUMBPOSITION, s->trackPos);
            if (!(s = ScrollBarOf(m_hwnd, m_bar))) return;
            s->tracking = false;
        }
        s->pressedPart = kNoPart;
        Redraw(m_hwnd);
        Request(m_hwnd, m_bar, SB_ENDSCROLL);
    }

    HWND m_hwnd;
    int m_bar;
    Part m_part;
    int m_grab;  // the mouse's distance from the thumb's leading edge
};

}  // namespace

Layout ScreenLayout(HWND hwnd, int bar)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return Layout();
    const WindowFrame frame = FrameOf(*data);
    CRect area = bar == SB_VERT ? frame.vertical : frame.horizontal;
    CRect window;
    ::GetWindowRect(hwnd, &window);
    area.OffsetRect(window.left, window.top);
    return LayoutBar(area, bar == SB_VERT, *ScrollBarOf(hwnd, bar));
}

void Press(HWND hwnd, int bar, POINT screen)
{
    ScrollBarState* s = ScrollBarOf(hwnd, bar);
    if (!s) return;
    const Layout l = ScreenLayout(hwnd, bar);
    const Part part = PartAt(l, screen);
    if (part == kNoPart) return;
    s->pressedPart = part;
    int grab = 0;
    if (part == kThumb) {
        s->tracking = true;
        s->trackPos = s->pos;
        grab = l.vertical ? screen.y - l.thumb.top : screen.x - l.thumb.left;
    }
    Redraw(hwnd);
    ModalInput::Begin(std::make_unique<Tracker>(hwnd, bar, part, grab));
    switch (part) {
    case kLineBefore: Request(hwnd, bar, SB_LINEUP); break;
    case kLineAfter: Request(hwnd, bar, SB_LINEDOWN); break;
    case kPageBefore: Request(hwnd, bar, SB_PAGEUP); break;
    case kPageAfter: Request(hwnd, bar, SB_PAGEDOWN); break;
    default: break;
    }
}

}  // namespace scrollbar
