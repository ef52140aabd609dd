#include "demo/debugger/simulated_debugger_service.h"

#include "demo/debugger/simulated_target.h"
#include "demo/debugger/traffic_symbols.h"

BEGIN_MESSAGE_MAP(SimulatedDebuggerService, CWnd)
    ON_MESSAGE(UWM_DEBUG_REQUEST, &SimulatedDebuggerService::OnDebugRequest)
END_MESSAGE_MAP()

SimulatedDebuggerService::SimulatedDebuggerService()
    : SimulatedDebuggerService(std::make_unique<SimulatedTarget>(), Traffic::Symbols(), {"phase", "ticks", "cfg"})
{
}

SimulatedDebuggerService::SimulatedDebuggerService(std::unique_ptr<DebugTarget> target, SymbolTable symbols,
                                                   const std::vector<std::string>& listNames)
    : m_session(std::move(target), std::move(symbols), listNames)
{
}

SimulatedDebuggerService::~SimulatedDebuggerService()
{
    if (GetSafeHwnd()) DestroyWindow();
}

BOOL SimulatedDebuggerService::Create(CWnd* parent)
{
    const DWORD style = parent ? WS_CHILD : 0;
    return CreateEx(0, nullptr, "debugger", style, CRect(0, 0, 0, 0), parent, 0);
}

void SimulatedDebuggerService::UseTarget(std::unique_ptr<DebugTarget> target, SymbolTable symbols,
                                         const std::vector<std::string>& listNames)
{
    m_session = DebugSession(std::move(target), std::move(symbols), listNames);
}

void SimulatedDebuggerService::Step()
{
    Note(m_session.Step());
}

LRESULT SimulatedDebuggerService::OnDebugRequest(WPARAM wParam, LPARAM lParam)
{
    // Every request carries its argument by address; without one there is
    // nothing to answer into.
    if (lParam == 0) {
        Note(wParam > kLastDebugRequest ? "evaluate without a record: ignored"
                                        : "request " + std::to_string(wParam) + " without an argument: ignored");
        return 0;
    }
    Note(Answer(wParam, reinterpret_cast<void*>(lParam)));
    return 0;
}

std::string SimulatedDebuggerService::Answer(WPARAM code, void* argument)
{
    auto* record = static_cast<WatchRecord*>(argument);
    if (code > kLastDebugRequest) return m_session.Evaluate(reinterpret_cast<const char*>(code), *record);
    switch (code) {
    case DRQ_WRITE_VALUE:
        return m_session.WriteValue(*record);
    case DRQ_GET_COUNT:
        return m_session.GetCount(*record);
    case DRQ_GET_MEMBER:
        return m_session.GetMember(*record);
    case DRQ_READ_VALUE:
        return m_session.ReadValue(*record);
    case DRQ_GET_LIST_SIZE:
        return m_session.GetListSize(*static_cast<std::int32_t*>(argument));
    case DRQ_GET_LIST:
        return m_session.GetList(static_cast<WatchListEntry*>(argument));
    case DRQ_SHOW_MEMORY:
        return m_session.ShowMemory(static_cast<const char*>(argument), showMemory);
    case DRQ_GET_ELEMENTS:
        return m_session.GetElements(*static_cast<ElementBlock*>(argument));
    default:
        return "request " + std::to_string(code) + ": unknown, ignored";
    }
}

void SimulatedDebuggerService::Note(const std::string& line) const
{
    if (transcript) transcript(line);
}
