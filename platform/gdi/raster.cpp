#include "platform/gdi/raster.h"

#include <algorithm>
#include <cstring>

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

void FillSpan(std::uint32_t* span, size_t count, std::uint32_t pixel)
{
    // Short spans are not worth a library call; longer ones are doubled by
    // memcpy, which moves far more than a pixel per store.
    constexpr size_t kSeed = 16;
    if (count <= kSeed) {
        for (size_t i = 0; i < count; ++i) span[i] = pixel;
        return;
    }
    for (size_t i = 0; i < kSeed; ++i) span[i] = pixel;
    for (size_t done = kSeed; done < count;) {
        const size_t chunk = std::min(done, count - done);
        std::memcpy(span + done, span, chunk * sizeof *span);
        done += chunk;
    }
}

void FillPixels(const Target& t, const CRect& rect, std::uint32_t pixel)
{
    CRect r;
    if (!t.surface || !r.IntersectRect(rect, t.clip)) return;
    const size_t width = static_cast<size_t>(r.Width());
    const std::uint32_t* first = t.surface->Row(r.top) + r.left;
    FillSpan(t.surface->Row(r.top) + r.left, width, pixel);
    for (int y = r.top + 1; y < r.bottom; ++y) std::memcpy(t.surface->Row(y) + r.left, first, width * sizeof *first);
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
