#include "platform/window/display.h"

#include <cstdio>

#include "platform/core/paint.h"

Display::~Display()
{
    if (m_texture) SDL_DestroyTexture(m_texture);
    if (m_renderer) SDL_DestroyRenderer(m_renderer);
    if (m_window) SDL_DestroyWindow(m_window);
}

bool Display::Open(const char* utf8Title, int width, int height)
{
    m_window = SDL_CreateWindow(utf8Title, SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, width, height, SDL_WINDOW_RESIZABLE);
    if (m_window) m_renderer = SDL_CreateRenderer(m_window, -1, 0);
    if (!m_renderer) {
        std::fprintf(stderr, "cannot open a window: %s\n", SDL_GetError());
        return false;
    }
    return MakeTexture(width, height);
}

bool Display::MakeTexture(int width, int height)
{
    if (m_texture) SDL_DestroyTexture(m_texture);
    // Surface pixels are 0x00RRGGBB: the texture takes them as they are.
    m_texture = SDL_CreateTexture(m_renderer, SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_STREAMING, width, height);
    if (!m_texture) {
        std::fprintf(stderr, "cannot make the window's texture: %s\n", SDL_GetError());
        return false;
    }
    m_screen.Resize(width, height);
    m_fullNeeded = true;
    return true;
}

bool Display::Resize(int width, int height)
{
    if (width == m_screen.Width() && height == m_screen.Height()) return true;
    return MakeTexture(width, height);
}

void Display::Refresh()
{
    if (!m_texture) return;
    Paint::UpdateAllWindows();
    CRect changed = Paint::TakeDirtyScreenArea();
    if (m_fullNeeded) changed = m_screen.Bounds();
    m_fullNeeded = false;
    if (changed.IntersectRect(changed, m_screen.Bounds())) {
        Paint::ComposeScreen(changed, m_screen, changed.TopLeft());
        const SDL_Rect rect{changed.left, changed.top, changed.Width(), changed.Height()};
        SDL_UpdateTexture(m_texture, &rect, m_screen.Row(changed.top) + changed.left,
                          m_screen.Width() * static_cast<int>(sizeof(std::uint32_t)));
        m_presentNeeded = true;
    }
    if (!m_presentNeeded) return;
    m_presentNeeded = false;
    SDL_RenderCopy(m_renderer, m_texture, nullptr, nullptr);
    SDL_RenderPresent(m_renderer);
}
