#include "platform/controls/tree_layout.h"

#include "platform/controls/tree_ctrl.h"

namespace tree {

RowLayout LayoutRow(const Metrics& m, int rowTop, int depth, int textWidth)
{
    RowLayout r;
    r.row = CRect(m.client.left, rowTop, m.client.right, rowTop + m.itemHeight);
    r.level = depth + (m.Has(TVS_LINESATROOT) ? 1 : 0);
    int x = m.LevelLeft(r.level);
    if (r.level > 0) r.column = CRect(x - kIndent, r.row.top, x, r.row.bottom);
    if (m.stateCx > 0) {
        r.stateIcon = CRect(x, r.row.top, x + m.stateCx, r.row.bottom);
        r.stateAt = CPoint(x, r.row.top + (m.itemHeight - m.stateCy) / 2);
        x += m.stateCx;
    }
    if (m.imageCx > 0) {
        r.icon = CRect(x, r.row.top, x + m.imageCx + kImageGap, r.row.bottom);
        r.iconAt = CPoint(x, r.row.top + (m.itemHeight - m.imageCy) / 2);
        x = r.icon.right;
    }
    r.label = CRect(x, r.row.top, x + textWidth + 2 * kLabelPadding, r.row.bottom);
    r.text = CPoint(x + kLabelPadding, r.row.top + (m.itemHeight - m.font.height) / 2);
    return r;
}

int RowExtent(const Metrics& m, int depth, int textWidth)
{
    Metrics unscrolled = m;
    unscrolled.scrollX = 0;
    return LayoutRow(unscrolled, 0, depth, textWidth).label.right - m.client.left;
}

UINT HitRow(const Metrics& m, const RowLayout& r, bool hasButton, POINT pt)
{
    if (hasButton && m.Has(TVS_HASBUTTONS) && r.column.PtInRect(pt)) return TVHT_ONITEMBUTTON;
    if (r.stateIcon.PtInRect(pt)) return TVHT_ONITEMSTATEICON;
    if (r.icon.PtInRect(pt)) return TVHT_ONITEMICON;
    if (r.label.PtInRect(pt)) return TVHT_ONITEMLABEL;
    const int itemLeft = r.stateIcon.IsRectEmpty() ? (r.icon.IsRectEmpty() ? r.label.left : r.icon.left) : r.stateIcon.left;
    return pt.x < itemLeft ? TVHT_ONITEMINDENT : TVHT_ONITEMRIGHT;
}

}  // namespace tree
