// Painting the header: raised buttons with their text, a pressed button
// sunken, and an empty button filling the rest of the row.
#include "platform/controls/header_ctrl_control.h"

#include "platform/gdi/dc.h"
#include "platform/gdi/sys_color.h"

namespace header {

UINT TextFormat(int format)
{
    const UINT flags = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    switch (format & HDF_JUSTIFYMASK) {
    case HDF_RIGHT: return flags | DT_RIGHT;
    case HDF_CENTER: return flags | DT_CENTER;
    default: return flags | DT_LEFT;
    }
}

void HeaderControl::Paint(CDC& dc)
{
    CRect client;
    m_wnd->GetClientRect(&client);
    dc.FillSolidRect(&client, GetSysColor(COLOR_BTNFACE));
    // Its own font, else the platform's GUI font.
    CFont* font = CFont::FromHandle(gdi::FontOr(reinterpret_cast<HGDIOBJ>(m_wnd->SendMessage(WM_GETFONT)), DEFAULT_GUI_FONT));
    CFont* oldFont = font ? dc.SelectObject(font) : nullptr;
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(GetSysColor(COLOR_BTNTEXT));
    int left = 0;
    for (int i = 0; i < Count(); ++i) {
        const Item& item = m_items[static_cast<size_t>(i)];
        const CRect rect(left, client.top, left + item.width, client.bottom);
        left = rect.right;
        if (rect.IsRectEmpty()) continue;
        PaintButton(dc, rect, &item, i == m_pressed && m_pressedInside);
    }
    if (left < client.right) PaintButton(dc, CRect(left, client.top, client.right, client.bottom), nullptr, false);
    if (oldFont) dc.SelectObject(oldFont);
}

void HeaderControl::PaintButton(CDC& dc, const CRect& rect, const Item* item, bool pressed) const
{
    CRect edge = rect;
    if (pressed) {
        dc.Draw3dRect(&edge, GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNSHADOW));
    } else {
        dc.Draw3dRect(&edge, GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_3DDKSHADOW));
        edge.DeflateRect(1, 1);
        dc.Draw3dRect(&edge, GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNSHADOW));
    }
    if (!item || item->text.empty()) return;
    CRect text = rect;
    text.DeflateRect(kTextPadding, 0);
    if (pressed) text.OffsetRect(1, 1);
    if (text.IsRectEmpty()) return;
    // DrawText clips to the rectangle itself.
    dc.DrawText(item->text.c_str(), static_cast<int>(item->text.size()), &text, TextFormat(item->format));
}

}  // namespace header
