// The dockable pane that shows the debugger's messages; going to a line only marks it.
#pragma once

#include "output/message_edit_ctrl.h"
#include "panes/view_pane.h"

class AFX_EXT_CLASS CDockBarDebugMessage : public CViewPane<CMessageEditCtrl, PaneSizing::ClientRect> {
public:
    CDockBarDebugMessage();
    ~CDockBarDebugMessage() override;
};
