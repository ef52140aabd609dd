// The ink of each character laid out in its character cell, as runs of
// pixels row by row, for one font height and weight. Built once per character
// from the glyph cache and kept with it; text drawing looks a character up by
// its code in a table of pages, never by hashing.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/gdi/font_model.h"

namespace gdi {

// Cell pixels [left, right) of one cell row.
struct InkRun {
    std::uint16_t row = 0;
    std::uint16_t left = 0;
    std::uint16_t right = 0;
};

class GlyphCells {
public:
    // The cells of text drawn with these metrics (height, ascent, weight).
    explicit GlyphCells(const FontMetrics& metrics);
    GlyphCells(const GlyphCells&) = delete;
    GlyphCells& operator=(const GlyphCells&) = delete;

    bool Fits(const FontMetrics& m) const { return m.height == m_height && m.ascent == m_ascent && m.bold == m_bold; }

    // The runs of a character's cell, in row order; code is a GBK code as the
    // glyph cache takes it (a byte, or lead << 8 | trail). Valid until the
    // next call.
    std::span<const InkRun> Ink(std::uint32_t code)
    {
        code &= 0xFFFF;
        if (const Page* page = m_pages[code >> 8].get()) {
            const Entry& entry = (*page)[code & 0xFF];
            if (entry.first != kUnbuilt) return {m_runs.data() + entry.first, entry.count};
        }
        return Build(code);
    }

private:
    struct Entry {
        std::uint32_t first = kUnbuilt;
        std::uint32_t count = 0;
    };
    using Page = std::array<Entry, 256>;
    static constexpr std::uint32_t kUnbuilt = 0xFFFFFFFFu;

    std::span<const InkRun> Build(std::uint32_t code);

    int m_height;
    int m_ascent;
    bool m_bold;
    std::array<std::unique_ptr<Page>, 256> m_pages;
    std::vector<InkRun> m_runs;
};

}  // namespace gdi
