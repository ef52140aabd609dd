// Painting the lines: owner-drawn lines are drawn by the owner (WM_DRAWITEM,
// one per line shown), others show the texts the owner supplies through
// LVN_GETDISPINFO. Nothing is drawn for lines past the last item.
#include "platform/controls/list_ctrl_control.h"

#include <algorithm>
#include <cstring>

#include "platform/controls/header_ctrl_control.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/font.h"
#include "platform/gdi/sys_color.h"

namespace listview {

namespace {

// Room for one cell's text asked of the owner.
constexpr int kCellTextMax = 260;

}  // namespace

bool ListControl::ShowsSelection() const
{
    return Has(LVS_SHOWSELALWAYS) || ::GetFocus() == Hwnd();
}

void ListControl::Paint(CDC& dc, const CRect& clip)
{
    const HWND self = Hwnd();
    const Geometry g = ComputeGeometry();
    const auto [first, end] = g.LinesIn(clip.top, clip.bottom);
    const int last = std::min(end, g.count);
    for (int i = first; i < last; ++i) {
        PaintLine(dc, g, i);
        // The owner may destroy the list or change it while drawing.
        if (!IsWindow(self) || m_count != g.count || m_top != g.top) return;
    }
    if (m_exStyle & LVS_EX_GRIDLINES) PaintGridLines(dc, g, clip);
}

void ListControl::PaintLine(CDC& dc, const Geometry& g, int index)
{
    UINT state = 0;
    if (ShowsSelection() && m_selected.Contains(index)) state |= ODS_SELECTED;
    if (index == m_focus && ::GetFocus() == Hwnd()) state |= ODS_FOCUS;
    if (!Has(LVS_OWNERDRAWFIXED)) {
        PaintTexts(dc, g, index, state);
        return;
    }
    DRAWITEMSTRUCT draw;
    draw.CtlType = ODT_LISTVIEW;
    draw.CtlID = static_cast<UINT>(m_wnd->GetDlgCtrlID());
    draw.itemID = static_cast<UINT>(index);
    draw.itemAction = ODA_DRAWENTIRE;
    draw.itemState = state;
    draw.hwndItem = Hwnd();
    draw.hDC = dc.GetSafeHdc();
    draw.rcItem = g.LineBounds(index);
    const HWND parent = ::GetParent(Hwnd());
    if (!parent) return;
    // Each line starts from the same DC state, whatever the last one left.
    const int saved = dc.SaveDC();
    ::SendMessage(parent, WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
    dc.RestoreDC(saved);
}

void ListControl::PaintTexts(CDC& dc, const Geometry& g, int index, UINT state)
{
    const HWND self = Hwnd();
    const bool selected = (state & ODS_SELECTED) != 0;
    const CRect highlight = (m_exStyle & LVS_EX_FULLROWSELECT) ? g.LineBounds(index) : g.CellRect(index, 0);
    if (selected) dc.FillSolidRect(&highlight, GetSysColor(COLOR_HIGHLIGHT));
    const int saved = dc.SaveDC();
    if (CFont* font = CFont::FromHandle(FontHandle())) dc.SelectObject(font);
    dc.SetBkMode(TRANSPARENT);
    for (size_t column = 0; column < g.columns.size(); ++column) {
        char buffer[kCellTextMax] = {};
        NMLVDISPINFO info;
        info.item.mask = LVIF_TEXT;
        info.item.iItem = index;
        info.item.iSubItem = column < m_subItems.size() ? m_subItems[column] : static_cast<int>(column);
        info.item.pszText = buffer;
        info.item.cchTextMax = kCellTextMax;
        if (!Notify(info.hdr, LVN_GETDISPINFO)) return;
        if (m_count != g.count || index >= m_count) break;
        // The owner may fill the buffer or point at text of its own.
        const char* text = info.item.pszText ? info.item.pszText : "";
        const int length = text == buffer ? static_cast<int>(strnlen(buffer, kCellTextMax)) : static_cast<int>(std::strlen(text));
        CRect cell = g.CellRect(index, static_cast<int>(column));
        const bool lit = selected && CRect().IntersectRect(cell, highlight);
        dc.SetTextColor(GetSysColor(lit ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        cell.DeflateRect(kCellPadding, 0);
        if (cell.IsRectEmpty() || length == 0) continue;
        // The first column is always left-aligned, as on the platform;
        // DrawText clips to the cell itself.
        const int format = column > 0 ? g.columns[column].format : HDF_LEFT;
        dc.DrawText(text, length, &cell, header::TextFormat(format));
    }
    if (!IsWindow(self)) return;
    dc.RestoreDC(saved);
    if (state & ODS_FOCUS) dc.DrawFocusRect(&highlight);
}

void ListControl::PaintGridLines(CDC& dc, const Geometry& g, const CRect& clip)
{
    const COLORREF color = GetSysColor(COLOR_BTNFACE);
    const int left = static_cast<int>(g.client.left) - g.scrollX;
    const int right = left + g.TotalWidth();
    const int itemsTop = g.ItemsTop();
    // Lines across every row of the page, items or not, as the platform draws them.
    const auto [first, last] = g.LinesIn(std::max(static_cast<int>(clip.top), itemsTop), clip.bottom);
    for (int i = first; i < last; ++i) {
        const CRect line(left, g.LineTop(i) + g.lineHeight - 1, right, g.LineTop(i) + g.lineHeight);
        dc.FillSolidRect(&line, color);
    }
    for (const Column& column : g.columns) {
        const int x = left + column.right - 1;
        const CRect line(x, itemsTop, x + 1, g.client.bottom);
        dc.FillSolidRect(&line, color);
    }
}

}  // namespace listview
