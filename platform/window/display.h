// The desktop window and what it shows: the platform's screen, copied into a
// texture where it changed.
#pragma once

#include <SDL.h>

#include "platform/core/win_types.h"
#include "platform/gdi/surface.h"

class Display {
public:
    Display() = default;
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    // Opens a window of the screen size given. False (with SDL's reason
    // printed) when it cannot be had.
    bool Open(const char* utf8Title, int width, int height);
    SDL_Window* Window() const { return m_window; }
    Uint32 WindowId() const { return m_window ? SDL_GetWindowID(m_window) : 0; }

    // The window has a new size: the texture follows and all is shown anew.
    bool Resize(int width, int height);
    // Copies what changed on the screen since the last call into the texture,
    // then shows the texture if anything changed or the window was uncovered.
    void Refresh();
    // The window was uncovered: show the texture again.
    void Expose() { m_presentNeeded = true; }

private:
    bool MakeTexture(int width, int height);

    SDL_Window* m_window = nullptr;
    SDL_Renderer* m_renderer = nullptr;
    SDL_Texture* m_texture = nullptr;
    Surface m_screen;  // the screen as last composed, the texture's source
    bool m_fullNeeded = true;
    bool m_presentNeeded = true;
};
