// The demo host: an IDE main frame in miniature. It loads the panes module,
// docks its views and a grid over a sample 8051 project, plays a
// short scripted session through the input layer, and writes what a user
// would have seen (PNG) and what the host was asked (a transcript).
//
//   demohost <output folder>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "demo_pane.h"
#include "demo_watch_session.h"
#include "demo/debugger/simulated_debugger_service.h"
#include "host/host_messages.h"
#include "host/host_records.h"
#include "marks/bookmark_tree_ctrl.h"
#include "marks/breakpoint_tree_ctrl.h"
#include "funclist/func_list_tree_ctrl.h"
#include "output/message_edit_ctrl.h"
#include "platform/core/module.h"
#include "platform/core/paint.h"
#include "platform/core/paint_dc.h"
#include "platform/core/window_frame.h"
#include "platform/core/thread.h"
#include "platform/docking/frame_wnd.h"
#include "platform/gdi/sys_color.h"
#include "platform/input/input.h"
#include "platform/menu/menu_driver.h"
#include "platform/text/gbk.h"
#include "siblings/orv_project_misc.h"

namespace {

constexpr const char* kProjectPath = "C:\\8051\\traffic\\traffic.prj";
constexpr const char* kProjectDir = "C:\\8051\\traffic\\";

// The host's main frame: owns the project's mark lists and answers the panes.
class DemoHost : public CFrameWnd {
public:
    DemoHost()
    {
        m_app.context = &m_context;
        m_context.bookMarkList = &bookmarks;
        m_context.breakPointList = &breakpoints;
    }

    CBookMarkList bookmarks;
    CBreakPointList breakpoints;
    SimulatedDebuggerService debugger;
    std::ostringstream transcript;

    void Note(const std::string& utf8) { transcript << "-- " << utf8 << "\n"; }
    // The debugger's window becomes the project's debugger service.
    void AttachDebugger() { m_context.debuggerWindow = debugger.GetSafeHwnd(); }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message) {
        case UWM_GET_APP_DATA:
            transcript << "UWM_GET_APP_DATA       -> AppData\n";
            if (lParam) *reinterpret_cast<AppData**>(lParam) = &m_app;
            return 0;
        case UWM_GET_PROJECT_PATH:
            transcript << "UWM_GET_PROJECT_PATH   -> " << kProjectPath << "\n";
            if (wParam) std::snprintf(reinterpret_cast<char*>(wParam), kPathBytes, "%s", kProjectPath);
            return 0;
        case UWM_GOTO_SOURCE:
            transcript << "UWM_GOTO_SOURCE        file " << GbkToUtf8(reinterpret_cast<const char*>(wParam)) << ", line " << lParam << "\n";
            return 0;
        case UWM_FUNCLIST_SELECTED:
            transcript << "UWM_FUNCLIST_SELECTED  file " << GbkToUtf8(reinterpret_cast<const char*>(wParam)) << ", line " << lParam << "\n";
            return 0;
        case UWM_MSGVIEW_GOTO:
            transcript << "UWM_MSGVIEW_GOTO       file " << GbkToUtf8(reinterpret_cast<const char*>(wParam)) << ", line " << lParam << "\n";
            return 0;
        case WM_COMMAND:
            transcript << "WM_COMMAND             " << LOWORD(wParam) << (LOWORD(wParam) == ID_HOST_CLEAR_ALL_BREAKPOINTS ? " (clear all breakpoints)" : LOWORD(wParam) == ID_HOST_CLEAR_ALL_BOOKMARKS ? " (clear all bookmarks)" : "") << "\n";
            return 0;
        default:
            return CFrameWnd::WindowProc(message, wParam, lParam);
        }
    }

private:
    AppData m_app;
    ProjectContext m_context;
};

template <class Group>
Group* AddFile(CPtrArray& list, const char* utf8Name)
{
    auto* group = new Group;
    group->file = GBK(std::string(kProjectDir) + utf8Name).c_str();
    list.Add(group);
    return group;
}

template <class Item, class Group>
Item* AddMark(Group* group, int line, const char* utf8Text, int active = 0)
{
    auto* item = new Item;
    item->line = line;
    std::snprintf(item->text, sizeof item->text, "%s", GBK(utf8Text).c_str());
    if constexpr (requires { item->active; }) item->active = active;
    group->OrdAdd(item);
    return item;
}

