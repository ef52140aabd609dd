// Painting: only the rows that meet the area being painted are drawn.
#include "platform/controls/tree_control.h"

#include "platform/gdi/dc.h"
#include "platform/gdi/image_list.h"
#include "platform/gdi/sys_color.h"
#include "platform/text/gbk.h"

namespace tree {
namespace {

// Bytes of text, from the start, needed to reach `width` pixels: a label far
// wider than the window is drawn only as far as it can be seen.
size_t BytesToCover(const gdi::FontMetrics& font, const std::string& text, int width)
{
    size_t end = 0;
    int x = 0;
    while (end < text.size() && x < width) {
        const int bytes = GbkCharLength(text, end);
        x += font.Advance(bytes);
        end += static_cast<size_t>(bytes);
    }
    return end;
}

}  // namespace

void TreeControl::Paint(CDC& dc, const CRect& clip)
{
    const Metrics m = ComputeMetrics();
    dc.FillSolidRect(&clip, GetSysColor(COLOR_WINDOW));
    PaintState p;
    p.top = TopIndex(m);
    p.focused = ::GetFocus() == Hwnd() && Hwnd();
    p.caret = Caret();
    p.drop = Resolve(m_drop);
    if (m.Has(TVS_TRACKSELECT)) p.hot = Resolve(m_hot);
    p.font = FontHandle();
    const auto& rows = m_model.Rows();
    const int first = p.top + std::max(0, static_cast<int>(clip.top - m.client.top) / m.itemHeight);
    const int end = std::min(static_cast<int>(rows.size()),
                             p.top + std::max(0, static_cast<int>(clip.bottom - m.client.top) + m.itemHeight - 1) / m.itemHeight);
    const int saved = dc.SaveDC();
    dc.SetBkMode(TRANSPARENT);
    dc.SelectObject(p.font);
    // Lines would cut through a full-row highlight, so that style has none.
    CPen dots;
    if (m.Has(TVS_HASLINES) && !m.Has(TVS_FULLROWSELECT)) {
        dots.CreatePen(PS_DOT, 1, GetSysColor(COLOR_GRAYTEXT));
        dc.SelectObject(&dots);
    }
    for (int row = first; row < end; ++row) PaintRow(dc, m, p, rows[static_cast<size_t>(row)], row);
    dc.RestoreDC(saved);
}

void TreeControl::PaintRow(CDC& dc, const Metrics& m, const PaintState& p, Slot slot, int row)
{
    const Item& item = m_model.At(slot);
    const RowLayout r = Layout(m, slot, row, p.top);
    const bool fullRow = m.Has(TVS_FULLROWSELECT);
    const bool selected = (item.state & TVIS_SELECTED) != 0;

    // A drop target takes the highlight from the selection while it is shown.
    bool highlight = false;
    COLORREF back = GetSysColor(COLOR_WINDOW);
    COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
    if (p.drop != kNone ? slot == p.drop : selected && p.focused) {
        highlight = true;
        back = GetSysColor(COLOR_HIGHLIGHT);
        ink = GetSysColor(COLOR_HIGHLIGHTTEXT);
    } else if (p.drop == kNone && selected && m.Has(TVS_SHOWSELALWAYS)) {
        highlight = true;
        back = GetSysColor(COLOR_BTNFACE);
    }
    const bool hot = slot == p.hot;
    if (hot && !highlight) ink = GetSysColor(COLOR_HOTLIGHT);

    if (highlight && fullRow) dc.FillSolidRect(&r.row, back);
    if (m.Has(TVS_HASLINES) && !fullRow) PaintLines(dc, m, r, slot, p.top * m.itemHeight - m.client.top);
    if (m.Has(TVS_HASBUTTONS) && r.level > 0 && m_model.HasChildren(slot)) PaintButton(dc, m, r, m_model.IsExpanded(slot));

    if (m.stateCx > 0) {
        const int index = static_cast<int>((item.state & kStateImageMask) >> 12);
        CImageList* states = CImageList::FromHandle(m_stateImages);
        if (index > 0 && states) states->Draw(&dc, index, r.stateAt, ILD_TRANSPARENT);
    }
    if (m.imageCx > 0) {
        if (CImageList* images = CImageList::FromHandle(m_images)) {
            images->Draw(&dc, selected ? item.selectedImage : item.image, r.iconAt, ILD_TRANSPARENT);
        }
    }

    if (highlight && !fullRow) dc.FillSolidRect(&r.label, back);
    if (hot) dc.SelectObject(HotFont()->GetSafeHandle());
    dc.SetTextColor(ink);
    const size_t bytes = BytesToCover(m.font, item.text, m.client.right - r.text.x);
    dc.TextOut(r.text.x, r.text.y, item.text.data(), static_cast<int>(bytes));
    if (hot) dc.SelectObject(p.font);

    if (p.focused && slot == p.caret) {
        const CRect focus = fullRow ? r.row : r.label;
        dc.DrawFocusRect(&focus);
    }
}

void TreeControl::PaintLines(CDC& dc, const Metrics& m, const RowLayout& r, Slot slot, int yOffset) const
{
    // Dots sit where content x + y is even, whichever row is on top.
    const auto vertical = [&](int x, int from, int to) {
        if ((x + m.scrollX + from + yOffset) & 1) ++from;
        if (from >= to) return;
        dc.MoveTo(x, from);
        dc.LineTo(x, to);
    };
    const auto horizontal = [&](int y, int from, int to) {
        if ((from + m.scrollX + y + yOffset) & 1) ++from;
        if (from >= to) return;
        dc.MoveTo(from, y);
        dc.LineTo(to, y);
    };
    const int middle = r.row.top + m.itemHeight / 2;
    const Item& item = m_model.At(slot);
    if (r.level > 0) {
        // The item's own column: up to the item above, across to the image,
        // and on down when a sibling follows.
        const int x = r.column.left + kIndent / 2;
        const bool up = item.prev != kNone || m_model.IsItem(item.parent);
        const bool down = item.next != kNone;
        vertical(x, up ? r.row.top : middle, down ? r.row.bottom : middle + 1);
        horizontal(middle, x, r.column.right);
    }
    // Columns of ancestors that have siblings still to come pass straight through.
    const int rootColumn = m.Has(TVS_LINESATROOT) ? 1 : 0;
    for (Slot a = item.parent; m_model.IsItem(a); a = m_model.At(a).parent) {
        const int level = m_model.At(a).depth + rootColumn;
        if (level > 0 && m_model.At(a).next != kNone) vertical(m.LevelLeft(level - 1) + kIndent / 2, r.row.top, r.row.bottom);
    }
}

void TreeControl::PaintButton(CDC& dc, const Metrics& m, const RowLayout& r, bool expanded) const
{
    const int cx = r.column.left + kIndent / 2;
    const int cy = r.row.top + m.itemHeight / 2;
    const int half = kButtonSize / 2;
    const CRect box(cx - half, cy - half, cx + half + 1, cy + half + 1);
    dc.FillSolidRect(&box, GetSysColor(COLOR_GRAYTEXT));
    CRect inside = box;
    inside.DeflateRect(1, 1);
    dc.FillSolidRect(&inside, GetSysColor(COLOR_WINDOW));
    const COLORREF sign = GetSysColor(COLOR_WINDOWTEXT);
    dc.FillSolidRect(cx - kSignArm, cy, 2 * kSignArm + 1, 1, sign);
    if (!expanded) dc.FillSolidRect(cx, cy - kSignArm, 1, 2 * kSignArm + 1, sign);
}

CFont* TreeControl::HotFont()
{
    const HGDIOBJ source = FontHandle();
    if (source != m_hotFontSource || !gdi::Find<gdi::FontData>(m_hotFont.GetSafeHandle())) {
        m_hotFont.DeleteObject();
        const gdi::FontData* font = gdi::Find<gdi::FontData>(source);
        LOGFONT logFont = font ? font->logFont : LOGFONT{};
        logFont.lfUnderline = 1;
        m_hotFont.CreateFontIndirect(&logFont);
        m_hotFontSource = source;
    }
    return &m_hotFont;
}

}  // namespace tree
