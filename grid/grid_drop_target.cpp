#include "grid/grid_drop_target.h"

#include "watch/watch_grid_ctrl.h"

namespace {

// The watch grid the event concerns, by run-time class; null for any other window.
CWatchGridCtrl* WatchGridOf(CWnd* pWnd)
{
    return pWnd && pWnd->IsKindOf(RUNTIME_CLASS(CWatchGridCtrl)) ? static_cast<CWatchGridCtrl*>(pWnd) : nullptr;
}

}  // namespace

DROPEFFECT CGridDropTarget::OnDragEnter(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState, CPoint point)
{
    if (CWatchGridCtrl* grid = WatchGridOf(pWnd)) return grid->OnDragEnter(pWnd, pDataObject, dwKeyState, point);
    return COleDropTarget::OnDragEnter(pWnd, pDataObject, dwKeyState, point);
}

DROPEFFECT CGridDropTarget::OnDragOver(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState, CPoint point)
{
    if (CWatchGridCtrl* grid = WatchGridOf(pWnd)) return grid->OnDragOver(pWnd, pDataObject, dwKeyState, point);
    return COleDropTarget::OnDragOver(pWnd, pDataObject, dwKeyState, point);
}

BOOL CGridDropTarget::OnDrop(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropEffect, CPoint point)
{
    return COleDropTarget::OnDrop(pWnd, pDataObject, dropEffect, point);
}

DROPEFFECT CGridDropTarget::OnDropEx(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropDefault,
                                     DROPEFFECT dropList, CPoint point)
{
    if (CWatchGridCtrl* grid = WatchGridOf(pWnd)) return grid->OnDropEx(pWnd, pDataObject, dropDefault, dropList, point);
    return COleDropTarget::OnDropEx(pWnd, pDataObject, dropDefault, dropList, point);
}

void CGridDropTarget::OnDragLeave(CWnd* pWnd)
{
    if (CWatchGridCtrl* grid = WatchGridOf(pWnd)) grid->OnDragLeave(pWnd);
    COleDropTarget::OnDragLeave(pWnd);
}
