#include "tests/support/test_pane.h"

BEGIN_MESSAGE_MAP(TestPane, CWnd)
    ON_WM_SIZE()
    ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

BOOL TestPane::CreatePane(CWnd* parent, const CRect& rect)
{
    return Create(nullptr, "pane", WS_VISIBLE, rect, parent, 0);
}

void TestPane::OnSize(UINT, int cx, int cy)
{
    if (view && view->GetSafeHwnd()) view->MoveWindow(1, 1, cx - 2, cy - 2);
}

void TestPane::OnContextMenu(CWnd*, CPoint point)
{
    if (onContextMenu) onContextMenu(point);
}
