// Painting the edit control: background, text, the selection while it
// shows, and the caret while the control has the focus.
#include "platform/controls/edit_control.h"

#include <algorithm>

#include "platform/gdi/dc.h"
#include "platform/gdi/sys_color.h"
#include "platform/text/gbk.h"

namespace edit {

bool EditControl::ShowsSelection() const
{
    return m_buffer.HasSelection() && (::GetFocus() == Hwnd() || Has(ES_NOHIDESEL));
}

std::string EditControl::Shown(int from, int to) const
{
    const std::string& text = m_buffer.Text();
    if (!Has(ES_PASSWORD)) return text.substr(static_cast<size_t>(from), static_cast<size_t>(to - from));
    std::string marks;
    for (size_t at = static_cast<size_t>(from); at < static_cast<size_t>(to); at += static_cast<size_t>(GbkCharLength(text, at))) {
        marks += m_passwordChar;
    }
    return marks;
}

void EditControl::Paint(CDC& dc)
{
    CRect client;
    m_wnd->GetClientRect(&client);
    const bool enabled = m_wnd->IsWindowEnabled() != FALSE;
    // Read-only and disabled edit controls show the face colour, as the
    // platform's static colouring gives them.
    dc.FillSolidRect(&client, GetSysColor(enabled && !ReadOnly() ? COLOR_WINDOW : COLOR_BTNFACE));

    const CRect rect = FormatRect();
    const int saved = dc.SaveDC();
    if (CFont* font = CFont::FromHandle(FontHandle())) dc.SelectObject(font);
    dc.SetBkMode(TRANSPARENT);
    const int clipLeft = client.left + kHorizontalMargin;
    const int clipRight = client.right - kHorizontalMargin;
    dc.IntersectClipRect(clipLeft, client.top, clipRight, client.bottom);

    // Only the characters that meet the clip are drawn, however long the text.
    const auto [first, end] = ShownRange(clipLeft, clipRight);
    const std::string shown = Shown(first, end);
    dc.SetTextColor(GetSysColor(enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    dc.TextOut(XOf(first), rect.top, shown.c_str(), static_cast<int>(shown.size()));

    if (ShowsSelection()) {
        const CRect selection(XOf(m_buffer.SelStart()), rect.top, XOf(m_buffer.SelEnd()), rect.bottom);
        dc.FillSolidRect(&selection, GetSysColor(COLOR_HIGHLIGHT));
        const int from = std::max(m_buffer.SelStart(), first);
        const int to = std::min(m_buffer.SelEnd(), end);
        const std::string selected = from < to ? Shown(from, to) : std::string();
        dc.SetTextColor(GetSysColor(COLOR_HIGHLIGHTTEXT));
        dc.TextOut(XOf(from), rect.top, selected.c_str(), static_cast<int>(selected.size()));
    }
    if (::GetFocus() == Hwnd() && enabled) {
        const int x = XOf(m_buffer.Caret());
        const CRect caret(x, rect.top, x + kCaretWidth, rect.bottom);
        dc.FillSolidRect(&caret, GetSysColor(COLOR_WINDOWTEXT));
    }
    dc.RestoreDC(saved);
}

}  // namespace edit
