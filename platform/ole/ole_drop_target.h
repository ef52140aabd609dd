// COleDropTarget: what a window does when data is dragged over it. Register
// it for a window; the drag loop then calls it while the mouse is over that
// window or a child without a target of its own. Points are in the client
// coordinates of the registered window, key states MK_* bits (MK_ALT too).
#pragma once

#include <cstdint>

#include "platform/core/cmd_target.h"
#include "platform/ole/ole_data_object.h"
#include "platform/ole/ole_types.h"

class CWnd;

class AFX_EXT_CLASS COleDropTarget : public CCmdTarget {
    DECLARE_DYNAMIC(COleDropTarget)

    COleDropTarget() = default;
    // Revokes the registration.
    ~COleDropTarget() override;
    COleDropTarget(const COleDropTarget&) = delete;
    COleDropTarget& operator=(const COleDropTarget&) = delete;

    // One target per window and one window per target: registering again
    // moves the target, and a window's new target replaces its old one
    // (which is then registered nowhere). A window's registration goes away
    // with the window. FALSE for a null or destroyed window.
    BOOL Register(CWnd* pWnd);
    virtual void Revoke();

    // The drag enters the window: the effect a drop here would have.
    virtual DROPEFFECT OnDragEnter(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState, CPoint point);
    // The drag moves over the window, or its key state changes.
    virtual DROPEFFECT OnDragOver(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState, CPoint point);
    // Asked before OnDragOver; an answer other than DROPEFFECT_NONE (the
    // window scrolled) stands for OnDragOver's.
    virtual DROPEFFECT OnDragScroll(CWnd* pWnd, DWORD dwKeyState, CPoint point);
    // The drag left the window, or was cancelled over it.
    virtual void OnDragLeave(CWnd* pWnd);
    // The drop, asked first; (DROPEFFECT)-1 means not handled, and OnDrop is
    // asked next.
    virtual DROPEFFECT OnDropEx(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropDefault, DROPEFFECT dropList,
                                CPoint point);
    // The drop with the effect last answered; TRUE when the data was taken.
    virtual BOOL OnDrop(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropEffect, CPoint point);

protected:
    HWND m_hWnd = nullptr;  // the window registered for; null when none

private:
    friend struct DropTargetRegistry;
};

// The target registered for exactly this window (not its parents); null for
// none or a destroyed window.
AFX_API COleDropTarget* DropTargetOf(HWND hwnd);
// A number for the window's current registration, different for each
// Register call; 0 for none. Tells a drag whether the target it entered is
// still the one there.
AFX_API std::uint64_t DropTargetRegistration(HWND hwnd);
