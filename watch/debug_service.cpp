#include "watch/debug_service.h"

#include "host/host_link.h"
#include "host/host_messages.h"

namespace DebugService {
namespace {

void Send(WPARAM wParam, LPARAM lParam)
{
    // The answer carries nothing: the service reports through the records.
    if (const HWND service = GetServiceWindow()) ::SendMessage(service, UWM_DEBUG_REQUEST, wParam, lParam);
}

}  // namespace

HWND GetServiceWindow()
{
    const ProjectContext* context = HostLink::QueryProjectContext();
    return context ? context->debuggerWindow : nullptr;
}

void Request(DebugRequest code, void* argument)
{
    Send(static_cast<WPARAM>(code), reinterpret_cast<LPARAM>(argument));
}

void Evaluate(const char* expression, WatchRecord* record)
{
    // An expression's address is told apart from a sub-code by being above them.
    if (!expression || reinterpret_cast<WPARAM>(expression) <= kLastDebugRequest) return;
    Send(reinterpret_cast<WPARAM>(expression), reinterpret_cast<LPARAM>(record));
}

}  // namespace DebugService
