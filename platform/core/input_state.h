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

namespace InputState {
// Marks a key up or down (a press toggles the low bit).
AFX_API void SetKeyDown(int virtualKey, bool down);
// Releases every key.
AFX_API void ResetKeys();
}  // namespace InputState
