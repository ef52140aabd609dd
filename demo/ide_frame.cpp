#include "demo/ide_frame.h"

#include <unistd.h>

#include <memory>

#include "funclist/func_seek_items.h"
#include "host/host_messages.h"
#include "platform/core/thread.h"
#include "platform/text/gbk.h"
#include "siblings/orv_project_misc.h"
#include "siblings/work_space_tree1.h"
#include "siblings/work_space_tree2.h"

namespace {

// Where the frame puts things: a source view wide enough for 80 columns of
// code between a project column on the left and the marks on the right.
constexpr int kLeftWidth = 220;
constexpr int kRightWidth = 300;
constexpr int kBottomHeight = 290;
// The watch's four columns want more of the bottom than the messages do.
constexpr int kBuildShare = 2;
constexpr int kWatchShare = 4;
constexpr UINT kFirstPaneId = 0xE900;
constexpr UINT kSourceViewId = 0xE8FF;

// The watch pane numbers the host gives out: the user's own watch and the
// pane that mirrors the service's list.
constexpr int kFirstWatchNumb = 1;

std::string Utf8(const char* gbk)
{
    return GbkToUtf8(gbk ? gbk : "");
}

// The group of a file's marks, added at the end of the list when it has none.
template <class List>
typename List::GroupType* GroupFor(List& list, const std::string& path)
{
    for (int i = 0; i < list.GetSize(); ++i) {
        if (std::string(list.GroupAt(i)->file) == path) return list.GroupAt(i);
    }
    auto* group = new typename List::GroupType;
    group->file = path.c_str();
    list.Add(group);
    return group;
}

// Adds a mark unless its line has one already (the group then refuses it).
template <class Item, class List>
void AddMark(List& list, const std::string& path, int line, const std::string& text, bool active = false)
{
    auto item = std::make_unique<Item>();
    item->line = line;
    std::snprintf(item->text, sizeof item->text, "%s", text.c_str());
    if constexpr (requires { item->active; }) item->active = active;
    auto* group = GroupFor(list, path);
    const int before = group->GetSize();
    group->OrdAdd(item.get());
    if (group->GetSize() > before) item.release();
}

// Line marks of one file for the source view's gutter.
template <class List, class KindOf>
void CollectLineMarks(const List& list, const std::string& path, KindOf kindOf, std::vector<LineMark>& marks)
{
    for (int i = 0; i < list.GetSize(); ++i) {
        const auto* group = list.GroupAt(i);
        if (std::string(group->file) != path) continue;
        for (int k = 0; k < group->GetSize(); ++k) marks.push_back({group->ItemAt(k)->line, kindOf(*group->ItemAt(k))});
    }
}

}  // namespace

CIdeFrame::CIdeFrame(SampleProject& project)
    : m_project(project), m_buildFolder(std::filesystem::temp_directory_path() / ("dockpanes_build_" + std::to_string(getpid())))
{
    m_app.context = &context;
    context.bookMarkList = &bookmarks;
    context.breakPointList = &breakpoints;
}

CIdeFrame::~CIdeFrame()
{
    OrvProjectMisc::SetListener({});
}

bool CIdeFrame::CreateIde(const CRect& rect)
{
    if (!Create(nullptr, GBK("dockpanes 8051 演示 - traffic").c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE, rect)) return false;
    // The views ask the thread's main window for the project from their
    // first refresh on, so the frame is that window before they exist.
    if (CWinThread* thread = AfxGetThread()) thread->m_pMainWnd = this;
    if (!source.Create(this, CRect(0, 0, 0, 0), kSourceViewId) || !CreatePanes()) return false;
    debugger.transcript = [this](const std::string& line) { transcript.Line("debugger: " + line); };
    debugger.showMemory = [this](const MemoryShowRequest& request) {
        panes.memory.View().Show(&debugger.Target(), request.space, request.address, request.size, request.expression);
        ShowTab(&panes.memory);
    };
    if (!debugger.Create(this)) return false;
    OrvProjectMisc::SetListener([this](std::string_view routine, int argument) { AnswerSibling(routine, argument); });
    context.debuggerWindow = debugger.GetSafeHwnd();
    DockPanes();
    FillProject();
    return true;
}

