// What the platform keeps for one of a window's two standard scroll bars.
#pragma once

#include <algorithm>

#include "platform/core/win_types.h"

struct ScrollBarState {
    int min = 0;
    int max = 100;  // a new bar covers 0..100, as the platform's do
    UINT page = 0;
    int pos = 0;
    int trackPos = 0;     // where the thumb is while the user drags it
    bool tracking = false;
    int pressedPart = 0;  // scrollbar::Part held down by the mouse; 0 for none

    long long Range() const { return static_cast<long long>(max) - min + 1; }
    // The highest position: the page ends at max.
    int MaxPos() const
    {
        const long long last = static_cast<long long>(max) - std::max<long long>(static_cast<long long>(page) - 1, 0);
        return static_cast<int>(std::max<long long>(last, min));
    }
    // Whether there is anything to scroll.
    bool Needed() const { return min < max && (page == 0 || static_cast<long long>(page) < Range()); }
    // Where the thumb is drawn: at the track position while it is dragged.
    int ShownPos() const { return tracking ? trackPos : pos; }
};

// The state of a window's bar (SB_VERT or SB_HORZ); null for any other bar or
// a window that is gone.
AFX_API ScrollBarState* ScrollBarOf(HWND hwnd, int bar);
