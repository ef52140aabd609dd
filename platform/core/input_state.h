// The cursor position and the keyboard state, as the message loop leaves them
// for the message being handled. The input layer sets them before it delivers
// each simulated event.
#pragma once

#include "platform/core/win_types.h"

using SHORT = std::int16_t;

AFX_API BOOL GetCursorPos(LPPOINT point);
AFX_API BOOL SetCursorPos(int x, int y);
// High bit set while the key is down; low bit toggles at each press.
AFX_API SHORT GetKeyState(int virtualKey);
AFX_API SHORT GetAsyncKeyState(int virtualKey);

inline bool IsKeyDown(int virtualKey)
{
    return GetKeyState(virtualKey) < 0;
}

// One wheel notch, and the lines a notch scrolls.
constexpr int WHEEL_DELTA = 120;
constexpr int kWheelScrollLines = 3;

// Whole notches in a wheel delta; partial notches (fine-grained wheels) add up
// in the remainder until they make a whole one.
inline int TakeWheelNotches(int& remainder, int delta)
{
    remainder += delta;
    const int notches = remainder / WHEEL_DELTA;
    remainder -= notches * WHEEL_DELTA;
    return notches;
}

// Asks for WM_MOUSELEAVE once the mouse leaves the window's client area.
constexpr DWORD TME_LEAVE = 0x00000002;
constexpr DWORD TME_CANCEL = 0x80000000;
struct TRACKMOUSEEVENT {
    DWORD cbSize = sizeof(TRACKMOUSEEVENT);
    DWORD dwFlags = 0;
    HWND hwndTrack = nullptr;
    DWORD dwHoverTime = 0;
};
AFX_API BOOL TrackMouseEvent(TRACKMOUSEEVENT* event);

namespace InputState {
// Where the mouse now is: a window (null for none) and whether over its
// client area. A window that asked to hear of the mouse leaving hears it now.
AFX_API void MouseOver(HWND window, bool inClient);
// Marks a key up or down (a press toggles the low bit).
AFX_API void SetKeyDown(int virtualKey, bool down);
// Releases every key.
AFX_API void ResetKeys();
}  // namespace InputState