bool CIdeFrame::CreatePanes()
{
    struct Entry {
        CBCGPDockingControlBar* pane;
        const char* title;
    };
    const Entry entries[] = {
        {&panes.files, "文件"},        {&panes.targets, "目标"},       {&panes.functions, "函数列表"},
        {&panes.bookmarks, "书签"},    {&panes.breakpoints, "断点"},   {&panes.memory, "存储器"},
        {&panes.build, "编译"},        {&panes.search, "查找结果"},    {&panes.debug, "调试信息"},
        {&panes.watch1, "观察 1"},     {&panes.watch2, "观察 2 (调试器列表)"},
    };
    UINT id = kFirstPaneId;
    for (const Entry& entry : entries) {
        if (!entry.pane->Create(GBK(entry.title).c_str(), this, CRect(0, 0, 200, 100), id++)) return false;
    }
    panes.watch1.SetWatchNumb(kFirstWatchNumb);
    panes.watch2.SetWatchNumb(kFixedWatchNumb);
    return true;
}

void CIdeFrame::DockPanes()
{
    SetCentralView(&source);
    DockControlBar(&panes.files, DockRegion::Left);
    AttachToTabs(&panes.targets, &panes.files);
    DockControlBar(&panes.functions, DockRegion::Left);
    DockControlBar(&panes.bookmarks, DockRegion::Right);
    DockControlBar(&panes.breakpoints, DockRegion::Right);
    DockControlBar(&panes.memory, DockRegion::Right);
    DockControlBar(&panes.build, DockRegion::Bottom);
    AttachToTabs(&panes.search, &panes.build);
    AttachToTabs(&panes.debug, &panes.build);
    DockControlBar(&panes.watch1, DockRegion::Bottom);
    AttachToTabs(&panes.watch2, &panes.watch1);
    SetRegionSize(DockRegion::Left, kLeftWidth);
    SetRegionSize(DockRegion::Right, kRightWidth);
    SetRegionSize(DockRegion::Bottom, kBottomHeight);
    SetGroupShare(&panes.build, kBuildShare);
    SetGroupShare(&panes.watch1, kWatchShare);
    ShowTab(&panes.files);
    ShowTab(&panes.build);
    ShowTab(&panes.watch1);
    RecalcLayout();
}

void CIdeFrame::FillProject()
{
    panes.files.GetPageCtrl()->SetGroups(SampleProject::kFolder, m_project.Groups());
    panes.targets.GetPageCtrl()->SetTargets(m_project.Targets());
    AddMarks();
    RefreshMarks();
}

// The marks a user left in the project, found by the lines' text so that
// they stay on their statements when the sample changes.
void CIdeFrame::AddMarks()
{
    const struct {
        const char* file;
        const char* at;
        bool breakpoint;
        bool active;
    } marks[] = {
        {"main.c", "void main", false, false},
        {"main.c", "timer0_init();", true, true},
        {"main.c", "temperature += DRIFT", true, false},
        {"lights.c", "static void next_phase", false, false},
        {"timer0.c", "__interrupt", false, false},
        {"timer0.c", "TH0 = RELOAD_HIGH", true, true},
        {"uart.c", "SBUF = c", false, false},
    };
    for (const auto& mark : marks) {
        const int line = m_project.LineOf(mark.file, mark.at);
        if (line == 0) continue;
        const std::string path = SampleProject::kFolder + std::string(mark.file);
        const std::string text = m_project.LineText(mark.file, line);
        if (mark.breakpoint) {
            AddMark<CBreakPointItem>(breakpoints, path, line, text, mark.active);
        } else {
            AddMark<CBookMarkItem>(bookmarks, path, line, text);
        }
    }
}

void CIdeFrame::RefreshMarks()
{
    ::SendMessage(panes.bookmarks.GetViewHwnd(), UWM_REFRESH_VIEW, 0, 0);
    ::SendMessage(panes.breakpoints.GetViewHwnd(), UWM_REFRESH_VIEW, 0, 0);
    ShowLineMarks();
}

void CIdeFrame::ShowLineMarks()
{
    std::vector<LineMark> marks;
    CollectLineMarks(bookmarks, source.Path(), [](const CBookMarkItem&) { return LineMark::Bookmark; }, marks);
    CollectLineMarks(breakpoints, source.Path(),
                     [](const CBreakPointItem& item) { return item.active ? LineMark::BreakpointOn : LineMark::BreakpointOff; },
                     marks);
    source.SetLineMarks(std::move(marks));
}

