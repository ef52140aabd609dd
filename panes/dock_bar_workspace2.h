// The dockable pane that shows the project's targets.
#pragma once

#include "siblings/work_space_tree2.h"
#include "panes/view_pane.h"

class AFX_EXT_CLASS CDockBarWorkspace2 : public CViewPane<CWorkSpaceTree2, PaneSizing::ClientRect> {
public:
    CDockBarWorkspace2();
    ~CDockBarWorkspace2() override;

    // The tree itself, for the host's project commands.
    CWorkSpaceTree2* GetPageCtrl() { return &m_view; }
};
