// The dockable pane that shows the project's files by group.
#pragma once

#include "siblings/work_space_tree1.h"
#include "panes/view_pane.h"

class AFX_EXT_CLASS CDockBarWorkspace1 : public CViewPane<CWorkSpaceTree1, PaneSizing::ClientRect> {
public:
    CDockBarWorkspace1();
    ~CDockBarWorkspace1() override;

    // The tree itself, for the host's project commands.
    CWorkSpaceTree1* GetPageCtrl() { return &m_view; }
};
