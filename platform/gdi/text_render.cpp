#include "platform/gdi/text_render.h"

#include <algorithm>

#include "platform/gdi/glyph_cache.h"
#include "platform/gdi/glyph_cells.h"
#include "platform/text/gbk.h"

namespace gdi {
namespace {

// A cell wholly inside the clip: no test per pixel.
void BlitCell(std::uint32_t* cellOrigin, size_t stride, std::span<const InkRun> ink, std::uint32_t pixel)
{
    for (const InkRun& run : ink) {
        std::uint32_t* row = cellOrigin + run.row * stride;
        for (int x = run.left; x < run.right; ++x) row[x] = pixel;
    }
}

// A cell cut by the clip (surface pixels): each run is cut once.
void BlitClippedCell(Surface& surface, CPoint cell, std::span<const InkRun> ink, const CRect& clip, std::uint32_t pixel)
{
    for (const InkRun& run : ink) {
        const int y = cell.y + run.row;
        if (y < clip.top || y >= clip.bottom) continue;
        const int left = std::max(cell.x + run.left, static_cast<int>(clip.left));
        const int right = std::min(cell.x + run.right, static_cast<int>(clip.right));
        if (left < right) std::fill(surface.Row(y) + left, surface.Row(y) + right, pixel);
    }
}

}  // namespace

int DrawTextRun(const Target& t, const FontMetrics& m, const TextRun& run)
{
    CRect clip;
    const bool visible = t.surface && clip.IntersectRect(run.clip, t.clip);
    const int cellTop = run.y;
    const int cellBottom = Sat(0LL + run.y + m.height);
    // Whether any row of the run shows, and whether all of them do.
    const bool rowsShow = visible && cellTop < clip.bottom && cellBottom > clip.top;
    const bool rowsInside = rowsShow && cellTop >= clip.top && cellBottom <= clip.bottom;
    GlyphCells* cells = rowsShow ? &GlyphCache::Instance().CellsFor(m) : nullptr;
    const size_t stride = t.surface ? static_cast<size_t>(t.surface->Width()) : 0;

    long long x = run.x;
    const std::string_view text = run.text;
    const size_t size = text.size();
    for (size_t pos = 0; pos < size;) {
        const auto b0 = static_cast<unsigned char>(text[pos]);
        const bool twoBytes = IsDBCSLeadByte(b0) && pos + 1 < size && text[pos + 1] != '\0';
        const std::uint32_t code = twoBytes ? (b0 << 8) | static_cast<unsigned char>(text[pos + 1]) : b0;
        const int bytes = twoBytes ? 2 : 1;
        const int cellWidth = m.Advance(bytes);
        long long advance = cellWidth;
        if (run.widths) advance = twoBytes ? 0LL + run.widths[pos] + run.widths[pos + 1] : run.widths[pos];
        // Spaces and control characters leave their cell blank.
        if (cells && code > 0x20) {
            const int left = Sat(x);
            const int right = Sat(x + cellWidth);
            if (left < clip.right && right > clip.left && left < right) {
                const std::span<const InkRun> ink = cells->Ink(code);
                if (rowsInside && left >= clip.left && right <= clip.right)
                    BlitCell(t.surface->Row(cellTop) + left, stride, ink, run.ink);
                else
                    BlitClippedCell(*t.surface, CPoint(left, cellTop), ink, clip, run.ink);
            }
        }
        x += advance;
        pos += static_cast<size_t>(bytes);
    }
    if (visible && (m.underline || m.strikeOut)) {
        Target lines = t;
        lines.clip = clip;
        const CRect span(run.x, 0, Sat(x), 1);
        const int under = run.y + std::min(m.ascent + 1, m.height - 1);
        if (m.underline) FillPixels(lines, CRect(span.left, under, span.right, under + 1), run.ink);
        if (m.strikeOut) {
            const int mid = run.y + m.ascent - m.ascent / 3;
            FillPixels(lines, CRect(span.left, mid, span.right, mid + 1), run.ink);
        }
    }
    return Sat(x);
}

}  // namespace gdi
