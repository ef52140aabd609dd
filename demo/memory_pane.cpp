#include "demo/memory_pane.h"

BEGIN_MESSAGE_MAP(CMemoryPane, CBCGPDockingControlBar)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_SETFOCUS()
END_MESSAGE_MAP()

int CMemoryPane::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CBCGPDockingControlBar::OnCreate(lpCreateStruct) == -1) return -1;
    return m_view.Create(this, CRect(0, 0, 0, 0), 1) ? 0 : -1;
}

void CMemoryPane::OnSize(UINT nType, int cx, int cy)
{
    CBCGPDockingControlBar::OnSize(nType, cx, cy);
    if (m_view.GetSafeHwnd()) m_view.MoveWindow(0, 0, cx, cy);
}

void CMemoryPane::OnSetFocus(CWnd* pOldWnd)
{
    CBCGPDockingControlBar::OnSetFocus(pOldWnd);
    m_view.SetFocus();
}
