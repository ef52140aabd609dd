// A 32-bit pixel surface: what windows, bitmaps and memory DCs draw into.
// Pixels are 0x00RRGGBB, row by row from the top; the top byte is always 0.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/core/win_types.h"

// COLORREF (0x00BBGGRR) to a surface pixel (0x00RRGGBB) and back.
constexpr std::uint32_t ColorRefToPixel(COLORREF c)
{
    return ((c & 0xFFu) << 16) | (c & 0xFF00u) | ((c >> 16) & 0xFFu);
}
constexpr COLORREF PixelToColorRef(std::uint32_t p)
{
    return ((p & 0xFFu) << 16) | (p & 0xFF00u) | ((p >> 16) & 0xFFu);
}

class AFX_EXT_CLASS Surface {
public:
    // Largest side and area a surface accepts; a bigger request gives an
    // empty surface rather than a huge allocation.
    static constexpr int kMaxSide = 32768;
    static constexpr std::int64_t kMaxArea = std::int64_t(1) << 26;

    Surface() = default;
    Surface(int width, int height, std::uint32_t fill = 0);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    bool IsEmpty() const { return m_pixels.empty(); }
    CRect Bounds() const { return CRect(0, 0, m_width, m_height); }
    bool Contains(int x, int y) const { return x >= 0 && y >= 0 && x < m_width && y < m_height; }

    // Out of range: GetPixel returns 0, SetPixel does nothing.
    std::uint32_t GetPixel(int x, int y) const;
    void SetPixel(int x, int y, std::uint32_t pixel);

    // Row access for the drawing code; y must be inside the surface.
    std::uint32_t* Row(int y) { return m_pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(m_width); }
    const std::uint32_t* Row(int y) const { return m_pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(m_width); }
    const std::vector<std::uint32_t>& Pixels() const { return m_pixels; }

    // New size; the content is lost (filled with the given pixel).
    void Resize(int width, int height, std::uint32_t fill = 0);
    void Fill(std::uint32_t pixel);
    // Pixels of the area (clipped to the surface) as a new surface.
    Surface Copy(const CRect& area) const;

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint32_t> m_pixels;
};
