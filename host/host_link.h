// How any part of the library reaches the host: through the current thread's
// main window, with synchronous messages.
#pragma once

#include "host/host_messages.h"
#include "host/host_records.h"
#include "platform/core/wnd.h"

namespace HostLink {

// The host's main frame window, or null when there is none.
HWND MainWindow();
// Sends a message to the main frame; 0 when there is no main frame.
LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
// UWM_GET_APP_DATA: the host's record, or null when it does not answer.
AppData* QueryAppData();
// The project context, or null anywhere on the way.
ProjectContext* QueryProjectContext();
// UWM_GET_PROJECT_PATH into a kPathBytes buffer, then the last component
// removed: the project directory. A host that does not answer leaves "".
void QueryProjectDirectory(char* directory);
// UWM_GOTO_SOURCE with a file path and a line.
void GotoSource(const char* file, int line);
// WM_COMMAND with a command id and lParam 0.
void SendCommand(UINT id);

}  // namespace HostLink
