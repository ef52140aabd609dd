// The dockable pane that shows search results; going to a line opens its source.
#pragma once

#include "output/message_edit_ctrl.h"
#include "panes/view_pane.h"

class AFX_EXT_CLASS CDockBarSearch : public CViewPane<CMessageEditCtrl, PaneSizing::ClientRect> {
public:
    CDockBarSearch();
    ~CDockBarSearch() override;
};
