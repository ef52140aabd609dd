#include "platform/window/event_pump.h"

#include <cmath>
#include <cstdio>

#include "platform/core/input_state.h"
#include "platform/core/paint.h"
#include "platform/core/wnd.h"
#include "platform/input/input.h"
#include "platform/input/real_input.h"
#include "platform/input/screen_input.h"
#include "platform/window/desktop_text.h"
#include "platform/window/display.h"
#include "platform/window/key_map.h"

namespace {

// A screen point no window of the frame covers: where the mouse is once it left.
constexpr POINT kNowhere{-1, -1};

}  // namespace

EventPump::EventPump(CWnd& frame, Display& display, std::function<void()> shown)
    : m_frame(frame), m_display(display), m_shown(std::move(shown))
{
}

bool EventPump::Closed() const
{
    return m_closed || !IsWindow(m_frame.GetSafeHwnd());
}

bool EventPump::Next()
{
    if (Closed()) return false;
    // Events the platform queued itself (a drop's path) come first.
    if (Input::PlayNext()) {
        m_display.Refresh();
        return true;
    }
    SDL_Event event;
    if (!SDL_WaitEvent(&event)) {
        std::fprintf(stderr, "the window's events stopped: %s\n", SDL_GetError());
        m_closed = true;
        return false;
    }
    Handle(event);
    return !Closed();
}

void EventPump::Handle(const SDL_Event& event)
{
    switch (event.type) {
    case SDL_QUIT: m_closed = true; return;
    case SDL_WINDOWEVENT: HandleWindowEvent(event.window); break;
    case SDL_MOUSEMOTION:
        Input::Real::SetTime(event.motion.timestamp);
        Input::Screen::Move(POINT{event.motion.x, event.motion.y}, Input::kNone);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        // The platform's windows know two buttons.
        if (event.button.button != SDL_BUTTON_LEFT && event.button.button != SDL_BUTTON_RIGHT) break;
        // The input layer pairs a second press in place into a double click
        // by these times, within its double-click time (SDL's default too).
        Input::Real::SetTime(event.button.timestamp);
        Input::Screen::Button(POINT{event.button.x, event.button.y}, event.button.button == SDL_BUTTON_RIGHT,
                              event.type == SDL_MOUSEBUTTONDOWN, Input::kNone);
        break;
    case SDL_MOUSEWHEEL: HandleWheel(event.wheel); break;
    case SDL_KEYDOWN:
    case SDL_KEYUP: HandleKey(event.key); break;
    case SDL_TEXTINPUT:
        Input::Real::SetTime(event.text.timestamp);
        for (const char byte : DesktopText::Typed(event.text.text)) Input::Real::Char(static_cast<unsigned char>(byte));
        break;
    case SDL_DROPBEGIN: m_drop.Begin(); break;
    case SDL_DROPTEXT:
    case SDL_DROPFILE:
        if (event.type == SDL_DROPTEXT && event.drop.file) m_drop.AddText(event.drop.file);
        SDL_free(event.drop.file);  // files are not taken
        break;
    case SDL_DROPCOMPLETE:
        Input::Real::SetTime(event.drop.timestamp);
        m_drop.Complete(m_frame, MouseOnScreen());
        break;
    default: break;
    }
    if (!Closed()) m_display.Refresh();
}

void EventPump::HandleWindowEvent(const SDL_WindowEvent& event)
{
    if (event.windowID != m_display.WindowId()) return;
    switch (event.event) {
    case SDL_WINDOWEVENT_CLOSE: m_closed = true; break;
    case SDL_WINDOWEVENT_SHOWN:
    case SDL_WINDOWEVENT_EXPOSED:
        m_display.Expose();
        if (!m_wasShown) {
            m_wasShown = true;
            Shown();
        }
        break;
    case SDL_WINDOWEVENT_LEAVE:
        // The mouse left for another window: hover ends, unless a button
        // holds it (the desktop then keeps sending its moves).
        if (!IsKeyDown(static_cast<int>(VK_LBUTTON)) && !IsKeyDown(static_cast<int>(VK_RBUTTON))) {
            Input::Real::SetTime(event.timestamp);
            Input::Screen::Move(kNowhere, Input::kNone);
        }
        break;
    case SDL_WINDOWEVENT_SIZE_CHANGED: {
        CRect rect;
        m_frame.GetWindowRect(&rect);
        // A window shrunk to nothing (minimised) keeps the frame as it was.
        if (event.data1 < 1 || event.data2 < 1 || (rect.Width() == event.data1 && rect.Height() == event.data2)) break;
        m_frame.MoveWindow(CRect(0, 0, event.data1, event.data2));
        if (!m_display.Resize(event.data1, event.data2)) m_closed = true;
        Paint::UpdateAllWindows();
        if (m_wasShown) Shown();
        break;
    }
    default: break;
    }
}

void EventPump::HandleKey(const SDL_KeyboardEvent& event)
{
    const UINT key = KeyMap::VirtualKeyOf(event.keysym.sym, (event.keysym.mod & KMOD_NUM) != 0);
    if (!key) return;
    Input::Real::SetTime(event.timestamp);
    Input::Real::Key(key, event.state == SDL_PRESSED);
}

void EventPump::HandleWheel(const SDL_MouseWheelEvent& event)
{
    const float notches = event.direction == SDL_MOUSEWHEEL_FLIPPED ? -event.preciseY : event.preciseY;
    const int delta = static_cast<int>(std::lround(notches * WHEEL_DELTA));
    if (delta == 0) return;
    int x = 0, y = 0;
    SDL_GetMouseState(&x, &y);
    Input::Real::SetTime(event.timestamp);
    Input::Screen::Wheel(POINT{x, y}, delta);
}

POINT EventPump::MouseOnScreen() const
{
    // The other application held the pointer during a drag: ask the desktop.
    int x = 0, y = 0, left = 0, top = 0;
    SDL_GetGlobalMouseState(&x, &y);
    SDL_GetWindowPosition(m_display.Window(), &left, &top);
    return POINT{x - left, y - top};
}

void EventPump::Shown()
{
    if (m_shown) m_shown();
}
