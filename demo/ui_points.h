// Where the tour points the mouse: the centres of the things a user clicks,
// read from the controls' own geometry so the script follows their layout.
#pragma once

#include <string_view>

#include "grid/grid_ctrl.h"
#include "platform/docking/bcgp_frame_wnd.h"
#include "platform/controls/rich_edit_ctrl.h"
#include "platform/controls/tree_ctrl.h"

// The view a pane hosts, as its class; null before the view exists or when
// the pane hosts another kind.
template <class View, class Pane>
View* ViewOf(Pane& pane)
{
    return dynamic_cast<View*>(CWnd::FromHandle(pane.GetViewHwnd()));
}

// The label of the first node (depth first) whose text holds the GBK text;
// (-1, -1) when there is none.
CPoint TreeLabelCentre(CTreeCtrl& tree, std::string_view gbkText);
// A line of a rich edit, a little right of its start.
CPoint EditLineCentre(CRichEditCtrl& edit, int line);
// The first line of a rich edit holding the GBK text; -1 when none does.
int EditLineOf(CRichEditCtrl& edit, std::string_view gbkText);
// The centre of a cell, and of a grid line's expand box at the row's level.
CPoint GridCellCentre(CGridCtrl& grid, int item, int column);
CPoint GridExpandBoxCentre(CGridCtrl& grid, int item);
// The first display line whose row text is the GBK text; -1 when none is.
int GridLineOf(CGridCtrl& grid, std::string_view gbkText);

// Clicks the tab of a docked bar, as a user switches panes; false when the
// bar has no tab to click (it is alone in its group or not docked).
bool ClickTab(CBCGPFrameWnd& frame, const CBCGPDockingControlBar& bar);
