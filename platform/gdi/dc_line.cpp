// Lines: solid, dotted and wide, always without their end point.
#include <algorithm>
#include <cstdlib>

#include "platform/gdi/dc.h"
#include "platform/gdi/gdi_registry.h"
#include "platform/gdi/raster.h"

CPoint CDC::MoveTo(int x, int y)
{
    const CPoint old = m_state.position;
    m_state.position = CPoint(gdi::Sat(x), gdi::Sat(y));
    return old;
}

BOOL CDC::LineTo(int x, int y)
{
    const gdi::Target t = GetTarget();
    const CPoint from = m_state.position;
    m_state.position = CPoint(gdi::Sat(x), gdi::Sat(y));
    DrawLine(t, CurrentPen(), t.ToDevice(from.x, from.y), t.ToDevice(m_state.position.x, m_state.position.y));
    return TRUE;
}

void CDC::DrawLine(const gdi::Target& t, const gdi::PenData& pen, CPoint a, CPoint b)
{
    if (!t.Valid() || pen.style == PS_NULL) return;
    const long long dx = 0LL + b.x - a.x, dy = 0LL + b.y - a.y;
    const long long adx = std::llabs(dx), ady = std::llabs(dy);
    const long long steps = std::max(adx, ady);
    if (steps == 0) return;
    // Styled pens wider than one pixel draw solid, as cosmetic pens do.
    const bool dotted = pen.width == 1 && pen.style >= PS_DASH && pen.style <= PS_DASHDOTDOT;
    const std::uint32_t ink = t.Pixel(pen.color);
    const int w = pen.width;
    const int lo = (w - 1) / 2;  // a wide pen paints a w x w square centred on each point

    if (!dotted && (dx == 0 || dy == 0)) {
        long long left = a.x, right = a.x + 1LL, top = a.y, bottom = a.y + 1LL;
        if (dy == 0) {
            left = dx > 0 ? a.x : b.x + 1LL;
            right = dx > 0 ? b.x : a.x + 1LL;
        } else {
            top = dy > 0 ? a.y : b.y + 1LL;
            bottom = dy > 0 ? b.y : a.y + 1LL;
        }
        gdi::FillPixels(t, CRect(gdi::Sat(left - lo), gdi::Sat(top - lo), gdi::Sat(right - lo + w - 1), gdi::Sat(bottom - lo + w - 1)), ink);
        return;
    }

    // Walk only the part of the major axis that can reach the clip box. The
    // minor coordinate of step i is rounded from the exact line, so any step
    // can be computed on its own.
    const bool xMajor = adx >= ady;
    const long long major0 = xMajor ? a.x : a.y, minor0 = xMajor ? a.y : a.x;
    const long long majorStep = (xMajor ? dx : dy) < 0 ? -1 : 1, minorStep = (xMajor ? dy : dx) < 0 ? -1 : 1;
    const long long amaj = xMajor ? adx : ady, amin = xMajor ? ady : adx;
    const long long clipLo = (xMajor ? t.clip.left : t.clip.top) - w, clipHi = (xMajor ? t.clip.right : t.clip.bottom) + w;
    long long first = majorStep > 0 ? clipLo - major0 : major0 - clipHi;
    long long last = majorStep > 0 ? clipHi - major0 : major0 - clipLo;
    first = std::max(first, 0LL);
    last = std::min(last, steps - 1);
    const std::uint32_t gap = t.Pixel(m_state.bkColor);
    const bool fillGaps = dotted && m_state.bkMode == OPAQUE;
    for (long long i = first; i <= last; ++i) {
        const bool on = !dotted || (i & 1) == 0;
        if (!on && !fillGaps) continue;
        const long long major = major0 + majorStep * i;
        const long long minor = minor0 + minorStep * ((2 * i * amin + amaj) / (2 * amaj));
        const int x = static_cast<int>(xMajor ? major : minor), y = static_cast<int>(xMajor ? minor : major);
        if (w == 1) gdi::PutPixel(t, x, y, on ? ink : gap);
        else gdi::FillPixels(t, CRect(x - lo, y - lo, x - lo + w, y - lo + w), ink);
    }
}
