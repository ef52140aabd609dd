#include "demo/tour_script.h"

#include <string>

#include "demo/ide_frame.h"
#include "demo/tour.h"
#include "demo/tour_watch.h"
#include "demo/ui_points.h"
#include "platform/input/input.h"
#include "platform/menu/menu_driver.h"
#include "platform/text/gbk.h"

namespace {

// Command ids of the views' context menus.
constexpr UINT kBreakpointGoTo = 32057;   // "定位到"
constexpr UINT kBookmarkClearAll = 32014; // "清除所有书签"

// The pane font the user picks: one size up from the 9 points panes start with.
constexpr int kLargerFontPoints = 12;

// Stops the program runs through before the tour reads its serial port:
// enough timer periods for its first line to go out at 9600 baud.
constexpr int kMoreStops = 8;

// The search hit the tour follows: where next_phase moves the phase on.
constexpr const char* kSearchHitText = "phase = (phase + 1)";

// From the interrupt routine's first line down to its reload of TH0.
constexpr int kLinesToStatement = 5;

// How far the tour drags the splitter above the bottom panes: enough to
// give the watch room for an expanded structure.
constexpr int kBottomSplitterLift = 90;

class Tour {
public:
    Tour(CIdeFrame& ide, TourRecord& record) : m_ide(ide), m_record(record) {}

    bool Play()
    {
        OpenProject();
        OpenFileFromTree();
        SetBreakpointsAndJump();
        BuildAndFollowAnError();
        SearchAndFollowAHit();
        StartDebugging();
        ResizeAndSwitchTabs();
        PlayWatchTour(m_ide, m_record);
        RunAndReadTheSerialPort();
        UseContextMenus();
        SaveProject();
        return m_found;
    }

private:
    void Step(const std::string& utf8) { m_ide.transcript.Step(utf8); }

    // Something the script looks for; a missing one is reported and skipped.
    bool Found(bool found, const char* what)
    {
        if (found) return true;
        m_ide.transcript.Line(std::string("   (tour: cannot find ") + what + ")");
        m_found = false;
        return false;
    }

    bool Found(CPoint point, const char* what) { return Found(point.x >= 0, what); }

    void OpenProject()
    {
        Step("the host opens the project: file tree, targets, marks, the project's watch list");
        m_ide.OpenProject();
        m_record.Shot("project-open", "The project is open: files, functions of main.c, bookmarks, breakpoints, watch list restored.");
    }

    void OpenFileFromTree()
    {
        Step("the user double-clicks timer0.c in the file tree");
        auto& tree = *ViewOf<CWorkSpaceTree1>(m_ide.panes.files);
        const CPoint file = TreeLabelCentre(tree, "timer0.c");
        if (Found(file, "timer0.c in the file tree")) Input::DoubleClick(&tree, file);
        Step("the user types 't' in the function list and presses Enter");
        auto& functions = *ViewOf<CFuncListTreeCtrl>(m_ide.panes.functions);
        functions.SetFocus();
        Input::Type("t");
        Input::Key(VK_RETURN);
        m_record.Shot("open-from-tree", "timer0.c opened from the file tree; its functions listed; Enter in the list jumped to one.");
    }

    void SetBreakpointsAndJump()
    {
        Step("the user moves the caret down to a statement of the interrupt routine and presses F9");
        Input::Wait();
        m_ide.source.SetFocus();
        for (int i = 0; i < kLinesToStatement; ++i) Input::Key(VK_DOWN);
        Input::Key(VK_F9);
        Step("the user clicks the bookmark in lights.c");
        auto& bookmarks = *ViewOf<CBookMarkListTreeCtrl>(m_ide.panes.bookmarks);
        Input::Wait();
        const CPoint lights = TreeLabelCentre(bookmarks, "lights.c");
        if (Found(lights, "the lights.c bookmark")) Input::Click(&bookmarks, lights);
        m_record.Shot("bookmark-jump", "A new breakpoint in timer0.c (F9), then a click on a bookmark opened lights.c at its line.");
    }

    void BuildAndFollowAnError()
    {
        Step("the user presses F7 to build the project");
        m_ide.SetFocus();
        Input::Key(VK_F7);
        m_record.Shot("build", "F7: the build's log, SDCC's own where it is installed.");
        Step("the user edits lights.c (a misspelt variable, a structure for a pointer, a number for a text) and builds again");
        m_ide.EditWithVariant("lights.c", m_ide.Project().Folder() / "variants" / "lights_broken.c");
        Input::Key(VK_F7);
        Step("the user double-clicks the first error");
        auto& log = *ViewOf<CMessageEditCtrl>(m_ide.panes.build);
        const int line = EditLineOf(log, "error");
        if (Found(line >= 0, "an error in the build log")) {
            log.LineScroll(line - log.GetFirstVisibleLine());
            Input::DoubleClick(&log, EditLineCentre(log, line));
        }
        m_record.Shot("build-error", "The broken edit's build: a double click on the first error opened its file at its line, marked in red.");
        Step("the user undoes the edit and builds again");
        m_ide.RevertEdit();
        Input::Key(VK_F7);
    }

