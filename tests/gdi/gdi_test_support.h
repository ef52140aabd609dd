// Helpers for the drawing tests: a canvas with a DC over it, and builders for
// bitmap and icon bytes in the platform's layouts.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "platform/gdi/dc.h"
#include "platform/gdi/glyph_cache.h"
#include "platform/gdi/surface.h"

namespace gdi_test {

// A surface with a window DC over it: over all of it, or with its client
// corner at origin and drawing limited to clip.
struct Canvas {
    explicit Canvas(int width, int height, std::uint32_t fill = 0xFFFFFF) : surface(width, height, fill)
    {
        dc.AttachToSurface(&surface, CPoint(0, 0), surface.Bounds());
    }
    Canvas(int width, int height, std::uint32_t fill, CPoint origin, const CRect& clip) : surface(width, height, fill)
    {
        dc.AttachToSurface(&surface, origin, clip);
    }
    std::uint32_t At(int x, int y) const { return surface.GetPixel(x, y); }
    int Count(std::uint32_t pixel, const CRect& area) const
    {
        int n = 0;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x) n += surface.Contains(x, y) && surface.GetPixel(x, y) == pixel;
        return n;
    }
    // Bounding box of the pixels that differ from the background.
    CRect InkBounds(std::uint32_t background) const
    {
        CRect box(surface.Width(), surface.Height(), 0, 0);
        for (int y = 0; y < surface.Height(); ++y)
            for (int x = 0; x < surface.Width(); ++x)
                if (surface.GetPixel(x, y) != background) box.UnionRect(box, CRect(x, y, x + 1, y + 1));
        return box.IsRectEmpty() ? CRect() : box;
    }

    Surface surface;
    CDC dc;
};

// Makes text draw hollow boxes (one per character cell) for the life of the
// object, so that text tests do not depend on installed fonts.
struct BoxGlyphs {
    BoxGlyphs() { gdi::GlyphCache::Instance().SetFontDirectory("/nonexistent-font-dir"); }
    ~BoxGlyphs() { gdi::GlyphCache::Instance().SetFontDirectory(gdi::GlyphCache::DefaultFontDirectory()); }
};

struct Bytes : std::vector<unsigned char> {
    void U8(std::uint32_t v) { push_back(static_cast<unsigned char>(v)); }
    void U16(std::uint32_t v) { U8(v & 0xFF); U8(v >> 8); }
    void U32(std::uint32_t v) { U16(v & 0xFFFF); U16(v >> 16); }
    void Pad4() { while (size() % 4) U8(0); }
};

inline void Header(Bytes& b, int width, int height, int bpp, std::uint32_t compression, std::uint32_t colors)
{
    b.U32(40);
    b.U32(static_cast<std::uint32_t>(width));
    b.U32(static_cast<std::uint32_t>(height));
    b.U16(1);
    b.U16(static_cast<std::uint32_t>(bpp));
    b.U32(compression);
    b.U32(0);
    b.U32(0);
    b.U32(0);
    b.U32(colors);
    b.U32(0);
}

// One row of pixels in DIB form: palette indices for 1/4/8 bpp, else
// 0xAARRGGBB values (16 bpp takes the low 16 bits as stored).
inline void Row(Bytes& b, const std::uint32_t* px, int width, int bpp)
{
    const size_t start = b.size();
    if (bpp <= 8) {
        const int perByte = 8 / bpp;
        for (int x = 0; x < width; x += perByte) {
            std::uint32_t byte = 0;
            for (int k = 0; k < perByte; ++k)
                byte |= (x + k < width ? px[x + k] : 0) << (8 - bpp * (k + 1));
            b.U8(byte);
        }
    } else {
        for (int x = 0; x < width; ++x) {
            if (bpp == 16) b.U16(px[x] & 0xFFFF);
            else {
                b.U8(px[x] & 0xFF);
                b.U8((px[x] >> 8) & 0xFF);
                b.U8((px[x] >> 16) & 0xFF);
                if (bpp == 32) b.U8(px[x] >> 24);
            }
        }
    }
    while ((b.size() - start) % 4) b.U8(0);
}

// A bitmap resource: header, palette (0x00RRGGBB entries), rows. pixels are
// given top row first and stored bottom-up unless topDown.
inline Bytes MakeDib(int width, int height, int bpp, const std::vector<std::uint32_t>& palette,
                     const std::vector<std::uint32_t>& pixels, bool topDown = false)
{
    Bytes b;
    Header(b, width, topDown ? -height : height, bpp, 0, static_cast<std::uint32_t>(palette.size()));
    for (std::uint32_t c : palette) b.U32(c);
    for (int i = 0; i < height; ++i) {
        const int y = topDown ? i : height - 1 - i;
        Row(b, pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(width), width, bpp);
    }
    return b;
}

// One icon image: colour rows then the AND mask (1 = transparent), both
// bottom-up, header height doubled.
inline Bytes MakeIconImage(int width, int height, int bpp, const std::vector<std::uint32_t>& palette,
                           const std::vector<std::uint32_t>& pixels, const std::vector<std::uint32_t>& mask)
{
    Bytes b;
    Header(b, width, height * 2, bpp, 0, static_cast<std::uint32_t>(palette.size()));
    for (std::uint32_t c : palette) b.U32(c);
    for (int y = height - 1; y >= 0; --y) Row(b, pixels.data() + static_cast<size_t>(y) * width, width, bpp);
    for (int y = height - 1; y >= 0; --y) Row(b, mask.data() + static_cast<size_t>(y) * width, width, 1);
    return b;
}

struct IconEntry {
    int width;
    int height;
    int bpp;
    Bytes image;
};

inline Bytes MakeIco(const std::vector<IconEntry>& entries)
{
    Bytes b;
    b.U16(0);
    b.U16(1);
    b.U16(static_cast<std::uint32_t>(entries.size()));
    std::uint32_t offset = 6 + 16 * static_cast<std::uint32_t>(entries.size());
    for (const IconEntry& e : entries) {
        b.U8(static_cast<std::uint32_t>(e.width) & 0xFF);
        b.U8(static_cast<std::uint32_t>(e.height) & 0xFF);
        b.U8(0);
        b.U8(0);
        b.U16(1);
        b.U16(static_cast<std::uint32_t>(e.bpp));
        b.U32(static_cast<std::uint32_t>(e.image.size()));
        b.U32(offset);
        offset += static_cast<std::uint32_t>(e.image.size());
    }
    for (const IconEntry& e : entries) b.insert(b.end(), e.image.begin(), e.image.end());
    return b;
}

}  // namespace gdi_test
