// Clipped pixel work on a DC's target surface. Every function here keeps
// inside target.clip, which always lies inside the surface.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/gdi/surface.h"

namespace gdi {

// Coordinates are kept within this range so that offsets and sizes added by
// the drawing code never overflow; anything beyond is off every surface.
constexpr long long kCoordLimit = 1 << 28;
inline int Sat(long long v) { return static_cast<int>(v < -kCoordLimit ? -kCoordLimit : v > kCoordLimit ? kCoordLimit : v); }

struct Target {
    Surface* surface = nullptr;
    CRect clip;          // surface pixels; empty when nothing may be drawn
    CPoint offset;       // added to logical coordinates to get surface pixels
    bool mono = false;   // monochrome bitmap: pixels are black or white

    bool Valid() const { return surface && !clip.IsRectEmpty(); }
    bool Visible(int x, int y) const { return x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom; }
    CPoint ToDevice(long long x, long long y) const { return CPoint(Sat(x + offset.x), Sat(y + offset.y)); }
    CRect ToDevice(const RECT& r) const
    {
        return CRect(Sat(0LL + r.left + offset.x), Sat(0LL + r.top + offset.y), Sat(0LL + r.right + offset.x),
                     Sat(0LL + r.bottom + offset.y));
    }
    // The pixel value a colour takes on this target.
    std::uint32_t Pixel(COLORREF color) const;
};

// Colour to black or white, as a monochrome bitmap stores it.
std::uint32_t MonoPixel(std::uint32_t pixel);

inline void PutPixel(const Target& t, int x, int y, std::uint32_t pixel)
{
    if (t.Visible(x, y)) t.surface->Row(y)[x] = pixel;
}

// Sets count pixels from span on.
void FillSpan(std::uint32_t* span, size_t count, std::uint32_t pixel);
// Fills rect (surface pixels, right/bottom exclusive) after clipping.
void FillPixels(const Target& t, const CRect& rect, std::uint32_t pixel);
// XORs every pixel of rect with mask.
void XorPixels(const Target& t, const CRect& rect, std::uint32_t mask);

}  // namespace gdi
