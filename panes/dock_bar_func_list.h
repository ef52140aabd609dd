// The dockable pane that shows the functions of the current source file.
#pragma once

#include "funclist/func_list_tree_ctrl.h"
#include "panes/view_pane.h"

class AFX_EXT_CLASS CDockBarFuncList : public CViewPane<CFuncListTreeCtrl, PaneSizing::MessageSize> {
public:
    CDockBarFuncList();
    ~CDockBarFuncList() override;
};
