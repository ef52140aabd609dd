// A main frame window: a top-level window that a host program creates first
// and publishes as the thread's main window.
#pragma once

#include "platform/core/wnd.h"

class AFX_EXT_CLASS CFrameWnd : public CWnd {
public:
    CFrameWnd() = default;

    // rect is in screen coordinates; the frame is top level, with no parent.
    virtual BOOL Create(const char* className, const char* title, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
                        const RECT& rect = CRect(0, 0, 800, 600), CWnd* pParentWnd = nullptr);
};