    void SearchAndFollowAHit()
    {
        Step("the user searches the project for 'phase'");
        m_ide.Search("phase");
        auto& results = *ViewOf<CMessageEditCtrl>(m_ide.panes.search);
        const int hit = m_ide.Project().LineOf("lights.c", kSearchHitText);
        const int line = EditLineOf(results, "lights.c(" + std::to_string(hit) + ")");
        Step("the user scrolls to the hit in next_phase and double-clicks it");
        Input::Wait();
        if (Found(line >= 0, "the search hit in next_phase")) {
            results.LineScroll(line - results.GetFirstVisibleLine());
            Input::DoubleClick(&results, EditLineCentre(results, line));
        }
        m_record.Shot("search", "Search results for 'phase'; a double click on a hit opened lights.c at its line.");
    }

    void StartDebugging()
    {
        Step("the user starts debugging: the program on s51 when SDCC built it, else the simulated target; the user clicks the debug messages' tab");
        m_ide.StartDebugging();
        Step("the user picks a 12-point pane font; the message views take it");
        m_ide.SetPaneFont(GBK("宋体").c_str(), kLargerFontPoints);
        Found(ClickTab(m_ide, m_ide.panes.debug), "the debug messages tab");
        m_record.Shot("debug-messages", "Debug messages, shown by a click on their tab, in the 12-point pane font the user picked.");
    }

    void ResizeAndSwitchTabs()
    {
        Step("the user drags the splitter above the bottom panes upwards, to give the watch room");
        const CRect splitter = m_ide.RegionSplitterRect(DockRegion::Bottom);
        const CPoint from = splitter.CenterPoint();
        Input::Wait();
        Input::MouseDown(&m_ide, from);
        Input::MouseMove(&m_ide, CPoint(from.x, from.y - kBottomSplitterLift / 2));
        Input::MouseMove(&m_ide, CPoint(from.x, from.y - kBottomSplitterLift));
        Input::MouseUp(&m_ide, CPoint(from.x, from.y - kBottomSplitterLift));
        Step("the user clicks the targets tab of the workspace");
        Found(ClickTab(m_ide, m_ide.panes.targets), "the targets tab");
        m_record.Shot("resized", "The bottom panes made taller with the splitter; the targets tab shows the build targets and their options.");
    }

    void RunAndReadTheSerialPort()
    {
        Step("the user runs the program on through a few more stops and reads what it printed on its serial port");
        for (int i = 0; i < kMoreStops; ++i) m_ide.RunStep();
        Found(ClickTab(m_ide, m_ide.panes.debug), "the debug messages tab");
        m_record.Shot("serial-port", "A few stops later: the debug messages show the lines the program printed on its serial port.");
    }

    void UseContextMenus()
    {
        Step("the user presses F5 in the bookmark view: the host shows the project afresh");
        ViewOf<CBookMarkListTreeCtrl>(m_ide.panes.bookmarks)->SetFocus();
        Input::Key(VK_F5);

        Step("the user right-clicks a breakpoint and chooses 'go to' from its menu");
        auto& breakpoints = *ViewOf<CBreakPointListTreeCtrl>(m_ide.panes.breakpoints);
        const CPoint first = TreeLabelCentre(breakpoints, "main.c");
        if (!Found(first, "a breakpoint of main.c")) return;
        Input::Wait();
        Input::Click(&breakpoints, first);
        MenuDriver::Queue([this](const ShownMenu&) {
            m_record.ScreenShot("breakpoint-menu", "The breakpoint view's context menu, open over the frame.");
            return kBreakpointGoTo;
        });
        Input::Wait();
        Input::RightClick(&breakpoints, first);
        Step("the user clears all bookmarks from the bookmark view's menu");
        auto& bookmarks = *ViewOf<CBookMarkListTreeCtrl>(m_ide.panes.bookmarks);
        MenuDriver::Choose(kBookmarkClearAll);
        Input::Wait();
        Input::RightClick(&bookmarks, CPoint(20, 8));
        m_record.Shot("after-menus", "'Go to' from the breakpoint menu opened main.c; all bookmarks cleared from theirs.");
    }

    void SaveProject()
    {
        Step("the host saves the project, watch list included");
        std::string saved;
        for (const std::string& expression : m_ide.SaveWatchList()) saved += (saved.empty() ? "" : ", ") + GbkToUtf8(expression);
        m_ide.transcript.Line("project watch list: " + saved);
    }

    CIdeFrame& m_ide;
    TourRecord& m_record;
    bool m_found = true;
};

}  // namespace

bool PlayTour(CIdeFrame& ide, TourRecord& record)
{
    return Tour(ide, record).Play();
}
