#include "demo/views/line_scroll_view.h"

#include <algorithm>

#include "demo/views/scroll_request.h"
#include "host/view_font.h"
#include "platform/core/input_state.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/font_model.h"

LineRange LinesMeeting(int areaTop, int areaBottom, int rowsTop, int rowHeight, int topLine, int lineCount)
{
    LineRange range;
    range.first = topLine + std::max(0, areaTop - rowsTop) / rowHeight;
    range.end = std::min(lineCount, topLine + (std::max(0, areaBottom - rowsTop) + rowHeight - 1) / rowHeight);
    return range;
}

BEGIN_MESSAGE_MAP(CLineScrollView, CWnd)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_WM_MOUSEWHEEL()
    ON_MESSAGE(WM_VSCROLL, &CLineScrollView::OnVScroll)
END_MESSAGE_MAP()

BOOL CLineScrollView::CreateView(const char* className, DWORD style, CWnd* parent, const CRect& rect, UINT id)
{
    return CreateEx(0, className, "", style, rect, parent, id);
}

int CLineScrollView::OnCreate(LPCREATESTRUCT)
{
    if (Default() == -1) return -1;
    m_font.CreatePointFont(kViewFontTenths, kViewFontFace);
    FitBars();
    return 0;
}

int CLineScrollView::FontHeight() const
{
    return gdi::MetricsOfHandle(m_font.GetSafeHandle()).height;
}

void CLineScrollView::FitBars()
{
    if (!GetSafeHwnd() || m_fitting) return;
    m_fitting = true;
    // Not from the style: the platform drops a bar's style bit while the bar is hidden.
    ::FitScrollBars(m_hWnd, true, m_horizontal, [&](const CRect& client) { return NeedsFor(client); });
    m_fitting = false;
}

void CLineScrollView::OnSize(UINT, int, int)
{
    // A larger view may now show what was scrolled off; keep the bars true.
    if (!m_fitting) ScrollToLine(TopLine());
}

BOOL CLineScrollView::OnEraseBkgnd(CDC*)
{
    return TRUE;  // the paint handler covers every pixel
}

BOOL CLineScrollView::OnMouseWheel(UINT, short delta, CPoint)
{
    // A notch up shows earlier lines.
    const int notches = TakeWheelNotches(m_wheelRemainder, delta);
    if (notches) ScrollToLine(TopLine() - notches * kWheelScrollLines);
    return TRUE;
}

LRESULT CLineScrollView::OnVScroll(WPARAM wParam, LPARAM)
{
    ScrollToLine(RequestedScroll(m_hWnd, WM_VSCROLL, wParam, TopLine(), 1, PageLines()));
    return 0;
}
