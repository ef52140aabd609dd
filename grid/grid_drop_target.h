// The grid's drop target: forwards the drag events over a watch grid to its
// own drag handlers, which decide everything; over any other window it keeps
// the default answers, which refuse the drop.
#pragma once

#include "platform/ole/ole_drop_target.h"

class AFX_EXT_CLASS CGridDropTarget : public COleDropTarget {
public:
    DROPEFFECT OnDragEnter(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState, CPoint point) override;
    DROPEFFECT OnDragOver(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState, CPoint point) override;
    BOOL OnDrop(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropEffect, CPoint point) override;
    DROPEFFECT OnDropEx(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropDefault, DROPEFFECT dropList,
                        CPoint point) override;
    void OnDragLeave(CWnd* pWnd) override;
};
