// Drawing: every line is composed in an off-screen bitmap and copied out in
// one transfer, so a line never shows half-drawn while values refresh.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "grid/grid_ctrl.h"
#include "grid/grid_text_fit.h"
#include "host/resource_ids.h"
#include "platform/core/paint_dc.h"
#include "platform/gdi/brush.h"
#include "platform/gdi/icon.h"
#include "platform/gdi/pen.h"
#include "platform/text/gbk.h"

namespace {

constexpr UINT kCellTextFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
static_assert(kCellTextFormat == 0x824);
// Format icons are drawn at the standard icon size; their letter sits in the top-left quarter.
constexpr int kIconSize = 32;
constexpr int kIconTop = 2;
// Value of an icon cell without one of the three formats names this resource.
constexpr unsigned kUnknownFormatIcon = 3;
// Expand box strokes stop this far inside the box.
constexpr int kStrokeInset = 2;

unsigned IconFor(std::uint32_t value)
{
    switch (value) {
    case 0: return IDI_FORMAT_BIN;
    case 1: return IDI_FORMAT_DEC;
    case 2: return IDI_FORMAT_HEX;
    default: return kUnknownFormatIcon;
    }
}

}  // namespace

struct CGridCtrl::LineGeometry {
    CRect first;   // bounds of item 0
    CRect client;
    CRect buffer;  // list's horizontal coordinates, line top at 0
    int height = 0;
    int unit = 0;     // U: indentation step and expand box size
    int quarter = 0;  // Q: top of the expand box
};

CGridCtrl::LineGeometry CGridCtrl::Geometry()
{
    LineGeometry g;
    GetItemRect(0, &g.first, LVIR_BOUNDS);
    GetClientRect(&g.client);
    g.height = g.first.Height();
    g.unit = g.height / 4 + 4;
    g.quarter = g.height / 4;
    g.buffer = CRect(g.first.left, 0, std::max(g.first.right, g.client.right), g.height);
    return g;
}

void CGridCtrl::MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    if (!lpMeasureItemStruct) return;
    if (GetSafeHwnd()) SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_font.GetSafeHandle()), TRUE);
    // The metrics of the context's default font, not of the grid font.
    CClientDC dc(this);
    TEXTMETRIC metrics{};
    dc.GetTextMetrics(&metrics);
    lpMeasureItemStruct->itemHeight = static_cast<UINT>(metrics.tmHeight);
}

void CGridCtrl::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (!lpDrawItemStruct || !m_memDC.GetSafeHdc()) return;
    CDC* target = CDC::FromHandle(lpDrawItemStruct->hDC);
    if (!target) return;
    const int item = static_cast<int>(lpDrawItemStruct->itemID);
    const LineGeometry g = Geometry();
    m_rowBitmap.DeleteObject();
    m_rowBitmap.CreateCompatibleBitmap(target, g.buffer.Width() + 1, g.height + 1);
    CBitmap* oldBitmap = m_memDC.SelectObject(&m_rowBitmap);
    CFont* oldFont = m_memDC.SelectObject(&m_font);
    CPen pen(PS_SOLID, 1, m_colours[kGridLine]);
    CPen* oldPen = m_memDC.SelectObject(&pen);

    CRect screen;
    GetItemRect(item, &screen, LVIR_BOUNDS);
    screen.right = std::max(screen.right, g.client.right);
    DrawLine(item, g, screen, target);

    m_memDC.SelectObject(oldPen);
    m_memDC.SelectObject(oldFont);
    m_memDC.SelectObject(oldBitmap);
}

void CGridCtrl::DrawLine(int nItem, const LineGeometry& g, const CRect& screen, CDC* target)
{
    m_memDC.FillSolidRect(&g.buffer, m_colours[kBackground]);
    m_memDC.SetBkColor(m_colours[kBackground]);
    if (CGridRow* row = GetRowAt(nItem)) {
        DrawColumn0(nItem, row, g);
        const int columns = std::min(ColumnCount(), kGridMaxCells);
        for (int c = 1; c < columns; ++c) DrawCell(nItem, row, c, g);
    }
    target->BitBlt(screen.left, screen.top, screen.Width(), screen.Height(), &m_memDC, screen.left, 0, SRCCOPY);
}

CRect CGridCtrl::ColumnRect(int c, const LineGeometry& g)
{
    CRect r;
    GetSubItemRect(0, c, LVIR_LABEL, r);
    r.top = 0;
    r.bottom = g.height;
    if (c == 0) {
        r.left = 0;
    } else if (m_gridLines) {
        --r.left;  // neighbouring borders overlap
    }
    return r;
}

CRect CGridCtrl::ExpandBox(int level, const LineGeometry& g) const
{
    const int left = g.first.left + g.unit * level + g.unit / 2;
    return CRect(left, g.quarter, left + g.unit, g.quarter + g.unit);
}

void CGridCtrl::ApplyCellColours(const CRect& r, bool current)
{
    if (current) {
        const COLORREF back = GetFocus() == this ? m_colours[kCurrentBackFocus] : m_colours[kCurrentBackNoFocus];
        // Also leaves the text background at the fill, so opaque text stays on the highlight.
        m_memDC.FillSolidRect(&r, back);
        m_memDC.SetTextColor(m_colours[kCurrentText]);
    } else {
        m_memDC.SetBkColor(m_colours[kBackground]);
        m_memDC.SetTextColor(m_colours[kNormalText]);
    }
}

