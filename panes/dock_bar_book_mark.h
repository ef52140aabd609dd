// The dockable pane that shows the bookmark list.
#pragma once

#include "marks/bookmark_tree_ctrl.h"
#include "panes/view_pane.h"

class AFX_EXT_CLASS CDockBarBookMark : public CViewPane<CBookMarkListTreeCtrl, PaneSizing::ClientRect> {
public:
    CDockBarBookMark();
    ~CDockBarBookMark() override;
};
