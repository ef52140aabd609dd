#include "platform/gdi/surface.h"

#include <algorithm>

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
    m_pixels.assign(static_cast<size_t>(width) * static_cast<size_t>(height), fill & 0x00FFFFFFu);
}

void Surface::Fill(std::uint32_t pixel)
{
    std::fill(m_pixels.begin(), m_pixels.end(), pixel & 0x00FFFFFFu);
}

Surface Surface::Copy(const CRect& area) const
{
    CRect r;
    if (!r.IntersectRect(area, Bounds())) return Surface();
    Surface out(r.Width(), r.Height());
    for (int y = 0; y < r.Height(); ++y) std::copy_n(Row(r.top + y) + r.left, r.Width(), out.Row(y));
    return out;
}
