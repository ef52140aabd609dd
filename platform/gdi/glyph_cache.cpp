#include "platform/gdi/glyph_cache.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <unordered_map>

#include <ft2build.h>
#include FT_FREETYPE_H

#include "platform/gdi/glyph_cells.h"
#include "platform/text/gbk.h"

namespace gdi {

struct GlyphCache::Impl {
    struct FontFile {
        std::string path;
        int pixelSize = 0;
        FT_Face face = nullptr;  // opened on first use
    };

    FT_Library library = nullptr;
    bool scanned = false;
    std::string directory = DefaultFontDirectory();
    std::vector<FontFile> fonts;
    std::unordered_map<int, int> fontForHeight;      // pixel height -> index into fonts
    std::unordered_map<std::uint64_t, Glyph> glyphs;  // font index << 32 | GBK code
    std::vector<std::unique_ptr<GlyphCells>> cells;   // a few: one per height and weight in use

    ~Impl() { Drop(); }

    void Drop()
    {
        for (FontFile& f : fonts)
            if (f.face) FT_Done_Face(f.face);
        fonts.clear();
        fontForHeight.clear();
        glyphs.clear();
        cells.clear();
        scanned = false;
    }

    void Scan()
    {
        if (scanned) return;
        scanned = true;
        if (!library && FT_Init_FreeType(&library) != 0) return;
        std::error_code ec;
        for (const auto& item : std::filesystem::directory_iterator(directory, ec)) {
            const std::string name = item.path().filename().string();
            if (name.rfind("wenquanyi_", 0) != 0 || item.path().extension() != ".pcf") continue;
            FT_Face face = nullptr;
            if (FT_New_Face(library, item.path().c_str(), 0, &face) != 0) continue;
            if (face->num_fixed_sizes > 0)
                fonts.push_back({item.path().string(), static_cast<int>(face->available_sizes[0].y_ppem >> 6), nullptr});
            FT_Done_Face(face);
        }
        // Sorted so that the choice between equally near sizes is stable.
        std::sort(fonts.begin(), fonts.end(), [](const FontFile& a, const FontFile& b) {
            return a.pixelSize != b.pixelSize ? a.pixelSize < b.pixelSize : a.path < b.path;
        });
    }

    int FontIndex(int pixelHeight)
    {
        Scan();
        if (fonts.empty()) return -1;
        const auto known = fontForHeight.find(pixelHeight);
        if (known != fontForHeight.end()) return known->second;
        int best = 0;
        for (int i = 1; i < static_cast<int>(fonts.size()); ++i)
            if (std::abs(fonts[i].pixelSize - pixelHeight) < std::abs(fonts[best].pixelSize - pixelHeight)) best = i;
        fontForHeight.emplace(pixelHeight, best);
        return best;
    }

    static char32_t ToUnicode(std::uint32_t code)
    {
        if (code < 0x80) return static_cast<char32_t>(code);
        std::string bytes;
        if (code > 0xFF) bytes.push_back(static_cast<char>(code >> 8));
        bytes.push_back(static_cast<char>(code & 0xFF));
        const std::u32string text = GbkToUnicode(bytes);
        return text.empty() ? U'?' : text[0];
    }

    Glyph Render(FontFile& font, std::uint32_t code)
    {
        Glyph glyph;
        glyph.missing = true;
        if (!font.face && FT_New_Face(library, font.path.c_str(), 0, &font.face) != 0) {
            font.face = nullptr;
            return glyph;
        }
        if (font.face->num_fixed_sizes > 0) FT_Select_Size(font.face, 0);
        const FT_UInt index = FT_Get_Char_Index(font.face, ToUnicode(code));
        if (index == 0 || FT_Load_Glyph(font.face, index, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO) != 0) return glyph;
        const FT_Bitmap& bitmap = font.face->glyph->bitmap;
        glyph.missing = false;
        glyph.left = font.face->glyph->bitmap_left;
        glyph.top = font.face->glyph->bitmap_top;
        glyph.width = static_cast<int>(bitmap.width);
        glyph.rows = static_cast<int>(bitmap.rows);
        glyph.ink.assign(static_cast<size_t>(glyph.width) * static_cast<size_t>(glyph.rows), 0);
        for (int y = 0; y < glyph.rows; ++y) {
            const unsigned char* row = bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch;
            for (int x = 0; x < glyph.width; ++x) {
                const bool on = bitmap.pixel_mode == FT_PIXEL_MODE_MONO ? (row[x / 8] >> (7 - x % 8)) & 1 : row[x] >= 128;
                glyph.ink[static_cast<size_t>(y) * static_cast<size_t>(glyph.width) + static_cast<size_t>(x)] = on;
            }
        }
        return glyph;
    }
};

GlyphCache::GlyphCache() : m_impl(std::make_unique<Impl>()) {}
GlyphCache::~GlyphCache() = default;

GlyphCache& GlyphCache::Instance()
{
    // Never destroyed: text may still be drawn while statics are torn down.
    static auto* cache = new GlyphCache();
    return *cache;
}

bool GlyphCache::HasFonts()
{
    m_impl->Scan();
    return !m_impl->fonts.empty();
}

int GlyphCache::FontSizeFor(int pixelHeight)
{
    const int index = m_impl->FontIndex(pixelHeight);
    return index < 0 ? 0 : m_impl->fonts[static_cast<size_t>(index)].pixelSize;
}

const Glyph* GlyphCache::Find(int pixelHeight, std::uint32_t gbkCode)
{
    const int index = m_impl->FontIndex(pixelHeight);
    if (index < 0) return nullptr;
    const std::uint64_t key = (static_cast<std::uint64_t>(index) << 32) | gbkCode;
    auto it = m_impl->glyphs.find(key);
    if (it == m_impl->glyphs.end())
        it = m_impl->glyphs.emplace(key, m_impl->Render(m_impl->fonts[static_cast<size_t>(index)], gbkCode)).first;
    return &it->second;
}

GlyphCells& GlyphCache::CellsFor(const FontMetrics& metrics)
{
    auto& cells = m_impl->cells;
    for (size_t i = 0; i < cells.size(); ++i) {
        if (!cells[i]->Fits(metrics)) continue;
        // The last one asked for is found first next time.
        if (i > 0) std::swap(cells[0], cells[i]);
        return *cells[0];
    }
    cells.insert(cells.begin(), std::make_unique<GlyphCells>(metrics));
    return *cells[0];
}

void GlyphCache::SetFontDirectory(const std::string& directory)
{
    m_impl->Drop();
    m_impl->directory = directory;
}

}  // namespace gdi
