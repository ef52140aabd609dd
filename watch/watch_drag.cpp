// The watch grid's side of drag and drop.
#include "watch/watch_grid_ctrl.h"

DROPEFFECT CWatchGridCtrl::OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint)
{
    return 0;
}

DROPEFFECT CWatchGridCtrl::OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint)
{
    return 0;
}

DROPEFFECT CWatchGridCtrl::OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT, CPoint)
{
    return 0;
}

void CWatchGridCtrl::OnDragLeave(CWnd*) {}
