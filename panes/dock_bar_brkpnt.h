// The dockable pane that shows the breakpoint list.
#pragma once

#include "marks/breakpoint_tree_ctrl.h"
#include "panes/view_pane.h"

class AFX_EXT_CLASS CDockBarBrkpnt : public CViewPane<CBreakPointListTreeCtrl, PaneSizing::MessageSize> {
public:
    CDockBarBrkpnt();
    ~CDockBarBrkpnt() override;
};
