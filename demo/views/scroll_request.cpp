#include "demo/views/scroll_request.h"

#include <climits>

int RequestedScroll(HWND hwnd, UINT message, WPARAM wParam, int current, int step, int page)
{
    switch (LOWORD(wParam)) {
    case SB_LINEUP: return current - step;
    case SB_LINEDOWN: return current + step;
    case SB_PAGEUP: return current - page;
    case SB_PAGEDOWN: return current + page;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: return ScrollRequestPosition(hwnd, message, wParam);
    case SB_TOP: return 0;
    case SB_BOTTOM: return INT_MAX;
    default: return current;
    }
}
