#include "platform/gdi/text_render.h"

#include <algorithm>

#include "platform/gdi/glyph_cache.h"
#include "platform/text/gbk.h"

namespace gdi {
namespace {

void DrawBox(const Target& t, const CRect& cell, const CRect& clip, std::uint32_t ink)
{
    const CRect box(cell.left, cell.top + 1, cell.right, cell.bottom - 1);
    if (box.IsRectEmpty()) return;
    Target inner = t;
    inner.clip = clip;
    FillPixels(inner, CRect(box.left, box.top, box.right, box.top + 1), ink);
    FillPixels(inner, CRect(box.left, box.bottom - 1, box.right, box.bottom), ink);
    FillPixels(inner, CRect(box.left, box.top, box.left + 1, box.bottom), ink);
    FillPixels(inner, CRect(box.right - 1, box.top, box.right, box.bottom), ink);
}

void DrawGlyph(const Target& t, const Glyph& g, const CRect& cell, int baseline, const CRect& clip, bool bold,
               std::uint32_t ink)
{
    // A glyph wider than its cell (Latin letters of the CJK fonts are wider
    // than half their height) is squeezed: each cell column takes the ink of
    // the glyph columns it covers. A narrower one keeps its offset but is
    // moved back in if it would stick out on the right.
    const int cellWidth = cell.Width();
    const bool squeeze = g.width > cellWidth;
    const int columns = squeeze ? cellWidth : g.width;
    const int x0 = cell.left + (squeeze ? 0 : std::max(0, std::min(g.left, cellWidth - g.width)));
    const int y0 = baseline - g.top;
    for (int gy = 0; gy < g.rows; ++gy) {
        const int y = y0 + gy;
        if (y < clip.top || y >= clip.bottom) continue;
        std::uint32_t* row = t.surface->Row(y);
        const std::uint8_t* src = g.ink.data() + static_cast<size_t>(gy) * static_cast<size_t>(g.width);
        for (int c = 0; c < columns; ++c) {
            bool on = false;
            if (squeeze) {
                for (int gx = c * g.width / cellWidth; gx < (c + 1) * g.width / cellWidth && !on; ++gx) on = src[gx];
            } else {
                on = src[c];
            }
            if (!on) continue;
            for (int x = x0 + c; x <= x0 + c + (bold ? 1 : 0); ++x)
                if (x >= clip.left && x < clip.right) row[x] = ink;
        }
    }
}

}  // namespace

int DrawTextRun(const Target& t, const FontMetrics& m, const TextRun& run)
{
    CRect clip;
    const bool visible = t.surface && clip.IntersectRect(run.clip, t.clip);
    GlyphCache& cache = GlyphCache::Instance();
    long long x = run.x;
    const std::string_view text = run.text;
    for (size_t pos = 0; pos < text.size();) {
        const int bytes = GbkCharLength(text, pos);
        const auto b0 = static_cast<unsigned char>(text[pos]);
        const std::uint32_t code = bytes == 2 ? (b0 << 8) | static_cast<unsigned char>(text[pos + 1]) : b0;
        long long advance = m.Advance(bytes);
        if (run.widths) advance = bytes == 2 ? 0LL + run.widths[pos] + run.widths[pos + 1] : run.widths[pos];
        const CRect cell(Sat(x), run.y, Sat(x + m.Advance(bytes)), Sat(0LL + run.y + m.height));
        CRect cellClip;
        // Spaces and control characters leave their cell blank.
        if (visible && code > 0x20 && cellClip.IntersectRect(cell, clip)) {
            const Glyph* glyph = cache.Find(m.height, code);
            if (glyph && !glyph->missing) DrawGlyph(t, *glyph, cell, run.y + m.ascent, cellClip, m.bold, run.ink);
            else DrawBox(t, cell, cellClip, run.ink);
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
