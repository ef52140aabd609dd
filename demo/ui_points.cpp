#include "demo/ui_points.h"

#include <string>

#include "platform/input/input.h"

namespace {

HTREEITEM FindNode(CTreeCtrl& tree, HTREEITEM node, std::string_view text)
{
    for (; node; node = tree.GetNextSiblingItem(node)) {
        if (std::string_view(tree.GetItemText(node)).find(text) != std::string_view::npos) return node;
        if (HTREEITEM found = FindNode(tree, tree.GetChildItem(node), text)) return found;
    }
    return nullptr;
}

}  // namespace

CPoint TreeLabelCentre(CTreeCtrl& tree, std::string_view gbkText)
{
    const HTREEITEM node = FindNode(tree, tree.GetRootItem(), gbkText);
    CRect rect;
    if (!node || !tree.GetItemRect(node, &rect, TRUE)) return CPoint(-1, -1);
    return rect.CenterPoint();
}

CPoint EditLineCentre(CRichEditCtrl& edit, int line)
{
    // A little into the text, clear of the indentation's blanks.
    constexpr int kIntoText = 40;
    constexpr int kHalfLine = 6;
    const CPoint at = edit.GetCharPos(edit.LineIndex(line));
    return CPoint(at.x + kIntoText, at.y + kHalfLine);
}

int EditLineOf(CRichEditCtrl& edit, std::string_view gbkText)
{
    for (int line = 0; line < edit.GetLineCount(); ++line) {
        char text[1024] = {};
        const int length = edit.GetLine(line, text, sizeof text - 1);
        if (std::string_view(text, length > 0 ? length : 0).find(gbkText) != std::string_view::npos) return line;
    }
    return -1;
}

CPoint GridCellCentre(CGridCtrl& grid, int item, int column)
{
    CRect cell;
    grid.GetSubItemRect(item, column, LVIR_LABEL, cell);
    return cell.CenterPoint();
}

CPoint GridExpandBoxCentre(CGridCtrl& grid, int item)
{
    CRect first, line;
    grid.GetItemRect(0, &first, LVIR_BOUNDS);
    grid.GetItemRect(item, &line, LVIR_BOUNDS);
    // A level's indent is a quarter of the line height and four pixels.
    const int unit = first.Height() / 4 + 4;
    const CGridRow* row = grid.GetRowAt(item);
    return CPoint(line.left + unit * (row ? row->Level() : 0) + unit, line.CenterPoint().y);
}

int GridLineOf(CGridCtrl& grid, std::string_view gbkText)
{
    for (int line = 0; line < grid.GetItemCount(); ++line) {
        const CGridRow* row = grid.GetRowAt(line);
        if (row && std::string_view(row->text) == gbkText) return line;
    }
    return -1;
}

bool ClickTab(CBCGPFrameWnd& frame, const CBCGPDockingControlBar& bar)
{
    const CRect tab = frame.TabRect(&bar);
    if (tab.IsRectEmpty()) return false;
    Input::Wait();
    Input::Click(&frame, tab.CenterPoint());
    return true;
}
