// Gestures: events queued, then played one by one; the queue is also what
// the platform's nested loops (a drag) take their events from.
#include <algorithm>
#include <deque>

#include "platform/core/input_state.h"
#include "platform/core/modal_loop.h"
#include "platform/input/input.h"
#include "platform/ole/ole_drag.h"

namespace Input {
namespace {

using Screen::Event;

// More moves than this would only repeat pixels on any screen.
constexpr int kMaxMoveSteps = 4096;

std::deque<Event>& Queued()
{
    static std::deque<Event> queue;
    return queue;
}

// Nested loops pull their events from here.
[[maybe_unused]] const bool g_sourceSet = (ModalInput::SetEventSource(&PlayNext), true);

}  // namespace

void Screen::Event::Play() const
{
    switch (kind) {
    case Kind::kPress: Screen::Button(screen, right, true, kNone); break;
    case Kind::kRelease: Screen::Button(screen, right, false, kNone); break;
    case Kind::kMove: Screen::Move(screen, kNone); break;
    case Kind::kKeyDown: Input::KeyDown(key); break;
    case Kind::kKeyUp: Input::KeyUp(key); break;
    }
}

Gesture& Gesture::Press(CWnd* window, CPoint clientPoint, bool right)
{
    if (!window || !IsWindow(window->GetSafeHwnd())) return *this;
    POINT screen = clientPoint;
    window->ClientToScreen(&screen);
    m_events.push_back(Event{Event::Kind::kPress, screen, 0, right});
    m_last = screen;
    m_right = right;
    return *this;
}

Gesture& Gesture::MoveTo(CWnd* window, CPoint clientPoint, int steps)
{
    if (!window || !IsWindow(window->GetSafeHwnd())) return *this;
    POINT to = clientPoint;
    window->ClientToScreen(&to);
    const POINT from = m_last.value_or(to);
    const long long n = m_last ? std::clamp(steps, 1, kMaxMoveSteps) : 1;
    for (long long i = 1; i <= n; ++i) {
        POINT at;
        at.x = static_cast<LONG>(from.x + (static_cast<long long>(to.x) - from.x) * i / n);
        at.y = static_cast<LONG>(from.y + (static_cast<long long>(to.y) - from.y) * i / n);
        m_events.push_back(Event{Event::Kind::kMove, at, 0, false});
    }
    m_last = to;
    return *this;
}

Gesture& Gesture::Release()
{
    return Release(m_right);
}

Gesture& Gesture::Release(bool right)
{
    POINT at;
    if (m_last) at = *m_last;
    else GetCursorPos(&at);
    m_events.push_back(Event{Event::Kind::kRelease, at, 0, right});
    return *this;
}

Gesture& Gesture::KeyDown(UINT virtualKey)
{
    m_events.push_back(Event{Event::Kind::kKeyDown, POINT{}, virtualKey, false});
    return *this;
}

Gesture& Gesture::KeyUp(UINT virtualKey)
{
    m_events.push_back(Event{Event::Kind::kKeyUp, POINT{}, virtualKey, false});
    return *this;
}

void Gesture::Queue() const
{
    Queued().insert(Queued().end(), m_events.begin(), m_events.end());
}

void Gesture::Play() const
{
    Queue();
    PlayQueued();
}

bool PlayNext()
{
    if (Queued().empty()) return false;
    const Event event = Queued().front();
    Queued().pop_front();
    event.Play();
    return true;
}

void PlayQueued()
{
    while (PlayNext()) {
    }
}

void Drag(CWnd* window, CPoint from, CPoint to, int steps, unsigned modifiers)
{
    if (!window || !IsWindow(window->GetSafeHwnd())) return;
    Screen::PressModifiers(modifiers, true);
    Gesture().Press(window, from).MoveTo(window, to, steps).Release().Play();
    Screen::PressModifiers(modifiers, false);
}

DROPEFFECT DropFromOutside(const FormatBlocks& data, const Gesture& path, DWORD effects)
{
    InputState::SetKeyDown(static_cast<int>(VK_LBUTTON), true);
    path.Queue();
    const DROPEFFECT effect = OleDrag::RunFromOutside(data, effects);
    // The other application keeps the button if the path did not release it.
    InputState::SetKeyDown(static_cast<int>(VK_LBUTTON), false);
    PlayQueued();
    return effect;
}

}  // namespace Input
