// The dockable pane that shows the build output; going to a line asks the host's message handler.
#pragma once

#include "output/message_edit_ctrl.h"
#include "panes/view_pane.h"

class AFX_EXT_CLASS CDockBarMessage : public CViewPane<CMessageEditCtrl, PaneSizing::ClientRect> {
public:
    CDockBarMessage();
    ~CDockBarMessage() override;
};