void FillSampleProject(DemoHost& host)
{
    auto* main = AddFile<CBookMarkItems>(host.bookmarks, "main.c");
    AddMark<CBookMarkItem>(main, 12, "void main(void)");
    AddMark<CBookMarkItem>(main, 27, "    P1 = LIGHT_RED;       /* 红灯 */");
    auto* timer = AddFile<CBookMarkItems>(host.bookmarks, "drivers\\timer0.c");
    AddMark<CBookMarkItem>(timer, 8, "void timer0_isr(void) interrupt 1");
    auto* uart = AddFile<CBookMarkItems>(host.bookmarks, "串口\\uart.c");
    AddMark<CBookMarkItem>(uart, 41, "    SBUF = ch;            // 发送一个字节");

    auto* mainBp = AddFile<CBreakPointItems>(host.breakpoints, "main.c");
    AddMark<CBreakPointItem>(mainBp, 19, "    init_timer0();", 1);
    AddMark<CBreakPointItem>(mainBp, 33, "    if (count == 0) phase++;", 0);
    auto* timerBp = AddFile<CBreakPointItems>(host.breakpoints, "drivers\\timer0.c");
    AddMark<CBreakPointItem>(timerBp, 10, "    TH0 = 0xFC; TL0 = 0x18;", 1);
}

CPoint LabelCentre(CTreeCtrl& tree, int index)
{
    HTREEITEM node = tree.GetRootItem();
    for (int i = 0; i < index && node; ++i) node = tree.GetNextSiblingItem(node);
    CRect rect;
    tree.GetItemRect(node, &rect, TRUE);
    return rect.CenterPoint();
}

std::unique_ptr<CFuncSeekItems> SampleFunctions()
{
    auto list = std::make_unique<CFuncSeekItems>();
    const struct {
        const char* type;
        const char* name;
        const char* params;
        int line;
    } functions[] = {
        {"void", "init_timer0", "(void)", 5},
        {"void", "main", "(void)", 12},
        {"static unsigned char", "next_phase", "(unsigned char phase)", 45},
        {"", "show_lights", "(unsigned char lights)", 58},
        {"void", "timer0_isr", "(void) interrupt 1", 70},
    };
    for (const auto& f : functions) {
        auto* item = new CFuncSeekItem;
        item->typeText = f.type;
        item->name = f.name;
        item->paramText = f.params;
        item->line = f.line;
        list->Add(item);
    }
    return list;
}

void SendBuildLog(CMessageEditCtrl& view)
{
    const struct {
        int level;
        const char* text;
        const char* file;
        int line;
    } lines[] = {
        {0, "Build target 'traffic'", nullptr, 0},
        {1, "compiling main.c...", nullptr, 0},
        {2, "main.c(27): warning C280: 'i': unreferenced local variable", "main.c", 27},
        {1, "compiling drivers\\timer0.c...", nullptr, 0},
        {2, "timer0.c(10): error C202: 'TH0x': undefined identifier", "drivers\\timer0.c", 10},
        {1, "编译完成：1 个错误，1 个警告", nullptr, 0},
    };
    bool first = true;
    for (const auto& l : lines) {
        MessageLineRecord record{};
        record.level = l.level;
        std::snprintf(record.text, sizeof record.text, "%s\r\n", GBK(l.text).c_str());
        if (l.file) {
            record.located = 1;
            std::snprintf(record.file, sizeof record.file, "%s%s", kProjectDir, l.file);
            record.line = l.line;
        }
        view.SendMessage(UWM_MSGVIEW_APPEND, first ? 0 : 1, reinterpret_cast<LPARAM>(&record));
        first = false;
    }
}

// Drags the thumb of a view's horizontal scroll bar, from its place at the
// left end, by `distance` pixels.
void DragThumbRight(CWnd& view, int distance)
{
    CRect client;
    view.GetClientRect(&client);
    const CPoint grip(kScrollBarSize + 3, client.bottom + kScrollBarSize / 2);
    Input::Wait();
    Input::MouseDown(&view, grip);
    Input::MouseMove(&view, CPoint(grip.x + distance / 2, grip.y));
    Input::MouseMove(&view, CPoint(grip.x + distance, grip.y));
    Input::MouseUp(&view, CPoint(grip.x + distance, grip.y));
}

CPoint LineCentre(CRichEditCtrl& edit, int line)
{
    const CPoint at = edit.GetCharPos(edit.LineIndex(line));
    return CPoint(at.x + 20, at.y + 6);
}

// One pane of the demo frame: a caption, a frame and its view.
struct Slot {
    DemoPane pane;
    CWnd* view;
    CRect rect;
};

}  // namespace

