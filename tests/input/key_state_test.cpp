// Key state as the platform reports it: 0xFF80 while a key is down (so the
// high byte reads 0xFF and the value is negative), the low bit toggling on
// each press.
#include <gtest/gtest.h>

#include "platform/core/input_state.h"
#include "platform/input/input.h"

TEST(KeyState, DownReadsNegativeWithHighByteFFAndPressesToggle)
{
    const bool toggledBefore = (GetKeyState(VK_CONTROL) & 1) != 0;
    Input::KeyDown(VK_CONTROL);
    const SHORT down = GetKeyState(VK_CONTROL);
    EXPECT_LT(down, 0);
    EXPECT_EQ(static_cast<WORD>(down) >> 8, 0xFF);
    EXPECT_EQ((down & 1) != 0, !toggledBefore);
    Input::KeyUp(VK_CONTROL);
    const SHORT up = GetKeyState(VK_CONTROL);
    EXPECT_GE(up, 0);
    EXPECT_EQ(static_cast<WORD>(up) >> 8, 0);
    EXPECT_EQ(GetKeyState(-1), 0);
    EXPECT_EQ(GetKeyState(100000), 0);
}