void CGridCtrl::DrawColumn0(int nItem, CGridRow* row, const LineGeometry& g)
{
    const CRect column = ColumnRect(0, g);
    if (m_gridLines) m_memDC.Rectangle(&column);
    const int level = row->Level();
    CRect text = column;
    text.left += g.unit * (level + 1) + g.unit / 2 + g.unit / 2;
    const bool current = IsCurrentCell(nItem, 0) && row->cells[0].kind != GCF_ICON;
    ApplyCellColours(text, current);
    DrawCellText(text, row->text, false);
    if (row->HasChildren()) {
        DrawExpandBox(row, ExpandBox(level, g));
        DrawTreeLines(row, level, g);
    } else if (level > 0) {
        DrawTreeLines(row, level, g);
    }
}

void CGridCtrl::DrawCell(int nItem, CGridRow* row, int c, const LineGeometry& g)
{
    const CRect r = ColumnRect(c, g);
    if (m_gridLines) m_memDC.Rectangle(&r);
    const GridCell& cell = row->cells[c];
    const bool current = IsCurrentCell(nItem, c);
    // An icon-only cell shows just its focus rectangle.
    ApplyCellColours(r, current && cell.kind != GCF_ICON);
    if (cell.kind & GCF_ICON) {
        DrawCellIcon(r, cell.value, current);
        return;
    }
    const std::string text(cell.text, strnlen(cell.text, sizeof cell.text));
    DrawCellText(r, text.c_str(), c == 1 && row->changed);
}

void CGridCtrl::DrawCellText(CRect r, const char* text, bool changed)
{
    if (changed) m_memDC.SetTextColor(m_colours[kChangedText]);
    const CString s = FitCellText(m_memDC, text, r.Width());
    r.left += kGridTextPad;
    m_memDC.DrawText(s, &r, kCellTextFormat);
}

void CGridCtrl::DrawCellIcon(CRect r, std::uint32_t value, bool current)
{
    if (HICON icon = LoadIconFromChain(IconFor(value), kIconSize, kIconSize)) {
        m_memDC.DrawIconEx(r.left + r.Width() / 2 - kIconSize / 2, r.top + kIconTop, icon, kIconSize, kIconSize, 0, nullptr,
                           DI_NORMAL);
        DestroyIcon(icon);
    }
    if (current) {
        r.DeflateRect(1, 1);
        m_memDC.DrawFocusRect(&r);
    }
}

void CGridCtrl::DrawExpandBox(CGridRow* row, const CRect& box)
{
    CBrush frame(m_colours[kTreeLine]);
    m_memDC.FrameRect(&box, &frame);
    CPen pen(PS_SOLID, 1, m_colours[kTreeLine]);
    CPen* old = m_memDC.SelectObject(&pen);
    const int midY = box.top + box.Height() / 2;
    m_memDC.MoveTo(box.left + kStrokeInset, midY);
    m_memDC.LineTo(box.right - kStrokeInset, midY);
    if (row->flags & GRF_COLLAPSED) {
        const int midX = box.left + box.Width() / 2;
        m_memDC.MoveTo(midX, box.top + kStrokeInset);
        m_memDC.LineTo(midX, box.bottom - kStrokeInset);
    }
    m_memDC.SelectObject(old);
}

// Connectors of a row: to its parent's box, down towards its children, and
// the lines of ancestors that have further siblings below. The walk up goes
// past ancestors without a next sibling, so every open branch keeps its line.
void CGridCtrl::DrawTreeLines(CGridRow* row, int level, const LineGeometry& g)
{
    CPen pen(PS_SOLID, 1, m_colours[kTreeLine]);
    CPen* old = m_memDC.SelectObject(&pen);
    const int half = g.unit / 2;
    const CRect box = ExpandBox(level, g);
    const int xb = box.left + half;
    const int yb = box.top + half;
    if (level > 0) {
        const int xp = ExpandBox(level - 1, g).left + half;
        m_memDC.MoveTo(xp, yb);
        m_memDC.LineTo(row->HasChildren() ? box.left : xb, yb);
        m_memDC.MoveTo(xp, 0);
        m_memDC.LineTo(xp, row->next ? g.height : yb);
    }
    if (row->IsExpanded()) {
        m_memDC.MoveTo(xb, box.bottom);
        m_memDC.LineTo(xb, g.height);
    }
    for (const CGridRow* ancestor = row->parent; ancestor && ancestor->Level() >= 1; ancestor = ancestor->parent) {
        if (!ancestor->next) continue;
        const int x = ExpandBox(ancestor->Level() - 1, g).left + half;
        m_memDC.MoveTo(x, 0);
        m_memDC.LineTo(x, g.height);
    }
    m_memDC.SelectObject(old);
}

BOOL CGridCtrl::OnEraseBkgnd(CDC* pDC)
{
    if (!pDC) return TRUE;
    CRect client;
    GetClientRect(&client);
    const int count = GetItemCount();
    CRect last;
    if (count > 0 && GetItemRect(count - 1, &last, LVIR_BOUNDS)) {
        pDC->FillSolidRect(CRect(last.right, client.top, client.right, last.bottom), m_colours[kBackground]);
        pDC->FillSolidRect(CRect(client.left, last.bottom, client.right, client.bottom), m_colours[kBackground]);
    } else {
        pDC->FillSolidRect(&client, m_colours[kBackground]);
    }
    return TRUE;
}
