#include "demo/views/source_marks.h"

#include <cmath>

namespace {

constexpr int kDiscRadius = 5;       // an 11-pixel disc fits a 14-pixel row with a margin
constexpr int kHollowThickness = 2;  // the ring of a disabled breakpoint
constexpr int kFlagWidth = 7;        // bookmark flag, beside its pole
constexpr int kFlagHeight = 5;
constexpr int kGlyphHalf = 4;        // half the size of the cross and the triangle

// A disc as one span per row: the DC draws rectangles, not ellipses.
void FillDisc(CDC& dc, CPoint centre, int radius, COLORREF colour)
{
    for (int dy = -radius; dy <= radius; ++dy) {
        const int half = static_cast<int>(std::sqrt(static_cast<double>(radius * radius - dy * dy)) + 0.5);
        dc.FillSolidRect(centre.x - half, centre.y + dy, 2 * half + 1, 1, colour);
    }
}

}  // namespace

COLORREF LineMarkColour(LineMark::Kind kind)
{
    switch (kind) {
    case LineMark::Bookmark: return RGB(0, 90, 200);
    case LineMark::BreakpointOn:
    case LineMark::BreakpointOff: return RGB(210, 30, 30);
    case LineMark::Error: return RGB(200, 0, 0);
    case LineMark::Warning: return RGB(230, 160, 0);
    }
    return RGB(0, 0, 0);
}

void DrawLineMark(CDC& dc, const CRect& cell, LineMark::Kind kind, COLORREF back)
{
    const CPoint centre(cell.left + cell.Width() / 2, cell.top + cell.Height() / 2);
    const COLORREF ink = LineMarkColour(kind);
    switch (kind) {
    case LineMark::BreakpointOn: FillDisc(dc, centre, kDiscRadius, ink); break;
    case LineMark::BreakpointOff:
        FillDisc(dc, centre, kDiscRadius, ink);
        FillDisc(dc, centre, kDiscRadius - kHollowThickness, back);
        break;
    case LineMark::Bookmark: {
        // A pole and a flag at its top.
        const int pole = centre.x - kFlagWidth / 2;
        dc.FillSolidRect(pole, centre.y - kGlyphHalf - 1, 1, 2 * kGlyphHalf + 3, ink);
        dc.FillSolidRect(pole + 1, centre.y - kGlyphHalf - 1, kFlagWidth, kFlagHeight, ink);
        break;
    }
    case LineMark::Error:
        for (int d = -kGlyphHalf; d <= kGlyphHalf; ++d) {
            dc.FillSolidRect(centre.x + d, centre.y + d, 2, 1, ink);
            dc.FillSolidRect(centre.x + d, centre.y - d, 2, 1, ink);
        }
        break;
    case LineMark::Warning:
        // Rows widen downwards from the apex.
        for (int row = 0; row <= 2 * kGlyphHalf; ++row) {
            const int half = row / 2;
            dc.FillSolidRect(centre.x - half, centre.y - kGlyphHalf + row, 2 * half + 1, 1, ink);
        }
        break;
    }
}
