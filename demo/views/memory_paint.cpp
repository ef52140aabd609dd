// Painting a memory view: the title row, then only the lines that meet the
// area being painted, each read (once) as it is drawn.
#include <algorithm>

#include "demo/views/memory_view.h"
#include "platform/core/paint_dc.h"
#include "platform/gdi/sys_color.h"

namespace {

constexpr int kMargin = 4;  // left of the title and of every line

}  // namespace

void CMemoryView::OnPaint()
{
    CPaintDC dc(this);
    const CRect area(dc.m_ps.rcPaint);
    const Geometry g = Measure();
    dc.FillSolidRect(&area, GetSysColor(COLOR_WINDOW));
    const int saved = dc.SaveDC();
    dc.SelectObject(&m_font);
    dc.SetBkMode(TRANSPARENT);
    PaintTitle(dc, g);
    if (m_space && m_target) {
        const LineRange rows = LinesMeeting(area.top, area.bottom, g.lines.top, g.lineHeight, m_top, LineCount());
        dc.IntersectClipRect(&g.lines);
        for (int line = rows.first; line < rows.end; ++line) PaintLine(dc, g, line);
    }
    dc.RestoreDC(saved);
}

int CMemoryView::ColumnX(const Geometry& g, int column)
{
    return kMargin + column * g.charWidth;
}

CRect CMemoryView::HexCellRect(std::uint32_t address) const
{
    if (!m_space || !m_target || address >= m_space->size) return CRect();
    const Geometry g = Measure();
    const int line = static_cast<int>(address / kMemoryBytesPerLine);
    const int y = g.lines.top + (line - m_top) * g.lineHeight;
    if (line < m_top || y >= g.lines.bottom) return CRect();
    const int x = ColumnX(g, MemoryHexColumn(*m_space, static_cast<int>(address % kMemoryBytesPerLine)));
    return CRect(x, y, x + 2 * g.charWidth, y + g.lineHeight);
}

void CMemoryView::PaintTitle(CDC& dc, const Geometry& g)
{
    CRect row(0, 0, g.lines.right, g.lines.top);
    dc.FillSolidRect(&row, GetSysColor(COLOR_BTNFACE));
    dc.SetTextColor(GetSysColor(COLOR_BTNTEXT));
    row.left += kMargin;
    dc.DrawText(m_title.c_str(), static_cast<int>(m_title.size()), &row, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

void CMemoryView::PaintLine(CDC& dc, const Geometry& g, int line)
{
    const LineBytes& bytes = BytesOf(line);
    const auto previous = m_previous.find(line);
    const int y = g.lines.top + (line - m_top) * g.lineHeight;
    const int textTop = y + (g.lineHeight - g.fontHeight) / 2;
    const auto address = static_cast<std::uint32_t>(line) * kMemoryBytesPerLine;
    const std::string text = FormatMemoryLine(*m_space, address, bytes);
    const auto columnX = [&](int column) { return ColumnX(g, column); };

    // Marked bytes first, under their text; neighbouring marked cells join up.
    for (int i = 0; i < kMemoryBytesPerLine; ++i) {
        if (!Marked(address + static_cast<std::uint32_t>(i))) continue;
        const bool joined = i + 1 < kMemoryBytesPerLine && Marked(address + static_cast<std::uint32_t>(i) + 1);
        const int hex = MemoryHexColumn(*m_space, i);
        const int hexEnd = joined ? MemoryHexColumn(*m_space, i + 1) : hex + 2;
        dc.FillSolidRect(columnX(hex), y, (hexEnd - hex) * g.charWidth, g.lineHeight, kMarkBack);
        dc.FillSolidRect(columnX(MemoryAsciiColumn(*m_space, i)), y, g.charWidth, g.lineHeight, kMarkBack);
    }

    // The address, then each byte in its colour: red when it changed at the last Refresh.
    const COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
    dc.SetTextColor(ink);
    const int hexStart = MemoryHexColumn(*m_space, 0);
    dc.TextOut(columnX(0), textTop, text.c_str(), hexStart);
    for (int i = 0; i < kMemoryBytesPerLine; ++i) {
        const auto index = static_cast<size_t>(i);
        const bool changed = previous != m_previous.end() && previous->second[index] != bytes[index];
        dc.SetTextColor(changed ? kChangedInk : ink);
        const int hex = MemoryHexColumn(*m_space, i);
        const int ascii = MemoryAsciiColumn(*m_space, i);
        dc.TextOut(columnX(hex), textTop, text.c_str() + hex, 2);
        dc.TextOut(columnX(ascii), textTop, text.c_str() + ascii, 1);
    }
}
