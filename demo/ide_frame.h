// The demo IDE's main frame: docks the library's nine panes and the host's
// memory pane around a source view, keeps the open project's mark lists and
// watch list, and answers every message the library sends its host.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "demo/debugger/simulated_debugger_service.h"
#include "demo/host_transcript.h"
#include "demo/memory_pane.h"
#include "demo/project/project_settings.h"
#include "demo/sample_project.h"
#include "demo/toolchain/debug_info.h"
#include "demo/toolchain/sample_build.h"
#include "demo/views/source_view.h"
#include "host/host_records.h"
#include "marks/mark_lists.h"
#include "panes/dock_bar_book_mark.h"
#include "panes/dock_bar_brkpnt.h"
#include "panes/dock_bar_debug_message.h"
#include "panes/dock_bar_func_list.h"
#include "panes/dock_bar_message.h"
#include "panes/dock_bar_search.h"
#include "panes/dock_bar_watch.h"
#include "panes/dock_bar_workspace1.h"
#include "panes/dock_bar_workspace2.h"
#include "platform/docking/bcgp_frame_wnd.h"

class CFuncSeekItems;
class UcsimTarget;

// The panes of the frame, each created, docked and kept for its lifetime.
struct IdePanes {
    CDockBarWorkspace1 files;
    CDockBarWorkspace2 targets;
    CDockBarFuncList functions;
    CDockBarBookMark bookmarks;
    CDockBarBrkpnt breakpoints;
    CMemoryPane memory;
    CDockBarMessage build;
    CDockBarSearch search;
    CDockBarDebugMessage debug;
    CDockBarWatch watch1;
    CDockBarWatch watch2;
};

class CIdeFrame : public CBCGPFrameWnd {
public:
    explicit CIdeFrame(SampleProject& project);
    ~CIdeFrame() override;

    // Creates the frame and its panes, docks them and opens the project.
    bool CreateIde(const CRect& rect);

    const SampleProject& Project() const { return m_project; }
    // What the host does when the user opens the project: the settings kept
    // with it applied (its watch list and layout; a project opened the first
    // time gets the defaults), main.c shown at its top.
    void OpenProject(const std::optional<ProjectSettings>& settings = std::nullopt);
    // The settings to keep with the project: the first watch's list as it
    // is now and the docking regions' sizes.
    ProjectSettings Settings();
    // Shows a file of the project at a 1-based line, with its functions.
    void OpenFile(std::string_view path, int line);
    // Runs a build and shows its log: the compiler's own when SDCC is on the
    // PATH and the toolchain is in use, else the log of an earlier build kept
    // with the project.
    void Build();
    // On by default. Off, F7 never starts the compiler and debugging stays on
    // the simulated target: for callers that press keys by the thousand.
    void UseToolchain(bool on) { m_useToolchain = on; }
    // Where builds write their objects; a folder of the temporary directory
    // until set.
    void SetBuildFolder(const std::filesystem::path& folder) { m_buildFolder = folder; }
    // The user's edit of a file, given as an edited copy, and its undoing:
    // the views and the next build see the edited text.
    void EditWithVariant(const std::string& name, const std::filesystem::path& variant);
    void RevertEdit();
    void Search(std::string_view needle);
    void ShowDebugMessages();
    // The pane font the user chose: the sibling module answers it from now on
    // and every view hears that it changed.
    void SetPaneFont(const char* gbkFace, int points);
    // What F5 in a view asks for: every view shows the project afresh.
    void RefreshViews();
    // Sets a breakpoint on a line of a project file, or removes the one there.
    void ToggleBreakpoint(const std::string& path, int line);
    // Starts debugging: on ucsim's s51 with the program the last build made
    // when both are there (breakpoints from the project's list, the serial
    // port's lines in the debug pane), else on the simulated target. True
    // on the real target.
    bool StartDebugging();
    // Lets the target run one step; the watch panes show what changed.
    void RunStep();
    // The project's watch list: given to the first watch when the project
    // opens, read back from it when the project is saved.
    void RestoreWatchList(const std::vector<std::string>& expressions);
    const std::vector<std::string>& SaveWatchList();

    IdePanes panes;
    CSourceView source;
    SimulatedDebuggerService debugger;
    HostTranscript transcript;
    CBookMarkList bookmarks;
    CBreakPointList breakpoints;
    ProjectContext context;

    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool CreatePanes();
    void DockPanes();
    void FillProject();
    void AddMarks();
    void RefreshMarks();
    void ShowLineMarks();
    void SendLines(HWND view, const std::vector<MessageLineRecord>& lines);
    void AnswerGoto(const char* message, WPARAM path, LPARAM line);
    void AnswerCommand(UINT id);
    void AnswerSibling(std::string_view routine, int argument);
    void ReloadShownFile();
    void SetTargetBreakpoint(const std::string& path, int line, bool set);
    void ShowWhereTargetStopped();
    void RefreshTargetViews();

    SampleProject& m_project;
    std::filesystem::path m_buildFolder;
    bool m_useToolchain = true;
    std::optional<BuildResult> m_lastBuild;  // the last build that made a program
    std::optional<DebugInfo> m_debugInfo;    // of the program being debugged
    UcsimTarget* m_realTarget = nullptr;     // owned by the debugger's session
    AppData m_app;
    std::unique_ptr<CFuncSeekItems> m_functions;  // what the function list shows
    std::vector<std::string> m_watchList;         // the project's watch expressions
};
