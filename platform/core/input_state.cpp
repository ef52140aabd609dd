#include "platform/core/input_state.h"

#include <array>

#include "platform/core/messages.h"
#include "platform/core/wnd.h"

namespace {

POINT g_cursor{};
std::array<bool, 256> g_down{};
std::array<bool, 256> g_toggled{};

bool ValidKey(int key) { return key >= 0 && key < 256; }

HWND g_leaveWatch = nullptr;  // the window waiting for WM_MOUSELEAVE

}  // namespace

BOOL GetCursorPos(LPPOINT point)
{
    if (!point) return FALSE;
    *point = g_cursor;
    return TRUE;
}

BOOL SetCursorPos(int x, int y)
{
    g_cursor = POINT{x, y};
    return TRUE;
}

SHORT GetKeyState(int virtualKey)
{
    if (!ValidKey(virtualKey)) return 0;
    const auto key = static_cast<size_t>(virtualKey);
    // As the platform reports it: a key that is down reads 0xFF80 (negative),
    // the low bit is the toggle state.
    return static_cast<SHORT>((g_down[key] ? 0xFF80 : 0) | (g_toggled[key] ? 1 : 0));
}

SHORT GetAsyncKeyState(int virtualKey)
{
    return GetKeyState(virtualKey);
}

BOOL TrackMouseEvent(TRACKMOUSEEVENT* event)
{
    if (!event || !(event->dwFlags & TME_LEAVE)) return FALSE;
    if (event->dwFlags & TME_CANCEL) {
        if (g_leaveWatch == event->hwndTrack) g_leaveWatch = nullptr;
        return TRUE;
    }
    if (!IsWindow(event->hwndTrack)) return FALSE;
    g_leaveWatch = event->hwndTrack;
    return TRUE;
}

namespace InputState {

void MouseOver(HWND window, bool inClient)
{
    if (!g_leaveWatch || (window == g_leaveWatch && inClient)) return;
    // Cleared first: the handler may ask again, for the same or another window.
    const HWND left = g_leaveWatch;
    g_leaveWatch = nullptr;
    if (IsWindow(left)) ::SendMessage(left, WM_MOUSELEAVE, 0, 0);
}

void SetKeyDown(int virtualKey, bool down)
{
    if (!ValidKey(virtualKey)) return;
    const auto key = static_cast<size_t>(virtualKey);
    if (down && !g_down[key]) g_toggled[key] = !g_toggled[key];
    g_down[key] = down;
}

void ResetKeys()
{
    g_down.fill(false);
}

}  // namespace InputState
