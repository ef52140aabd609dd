// Where the text lies: the formatting rectangle, positions to pixels and
// back, and horizontal scrolling.
#include "platform/controls/edit_control.h"

#include <algorithm>

#include "platform/gdi/font.h"
#include "platform/text/gbk.h"

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
    const std::string& text = m_buffer.Text();
    from = std::clamp(from, 0, m_buffer.Length());
    to = std::clamp(to, from, m_buffer.Length());
    const gdi::FontMetrics font = Font();
    const bool password = Has(ES_PASSWORD);
    if (!password) return gdi::TextWidth(font, std::string_view(text).substr(static_cast<size_t>(from), static_cast<size_t>(to - from)));
    int width = 0;
    for (size_t at = static_cast<size_t>(from); at < static_cast<size_t>(to);) {
        const int bytes = GbkCharLength(text, at);
        width += ShownAdvance(font, password, bytes);
        at += static_cast<size_t>(bytes);
    }
    return width;
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

int EditControl::PosFromX(int x) const
{
    const std::string& text = m_buffer.Text();
    const gdi::FontMetrics font = Font();
    const bool password = Has(ES_PASSWORD);
    int left = TextLeft();
    size_t at = 0;
    while (at < text.size()) {
        const int bytes = GbkCharLength(text, at);
        const int right = left + ShownAdvance(font, password, bytes);
        // Past the middle of a character the nearer boundary is after it.
        if (x < (left + right + 1) / 2) break;
        left = right;
        at += static_cast<size_t>(bytes);
    }
    return static_cast<int>(at);
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
