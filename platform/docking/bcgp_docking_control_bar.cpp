#include "platform/docking/bcgp_docking_control_bar.h"

IMPLEMENT_DYNAMIC(CBCGPDockingControlBar, CBCGPBaseControlBar)

BEGIN_MESSAGE_MAP(CBCGPDockingControlBar, CBCGPBaseControlBar)
    ON_WM_CREATE()
    ON_WM_SETFOCUS()
    ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

CBCGPDockingControlBar::CBCGPDockingControlBar() = default;

CBCGPDockingControlBar::~CBCGPDockingControlBar() = default;

int CBCGPDockingControlBar::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CBCGPBaseControlBar::OnCreate(lpCreateStruct) == -1) return -1;
    return 0;
}

void CBCGPDockingControlBar::OnSetFocus(CWnd* pOldWnd)
{
    CBCGPBaseControlBar::OnSetFocus(pOldWnd);
}

void CBCGPDockingControlBar::OnContextMenu(CWnd*, CPoint)
{
    // A pane without a menu of its own swallows the request: passing it up
    // would let the frame show its menu over a pane that did not ask for it.
}
