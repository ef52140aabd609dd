// Desktop keys to the platform's virtual keys.
#include <gtest/gtest.h>

#include "platform/core/messages.h"
#include "platform/window/key_map.h"

namespace {

struct KeyCase {
    SDL_Keycode key;
    bool numLock;
    UINT expected;
};

const KeyCase kCases[] = {
    {SDLK_a, false, 'A'}, {SDLK_z, true, 'Z'}, {SDLK_q, false, 'Q'},
    {SDLK_0, false, '0'}, {SDLK_9, false, '9'},
    {SDLK_F1, false, VK_F1}, {SDLK_F3, false, VK_F3}, {SDLK_F9, false, VK_F9}, {SDLK_F12, false, VK_F12},
    {SDLK_LEFT, false, VK_LEFT}, {SDLK_RIGHT, false, VK_RIGHT}, {SDLK_UP, false, VK_UP}, {SDLK_DOWN, false, VK_DOWN},
    {SDLK_HOME, false, VK_HOME}, {SDLK_END, false, VK_END}, {SDLK_PAGEUP, false, VK_PRIOR}, {SDLK_PAGEDOWN, false, VK_NEXT},
    {SDLK_INSERT, false, VK_INSERT}, {SDLK_DELETE, false, VK_DELETE},
    {SDLK_BACKSPACE, false, VK_BACK}, {SDLK_TAB, false, VK_TAB}, {SDLK_RETURN, false, VK_RETURN},
    {SDLK_ESCAPE, false, VK_ESCAPE}, {SDLK_SPACE, false, VK_SPACE},
    {SDLK_LSHIFT, false, VK_SHIFT}, {SDLK_RSHIFT, false, VK_SHIFT},
    {SDLK_LCTRL, false, VK_CONTROL}, {SDLK_RCTRL, false, VK_CONTROL},
    {SDLK_LALT, false, VK_MENU}, {SDLK_RALT, false, VK_MENU},
    // The keypad: digits with Num Lock, the keys printed on them without.
    {SDLK_KP_0, true, VK_NUMPAD0}, {SDLK_KP_1, true, VK_NUMPAD0 + 1}, {SDLK_KP_9, true, VK_NUMPAD0 + 9},
    {SDLK_KP_PERIOD, true, VK_DECIMAL},
    {SDLK_KP_0, false, VK_INSERT}, {SDLK_KP_1, false, VK_END}, {SDLK_KP_2, false, VK_DOWN}, {SDLK_KP_3, false, VK_NEXT},
    {SDLK_KP_4, false, VK_LEFT}, {SDLK_KP_6, false, VK_RIGHT}, {SDLK_KP_7, false, VK_HOME}, {SDLK_KP_8, false, VK_UP},
    {SDLK_KP_9, false, VK_PRIOR}, {SDLK_KP_PERIOD, false, VK_DELETE},
    {SDLK_KP_ENTER, false, VK_RETURN}, {SDLK_KP_PLUS, true, VK_ADD}, {SDLK_KP_MINUS, false, VK_SUBTRACT},
    {SDLK_KP_MULTIPLY, true, VK_MULTIPLY}, {SDLK_KP_DIVIDE, false, VK_DIVIDE},
    // Keys the platform has no code for.
    {SDLK_KP_5, false, 0}, {SDLK_CAPSLOCK, false, 0}, {SDLK_UNKNOWN, false, 0}, {SDLK_MUTE, false, 0},
    {SDLK_a - 1, false, 0}, {SDLK_z + 1, false, 0}, {-1, false, 0}, {0x7FFFFFFF, true, 0},
};

}  // namespace

TEST(KeyMap, EveryKeyGivesItsVirtualKey)
{
    for (const KeyCase& c : kCases) {
        EXPECT_EQ(KeyMap::VirtualKeyOf(c.key, c.numLock), c.expected)
            << "key 0x" << std::hex << c.key << (c.numLock ? " with" : " without") << " Num Lock";
    }
}

TEST(KeyMap, KeypadDigitsNeverCollideWithTheDigitRow)
{
    for (SDL_Keycode key = SDLK_KP_1; key <= SDLK_KP_9; ++key) {
        const UINT vk = KeyMap::VirtualKeyOf(key, true);
        EXPECT_GE(vk, VK_NUMPAD0 + 1);
        EXPECT_LE(vk, VK_NUMPAD0 + 9);
        EXPECT_NE(vk, KeyMap::VirtualKeyOf(SDLK_0 + static_cast<SDL_Keycode>(vk - VK_NUMPAD0), true));
    }
}
