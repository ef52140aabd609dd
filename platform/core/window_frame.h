// One geometry routine for a window's non-client area: its border, its
// scroll bars, the corner where they meet and what is left for the client.
// Client rectangles, hit testing, frame painting and scroll bar tracking all
// take their positions from here.
#pragma once

#include "platform/core/win_types.h"

struct WindowData;

// Thickness of a scroll bar, and the length of its arrow buttons.
constexpr int kScrollBarSize = 16;

struct WindowFrame {
    // All in window coordinates: (0, 0) is the window's top-left corner.
    CRect client;
    CRect vertical;    // empty while the bar is hidden
    CRect horizontal;  // empty while the bar is hidden
    CRect corner;      // where both bars meet; empty unless both show
    int border = 0;
};

// For a window of this size and these styles (the rectangle's position does
// not matter).
AFX_API WindowFrame FrameOf(const CRect& windowRect, DWORD style, DWORD exStyle);
AFX_API WindowFrame FrameOf(const WindowData& data);
