// The docking library's pane: a bar that a frame docks and that keeps the
// keyboard focus inside itself. Its users derive from it, host one view and
// chain their message maps to this one.
#pragma once

#include "platform/docking/bcgp_base_control_bar.h"

class AFX_EXT_CLASS CBCGPDockingControlBar : public CBCGPBaseControlBar {
    DECLARE_DYNAMIC(CBCGPDockingControlBar)

    CBCGPDockingControlBar();
    ~CBCGPDockingControlBar() override;

protected:
    DECLARE_MESSAGE_MAP()
    int OnCreate(LPCREATESTRUCT lpCreateStruct);
    void OnSetFocus(CWnd* pOldWnd);
    void OnContextMenu(CWnd* pWnd, CPoint point);
};
