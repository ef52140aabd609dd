// Where the parts of one scroll bar lie: two arrow buttons at the ends, the
// track between them, and the thumb whose place and size show the position
// and the page. Painting, hit testing and thumb dragging share it.
#pragma once

#include "platform/core/scroll_bar_state.h"
#include "platform/core/win_types.h"

namespace scrollbar {

// The thumb never gets shorter than this, however long the content.
constexpr int kMinThumb = 8;

enum Part : int { kNoPart = 0, kLineBefore, kPageBefore, kThumb, kPageAfter, kLineAfter };

struct Layout {
    bool vertical = true;
    bool enabled = false;  // false: nothing to scroll, arrows greyed, no thumb
    CRect bar;
    CRect lineBefore;      // the up or left arrow
    CRect lineAfter;       // the down or right arrow
    CRect pageBefore;      // track between the first arrow and the thumb
    CRect pageAfter;       // track between the thumb and the second arrow
    CRect thumb;           // empty when there is no room for one
    int trackStart = 0;    // along the bar's axis, in the bar's coordinates
    int trackEnd = 0;
};

Layout LayoutBar(const CRect& bar, bool vertical, const ScrollBarState& state);
Part PartAt(const Layout& layout, POINT point);
// The position that puts the thumb's leading edge at `thumbStart` (along the
// axis), clamped to what the bar allows.
int PosForThumbAt(const Layout& layout, const ScrollBarState& state, int thumbStart);

}  // namespace scrollbar
