#include "panes/dock_bar_watch.h"

#include "host/host_link.h"

using WatchViewPane = CViewPane<CWatchGridCtrl, PaneSizing::ClientRect>;

BEGIN_MESSAGE_MAP(CDockBarWatch, WatchViewPane)
    ON_WM_SIZE()
    ON_WM_SETFOCUS()
    ON_WM_MEASUREITEM()
END_MESSAGE_MAP()

CDockBarWatch::CDockBarWatch() = default;

CDockBarWatch::~CDockBarWatch() = default;

void CDockBarWatch::SetWatchNumb(int numb)
{
    m_watchNumb = numb;
    m_view.fixedRows = numb == kFixedWatchNumb ? TRUE : FALSE;
}

void CDockBarWatch::OnSize(UINT nType, int cx, int cy)
{
    CBCGPBaseControlBar::OnSize(nType, cx, cy);
    if (!m_view.GetSafeHwnd()) return;
    // The grid places itself like the other views and also sizes its columns.
    CRect client;
    GetClientRect(&client);
    m_view.Layout(client.left, client.top, client.right, client.bottom);
}

void CDockBarWatch::OnSetFocus(CWnd* pOldWnd)
{
    WatchViewPane::OnSetFocus(pOldWnd);
    if (m_watchNumb == kFixedWatchNumb) return;
    AppData* data = HostLink::QueryAppData();
    if (data && data->context) data->context->activeWatch = m_watchNumb;
}

void CDockBarWatch::OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    m_view.MeasureItem(lpMeasureItemStruct);
    CBCGPDockingControlBar::OnMeasureItem(nIDCtl, lpMeasureItemStruct);
}
