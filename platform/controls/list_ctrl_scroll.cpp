// Scrolling: the top line, the horizontal offset, and the messages and the
// wheel that move them.
#include "platform/controls/list_ctrl_control.h"

#include "platform/core/input_state.h"

namespace listview {

bool ListControl::EnsureVisible(int index, bool partialOK)
{
    if (!Valid(index)) return false;
    const Geometry g = ComputeGeometry();
    const int page = g.PageLines();
    if (index < g.top) {
        ScrollTo(g, index);
    } else if (index >= static_cast<long long>(g.top) + page) {
        // A line cut off at the bottom counts as shown when that is enough.
        const bool partlyShown = g.LineTop(index) < g.client.bottom;
        if (!(partialOK && partlyShown)) ScrollTo(g, static_cast<long long>(index) - page + 1);
    }
    return true;
}

void ListControl::ScrollTo(const Geometry& g, long long top)
{
    const int clamped = g.ClampTop(top);
    if (clamped == m_top) return;
    m_top = clamped;
    InvalidateItems(g);
    FitScrollBars();
}

void ListControl::ScrollXTo(const Geometry& g, long long x)
{
    const int clamped = g.ClampScrollX(x);
    if (clamped == m_scrollX) return;
    m_scrollX = clamped;
    PlaceHeader();
    if (Hwnd()) m_wnd->Invalidate();
    FitScrollBars();
}

void ListControl::FitScrollBars()
{
    if (!Hwnd() || Has(LVS_NOSCROLL)) return;
    const Geometry g = ComputeGeometry();
    ::FitScrollBars(Hwnd(), true, true, [&](const CRect& client) {
        Geometry trial = g;
        trial.client = client;
        ScrollNeeds needs;
        needs.vertical = {g.count, trial.PageLines(), g.top};
        needs.horizontal = {g.TotalWidth(), client.Width(), g.scrollX};
        return needs;
    });
}

void ListControl::OnVScroll(UINT code, int position)
{
    const Geometry g = ComputeGeometry();
    const long long top = g.top;
    switch (code) {
    case SB_LINEUP: ScrollTo(g, top - 1); break;
    case SB_LINEDOWN: ScrollTo(g, top + 1); break;
    case SB_PAGEUP: ScrollTo(g, top - g.PageLines()); break;
    case SB_PAGEDOWN: ScrollTo(g, top + g.PageLines()); break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: ScrollTo(g, position); break;
    case SB_TOP: ScrollTo(g, 0); break;
    case SB_BOTTOM: ScrollTo(g, g.MaxTop()); break;
    default: break;
    }
}

void ListControl::OnHScroll(UINT code, int position)
{
    const Geometry g = ComputeGeometry();
    const long long x = g.scrollX;
    switch (code) {
    case SB_LINEUP: ScrollXTo(g, x - kHorizontalLine); break;
    case SB_LINEDOWN: ScrollXTo(g, x + kHorizontalLine); break;
    case SB_PAGEUP: ScrollXTo(g, x - g.client.Width()); break;
    case SB_PAGEDOWN: ScrollXTo(g, x + g.client.Width()); break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: ScrollXTo(g, position); break;
    case SB_TOP: ScrollXTo(g, 0); break;
    case SB_BOTTOM: ScrollXTo(g, g.MaxScrollX()); break;
    default: break;
    }
}

void ListControl::OnMouseWheel(int delta)
{
    const int notches = TakeWheelNotches(m_wheelRemainder, delta);
    if (notches) ScrollTo(ComputeGeometry(), static_cast<long long>(m_top) - static_cast<long long>(notches) * kWheelScrollLines);
}

}  // namespace listview
