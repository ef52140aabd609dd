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

// Resource of the icon for a cell value; the cache keeps them by this index.
constexpr unsigned kFormatIconIds[] = {IDI_FORMAT_BIN, IDI_FORMAT_DEC, IDI_FORMAT_HEX, kUnknownFormatIcon};

size_t IconIndexFor(std::uint32_t value)
{
    return std::min<size_t>(value, 3);
}

}  // namespace

GridLineGeometry CGridCtrl::Geometry()
{
    CRect first;
    CRect client;
    GetItemRect(0, &first, LVIR_BOUNDS);
    GetClientRect(&client);
    return GridLineGeometry(first, client);
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
    const GridLineGeometry g = Geometry();
    // Lines of a paint share one size: the bitmap is made again only when
    // the lines' size or the target's depth changes.
    const CSize size(g.buffer.Width() + 1, g.height + 1);
    const int depth = target->GetDeviceCaps(BITSPIXEL);
    if (!m_rowBitmap.GetSafeHandle() || size != m_rowBitmapSize || depth != m_rowBitmapDepth) {
        m_rowBitmap.DeleteObject();
        m_rowBitmap.CreateCompatibleBitmap(target, size.cx, size.cy);
        m_rowBitmapSize = size;
        m_rowBitmapDepth = depth;
    }
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

void CGridCtrl::DrawLine(int nItem, const GridLineGeometry& g, const CRect& screen, CDC* target)
{
    m_memDC.FillSolidRect(&g.buffer, m_colours[kBackground]);
    m_memDC.SetBkColor(m_colours[kBackground]);
    if (CGridRow* row = GetRowAt(nItem)) {
        // The current cell is on this line when the line is the selected one.
        const int currentColumn = nItem == GetSelectedItem() ? m_currentColumn : -1;
        DrawColumn0(row, currentColumn == 0, g);
        const int columns = std::min(ColumnCount(), kGridMaxCells);
        for (int c = 1; c < columns; ++c) DrawCell(row, c, currentColumn == c, g);
    }
    target->BitBlt(screen.left, screen.top, screen.Width(), screen.Height(), &m_memDC, screen.left, 0, SRCCOPY);
}

CRect CGridCtrl::ColumnRect(int c, const GridLineGeometry& g)
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

void CGridCtrl::DrawColumn0(CGridRow* row, bool current, const GridLineGeometry& g)
{
    const CRect column = ColumnRect(0, g);
    if (m_gridLines) m_memDC.Rectangle(&column);
    // A row indented past the column's width must not paint over column 1.
    const int saved = m_memDC.SaveDC();
    m_memDC.IntersectClipRect(&column);
    const int level = row->Level();
    CRect text = column;
    text.left += g.TextLeft(level);
    ApplyCellColours(text, current && row->Cell(0)->kind != GCF_ICON);
    DrawCellText(text, static_cast<const char*>(row->text), false);
    if (row->HasChildren()) DrawExpandBox(row, g.ExpandBox(level));
    // A top-level row without children has no lines.
    if (row->HasChildren() || level > 0) DrawTreeLines(row, level, g);
    m_memDC.RestoreDC(saved);
}

void CGridCtrl::DrawCell(CGridRow* row, int c, bool current, const GridLineGeometry& g)
{
    const CRect r = ColumnRect(c, g);
    if (m_gridLines) m_memDC.Rectangle(&r);
    const GridCell& cell = *row->Cell(c);
    // An icon-only cell shows just its focus rectangle.
    ApplyCellColours(r, current && cell.kind != GCF_ICON);
    if (cell.kind & GCF_ICON) {
        DrawCellIcon(r, cell.value, current);
        return;
    }
    DrawCellText(r, cell.text.View(), c == 1 && row->changed);
}

void CGridCtrl::DrawCellText(CRect r, std::string_view text, bool changed)
{
    if (changed) m_memDC.SetTextColor(m_colours[kChangedText]);
    const CString s = FitCellText(m_memDC, text, r.Width());
    r.left += kGridTextPad;
    m_memDC.DrawText(s, &r, kCellTextFormat);
}

HICON CGridCtrl::FormatIcon(std::uint32_t value)
{
    // Loaded once; a missing one is looked for again, as the host may add it later.
    HICON& icon = m_formatIcons[IconIndexFor(value)];
    if (!icon) icon = LoadIconFromChain(kFormatIconIds[IconIndexFor(value)], kIconSize, kIconSize);
    return icon;
}

void CGridCtrl::DrawCellIcon(CRect r, std::uint32_t value, bool current)
{
    if (HICON icon = FormatIcon(value)) {
        m_memDC.DrawIconEx(r.left + r.Width() / 2 - kIconSize / 2, r.top + kIconTop, icon, kIconSize, kIconSize, 0, nullptr,
                           DI_NORMAL);
    }
    if (current) {
        r.DeflateRect(1, 1);
        m_memDC.DrawFocusRect(&r);
    }
}

void CGridCtrl::DrawExpandBox(CGridRow* row, const CRect& box)
{
    m_memDC.FrameRect(&box, &m_treeBrush);
    CPen* old = m_memDC.SelectObject(&m_treePen);
    const int midY = box.top + box.Height() / 2;
    m_memDC.MoveTo(box.left + kStrokeInset, midY);
    m_memDC.LineTo(box.right - kStrokeInset, midY);
    if (row->Flags() & GRF_COLLAPSED) {
        const int midX = box.left + box.Width() / 2;
        m_memDC.MoveTo(midX, box.top + kStrokeInset);
        m_memDC.LineTo(midX, box.bottom - kStrokeInset);
    }
    m_memDC.SelectObject(old);
}

// Connectors of a row: to its parent's box, down towards its children, and
// the lines of ancestors that have further siblings below. The walk up goes
// past ancestors without a next sibling, so every open branch keeps its line.
void CGridCtrl::DrawTreeLines(CGridRow* row, int level, const GridLineGeometry& g)
{
    CPen* old = m_memDC.SelectObject(&m_treePen);
    const int half = g.unit / 2;
    const CRect box = g.ExpandBox(level);
    const int xb = box.left + half;
    const int yb = box.top + half;
    if (level > 0) {
        const int xp = g.ExpandBox(level - 1).left + half;
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
        const int x = g.ExpandBox(ancestor->Level() - 1).left + half;
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
