// Painting: the lines that meet the area being painted, each run in its
// colour, the selection highlighted while it shows, and the caret while the
// control has the focus.
#include "platform/controls/rich_edit_control.h"

#include <climits>

#include "platform/gdi/dc.h"
#include "platform/gdi/sys_color.h"
#include "platform/text/gbk.h"

namespace richedit {

void RichEditControl::Paint(CDC& dc, const CRect& clip)
{
    const Metrics m = ComputeMetrics();
    dc.FillSolidRect(&clip, Background());
    CRect area;
    if (!area.IntersectRect(clip, m.view)) return;

    const int saved = dc.SaveDC();
    dc.IntersectClipRect(&area);
    dc.SelectObject(FontHandle());
    dc.SetBkMode(TRANSPARENT);
    const bool highlight = m_selectionShown && SelMin() < SelMax();
    const int firstRow = std::max(0, static_cast<int>(area.top - m.view.top) / m.lineHeight);
    const int lastRow = static_cast<int>(area.bottom - 1 - m.view.top) / m.lineHeight;
    for (int row = firstRow; row <= lastRow; ++row) {
        const size_t line = m_firstLine + static_cast<size_t>(row);
        if (line >= m_text.LineCount()) break;
        PaintLine(dc, m, line, m.view.top + row * m.lineHeight, highlight ? SelMin() : -1, highlight ? SelMax() : -1);
    }
    if (Hwnd() && ::GetFocus() == Hwnd() && SelMin() == SelMax()) {
        const POINT at = PointOf(m, m_caret);
        const CRect caret(at.x, at.y, at.x + 1, at.y + m.lineHeight);
        dc.InvertRect(&caret);
    }
    dc.RestoreDC(saved);
}

void RichEditControl::PaintLine(CDC& dc, const Metrics& m, size_t line, int y, Pos selLo, Pos selHi) const
{
    const Line& l = m_text.LineAt(line);
    const std::string& text = l.text;
    const Pos start = m_text.LineStart(line);
    // Selected offsets of this line; the line's end counts as offset size.
    const Pos selFrom = selLo < 0 ? LLONG_MAX : selLo - start;
    const Pos selTo = selHi - start;
    const COLORREF windowText = GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF highlightText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    const COLORREF highlightBack = GetSysColor(COLOR_HIGHLIGHT);
    const int origin = m.view.left - m_scrollX;  // client x of the text's start
    const int right = m.view.right - origin;     // text x past which nothing shows

    // Characters gather into segments of one colour and selection state,
    // each drawn with one TextOut.
    int segStart = -1, segEnd = 0, segX = 0, segRight = 0;
    COLORREF segInk = 0;
    bool segSelected = false;
    const auto flush = [&]() {
        if (segStart < 0) return;
        if (segSelected) dc.FillSolidRect(origin + segX, y, segRight - segX, m.lineHeight, highlightBack);
        dc.SetTextColor(segInk);
        dc.TextOut(origin + segX, y, text.data() + segStart, segEnd - segStart);
        segStart = -1;
    };

    size_t run = 0;
    int x = 0;
    int offset = 0;
    const int size = l.Size();
    while (offset < size && x < right) {
        const int bytes = GbkCharLength(text, static_cast<size_t>(offset));
        const int advance = CharAdvance(m, text, offset, x);
        if (x + advance > m_scrollX) {
            while (run + 1 < l.runs.size() && l.runs[run + 1].start <= offset) ++run;
            const bool selected = offset >= selFrom && offset < selTo;
            const CharColor format = l.runs[run].format;
            const COLORREF ink = selected ? highlightText : format.automatic ? windowText : format.color;
            if (text[static_cast<size_t>(offset)] == '\t') {
                flush();
                if (selected) dc.FillSolidRect(origin + x, y, advance, m.lineHeight, highlightBack);
            } else {
                if (segStart >= 0 && (ink != segInk || selected != segSelected)) flush();
                if (segStart < 0) {
                    segStart = offset;
                    segX = x;
                    segInk = ink;
                    segSelected = selected;
                }
                segEnd = offset + bytes;
                segRight = x + advance;
            }
        }
        x += advance;
        offset += bytes;
    }
    flush();
    // A selected line end shows as a narrow highlighted cell.
    if (offset == size && size >= selFrom && size < selTo)
        dc.FillSolidRect(origin + x, y, m.font.Advance(1), m.lineHeight, highlightBack);
}

}  // namespace richedit
