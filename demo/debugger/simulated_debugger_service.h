// The demo host's debugger service: a hidden window that answers the
// watch's UWM_DEBUG_REQUEST over a target and a program's symbols. By
// default the target is the simulated one running the sample traffic-light
// program. The host puts GetSafeHwnd() into ProjectContext::debuggerWindow
// and calls Step() when the user runs the program.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "demo/debugger/debug_session.h"
#include "platform/core/wnd.h"

class SimulatedDebuggerService : public CWnd {
public:
    // The sample program on the simulated target; its list watches phase,
    // ticks and cfg.
    SimulatedDebuggerService();
    // Another target with its program's symbols and the names of its list.
    SimulatedDebuggerService(std::unique_ptr<DebugTarget> target, SymbolTable symbols, const std::vector<std::string>& listNames);
    ~SimulatedDebuggerService() override;

    using CWnd::Create;
    // Hidden: a child of parent, or a window of its own without one.
    BOOL Create(CWnd* parent);

    // Lets the target run one step; the watch's next refresh shows what changed.
    void Step();
    // Puts another target and its program's symbols behind the service
    // (a real simulator once a build has made a program to load).
    void UseTarget(std::unique_ptr<DebugTarget> target, SymbolTable symbols, const std::vector<std::string>& listNames);

    // The object the watch last asked the memory view to show (GBK).
    const std::string& MemoryViewShows() const { return m_session.MemoryViewShows(); }
    // The target whose bytes a memory view reads.
    DebugTarget& Target() { return m_session.Target(); }

    // Told one line (UTF-8) for each request answered and each step.
    std::function<void(const std::string& utf8)> transcript;
    // Told where the object is when the watch asks the memory view to show
    // one whose text evaluates.
    std::function<void(const MemoryShowRequest&)> showMemory;

protected:
    DECLARE_MESSAGE_MAP()
    LRESULT OnDebugRequest(WPARAM wParam, LPARAM lParam);

private:
    std::string Answer(WPARAM code, void* argument);
    void Note(const std::string& line) const;

    DebugSession m_session;
};
