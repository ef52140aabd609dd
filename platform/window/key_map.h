// The platform's virtual key for a desktop key.
#pragma once

#include <SDL_keycode.h>

#include "platform/core/win_types.h"

namespace KeyMap {

// The VK_* code of a key, or 0 for a key the platform has no code for.
// Letters map by what they type on the user's layout. Keypad keys give
// VK_NUMPAD0..9 and VK_DECIMAL with Num Lock on, else the movement keys
// printed on them, as on the platform's own keyboards.
UINT VirtualKeyOf(SDL_Keycode key, bool numLock);

}  // namespace KeyMap
