// The box: a sunken frame round the chosen item's text, lit while the box
// has the focus, and the drop button with its arrow.
#include "platform/controls/combo_box_control.h"

#include "platform/gdi/dc.h"
#include "platform/gdi/font.h"
#include "platform/gdi/sys_color.h"

namespace combo {

namespace {

// The arrow: rows of these widths, centred on the button.
constexpr int kArrowWidth = 7;
constexpr int kArrowRows = (kArrowWidth + 1) / 2;

}  // namespace

HGDIOBJ ComboControl::FontHandle() const
{
    // Without a font of its own a combo box writes in the system font.
    return gdi::FontOr(m_font, SYSTEM_FONT);
}

gdi::FontMetrics ComboControl::Font() const
{
    return gdi::MetricsOfHandle(FontHandle());
}

CRect ComboControl::ButtonRect() const
{
    CRect client;
    m_wnd->GetClientRect(&client);
    client.DeflateRect(kEdge, kEdge);
    const int left = std::max(static_cast<int>(client.left), static_cast<int>(client.right) - kButtonWidth);
    return CRect(left, client.top, client.right, client.bottom);
}

CRect ComboControl::ItemRect() const
{
    CRect client;
    m_wnd->GetClientRect(&client);
    client.DeflateRect(kEdge, kEdge);
    CRect item(client.left, client.top, ButtonRect().left, client.bottom);
    item.DeflateRect(kItemInset, kItemInset);
    if (item.right < item.left) item.right = item.left;
    return item;
}

void ComboControl::Paint(CDC& dc)
{
    CRect client;
    m_wnd->GetClientRect(&client);
    const bool enabled = m_wnd->IsWindowEnabled() != FALSE;
    dc.FillSolidRect(&client, GetSysColor(enabled ? COLOR_WINDOW : COLOR_BTNFACE));
    // The sunken edge: shadow over highlight outside, dark shadow over light inside.
    CRect edge = client;
    dc.Draw3dRect(&edge, GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNHIGHLIGHT));
    edge.DeflateRect(1, 1);
    dc.Draw3dRect(&edge, GetSysColor(COLOR_3DDKSHADOW), GetSysColor(COLOR_3DLIGHT));
    PaintButton(dc, ButtonRect());

    CRect item = ItemRect();
    const bool focused = ::GetFocus() == Hwnd() && !m_dropped && enabled;
    if (focused) dc.FillSolidRect(&item, GetSysColor(COLOR_HIGHLIGHT));
    if (const Item* chosen = m_items.At(m_selected)) {
        const int saved = dc.SaveDC();
        if (CFont* font = CFont::FromHandle(FontHandle())) dc.SelectObject(font);
        dc.SetBkMode(TRANSPARENT);
        dc.SetTextColor(GetSysColor(!enabled ? COLOR_GRAYTEXT : focused ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        CRect text = item;
        text.DeflateRect(kTextPadding, 0);
        dc.IntersectClipRect(&item);
        dc.DrawText(chosen->text.c_str(), static_cast<int>(chosen->text.size()), &text,
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
        dc.RestoreDC(saved);
    }
    if (focused) dc.DrawFocusRect(&item);
}

void ComboControl::PaintButton(CDC& dc, const CRect& rect) const
{
    if (rect.IsRectEmpty()) return;
    dc.FillSolidRect(&rect, GetSysColor(COLOR_BTNFACE));
    CRect edge = rect;
    int shift = 0;
    if (m_dropped) {
        // Pressed while the list is down: flat, the arrow nudged down-right.
        dc.Draw3dRect(&edge, GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNSHADOW));
        shift = 1;
    } else {
        dc.Draw3dRect(&edge, GetSysColor(COLOR_3DLIGHT), GetSysColor(COLOR_3DDKSHADOW));
        edge.DeflateRect(1, 1);
        dc.Draw3dRect(&edge, GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_BTNSHADOW));
    }
    const COLORREF color = GetSysColor(m_wnd->IsWindowEnabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT);
    const CPoint centre = rect.CenterPoint();
    const int left = centre.x - kArrowWidth / 2 + shift;
    const int top = centre.y - kArrowRows / 2 + shift;
    for (int row = 0; row < kArrowRows; ++row) dc.FillSolidRect(left + row, top + row, kArrowWidth - 2 * row, 1, color);
}

}  // namespace combo
