// The IDE frame's debugging: the program the last build made, loaded into
// ucsim's s51 behind the debugger service, its breakpoints from the
// project's list, and where each run stops.
#include "demo/ide_frame.h"

#include <cstdio>

#include "demo/debugger/ucsim/ucsim_target.h"
#include "demo/toolchain/cdb_reader.h"
#include "demo/toolchain/debug_symbols.h"
#include "demo/toolchain/message_line.h"
#include "demo/toolchain/process_run.h"
#include "host/host_messages.h"
#include "platform/text/gbk.h"

bool CIdeFrame::StartDebugging()
{
    const auto simulated = [this](const char* why) {
        transcript.Line(std::string("   (") + why + ": debugging the simulated target)");
        ShowDebugMessages();
        return false;
    };
    std::optional<DebugInfo> info = m_useToolchain && m_lastBuild ? LoadDebugInfo(m_lastBuild->cdb) : std::nullopt;
    if (!FindOnPath("s51") || !info) return simulated("no program built by SDCC or no s51");
    UcsimLaunch launch;
    launch.program = m_lastBuild->ihx.string();
    auto process = std::make_unique<UcsimProcess>(launch);
    if (!process->Alive()) return simulated("s51 did not start");
    UcsimTarget::Options options;
    // One step of the program is one pass of its main loop.
    if (const DebugFunction* pass = info->FindFunction("lights_pass")) options.stepBreakpoint = pass->start;
    options.uartLine = [this](const std::string& line) {
        const MessageLineRecord record = MessageLine(1, GBK("串口: ") + line);
        ::SendMessage(panes.debug.GetViewHwnd(), UWM_MSGVIEW_APPEND, 1, reinterpret_cast<LPARAM>(&record));
    };
    auto target = std::make_unique<UcsimTarget>(std::move(process), std::move(options));
    m_realTarget = target.get();
    m_debugInfo = std::move(info);
    debugger.UseTarget(std::move(target), SymbolsFromDebugInfo(*m_debugInfo), {"phase", "ticks", "cfg"});
    const MessageLineRecord loaded = MessageLine(0, GBK("装入 ") + m_lastBuild->ihx.filename().string() + GBK(" 到 s51"));
    ::SendMessage(panes.debug.GetViewHwnd(), UWM_MSGVIEW_APPEND, 0, reinterpret_cast<LPARAM>(&loaded));
    for (int i = 0; i < breakpoints.GetSize(); ++i) {
        const CBreakPointItems* group = breakpoints.GroupAt(i);
        for (int k = 0; k < group->GetSize(); ++k) {
            if (group->ItemAt(k)->active) SetTargetBreakpoint(std::string(group->file), group->ItemAt(k)->line, true);
        }
    }
    transcript.Line("   (debugging the sample on s51)");
    RefreshTargetViews();
    return true;
}

void CIdeFrame::SetTargetBreakpoint(const std::string& path, int line, bool set)
{
    const SourceFile* file = m_project.FileAt(path);
    if (!m_realTarget || !m_debugInfo || !file) return;
    const std::optional<std::uint32_t> address = m_debugInfo->lines.AddressOf(file->name, line);
    if (!address) return;
    const bool done = set ? m_realTarget->SetBreakpoint(*address) : m_realTarget->ClearBreakpoint(*address);
    char text[80];
    std::snprintf(text, sizeof text, "   (s51: breakpoint %s at 0x%04X, %s(%d): %s)", set ? "set" : "cleared", *address,
                  file->name.c_str(), line, done ? "done" : "refused");
    transcript.Line(text);
}

// Like an IDE after a stop: the source view shows the line about to run.
void CIdeFrame::ShowWhereTargetStopped()
{
    if (!m_realTarget || !m_debugInfo) return;
    const std::optional<std::uint32_t> pc = m_realTarget->ProgramCounter();
    const LineEntry* where = pc ? m_debugInfo->lines.LineAt(*pc) : nullptr;
    if (!where) return;
    transcript.Line("   (s51 stopped at " + where->file + "(" + std::to_string(where->line) + "))");
    OpenFile(SampleProject::kFolder + where->file, where->line);
}

void CIdeFrame::RunStep()
{
    debugger.Step();
    ShowWhereTargetStopped();
    RefreshTargetViews();
}
