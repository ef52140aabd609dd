// What the monkey does as the host: the calls and messages an IDE sends its
// panes while the user works, with the odd bad argument a host gets wrong.
#include "tests/demo_monkey/monkey.h"

#include <cstring>

#include "host/host_messages.h"
#include "platform/text/gbk.h"

namespace {

const std::vector<std::string> kFiles = {"main.c", "lights.c", "timer0.c", "uart.c", "board.h", "config.h", "lights.h"};
const std::vector<const char*> kFaces = {"宋体", "新宋体", "Courier New", "", "没有这种字体的名字"};
// Point sizes a settings file may hold, the silly ones too.
const std::vector<int> kPoints = {9, 10, 12, 16, 28, 0, -4, 200};
// Watch lists the host restores: the project's own, empty, odd.
const std::vector<std::vector<std::string>> kWatchLists = {
    {"phase", "ticks", "temperature", "cfg", "lights", "mode", "cursor", "total", "red", "timings"},
    {},
    {"phase"},
    {"timings[2] * 3", "cfg.mode", "((", "", "*cursor"},
};
const std::vector<std::string> kNeedles = {"phase", "TH0", "(", "", "没有", "void", "x"};

// Message lines a host sends a message view: some point at a file, some are
// longer than the record or not terminated within it.
MessageLineRecord LineRecord(int level, const std::string& text, const std::string& file, int line, bool terminated)
{
    MessageLineRecord record{};
    record.level = level;
    if (terminated) {
        std::snprintf(record.text, sizeof record.text, "%s\n", text.c_str());
    } else {
        std::memset(record.text, 'x', sizeof record.text);
    }
    record.located = file.empty() ? 0 : 1;
    std::snprintf(record.file, sizeof record.file, "%s", file.c_str());
    record.line = line;
    return record;
}

}  // namespace

std::string Monkey::RandomPath()
{
    const int roll = Uniform(0, 99);
    if (roll < 80) return SampleProject::kFolder + Pick(kFiles);
    if (roll < 90) return "C:\\elsewhere\\" + Pick(kFiles);
    if (roll < 95) return "";
    return std::string(kPathBytes + 10, 'p');
}

int Monkey::RandomLine()
{
    const int roll = Uniform(0, 99);
    if (roll < 85) return Uniform(1, 120);
    if (roll < 90) return 0;
    if (roll < 95) return -Uniform(1, 1000);
    return Uniform(1000, 2000000000);
}

std::vector<std::string> Monkey::RandomWatchList()
{
    if (Chance(70)) return Pick(kWatchLists);
    std::vector<std::string> list(static_cast<std::size_t>(Uniform(0, 40)));
    for (std::string& expression : list) expression = RandomText();
    return list;
}

void Monkey::SendAHostMessage()
{
    const int roll = Uniform(0, 99);
    if (roll < 10) {
        m_action = "host: refresh views";
        m_ide.RefreshViews();
    } else if (roll < 16) {
        m_action = "host: refresh one view";
        const std::vector<CWnd*> views = ShownViews();
        if (!views.empty()) Pick(views)->SendMessage(UWM_REFRESH_VIEW, 0, 0);
    } else if (roll < 21) {
        m_action = "host: pane font";
        m_ide.SetPaneFont(GBK(kFaces[static_cast<std::size_t>(Uniform(0, static_cast<int>(kFaces.size()) - 1))]).c_str(),
                          Pick(kPoints));
    } else if (roll < 28) {
        m_action = "host: watch list set";
        m_ide.RestoreWatchList(RandomWatchList());
    } else if (roll < 33) {
        m_action = "host: watch list read";
        m_ide.SaveWatchList();
    } else if (roll < 45) {
        m_action = "host: go to";
        const std::string path = RandomPath();
        const UINT messages[] = {UWM_GOTO_SOURCE, UWM_MSGVIEW_GOTO, UWM_FUNCLIST_SELECTED, UWM_WORKSPACE_OPEN_FILE};
        const WPARAM file = Chance(95) ? reinterpret_cast<WPARAM>(path.c_str()) : 0;
        m_ide.SendMessage(messages[Uniform(0, 3)], file, RandomLine());
    } else if (roll < 50) {
        m_action = "host: clear marks";
        m_ide.SendMessage(WM_COMMAND, Chance(50) ? ID_HOST_CLEAR_ALL_BOOKMARKS : ID_HOST_CLEAR_ALL_BREAKPOINTS, 0);
    } else if (roll < 62) {
        m_action = "host: run steps";
        for (int i = Uniform(1, 4); i > 0; --i) m_ide.RunStep();
    } else if (roll < 65) {
        m_action = "host: start debugging";
        m_ide.StartDebugging();
    } else if (roll < 69) {
        m_action = "host: reopen the project";
        if (Chance(40)) {
            m_ide.OpenProject();
        } else {
            ProjectSettings settings;
            settings.watch = RandomWatchList();
            settings.regions = {{"left", Uniform(-50, 900)}, {"right", Uniform(-50, 900)}, {"bottom", Uniform(-50, 900)}};
            m_ide.OpenProject(settings);
        }
    } else if (roll < 76) {
        m_action = "host: toggle a breakpoint";
        m_ide.ToggleBreakpoint(RandomPath(), RandomLine());
    } else if (roll < 81) {
        m_action = "host: search";
        m_ide.Search(Pick(kNeedles));
    } else if (roll < 84) {
        m_action = "host: debug messages";
        m_ide.ShowDebugMessages();
    } else if (roll < 87) {
        m_action = "host: edit and revert";
        if (Chance(50)) {
            m_ide.EditWithVariant("lights.c", m_ide.Project().Folder() / "variants" / "lights_broken.c");
        } else {
            m_ide.RevertEdit();
        }
    } else if (roll < 95) {
        m_action = "host: message lines";
        const HWND views[] = {m_ide.panes.build.GetViewHwnd(), m_ide.panes.search.GetViewHwnd(), m_ide.panes.debug.GetViewHwnd()};
        const HWND view = views[Uniform(0, 2)];
        const bool replace = Chance(20);
        for (int i = Uniform(1, 5); i > 0; --i) {
            const MessageLineRecord record = LineRecord(Chance(90) ? Uniform(0, 3) : Uniform(-5, 1000), RandomText(),
                                                        Chance(60) ? RandomPath() : "", RandomLine(), Chance(97));
            const UINT message = Chance(85) ? UWM_MSGVIEW_APPEND : UWM_MSGVIEW_PREPEND;
            ::SendMessage(view, message, replace && i == 1 ? 0 : 1, reinterpret_cast<LPARAM>(&record));
        }
    } else {
        m_action = "host: watch add, clear, refresh";
        const HWND watch = Chance(70) ? m_ide.panes.watch1.GetViewHwnd() : m_ide.panes.watch2.GetViewHwnd();
        const int roll2 = Uniform(0, 99);
        if (roll2 < 50) {
            const std::string text = RandomText();
            ::SendMessage(watch, UWM_WATCH_ADD_EXPRESSION, reinterpret_cast<WPARAM>(text.c_str()), 0);
        } else if (roll2 < 65) {
            ::SendMessage(watch, UWM_WATCH_CLEAR, 0, 0);
        } else {
            ::SendMessage(watch, UWM_WATCH_REFRESH, 0, 0);
        }
    }
}
