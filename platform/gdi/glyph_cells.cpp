#include "platform/gdi/glyph_cells.h"

#include <algorithm>

#include "platform/gdi/glyph_cache.h"

namespace gdi {
namespace {

// A cell's pixels, 1 where it has ink.
struct CellGrid {
    int width;
    int height;
    std::vector<std::uint8_t> on;

    CellGrid(int w, int h) : width(w), height(h), on(static_cast<size_t>(w) * static_cast<size_t>(h), 0) {}
    void Set(int x, int y)
    {
        if (x >= 0 && x < width && y >= 0 && y < height) on[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)] = 1;
    }
};

// A character the font lacks (or any character without fonts) shows as a
// hollow box one pixel in from the cell's top and bottom.
void PutBox(CellGrid& cell)
{
    if (cell.width <= 0 || cell.height <= 2) return;
    for (int x = 0; x < cell.width; ++x) {
        cell.Set(x, 1);
        cell.Set(x, cell.height - 2);
    }
    for (int y = 1; y < cell.height - 1; ++y) {
        cell.Set(0, y);
        cell.Set(cell.width - 1, y);
    }
}

// A glyph wider than its cell (Latin letters of the CJK fonts are wider than
// half their height) is squeezed: each cell column takes the ink of the glyph
// columns it covers. A narrower one keeps its offset but is moved back in if
// it would stick out on the right. Bold doubles each inked pixel to its right.
void PutGlyph(CellGrid& cell, const Glyph& g, int ascent, bool bold)
{
    const int cellWidth = cell.width;
    const bool squeeze = g.width > cellWidth;
    const int columns = squeeze ? cellWidth : g.width;
    const int x0 = squeeze ? 0 : std::max(0, std::min(g.left, cellWidth - g.width));
    const int y0 = ascent - g.top;
    for (int gy = 0; gy < g.rows; ++gy) {
        const std::uint8_t* src = g.ink.data() + static_cast<size_t>(gy) * static_cast<size_t>(g.width);
        for (int c = 0; c < columns; ++c) {
            bool on = false;
            if (squeeze) {
                for (int gx = c * g.width / cellWidth; gx < (c + 1) * g.width / cellWidth && !on; ++gx) on = src[gx];
            } else {
                on = src[c];
            }
            if (!on) continue;
            cell.Set(x0 + c, y0 + gy);
            if (bold) cell.Set(x0 + c + 1, y0 + gy);
        }
    }
}

}  // namespace

GlyphCells::GlyphCells(const FontMetrics& metrics) : m_height(metrics.height), m_ascent(metrics.ascent), m_bold(metrics.bold) {}

std::span<const InkRun> GlyphCells::Build(std::uint32_t code)
{
    // Codes above a byte are double-byte characters, a full height wide.
    FontMetrics m;
    m.height = m_height;
    CellGrid cell(m.Advance(code > 0xFF ? 2 : 1), m_height);
    const Glyph* glyph = GlyphCache::Instance().Find(m_height, code);
    if (glyph && !glyph->missing) PutGlyph(cell, *glyph, m_ascent, m_bold);
    else PutBox(cell);

    Entry entry;
    entry.first = static_cast<std::uint32_t>(m_runs.size());
    for (int y = 0; y < cell.height; ++y) {
        const std::uint8_t* row = cell.on.data() + static_cast<size_t>(y) * static_cast<size_t>(cell.width);
        for (int x = 0; x < cell.width;) {
            if (!row[x]) {
                ++x;
                continue;
            }
            const int left = x;
            while (x < cell.width && row[x]) ++x;
            m_runs.push_back({static_cast<std::uint16_t>(y), static_cast<std::uint16_t>(left), static_cast<std::uint16_t>(x)});
        }
    }
    entry.count = static_cast<std::uint32_t>(m_runs.size()) - entry.first;
    std::unique_ptr<Page>& page = m_pages[code >> 8];
    if (!page) page = std::make_unique<Page>();
    (*page)[code & 0xFF] = entry;
    return {m_runs.data() + entry.first, entry.count};
}

}  // namespace gdi
