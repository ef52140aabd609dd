// What the user does in the desktop window, handed to the platform's input
// layer one event at a time, the screen refreshed after each.
#pragma once

#include <functional>

#include <SDL_events.h>

#include "platform/window/text_drop.h"

class CWnd;
class Display;

class EventPump {
public:
    EventPump(CWnd& frame, Display& display, std::function<void()> shown);

    // Handles one event, then shows what it changed.
    void Handle(const SDL_Event& event);
    // Waits for the next event and handles it; false once the window is
    // closed, the frame is gone or no event can be had.
    bool Next();
    bool Closed() const;

private:
    void HandleWindowEvent(const SDL_WindowEvent& event);
    void HandleKey(const SDL_KeyboardEvent& event);
    void HandleWheel(const SDL_MouseWheelEvent& event);
    void Shown();
    // Where the mouse is, in the screen the window shows.
    POINT MouseOnScreen() const;

    CWnd& m_frame;
    Display& m_display;
    std::function<void()> m_shown;
    TextDrop m_drop;
    bool m_closed = false;
    bool m_wasShown = false;
};
