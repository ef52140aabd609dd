// Geometry, scrolling and repainting: where positions are drawn, which
// lines show, and keeping the caret in view.
#include "platform/controls/rich_edit_control.h"

#include <climits>
#include <cstdint>
#include <limits>

#include "platform/core/input_state.h"
#include "platform/gdi/font_model.h"
#include "platform/gdi/gdi_object.h"
#include "platform/gdi/gdi_registry.h"

namespace richedit {
namespace {

Pos FloorDiv(Pos a, Pos b)
{
    return a >= 0 ? a / b : -((-a + b - 1) / b);
}

int Saturate(Pos v)
{
    return static_cast<int>(std::clamp<Pos>(v, std::numeric_limits<int>::min() / 2, std::numeric_limits<int>::max() / 2));
}

}  // namespace

const gdi::FontData& RichEditControl::FontData() const
{
    // Stock fonts are never deleted, so the handle always names a font.
    return *gdi::Find<gdi::FontData>(FontHandle());
}

HGDIOBJ RichEditControl::FontHandle() const
{
    return gdi::FontOr(m_font, DEFAULT_GUI_FONT);
}

Metrics RichEditControl::ComputeMetrics() const
{
    CRect client;
    m_wnd->GetClientRect(&client);
    return MakeMetrics(client, gdi::MetricsOf(FontData()));
}

POINT RichEditControl::PointOf(const Metrics& m, Pos pos) const
{
    const size_t line = m_text.LineOf(pos);
    const int offset = static_cast<int>(pos - m_text.LineStart(line));
    POINT point;
    point.x = Saturate(Pos{m.view.left} - m_scrollX + TextX(m, m_text.LineAt(line).text, offset));
    point.y = Saturate(Pos{m.view.top} + (static_cast<Pos>(line) - static_cast<Pos>(m_firstLine)) * m.lineHeight);
    return point;
}

size_t RichEditControl::LineAtY(const Metrics& m, int y) const
{
    const Pos line = static_cast<Pos>(m_firstLine) + FloorDiv(Pos{y} - m.view.top, m.lineHeight);
    return static_cast<size_t>(std::clamp<Pos>(line, 0, static_cast<Pos>(m_text.LineCount()) - 1));
}

Pos RichEditControl::PosFromPoint(const Metrics& m, POINT pt) const
{
    const size_t line = LineAtY(m, pt.y);
    const int x = Saturate(Pos{pt.x} - m.view.left + m_scrollX);
    return m_text.LineStart(line) + OffsetNearX(m, m_text.LineAt(line).text, x);
}

void RichEditControl::EnsureCaretVisible()
{
    const Metrics m = ComputeMetrics();
    const size_t line = m_text.LineOf(m_caret);
    Pos first = static_cast<Pos>(m_firstLine);
    const Pos full = m.FullLines();
    if (static_cast<Pos>(line) < first) first = static_cast<Pos>(line);
    else if (static_cast<Pos>(line) >= first + full) first = static_cast<Pos>(line) - full + 1;

    // Sideways the view jumps by a third of its width, so that typing on
    // does not scroll at every character.
    const int x = TextX(m, m_text.LineAt(line).text, static_cast<int>(m_caret - m_text.LineStart(line)));
    const int width = m.view.Width();
    int scrollX = m_scrollX;
    if (width <= 0) scrollX = x;
    else if (x < scrollX) scrollX = std::max(0, x - width / 3);
    else if (x >= scrollX + width) scrollX = x - (width - width / 3) + 1;
    ScrollTo(first, scrollX);
}

void RichEditControl::ScrollTo(Pos firstLine, int scrollX)
{
    const size_t first = static_cast<size_t>(std::clamp<Pos>(firstLine, 0, static_cast<Pos>(m_text.LineCount()) - 1));
    scrollX = std::max(0, scrollX);
    if (first == m_firstLine && scrollX == m_scrollX) return;
    m_firstLine = first;
    m_scrollX = scrollX;
    InvalidateAll();
    FitScrollBars();
}

void RichEditControl::FitScrollBars()
{
    if (!IsWindow(Hwnd()) || (!m_allowVertical && !m_allowHorizontal)) return;
    const gdi::FontMetrics font = gdi::MetricsOf(FontData());
    ::FitScrollBars(Hwnd(), m_allowVertical, m_allowHorizontal, [&](const CRect& client) {
        const Metrics m = MakeMetrics(client, font);
        ScrollNeeds needs;
        needs.vertical = {static_cast<int>(std::min<size_t>(m_text.LineCount(), INT_MAX)), m.FullLines(),
                          static_cast<int>(std::min<size_t>(m_firstLine, INT_MAX))};
        // One pixel more than the widest line: room for the caret at its end.
        needs.horizontal = {MaxLineWidth(m) + 1, m.view.Width(), m_scrollX};
        return needs;
    });
}

void RichEditControl::WidenMaxLineWidth(size_t first, size_t end)
{
    if (!m_maxWidthKnown) return;
    const Metrics m = ComputeMetrics();
    for (size_t line = first; line < end && line < m_text.LineCount(); ++line) {
        const std::string& text = m_text.LineAt(line).text;
        m_maxWidth = std::max(m_maxWidth, TextX(m, text, static_cast<int>(text.size())));
    }
}

int RichEditControl::MaxLineWidth(const Metrics& m)
{
    if (!m_maxWidthKnown) {
        m_maxWidth = 0;
        for (size_t line = 0; line < m_text.LineCount(); ++line) {
            const std::string& text = m_text.LineAt(line).text;
            m_maxWidth = std::max(m_maxWidth, TextX(m, text, static_cast<int>(text.size())));
        }
        m_maxWidthKnown = true;
    }
    return m_maxWidth;
}

void RichEditControl::LineScroll(int chars, Pos lines)
{
    const Metrics m = ComputeMetrics();
    int x = m_scrollX;
    const Pos step = Pos{chars} * m.font.Advance(1);
    if (chars > 0) {
        // As far as shows the end of the longest line, with room for the caret.
        const Pos limit = std::max<Pos>(m_scrollX, Pos{MaxLineWidth(m)} + 1 - m.view.Width());
        x = static_cast<int>(std::min<Pos>(Pos{m_scrollX} + step, limit));
    } else if (chars < 0) {
        x = static_cast<int>(std::max<Pos>(0, Pos{m_scrollX} + step));
    }
    // Scrolling down stops once the last line reaches the bottom, so that a
    // view that follows appended lines keeps its text in sight.
    const Pos first = static_cast<Pos>(m_firstLine);
    const Pos target = lines > 0 ? std::min(first + lines, std::max(first, LastTopLine(m))) : first + lines;
    ScrollTo(target, x);
}

Pos RichEditControl::LastTopLine(const Metrics& m) const
{
    return std::max<Pos>(0, static_cast<Pos>(m_text.LineCount()) - m.FullLines());
}

void RichEditControl::OnVScroll(UINT code, int position)
{
    switch (code) {
    case SB_LINEUP: LineScroll(0, -1); break;
    case SB_LINEDOWN: LineScroll(0, 1); break;
    case SB_PAGEUP: LineScroll(0, -ComputeMetrics().FullLines()); break;
    case SB_PAGEDOWN: LineScroll(0, ComputeMetrics().FullLines()); break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: ScrollTo(std::clamp<Pos>(position, 0, LastTopLine(ComputeMetrics())), m_scrollX); break;
    case SB_TOP: ScrollTo(0, m_scrollX); break;
    case SB_BOTTOM: ScrollTo(LastTopLine(ComputeMetrics()), m_scrollX); break;
    default: break;
    }
}

void RichEditControl::OnHScroll(UINT code, int position)
{
    const Metrics m = ComputeMetrics();
    const int page = std::max(1, m.view.Width() / std::max(1, m.font.Advance(1)));
    const int right = std::max(0, MaxLineWidth(m) + 1 - m.view.Width());
    switch (code) {
    case SB_LINEUP: LineScroll(-1, 0); break;
    case SB_LINEDOWN: LineScroll(1, 0); break;
    case SB_PAGEUP: LineScroll(-page, 0); break;
    case SB_PAGEDOWN: LineScroll(page, 0); break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: ScrollTo(static_cast<Pos>(m_firstLine), std::clamp(position, 0, right)); break;
    case SB_TOP: ScrollTo(static_cast<Pos>(m_firstLine), 0); break;
    case SB_BOTTOM: ScrollTo(static_cast<Pos>(m_firstLine), right); break;
    default: break;
    }
}

void RichEditControl::OnMouseWheel(int delta)
{
    // A notch up shows earlier lines.
    const int notches = TakeWheelNotches(m_wheelRemainder, delta);
    if (notches) LineScroll(0, -Pos{notches} * kWheelScrollLines);
}

void RichEditControl::InvalidateLines(size_t first, size_t last)
{
    if (!IsWindow(Hwnd())) return;
    const Metrics m = ComputeMetrics();
    const Pos top = static_cast<Pos>(m_firstLine);
    const Pos shown = (Pos{m.view.Height()} + m.lineHeight - 1) / m.lineHeight;
    const Pos lastPos = last >= static_cast<size_t>(std::numeric_limits<Pos>::max()) ? std::numeric_limits<Pos>::max() : static_cast<Pos>(last);
    const Pos from = std::max(static_cast<Pos>(first), top);
    const Pos to = std::min(lastPos, top + shown - 1);
    if (from > to) return;
    const CRect area(m.client.left, Saturate(m.view.top + (from - top) * m.lineHeight), m.client.right,
                     Saturate(m.view.top + (to - top + 1) * m.lineHeight));
    m_wnd->InvalidateRect(&area, FALSE);
}

void RichEditControl::InvalidateRange(Pos a, Pos b)
{
    InvalidateLines(m_text.LineOf(std::min(a, b)), m_text.LineOf(std::max(a, b)));
}

void RichEditControl::InvalidateAll()
{
    if (IsWindow(Hwnd())) m_wnd->Invalidate(FALSE);
}

}  // namespace richedit
