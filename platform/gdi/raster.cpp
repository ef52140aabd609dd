#include "platform/gdi/raster.h"

#include <algorithm>

namespace gdi {

std::uint32_t MonoPixel(std::uint32_t pixel)
{
    const std::uint32_t r = (pixel >> 16) & 0xFF, g = (pixel >> 8) & 0xFF, b = pixel & 0xFF;
    return (r * 30 + g * 59 + b * 11) / 100 >= 128 ? 0xFFFFFFu : 0u;
}

std::uint32_t Target::Pixel(COLORREF color) const
{
    const std::uint32_t pixel = ColorRefToPixel(color);
    return mono ? MonoPixel(pixel) : pixel;
}

void FillPixels(const Target& t, const CRect& rect, std::uint32_t pixel)
{
    CRect r;
    if (!t.surface || !r.IntersectRect(rect, t.clip)) return;
    for (int y = r.top; y < r.bottom; ++y) {
        std::uint32_t* row = t.surface->Row(y);
        std::fill(row + r.left, row + r.right, pixel);
    }
}

void XorPixels(const Target& t, const CRect& rect, std::uint32_t mask)
{
    CRect r;
    if (!t.surface || !r.IntersectRect(rect, t.clip)) return;
    for (int y = r.top; y < r.bottom; ++y) {
        std::uint32_t* row = t.surface->Row(y);
        for (int x = r.left; x < r.right; ++x) row[x] ^= mask;
    }
}

}  // namespace gdi
