#include "platform/docking/bcgp_base_control_bar.h"

IMPLEMENT_DYNAMIC(CBCGPBaseControlBar, CWnd)

BEGIN_MESSAGE_MAP(CBCGPBaseControlBar, CWnd)
    ON_WM_SIZE()
END_MESSAGE_MAP()

CBCGPBaseControlBar::CBCGPBaseControlBar() = default;

CBCGPBaseControlBar::~CBCGPBaseControlBar() = default;

BOOL CBCGPBaseControlBar::Create(const char* title, CWnd* pParentWnd, const CRect& rect, UINT nID, DWORD dwStyle)
{
    // A bar lives inside a frame; without one there is nowhere to dock it.
    if (!pParentWnd || !pParentWnd->GetSafeHwnd()) return FALSE;
    return CreateEx(0, nullptr, title, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

void CBCGPBaseControlBar::OnSize(UINT nType, int cx, int cy)
{
    m_lastSize = CSize(cx, cy);
    CWnd::OnSize(nType, cx, cy);
}
