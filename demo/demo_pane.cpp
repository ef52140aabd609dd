#include "demo_pane.h"

#include "platform/core/paint_dc.h"
#include "platform/gdi/sys_color.h"

BEGIN_MESSAGE_MAP(DemoPane, CWnd)
    ON_WM_SIZE()
    ON_WM_CONTEXTMENU()
    ON_WM_PAINT()
END_MESSAGE_MAP()

void DemoPane::OnSize(UINT, int cx, int cy)
{
    if (!view || !view->GetSafeHwnd()) return;
    if (layout) {
        layout(CRect(0, kCaptionHeight, cx, cy));
    } else {
        view->MoveWindow(1, kCaptionHeight + 1, cx - 2, cy - kCaptionHeight - 2);
    }
}

void DemoPane::OnContextMenu(CWnd*, CPoint point)
{
    if (showMenu) showMenu(point);
}

void DemoPane::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    dc.FillSolidRect(0, 0, client.Width(), kCaptionHeight, GetSysColor(COLOR_INACTIVECAPTION));
    dc.SetTextColor(GetSysColor(COLOR_INACTIVECAPTIONTEXT));
    dc.SetBkMode(TRANSPARENT);
    dc.SelectObject(CFont::FromHandle(GetStockObject(DEFAULT_GUI_FONT)));
    CRect title(6, 0, client.Width(), kCaptionHeight);
    dc.DrawText(m_caption.c_str(), static_cast<int>(m_caption.size()), &title, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    if (view && view->GetSafeHwnd()) {
        CRect frame;
        view->GetWindowRect(&frame);
        ScreenToClient(&frame);
        frame.InflateRect(1, 1);
        dc.Draw3dRect(&frame, GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNSHADOW));
    }
}
