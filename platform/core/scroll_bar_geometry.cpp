#include "platform/core/scroll_bar_geometry.h"

#include <algorithm>

#include "platform/core/window_frame.h"

namespace scrollbar {
namespace {

// A rectangle across the bar from `from` to `to` along its axis.
CRect Span(const Layout& l, int from, int to)
{
    if (to <= from) return CRect();
    return l.vertical ? CRect(l.bar.left, from, l.bar.right, to) : CRect(from, l.bar.top, to, l.bar.bottom);
}

}  // namespace

Layout LayoutBar(const CRect& bar, bool vertical, const ScrollBarState& state)
{
    Layout l;
    l.vertical = vertical;
    l.bar = bar;
    l.enabled = state.Needed();
    const int start = vertical ? bar.top : bar.left;
    const int end = vertical ? bar.bottom : bar.right;
    const int length = std::max(0, end - start);
    // A bar too short for two whole arrows splits its length between them.
    const int arrow = std::min(kScrollBarSize, length / 2);
    l.lineBefore = Span(l, start, start + arrow);
    l.lineAfter = Span(l, end - arrow, end);
    l.trackStart = start + arrow;
    l.trackEnd = end - arrow;
    const int track = l.trackEnd - l.trackStart;
    if (!l.enabled || track <= 0) {
        l.pageBefore = Span(l, l.trackStart, l.trackEnd);
        return l;
    }

    // The thumb is to the track what the page is to the whole range; without
    // a page it is as long as an arrow.
    const long long range = state.Range();
    int thumb = state.page == 0 ? kScrollBarSize : static_cast<int>(static_cast<long long>(track) * state.page / range);
    thumb = std::max(thumb, kMinThumb);
    if (thumb > track) {
        l.pageBefore = Span(l, l.trackStart, l.trackEnd);
        return l;
    }
    const long long span = static_cast<long long>(state.MaxPos()) - state.min;
    const long long at = std::clamp<long long>(static_cast<long long>(state.ShownPos()) - state.min, 0, span);
    const int offset = span > 0 ? static_cast<int>((track - thumb) * at / span) : 0;
    const int thumbStart = l.trackStart + offset;
    l.pageBefore = Span(l, l.trackStart, thumbStart);
    l.thumb = Span(l, thumbStart, thumbStart + thumb);
    l.pageAfter = Span(l, thumbStart + thumb, l.trackEnd);
    return l;
}

Part PartAt(const Layout& l, POINT point)
{
    if (!l.bar.PtInRect(point)) return kNoPart;
    if (l.lineBefore.PtInRect(point)) return kLineBefore;
    if (l.lineAfter.PtInRect(point)) return kLineAfter;
    if (!l.enabled) return kNoPart;
    if (l.thumb.PtInRect(point)) return kThumb;
    if (l.pageBefore.PtInRect(point)) return l.thumb.IsRectEmpty() ? kNoPart : kPageBefore;
    if (l.pageAfter.PtInRect(point)) return kPageAfter;
    return kNoPart;
}

int PosForThumbAt(const Layout& l, const ScrollBarState& state, int thumbStart)
{
    if (l.thumb.IsRectEmpty()) return state.pos;
    const int thumb = l.vertical ? l.thumb.Height() : l.thumb.Width();
    const int travel = l.trackEnd - l.trackStart - thumb;
    if (travel <= 0) return state.min;
    const long long offset = std::clamp(thumbStart - l.trackStart, 0, travel);
    const long long span = static_cast<long long>(state.MaxPos()) - state.min;
    // Rounded to the nearest position, so the thumb follows the mouse evenly.
    return static_cast<int>(state.min + (offset * span + travel / 2) / travel);
}

}  // namespace scrollbar
