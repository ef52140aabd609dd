// The user's press on a scroll bar: the requests it sends and, for the
// thumb, the drag that follows until the button is released.
#pragma once

#include "platform/core/scroll_bar_geometry.h"

namespace scrollbar {

// The layout of a window's bar (SB_VERT or SB_HORZ) in screen coordinates;
// an empty bar when it is hidden.
Layout ScreenLayout(HWND hwnd, int bar);
// A left press at a screen point on a window's bar.
void Press(HWND hwnd, int bar, POINT screen);

}  // namespace scrollbar
