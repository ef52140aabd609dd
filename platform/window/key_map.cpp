#include "platform/window/key_map.h"

#include <array>
#include <utility>

#include "platform/core/messages.h"

namespace KeyMap {
namespace {

constexpr std::pair<SDL_Keycode, UINT> kKeys[] = {
    {SDLK_F1, VK_F1}, {SDLK_F2, VK_F2}, {SDLK_F3, VK_F3}, {SDLK_F4, VK_F4},
    {SDLK_F5, VK_F5}, {SDLK_F6, VK_F6}, {SDLK_F7, VK_F7}, {SDLK_F8, VK_F8},
    {SDLK_F9, VK_F9}, {SDLK_F10, VK_F10}, {SDLK_F11, VK_F11}, {SDLK_F12, VK_F12},
    {SDLK_LEFT, VK_LEFT}, {SDLK_RIGHT, VK_RIGHT}, {SDLK_UP, VK_UP}, {SDLK_DOWN, VK_DOWN},
    {SDLK_HOME, VK_HOME}, {SDLK_END, VK_END}, {SDLK_PAGEUP, VK_PRIOR}, {SDLK_PAGEDOWN, VK_NEXT},
    {SDLK_INSERT, VK_INSERT}, {SDLK_DELETE, VK_DELETE},
    {SDLK_BACKSPACE, VK_BACK}, {SDLK_TAB, VK_TAB}, {SDLK_RETURN, VK_RETURN}, {SDLK_RETURN2, VK_RETURN},
    {SDLK_ESCAPE, VK_ESCAPE}, {SDLK_SPACE, VK_SPACE},
    {SDLK_LSHIFT, VK_SHIFT}, {SDLK_RSHIFT, VK_SHIFT}, {SDLK_LCTRL, VK_CONTROL}, {SDLK_RCTRL, VK_CONTROL},
    {SDLK_LALT, VK_MENU}, {SDLK_RALT, VK_MENU},
    {SDLK_KP_ENTER, VK_RETURN}, {SDLK_KP_PLUS, VK_ADD}, {SDLK_KP_MINUS, VK_SUBTRACT},
    {SDLK_KP_MULTIPLY, VK_MULTIPLY}, {SDLK_KP_DIVIDE, VK_DIVIDE},
};

// Keypad keys that move when Num Lock is off; index = the digit (10: the point).
constexpr std::array<UINT, 11> kKeypadMoves = {VK_INSERT, VK_END, VK_DOWN, VK_NEXT, VK_LEFT, 0,
                                               VK_RIGHT, VK_HOME, VK_UP, VK_PRIOR, VK_DELETE};
constexpr size_t kKeypadPoint = 10;

// The digit of a keypad key (kKeypadPoint for its point); -1 for other keys.
int KeypadIndex(SDL_Keycode key)
{
    if (key == SDLK_KP_0) return 0;
    if (key >= SDLK_KP_1 && key <= SDLK_KP_9) return static_cast<int>(key - SDLK_KP_1) + 1;
    if (key == SDLK_KP_PERIOD) return static_cast<int>(kKeypadPoint);
    return -1;
}

}  // namespace

UINT VirtualKeyOf(SDL_Keycode key, bool numLock)
{
    if (key >= SDLK_a && key <= SDLK_z) return static_cast<UINT>(key - SDLK_a) + 'A';
    if (key >= SDLK_0 && key <= SDLK_9) return static_cast<UINT>(key - SDLK_0) + '0';
    if (const int keypad = KeypadIndex(key); keypad >= 0) {
        if (!numLock) return kKeypadMoves[static_cast<size_t>(keypad)];
        return keypad == static_cast<int>(kKeypadPoint) ? VK_DECIMAL : VK_NUMPAD0 + static_cast<UINT>(keypad);
    }
    for (const auto& [sdl, vk] : kKeys) {
        if (sdl == key) return vk;
    }
    return 0;
}

}  // namespace KeyMap
