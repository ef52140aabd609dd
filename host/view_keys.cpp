#include "host/view_keys.h"

#include "siblings/orv_project_misc.h"

bool TakeStopOrRefreshKey(const MSG* pMsg, std::int32_t menuLoop)
{
    if (menuLoop || !pMsg || pMsg->message != WM_KEYDOWN) return false;
    if (pMsg->wParam == VK_ESCAPE) {
        CleanTerminate(1);
        return true;
    }
    if (pMsg->wParam == VK_F5) {
        KeyF5RefreshWnd();
        return true;
    }
    return false;
}

void TrackMenuLoop(UINT message, std::int32_t& menuLoop)
{
    if (message == WM_ENTERMENULOOP) menuLoop = 1;
    if (message == WM_EXITMENULOOP) menuLoop = 0;
}
