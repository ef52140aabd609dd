// Where a popup menu's items sit in its window, and the key that chooses an
// item: what painting, measuring and the user's mouse and keys share.
#pragma once

#include <string>
#include <vector>

#include "platform/menu/menu_driver.h"

namespace MenuLayout {

constexpr int kItemHeight = 18;      // 12 px menu font plus room above and below
constexpr int kSeparatorHeight = 8;  // an etched line in the middle
constexpr int kBorder = 3;           // raised frame

// The client-area top of each item's row, and one more: the bottom of the last.
AFX_API std::vector<int> RowTops(const std::vector<ShownMenuItem>& items);
// The item whose row holds a client point of a menu `width` pixels wide;
// -1 over the frame or outside.
AFX_API int ItemAt(const std::vector<int>& rowTops, POINT client, int width);
// The key that chooses an item: the character after '&' ("&&" is a plain
// '&'), ASCII letters upper-cased as virtual keys are; 0 for none or for a
// double-byte character.
AFX_API UINT MnemonicOf(const std::string& text);
// Where a menu of `size` opened at `at` goes so that it stays on the screen
// the main window makes (a desktop window shows nothing beyond it): flipped
// to the left of or above the point where it would run off, as the
// platform's menus do, and never past the screen's top-left corner. `at`
// unchanged without a main window.
AFX_API POINT FitOnScreen(POINT at, SIZE size);

}  // namespace MenuLayout
