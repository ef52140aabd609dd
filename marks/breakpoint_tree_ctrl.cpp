#include "marks/breakpoint_tree_ctrl.h"

BEGIN_MESSAGE_MAP(CBreakPointListTreeCtrl, CMarkTreeCtrl<BreakPointTreeTraits>)
    ON_WM_LBUTTONDOWN()
    ON_WM_RBUTTONDOWN()
    ON_COMMAND(ID_BREAKPOINT_SEEK, &CBreakPointListTreeCtrl::OnBreakpointSeek)
    ON_UPDATE_COMMAND_UI(ID_BREAKPOINT_SEEK, &CBreakPointListTreeCtrl::OnUpdateBreakpointSeek)
    ON_COMMAND(ID_EDIT_CLEAR_ALL_BKPT, &CBreakPointListTreeCtrl::OnEditClearAllBkpt)
END_MESSAGE_MAP()

CBreakPointListTreeCtrl::CBreakPointListTreeCtrl() = default;
CBreakPointListTreeCtrl::~CBreakPointListTreeCtrl() = default;

void CBreakPointListTreeCtrl::OnBreakpointSeek() { GotoSelected(); }
void CBreakPointListTreeCtrl::OnUpdateBreakpointSeek(CCmdUI* pCmdUI) { EnableWhenSelected(pCmdUI); }

// The menu's command is 32032; the host's command for the same request is 32194.
void CBreakPointListTreeCtrl::OnEditClearAllBkpt() { HostLink::SendCommand(ID_HOST_CLEAR_ALL_BREAKPOINTS); }
