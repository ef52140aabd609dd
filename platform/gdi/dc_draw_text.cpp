// DrawText: lines, alignment, prefixes, ellipsis and measuring.
#include <algorithm>
#include <string>
#include <vector>

#include "platform/gdi/dc.h"
#include "platform/gdi/font_model.h"
#include "platform/gdi/raster.h"
#include "platform/text/gbk.h"

namespace {

struct Line {
    std::string text;
    int underline = -1;  // byte offset of the character marked with '&'
    int width = 0;
};

std::vector<std::string_view> SplitLines(std::string_view text, bool single)
{
    std::vector<std::string_view> lines;
    if (single) return {text};
    size_t start = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\n' && text[i] != '\r') continue;
        lines.push_back(text.substr(start, i - start));
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        start = i + 1;
    }
    lines.push_back(text.substr(start));
    return lines;
}

// Removes the '&' marks: "&&" shows one '&', "&x" shows x underlined (the
// first such character only), a lone trailing '&' shows nothing.
Line StripPrefixes(std::string_view text)
{
    Line line;
    for (size_t pos = 0; pos < text.size();) {
        if (text[pos] == '&') {
            ++pos;
            if (pos >= text.size()) break;
            if (text[pos] != '&' && line.underline < 0) line.underline = static_cast<int>(line.text.size());
        }
        const int bytes = GbkCharLength(text, pos);
        line.text.append(text.substr(pos, static_cast<size_t>(bytes)));
        pos += static_cast<size_t>(bytes);
    }
    return line;
}

// Cuts the line so that it and "..." fit in width, never inside a character.
void AddEllipsis(Line& line, const gdi::FontMetrics& m, int width)
{
    const int dots = 3 * m.Advance(1);
    int used = 0;
    size_t keep = 0;
    while (keep < line.text.size()) {
        const int bytes = GbkCharLength(line.text, keep);
        if (used + m.Advance(bytes) + dots > width) break;
        used += m.Advance(bytes);
        keep += static_cast<size_t>(bytes);
    }
    line.text.resize(keep);
    line.text += "...";
    line.width = used + dots;
    if (line.underline >= static_cast<int>(keep)) line.underline = -1;
}

}  // namespace

int CDC::DrawText(LPCSTR text, int length, LPRECT rect, UINT format)
{
    if (!rect || length < -1 || (!text && length > 0)) return 0;
    const gdi::FontMetrics m = gdi::MetricsOf(CurrentFont());
    const bool single = (format & DT_SINGLELINE) != 0;
    std::vector<Line> lines;
    for (std::string_view raw : SplitLines(gdi::TextOf(text, length), single)) {
        Line line = (format & DT_NOPREFIX) ? Line{std::string(raw), -1, 0} : StripPrefixes(raw);
        line.width = gdi::TextWidth(m, line.text);
        lines.push_back(std::move(line));
    }
    const int total = static_cast<int>(std::min<long long>(static_cast<long long>(lines.size()) * m.height, gdi::kCoordLimit));
    const CRect box(*rect);
    if (format & DT_CALCRECT) {
        int widest = 0;
        for (const Line& line : lines) widest = std::max(widest, line.width);
        rect->right = gdi::Sat(0LL + box.left + widest);
        rect->bottom = gdi::Sat(0LL + box.top + total);
        return total;
    }
    // Sizes in 64 bits: a rectangle may span the whole int range.
    const long long boxWidth = 0LL + box.right - box.left, boxHeight = 0LL + box.bottom - box.top;
    long long top = box.top;
    if (single && (format & DT_VCENTER)) top = box.top + (boxHeight - m.height) / 2;
    else if (single && (format & DT_BOTTOM)) top = 0LL + box.bottom - m.height;

    const gdi::Target t = GetTarget();
    CRect clip = t.clip;
    if (!(format & DT_NOCLIP)) {
        CRect device = t.ToDevice(box);
        if (!clip.IntersectRect(clip, device)) clip.SetRectEmpty();
    }
    long long y = top;
    for (Line& line : lines) {
        if (y >= box.bottom && !(format & DT_NOCLIP)) break;  // nothing further can show
        if ((format & DT_END_ELLIPSIS) && line.width > boxWidth)
            AddEllipsis(line, m, static_cast<int>(std::clamp<long long>(boxWidth, 0, gdi::kCoordLimit)));
        long long x = box.left;
        if (format & DT_CENTER) x = box.left + (boxWidth - line.width) / 2;
        else if (format & DT_RIGHT) x = 0LL + box.right - line.width;
        if (!clip.IsRectEmpty()) {
            const CPoint at = t.ToDevice(x, y);
            OutputText(t, at, line.text, clip, nullptr);
            if (line.underline >= 0) {
                gdi::Target inside = t;
                inside.clip.IntersectRect(t.clip, clip);
                const int ux = at.x + gdi::TextWidth(m, std::string_view(line.text).substr(0, static_cast<size_t>(line.underline)));
                const int uy = at.y + std::min(m.ascent + 1, m.height - 1);
                const int width = m.Advance(GbkCharLength(line.text, static_cast<size_t>(line.underline)));
                gdi::FillPixels(inside, CRect(ux, uy, ux + width, uy + 1), t.Pixel(m_state.textColor));
            }
        }
        y += m.height;
    }
    if (single && (format & (DT_VCENTER | DT_BOTTOM))) return gdi::Sat(top + m.height - box.top);
    return total;
}

int CDC::DrawText(const CString& text, LPRECT rect, UINT format)
{
    return DrawText(text.GetString(), text.GetLength(), rect, format);
}
