// Where the text lies: the formatting rectangle, positions to pixels and
// back, and horizontal scrolling.
#include "platform/controls/edit_control.h"

#include <algorithm>

#include "platform/gdi/font.h"

namespace edit {

HGDIOBJ EditControl::FontHandle() const
{
    // Without a font of its own an edit control writes in the system font.
    return gdi::FontOr(m_font, SYSTEM_FONT);
}

gdi::FontMetrics EditControl::Font() const
{
    return gdi::MetricsOfHandle(FontHandle());
}

CRect EditControl::FormatRect() const
{
    CRect client;
    m_wnd->GetClientRect(&client);
    CRect rect(client.left + kHorizontalMargin, client.top + kTopMargin, client.right - kHorizontalMargin,
               client.top + kTopMargin + Font().height);
    if (rect.right < rect.left) rect.right = rect.left;
    return rect;
}

int EditControl::Width(int from, int to) const
{
    from = m_buffer.Snap(from);
    to = m_buffer.Snap(std::max(from, to));
    const long long width = MakeRuler().Width(m_buffer.CharCount(from, to), to - from);
    return static_cast<int>(std::min<long long>(width, kMaxTextWidth));
}

int EditControl::TextLeft() const
{
    const CRect rect = FormatRect();
    const int width = Width(0, m_buffer.Length());
    int offset = 0;
    // Alignment applies while the whole text fits.
    if (width < rect.Width() && !Has(ES_AUTOHSCROLL | ES_MULTILINE)) {
        if (Has(ES_RIGHT)) offset = rect.Width() - width - kCaretWidth;
        else if (Has(ES_CENTER)) offset = (rect.Width() - width) / 2;
    }
    return rect.left + std::max(offset, 0) - m_scrollX;
}

int EditControl::XOf(int pos) const
{
    return TextLeft() + Width(0, m_buffer.Snap(pos));
}

template <class Past>
int EditControl::FirstChar(Past past) const
{
    int low = 0;
    int high = m_buffer.Chars();
    while (low < high) {
        const int mid = low + (high - low) / 2;
        if (past(mid)) high = mid;
        else low = mid + 1;
    }
    return low;
}

int EditControl::PosFromX(int x) const
{
    const long long left = TextLeft();
    const Ruler ruler = MakeRuler();
    // Past the middle of a character the nearer boundary is after it.
    const int index = FirstChar([&](int i) { return x < (2 * left + ruler.Left(i) + ruler.Left(i + 1) + 1) / 2; });
    return m_buffer.CharStart(index);
}

std::pair<int, int> EditControl::ShownRange(int clipLeft, int clipRight) const
{
    const long long left = TextLeft();
    const Ruler ruler = MakeRuler();
    const int first = FirstChar([&](int i) { return left + ruler.Left(i + 1) > clipLeft; });
    const int end = FirstChar([&](int i) { return left + ruler.Left(i) >= clipRight; });
    return {m_buffer.CharStart(first), m_buffer.CharStart(std::max(first, end))};
}

void EditControl::ScrollToCaret()
{
    if (!Has(ES_AUTOHSCROLL)) {
        m_scrollX = 0;
        return;
    }
    const CRect rect = FormatRect();
    const int view = std::max(1, static_cast<int>(rect.Width()) - kCaretWidth);
    const int caret = Width(0, m_buffer.Caret());
    const int total = Width(0, m_buffer.Length());
    int scroll = m_scrollX;
    if (caret < scroll) scroll = caret - view / kScrollDivisor;
    else if (caret > scroll + view) scroll = caret - view + view / kScrollDivisor;
    // Never leave empty room on the right while text is scrolled out on the left.
    scroll = std::min(scroll, std::max(0, total - view));
    scroll = std::max(scroll, 0);
    if (caret < scroll) scroll = caret;
    if (scroll != m_scrollX) {
        m_scrollX = scroll;
        m_wnd->Invalidate();
    }
}

int EditControl::TextRoom() const
{
    return FormatRect().Width() - kCaretWidth;
}

}  // namespace edit