void CIdeFrame::OpenProject(const std::optional<ProjectSettings>& settings)
{
    if (settings) {
        RestoreWatchList(settings->watch);
        for (const auto& [name, pixels] : settings->regions) {
            if (name == "left") SetRegionSize(DockRegion::Left, pixels);
            if (name == "right") SetRegionSize(DockRegion::Right, pixels);
            if (name == "bottom") SetRegionSize(DockRegion::Bottom, pixels);
        }
    } else {
        RestoreWatchList({"phase", "ticks", "temperature", "cfg", "lights", "mode", "cursor", "total", "red", "timings"});
    }
    OpenFile(SampleProject::kFolder + std::string("main.c"), 1);
}

ProjectSettings CIdeFrame::Settings()
{
    ProjectSettings settings;
    settings.watch = SaveWatchList();
    settings.regions = {{"left", GetRegionSize(DockRegion::Left)},
                        {"right", GetRegionSize(DockRegion::Right)},
                        {"bottom", GetRegionSize(DockRegion::Bottom)}};
    return settings;
}

void CIdeFrame::OpenFile(std::string_view path, int line)
{
    const SourceFile* file = m_project.FileAt(path);
    if (!file) {
        transcript.Line("   (not a file of the project: nothing opens)");
        return;
    }
    const std::string fullPath(path);
    if (source.Path() != fullPath) {
        source.ShowFile(fullPath, file->text);
        ShowLineMarks();
        // The view keeps showing the old list until it has the new one.
        auto functions = m_project.Functions(fullPath);
        ::SendMessage(panes.functions.GetViewHwnd(), UWM_FUNCLIST_SHOW_FILE, reinterpret_cast<WPARAM>(fullPath.c_str()),
                      reinterpret_cast<LPARAM>(functions.get()));
        m_functions = std::move(functions);
    }
    source.GoToLine(line);
    ::SendMessage(panes.functions.GetViewHwnd(), UWM_FUNCLIST_SEEK_LINE, static_cast<WPARAM>(line), 0);
}

void CIdeFrame::ToggleBreakpoint(const std::string& path, int line)
{
    const SourceFile* file = m_project.FileAt(path);
    if (!file || line < 1) return;
    CBreakPointItems* group = GroupFor(breakpoints, path);
    for (int i = 0; i < group->GetSize(); ++i) {
        if (group->ItemAt(i)->line != line) continue;
        SetTargetBreakpoint(path, line, false);
        delete group->ItemAt(i);
        group->RemoveAt(i);
        RefreshMarks();
        return;
    }
    AddMark<CBreakPointItem>(breakpoints, path, line, m_project.LineText(file->name, line), true);
    SetTargetBreakpoint(path, line, true);
    RefreshMarks();
}

void CIdeFrame::SetPaneFont(const char* gbkFace, int points)
{
    OrvProjectMisc::SetDockFont(gbkFace, points);
    for (HWND view : {panes.bookmarks.GetViewHwnd(), panes.breakpoints.GetViewHwnd(), panes.functions.GetViewHwnd(),
                      panes.build.GetViewHwnd(), panes.search.GetViewHwnd(), panes.debug.GetViewHwnd()}) {
        ::SendMessage(view, UWM_DOCK_FONT_CHANGED, 0, 0);
    }
}

void CIdeFrame::RefreshViews()
{
    RefreshMarks();
    RefreshTargetViews();
}

// What shows the target's memory: both watches and the memory view.
void CIdeFrame::RefreshTargetViews()
{
    ::SendMessage(panes.watch1.GetViewHwnd(), UWM_WATCH_REFRESH, 0, 0);
    ::SendMessage(panes.watch2.GetViewHwnd(), UWM_WATCH_REFRESH, 0, 0);
    panes.memory.View().Refresh();
}

void CIdeFrame::RestoreWatchList(const std::vector<std::string>& expressions)
{
    m_watchList = expressions;
    CStringArray list;
    for (const std::string& expression : expressions) list.Add(expression.c_str());
    ::SendMessage(panes.watch1.GetViewHwnd(), UWM_WATCH_EXPRESSIONS, reinterpret_cast<WPARAM>(&list), FALSE);
}

