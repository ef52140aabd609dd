// Glyph bitmaps for text drawing, rendered once by FreeType from the bitmap
// CJK fonts (WenQuanYi PCF files) and kept for the life of the process.
// Layout never depends on these; they only decide which pixels of a
// character cell get ink. Used from the UI thread only.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/win_types.h"

namespace gdi {

class GlyphCells;
struct FontMetrics;

struct Glyph {
    bool missing = false;  // the font has no such character
    int left = 0;          // ink offset from the cell's left edge
    int top = 0;           // ink rows above the baseline
    int width = 0;
    int rows = 0;
    std::vector<std::uint8_t> ink;  // width * rows, 1 where the glyph has ink
};

class AFX_EXT_CLASS GlyphCache {
public:
    static GlyphCache& Instance();
    ~GlyphCache();

    // Whether any font file was found (else callers draw boxes).
    bool HasFonts();
    // The glyph of a GBK character code (a byte below 0x80, or lead << 8 |
    // trail) from the font whose pixel size is nearest pixelHeight; null
    // when there are no fonts.
    const Glyph* Find(int pixelHeight, std::uint32_t gbkCode);
    // Pixel size of the font used for pixelHeight, 0 when there are none.
    int FontSizeFor(int pixelHeight);
    // The character cells of text drawn with these metrics, kept until the
    // font directory changes.
    GlyphCells& CellsFor(const FontMetrics& metrics);

    // Looks for fonts in another folder from now on, dropping everything
    // loaded (for tests).
    void SetFontDirectory(const std::string& directory);
    static const char* DefaultFontDirectory() { return "/usr/share/fonts/X11/misc"; }

private:
    GlyphCache();
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace gdi
