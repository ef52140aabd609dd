#include "platform/window/clipboard_bridge.h"

#include <SDL.h>

#include "platform/window/desktop_text.h"

DesktopClipboard::DesktopClipboard()
{
    SetClipboardTextHook(this);
}

DesktopClipboard::~DesktopClipboard()
{
    SetClipboardTextHook(nullptr);
}

void DesktopClipboard::Publish(const std::string* gbkText)
{
    // An empty text is how the desktop clipboard is told there is none.
    SDL_SetClipboardText(gbkText ? DesktopText::ToDesktop(*gbkText).c_str() : "");
}

std::optional<std::string> DesktopClipboard::Fetch()
{
    if (!SDL_HasClipboardText()) return std::nullopt;
    char* utf8 = SDL_GetClipboardText();
    if (!utf8) return std::nullopt;
    std::string gbk = DesktopText::FromDesktop(utf8);
    SDL_free(utf8);
    return gbk;
}
