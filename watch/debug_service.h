// How the watch reaches the host's debugger service: the service window is
// looked up afresh before every request, through the host's records, since a
// project (and its debugger) may come and go between two requests. Without a
// service window a request goes nowhere and what it carries is left as it was.
#pragma once

#include "platform/core/win_types.h"
#include "watch/debug_protocol.h"

namespace DebugService {

// The debugger window of the host's project context, or null when there is no
// host data, no context, or no window in it.
HWND GetServiceWindow();

// UWM_DEBUG_REQUEST with a sub-code and what it carries.
void Request(DebugRequest code, void* argument);
// UWM_DEBUG_REQUEST evaluating a zero-terminated expression into a record.
void Evaluate(const char* expression, WatchRecord* record);

}  // namespace DebugService
