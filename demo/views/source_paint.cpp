// Painting a source view: only the rows that meet the area being painted,
// and of each row only the characters that reach the text area.
#include <algorithm>

#include "demo/views/c_syntax.h"
#include "demo/views/source_marks.h"
#include "demo/views/source_view.h"
#include "platform/core/paint_dc.h"
#include "platform/gdi/sys_color.h"
#include "platform/text/gbk.h"

namespace {

const COLORREF kGutterBack = RGB(240, 240, 240);
const COLORREF kNumberInk = RGB(128, 128, 128);

COLORREF InkOf(SyntaxKind kind)
{
    switch (kind) {
    case SyntaxKind::Keyword: return RGB(0, 0, 192);
    case SyntaxKind::Comment: return RGB(0, 128, 0);
    case SyntaxKind::String: return RGB(163, 21, 21);
    case SyntaxKind::Number: return RGB(128, 0, 128);
    case SyntaxKind::Preprocessor: return RGB(128, 64, 0);
    case SyntaxKind::Plain: break;
    }
    return RGB(0, 0, 0);
}

// The first character boundary at or after `column`: one byte is one
// column, but a column may fall on the second byte of a character.
size_t BoundaryFrom(std::string_view text, size_t column)
{
    size_t pos = 0;
    while (pos < text.size() && pos < column) pos += static_cast<size_t>(GbkCharLength(text, pos));
    return pos;
}

}  // namespace

void CSourceView::OnPaint()
{
    CPaintDC dc(this);
    const CRect area(dc.m_ps.rcPaint);
    const SourceLayout l = Layout();
    dc.FillSolidRect(&area, GetSysColor(COLOR_WINDOW));
    dc.FillSolidRect(l.client.left, area.top, l.gutterRight - l.client.left, area.Height(), kGutterBack);
    if (!m_hasFile) return;

    const LineRange rows = LinesMeeting(area.top, area.bottom, l.client.top, l.lineHeight, m_top, m_text.LineCount());
    const int saved = dc.SaveDC();
    dc.SelectObject(&m_font);
    dc.SetBkMode(TRANSPARENT);
    auto mark = std::lower_bound(m_marks.begin(), m_marks.end(), rows.first + 1, [](const LineMark& m, int line) { return m.line < line; });
    std::vector<const LineMark*> marks;
    for (int line = rows.first; line < rows.end; ++line) {
        marks.clear();
        for (; mark != m_marks.end() && mark->line == line + 1; ++mark) marks.push_back(&*mark);
        PaintLine(dc, l, line, marks);
    }
    dc.RestoreDC(saved);
}

void CSourceView::PaintLine(CDC& dc, const SourceLayout& l, int line, const std::vector<const LineMark*>& marks)
{
    const int y = l.RowTop(line, m_top);
    if (line == m_caret) dc.FillSolidRect(l.client.left, y, l.client.Width(), l.lineHeight, kCaretLineBack);

    const CRect markCell(l.client.left, y, l.client.left + SourceLayout::kMarkWidth, y + l.lineHeight);
    for (const LineMark* m : marks) DrawLineMark(dc, markCell, m->kind, line == m_caret ? kCaretLineBack : kGutterBack);

    const std::string number = std::to_string(line + 1);
    const int textTop = y + SourceLayout::kLineGap / 2;
    dc.SetTextColor(kNumberInk);
    dc.TextOut(l.numberRight - static_cast<int>(number.size()) * l.charWidth, textTop, number.c_str(), static_cast<int>(number.size()));
    PaintText(dc, l, line, textTop);
}

void CSourceView::PaintText(CDC& dc, const SourceLayout& l, int line, int y)
{
    const std::string_view text = m_text.Line(line);
    // Back one character, so that one cut by the gutter's edge still shows its right half.
    const size_t firstColumn = static_cast<size_t>(std::max(0, m_scrollX / l.charWidth - 1));
    const size_t begin = BoundaryFrom(text, firstColumn);
    const size_t end = std::min(text.size(), static_cast<size_t>((m_scrollX + l.TextWidth()) / l.charWidth + 2));
    if (begin >= end) return;

    const int saved = dc.SaveDC();
    dc.IntersectClipRect(l.TextLeft(), l.client.top, l.client.right, l.client.bottom);
    bool inComment = m_startsInComment[static_cast<size_t>(line)] != 0;
    for (const SyntaxRun& run : ColourLine(text, inComment)) {
        const size_t from = std::max(run.start, begin);
        const size_t to = std::min(run.start + run.length, end);
        if (from >= to) continue;
        dc.SetTextColor(InkOf(run.kind));
        const int x = l.TextLeft() - m_scrollX + static_cast<int>(from) * l.charWidth;
        dc.TextOut(x, y, text.data() + from, static_cast<int>(to - from));
    }
    dc.RestoreDC(saved);
}