int main(int argc, char** argv)
{
    const std::filesystem::path out = argc > 1 ? argv[1] : ".";
    std::filesystem::create_directories(out);

    CWinApp app("dockpanes demo");
    HINSTANCE module = AfxLoadLibrary(DOCKPANES_MODULE_PATH);
    if (!module) {
        std::fprintf(stderr, "cannot load the panes module: %s\n", AfxLastLoadError());
        return 1;
    }
    int result = 1;
    {
        DemoHost host;
        host.Create(nullptr, "dockpanes demo", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 760, 880));
        app.m_pMainWnd = &host;
        OrvProjectMisc::SetListener([&](std::string_view routine, int argument) {
            host.transcript << "sibling " << routine << "(" << argument << ")\n";
        });
        FillSampleProject(host);
        auto functions = SampleFunctions();

        CBookMarkListTreeCtrl bookmarkView;
        CBreakPointListTreeCtrl breakpointView;
        CFuncListTreeCtrl functionView;
        CMessageEditCtrl messageView;
        CWatchGridCtrl watch;
        host.debugger.transcript = [&](const std::string& line) { host.transcript << "debugger: " << line << "\n"; };
        host.debugger.Create(&host);
        host.AttachDebugger();
        messageView.SetGotoMode(kGotoSendsMessageViewGoto);
        Slot slots[] = {
            {DemoPane(GBK("书签")), &bookmarkView, CRect(4, 4, 376, 204)},
            {DemoPane(GBK("断点")), &breakpointView, CRect(380, 4, 754, 204)},
            {DemoPane(GBK("函数列表")), &functionView, CRect(4, 208, 256, 464)},
            {DemoPane(GBK("消息")), &messageView, CRect(260, 208, 754, 464)},
            {DemoPane(GBK("观察")), &watch, CRect(4, 468, 754, 846)},
        };
        slots[0].pane.showMenu = [&](CPoint p) { bookmarkView.ShowMenu(p); };
        slots[1].pane.showMenu = [&](CPoint p) { breakpointView.ShowMenu(p); };
        slots[2].pane.showMenu = [&](CPoint p) { functionView.ShowMenu(p); };
        slots[3].pane.showMenu = [&](CPoint p) { messageView.ShowMenu(p); };
        slots[4].pane.showMenu = [&](CPoint p) { watch.ShowMenu(p); };
        slots[4].pane.layout = [&](const CRect& r) { watch.Layout(r.left, r.top, r.right, r.bottom); };
        for (Slot& slot : slots) {
            slot.pane.view = slot.view;
            // The panes get their size once docked, after their views exist.
            slot.pane.Create(nullptr, "pane", WS_VISIBLE, CRect(0, 0, 0, 0), &host, 0);
        }
        const bool created = bookmarkView.Create(&slots[0].pane) && breakpointView.Create(&slots[1].pane) &&
                  functionView.Create(&slots[2].pane) && messageView.Create(&slots[3].pane) && watch.Create(&slots[4].pane);
        if (!created) {
            std::fprintf(stderr, "cannot create the views\n");
            return 1;
        }
        for (Slot& slot : slots) slot.pane.MoveWindow(&slot.rect);

        host.Note("the host refreshes the views, shows main.c's functions and sends a build log");
        bookmarkView.SendMessage(UWM_REFRESH_VIEW, 0, 0);
        breakpointView.SendMessage(UWM_REFRESH_VIEW, 0, 0);
        const std::string mainFile = std::string(kProjectDir) + "main.c";
        functionView.SendMessage(UWM_FUNCLIST_SHOW_FILE, reinterpret_cast<WPARAM>(mainFile.c_str()), reinterpret_cast<LPARAM>(functions.get()));
        SendBuildLog(messageView);
        const auto note = [&](const std::string& utf8) { host.Note(utf8); };
        RestoreWatchList(watch, note);

        host.Note("the user clicks the second bookmark");
        Input::Click(&bookmarkView, LabelCentre(bookmarkView, 1));
        host.Note("the user types 'm' in the function list, then presses Enter");
        functionView.SetFocus();
        Input::Type("m");
        Input::Key(VK_RETURN);
        host.Note("the user drags the function list's scroll bar right to read the long signatures");
        DragThumbRight(functionView, 120);
        host.Note("the user double-clicks the build error");
        Input::DoubleClick(&messageView, LineCentre(messageView, 4));
        host.Note("the user selects the first breakpoint and opens its context menu");
        Input::Click(&breakpointView, LabelCentre(breakpointView, 0));
        MenuDriver::Queue([&](const ShownMenu&) {
            CRect screen;
            host.GetWindowRect(&screen);
            Paint::CaptureScreen(screen, (out / "panes_menu.png").c_str());
            return 32057u;  // "定位到"
        });
        Input::Wait();
        Input::RightClick(&breakpointView, LabelCentre(breakpointView, 0));
        host.Note("the user presses F5 in the bookmark view");
        bookmarkView.SetFocus();
        Input::Key(VK_F5);
        PlayWatchSession(watch, {note, [&] { host.debugger.Step(); },
                                 [&] { return GbkToUtf8(host.debugger.MemoryViewShows()); },
                                 [&](const std::string& line) { host.transcript << line << "\n"; }});

        const bool written = Paint::CaptureWindow(host, (out / "panes.png").c_str());
        std::ofstream((out / "transcript.txt").string()) << host.transcript.str();
        std::printf("%s\n%s\n%s\n", (out / "panes.png").c_str(), (out / "panes_menu.png").c_str(),
                    (out / "transcript.txt").c_str());
        result = written ? 0 : 1;
        OrvProjectMisc::SetListener({});
        app.m_pMainWnd = nullptr;
    }
    AfxFreeLibrary(module);
    return result;
}
