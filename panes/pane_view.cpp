#include "panes/pane_view.h"

#include "platform/core/paint_dc.h"
#include "platform/gdi/sys_color.h"

namespace PaneView {
namespace {

// The frame is one pixel wide: the view sits this far inside the pane's area.
constexpr int kFrame = 1;

void Place(CWnd& view, int x, int y, int cx, int cy)
{
    // Resizing must not reorder the pane's children or steal activation.
    view.SetWindowPos(nullptr, x, y, cx, cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void FitToClient(const CWnd& pane, CWnd& view)
{
    CRect client;
    pane.GetClientRect(&client);
    Place(view, client.left + kFrame, client.top + kFrame, client.Width() - 2 * kFrame, client.Height() - 2 * kFrame);
}

void FitToSize(CWnd& view, int cx, int cy)
{
    Place(view, kFrame, kFrame, cx - 2 * kFrame, cy - 2 * kFrame);
}

void PaintFrame(CWnd& pane, const CWnd& view)
{
    CPaintDC dc(&pane);
    if (!view.GetSafeHwnd()) return;
    CRect frame;
    view.GetWindowRect(&frame);
    pane.ScreenToClient(&frame);
    frame.InflateRect(kFrame, kFrame);
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    dc.Draw3dRect(&frame, shadow, shadow);
}

}  // namespace PaneView
