#include "host/host_link.h"

#include <cstring>

#include "platform/core/thread.h"
#include "platform/shell/path.h"

namespace HostLink {

HWND MainWindow()
{
    CWinThread* thread = AfxGetThread();
    CWnd* main = thread ? thread->GetMainWnd() : nullptr;
    return main ? main->GetSafeHwnd() : nullptr;
}

LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND main = MainWindow();
    return main ? ::SendMessage(main, message, wParam, lParam) : 0;
}

AppData* QueryAppData()
{
    AppData* data = nullptr;
    Send(UWM_GET_APP_DATA, 0, reinterpret_cast<LPARAM>(&data));
    return data;
}

ProjectContext* QueryProjectContext()
{
    AppData* data = QueryAppData();
    return data ? data->context : nullptr;
}

void QueryProjectDirectory(char* directory)
{
    directory[0] = '\0';
    Send(UWM_GET_PROJECT_PATH, reinterpret_cast<WPARAM>(directory), 0);
    directory[kPathBytes - 1] = '\0';  // a host that overfills gets cut, not overrun
    PathRemoveFileSpec(directory);
}

void GotoSource(const char* file, int line)
{
    Send(UWM_GOTO_SOURCE, reinterpret_cast<WPARAM>(file), static_cast<LPARAM>(line));
}

void SendCommand(UINT id)
{
    Send(WM_COMMAND, id, 0);
}

}  // namespace HostLink
