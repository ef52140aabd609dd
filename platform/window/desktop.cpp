#include "platform/window/desktop.h"

#include <SDL.h>

#include <cstdio>

#include "platform/core/modal_loop.h"
#include "platform/input/input.h"
#include "platform/input/real_input.h"
#include "platform/window/clipboard_bridge.h"
#include "platform/window/display.h"
#include "platform/window/event_pump.h"

namespace {

// Lets go of SDL's video; the last user of SDL shuts it down whole, which
// also closes the desktop bus connection its video opened.
void QuitVideo()
{
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    if (SDL_WasInit(SDL_INIT_EVERYTHING) == 0) SDL_Quit();
}

// The pump nested loops take their events from while a window runs.
EventPump* g_pump = nullptr;

bool NextWindowEvent()
{
    return g_pump && g_pump->Next();
}

// SDL's video for as long as a window runs, and the platform's input
// switched to the window's events and clock.
class Session {
public:
    Session() : m_ok(SDL_InitSubSystem(SDL_INIT_VIDEO) == 0) {}
    ~Session()
    {
        ModalInput::SetEventSource(&Input::PlayNext);
        Input::Real::UseSimulatedClock();
        g_pump = nullptr;
        if (m_ok) QuitVideo();
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    bool Ok() const { return m_ok; }

private:
    bool m_ok;
};

}  // namespace

namespace Desktop {

bool Available()
{
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) return false;
    QuitVideo();
    return true;
}

int Run(CWnd& frame, const char* utf8Title, const std::function<void()>& shown)
{
    if (!IsWindow(frame.GetSafeHwnd())) return 1;
    Session session;
    if (!session.Ok()) {
        std::fprintf(stderr, "no display: %s\n", SDL_GetError());
        return 1;
    }
    // The frame is the screen's top-left: window points are screen points.
    CRect rect;
    frame.GetWindowRect(&rect);
    const CRect placed(0, 0, rect.Width(), rect.Height());
    if (rect != placed) frame.MoveWindow(placed);
    frame.ShowWindow(SW_SHOW);

    Display display;
    if (!display.Open(utf8Title ? utf8Title : "", placed.Width(), placed.Height())) return 1;
    DesktopClipboard clipboard;
    SDL_EventState(SDL_DROPTEXT, SDL_ENABLE);
    SDL_EventState(SDL_DROPFILE, SDL_DISABLE);
    SDL_StartTextInput();

    EventPump pump(frame, display, shown);
    g_pump = &pump;
    ModalInput::SetEventSource(&NextWindowEvent);
    display.Refresh();
    while (pump.Next()) {
    }
    SDL_StopTextInput();
    return 0;
}

}  // namespace Desktop