const std::vector<std::string>& CIdeFrame::SaveWatchList()
{
    CStringArray list;
    ::SendMessage(panes.watch1.GetViewHwnd(), UWM_WATCH_EXPRESSIONS, reinterpret_cast<WPARAM>(&list), TRUE);
    m_watchList.clear();
    for (int i = 0; i < list.GetSize(); ++i) m_watchList.emplace_back(list.GetAt(i));
    return m_watchList;
}

// The first line of a run replaces what the view showed; the rest append.
void CIdeFrame::SendLines(HWND view, const std::vector<MessageLineRecord>& lines)
{
    bool first = true;
    for (const MessageLineRecord& line : lines) {
        ::SendMessage(view, UWM_MSGVIEW_APPEND, first ? 0 : 1, reinterpret_cast<LPARAM>(&line));
        first = false;
    }
}

void CIdeFrame::AnswerGoto(const char* message, WPARAM path, LPARAM line)
{
    const char* file = reinterpret_cast<const char*>(path);
    transcript.Received(message, "file " + Utf8(file) + ", line " + std::to_string(line));
    if (file) OpenFile(file, static_cast<int>(line));
}

void CIdeFrame::AnswerCommand(UINT id)
{
    if (id == ID_HOST_CLEAR_ALL_BOOKMARKS) {
        transcript.Received("WM_COMMAND", std::to_string(id) + " (clear all bookmarks)");
        bookmarks.ReleaseAllItems();
        RefreshMarks();
    } else if (id == ID_HOST_CLEAR_ALL_BREAKPOINTS) {
        transcript.Received("WM_COMMAND", std::to_string(id) + " (clear all breakpoints)");
        breakpoints.ReleaseAllItems();
        RefreshMarks();
    }
}

// The sibling module's stop and refresh routines, which the views call for
// Esc, the stop command and F5.
void CIdeFrame::AnswerSibling(std::string_view routine, int argument)
{
    transcript.Received("sibling " + std::string(routine), "(" + std::to_string(argument) + ")");
    if (routine == "KeyF5RefreshWnd") RefreshViews();
}

// The frame's keys, as an IDE binds them: F7 builds, F9 in the source view
// sets or removes a breakpoint on the caret line.
BOOL CIdeFrame::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_F7) {
        Build();
        return TRUE;
    }
    if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_F9 && pMsg->hwnd == source.GetSafeHwnd()) {
        ToggleBreakpoint(source.Path(), source.CaretLine());
        return TRUE;
    }
    return CBCGPFrameWnd::PreTranslateMessage(pMsg);
}

LRESULT CIdeFrame::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case UWM_GET_APP_DATA:
        transcript.Received("UWM_GET_APP_DATA", "-> AppData");
        if (lParam) *reinterpret_cast<AppData**>(lParam) = &m_app;
        return 0;
    case UWM_GET_PROJECT_PATH:
        transcript.Received("UWM_GET_PROJECT_PATH", std::string("-> ") + SampleProject::kProjectFile);
        if (wParam) std::snprintf(reinterpret_cast<char*>(wParam), kPathBytes, "%s", SampleProject::kProjectFile);
        return 0;
    case UWM_GOTO_SOURCE:
        AnswerGoto("UWM_GOTO_SOURCE", wParam, lParam);
        return 0;
    case UWM_FUNCLIST_SELECTED:
        AnswerGoto("UWM_FUNCLIST_SELECTED", wParam, lParam);
        return 0;
    case UWM_MSGVIEW_GOTO:
        AnswerGoto("UWM_MSGVIEW_GOTO", wParam, lParam);
        return 0;
    case UWM_WORKSPACE_OPEN_FILE:
        AnswerGoto("UWM_WORKSPACE_OPEN_FILE", wParam, 1);
        return 0;
    case WM_COMMAND:
        if (LOWORD(wParam) == ID_HOST_CLEAR_ALL_BOOKMARKS || LOWORD(wParam) == ID_HOST_CLEAR_ALL_BREAKPOINTS) {
            AnswerCommand(LOWORD(wParam));
            return 0;
        }
        break;
    default:
        break;
    }
    return CBCGPFrameWnd::WindowProc(message, wParam, lParam);
}
