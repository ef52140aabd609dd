// The docking library's base of every bar: a child window of a frame whose
// client area its user fills. Docking regions are the frame's business; the
// bar itself only creates, sizes and paints as a plain child.
#pragma once

#include "platform/core/wnd.h"

class AFX_EXT_CLASS CBCGPBaseControlBar : public CWnd {
    DECLARE_DYNAMIC(CBCGPBaseControlBar)

    CBCGPBaseControlBar();
    ~CBCGPBaseControlBar() override;

    // Creates the bar as a visible child of the frame; rect is in the frame's
    // client coordinates.
    virtual BOOL Create(const char* title, CWnd* pParentWnd, const CRect& rect, UINT nID,
                        DWORD dwStyle = WS_CHILD | WS_VISIBLE);

    // The size the bar had at its last WM_SIZE; (0, 0) before any.
    CSize GetLastSize() const { return m_lastSize; }

protected:
    DECLARE_MESSAGE_MAP()
    void OnSize(UINT nType, int cx, int cy);

private:
    CSize m_lastSize{0, 0};
};
