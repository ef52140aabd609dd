#include "platform/gdi/surface.h"

#include <algorithm>
#include <cstring>

#include "platform/gdi/raster.h"

Surface::Surface(int width, int height, std::uint32_t fill)
{
    Resize(width, height, fill);
}

std::uint32_t Surface::GetPixel(int x, int y) const
{
    return Contains(x, y) ? Row(y)[x] : 0;
}

void Surface::SetPixel(int x, int y, std::uint32_t pixel)
{
    if (Contains(x, y)) Row(y)[x] = pixel & 0x00FFFFFFu;
}

void Surface::Resize(int width, int height, std::uint32_t fill)
{
    width = std::max(width, 0);
    height = std::max(height, 0);
    if (width > kMaxSide || height > kMaxSide || std::int64_t(width) * height > kMaxArea) width = height = 0;
    if (width == 0 || height == 0) width = height = 0;
    m_width = width;
    m_height = height;
    // Zeroed storage comes from a memset; any other colour is laid over it
    // by the span fill, which stores far more than a pixel at a time.
    const size_t count = static_cast<size_t>(width) * static_cast<size_t>(height);
    m_pixels.clear();
    m_pixels.resize(count);
    if (fill & 0x00FFFFFFu) gdi::FillSpan(m_pixels.data(), count, fill & 0x00FFFFFFu);
}

void Surface::Fill(std::uint32_t pixel)
{
    pixel &= 0x00FFFFFFu;
    if (pixel == 0) std::memset(m_pixels.data(), 0, m_pixels.size() * sizeof pixel);
    else gdi::FillSpan(m_pixels.data(), m_pixels.size(), pixel);
}

Surface Surface::Copy(const CRect& area) const
{
    CRect r;
    if (!r.IntersectRect(area, Bounds())) return Surface();
    Surface out(r.Width(), r.Height());
    for (int y = 0; y < r.Height(); ++y) std::copy_n(Row(r.top + y) + r.left, r.Width(), out.Row(y));
    return out;
}
