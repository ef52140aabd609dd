#include "platform/docking/frame_wnd.h"

BOOL CFrameWnd::Create(const char* className, const char* title, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd)
{
    return CreateEx(0, className, title, dwStyle & ~WS_CHILD, rect, pParentWnd, 0);
}
