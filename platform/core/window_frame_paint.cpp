// The default non-client handling: where a point is (WM_NCHITTEST), drawing
// the scroll bars in the classic look (WM_NCPAINT), and a press on a bar.
#include "platform/core/window_frame_paint.h"

#include "platform/core/messages.h"
#include "platform/core/paint_dc.h"
#include "platform/core/scroll_bar.h"
#include "platform/core/scroll_bar_track.h"
#include "platform/core/window_frame.h"
#include "platform/core/window_registry.h"
#include "platform/gdi/raster.h"
#include "platform/gdi/sys_color.h"

namespace {

enum class Direction { Up, Down, Left, Right };

void DrawRaisedEdge(CDC& dc, CRect r)
{
    dc.Draw3dRect(&r, GetSysColor(COLOR_3DLIGHT), GetSysColor(COLOR_3DDKSHADOW));
    r.DeflateRect(1, 1);
    dc.Draw3dRect(&r, GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_BTNSHADOW));
}

// A filled triangle pointing one way, centred in r: a 16-pixel button gets
// one four rows deep and seven wide.
void DrawTriangle(CDC& dc, const CRect& r, Direction d, COLORREF color)
{
    const int side = std::min(r.Width(), r.Height());
    const int depth = std::max(1, (side - 8) / 2);
    const bool vertical = d == Direction::Up || d == Direction::Down;
    const int cx = r.left + (r.Width() - 1) / 2;
    const int cy = r.top + (r.Height() - 1) / 2;
    for (int i = 0; i < depth; ++i) {
        // Row i from the apex is 2i + 1 pixels long.
        const bool fromApex = d == Direction::Up || d == Direction::Left;
        const int along = (fromApex ? i : depth - 1 - i) - depth / 2;
        if (vertical) dc.FillSolidRect(cx - i, cy + along, 2 * i + 1, 1, color);
        else dc.FillSolidRect(cx + along, cy - i, 1, 2 * i + 1, color);
    }
}

void DrawArrowButton(CDC& dc, CRect r, Direction d, bool enabled, bool pressed)
{
    if (r.IsRectEmpty()) return;
    dc.FillSolidRect(&r, GetSysColor(COLOR_BTNFACE));
    if (pressed) {
        dc.Draw3dRect(&r, GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNSHADOW));
        r.OffsetRect(1, 1);  // the glyph sinks with the button
    } else {
        DrawRaisedEdge(dc, r);
    }
    if (enabled) {
        DrawTriangle(dc, r, d, GetSysColor(COLOR_BTNTEXT));
    } else {
        CRect shadow = r;
        shadow.OffsetRect(1, 1);
        DrawTriangle(dc, shadow, d, GetSysColor(COLOR_BTNHIGHLIGHT));
        DrawTriangle(dc, r, d, GetSysColor(COLOR_GRAYTEXT));
    }
}

// The track's dither of two colours, written straight into the target:
// a pixel at a time through the DC would cost a clip test each.
void DrawTrack(CDC& dc, const CRect& r, bool pressed)
{
    if (r.IsRectEmpty()) return;
    const gdi::Target t = dc.GetTarget();
    if (!t.Valid()) return;
    const std::uint32_t even = t.Pixel(GetSysColor(pressed ? COLOR_3DDKSHADOW : COLOR_BTNHIGHLIGHT));
    const std::uint32_t odd = t.Pixel(GetSysColor(pressed ? COLOR_BTNSHADOW : COLOR_BTNFACE));
    CRect area = t.ToDevice(r);
    if (!area.IntersectRect(area, t.clip)) return;
    // The pattern follows window coordinates, so it stays put while the thumb moves.
    const CPoint origin = t.ToDevice(RECT{0, 0, 0, 0}).TopLeft();
    for (int y = area.top; y < area.bottom; ++y) {
        std::uint32_t* row = t.surface->Row(y);
        for (int x = area.left; x < area.right; ++x) row[x] = ((x - origin.x + y - origin.y) & 1) ? odd : even;
    }
}

void DrawBar(CDC& dc, const CRect& area, bool vertical, const ScrollBarState& state)
{
    if (area.IsRectEmpty()) return;
    const scrollbar::Layout l = scrollbar::LayoutBar(area, vertical, state);
    const int pressed = state.pressedPart;
    DrawArrowButton(dc, l.lineBefore, vertical ? Direction::Up : Direction::Left, l.enabled, pressed == scrollbar::kLineBefore);
    DrawArrowButton(dc, l.lineAfter, vertical ? Direction::Down : Direction::Right, l.enabled, pressed == scrollbar::kLineAfter);
    DrawTrack(dc, l.pageBefore, pressed == scrollbar::kPageBefore);
    DrawTrack(dc, l.pageAfter, pressed == scrollbar::kPageAfter);
    if (!l.thumb.IsRectEmpty()) {
        dc.FillSolidRect(&l.thumb, GetSysColor(COLOR_BTNFACE));
        DrawRaisedEdge(dc, l.thumb);
    }
}

}  // namespace

int NonClientHitTest(HWND hwnd, POINT screen)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return HTNOWHERE;
    CRect window;
    ::GetWindowRect(hwnd, &window);
    const CPoint at(screen.x - window.left, screen.y - window.top);
    const WindowFrame f = FrameOf(*data);
    if (f.client.PtInRect(at)) return HTCLIENT;
    if (f.vertical.PtInRect(at)) return HTVSCROLL;
    if (f.horizontal.PtInRect(at)) return HTHSCROLL;
    if (f.corner.PtInRect(at)) return HTNOWHERE;
    return CRect(0, 0, window.Width(), window.Height()).PtInRect(at) ? HTBORDER : HTNOWHERE;
}

void PaintWindowFrame(HWND hwnd)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return;
    const WindowFrame f = FrameOf(*data);
    if (f.vertical.IsRectEmpty() && f.horizontal.IsRectEmpty()) return;
    CWindowDC dc(hwnd);
    DrawBar(dc, f.vertical, true, data->vertical);
    DrawBar(dc, f.horizontal, false, data->horizontal);
    if (!f.corner.IsRectEmpty()) dc.FillSolidRect(&f.corner, GetSysColor(COLOR_BTNFACE));
}

void PressNonClient(HWND hwnd, int hit, POINT screen)
{
    if (hit == HTVSCROLL) scrollbar::Press(hwnd, SB_VERT, screen);
    else if (hit == HTHSCROLL) scrollbar::Press(hwnd, SB_HORZ, screen);
}
