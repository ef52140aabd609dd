// Device contexts for windows: CPaintDC inside WM_PAINT (clipped to the
// invalid area, which it validates), CClientDC anywhere else (the whole
// client area). Both draw straight into the pixels of the window's top-level
// surface.
#pragma once

#include "platform/core/wnd.h"
#include "platform/gdi/dc.h"

struct PAINTSTRUCT {
    HDC hdc = nullptr;
    BOOL fErase = FALSE;
    RECT rcPaint{};
};

// Begins painting: the DC is clipped to the invalid area (client
// coordinates in rcPaint), the background is erased when needed, and the area
// counts as valid from now on. The caller keeps the DC alive until EndPaint.
AFX_API CDC* BeginPaint(HWND hwnd, CDC& dc, PAINTSTRUCT* ps);
AFX_API void EndPaint(HWND hwnd, const PAINTSTRUCT* ps);

class AFX_EXT_CLASS CPaintDC : public CDC {
public:
    explicit CPaintDC(CWnd* wnd);
    ~CPaintDC() override;
    PAINTSTRUCT m_ps;

private:
    HWND m_hWnd;
};

class AFX_EXT_CLASS CClientDC : public CDC {
public:
    explicit CClientDC(CWnd* wnd);
};

// The whole window, frame included: (0, 0) is the window's top-left corner.
class AFX_EXT_CLASS CWindowDC : public CDC {
public:
    explicit CWindowDC(HWND hwnd);
};
