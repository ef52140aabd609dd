#include "demo/tour_watch.h"

#include <string>

#include "demo/ide_frame.h"
#include "demo/tour.h"
#include "demo/ui_points.h"
#include "platform/input/input.h"
#include "platform/text/gbk.h"
#include "watch/watch_format.h"
#include "watch/watch_row.h"

namespace {

class WatchTour {
public:
    WatchTour(CIdeFrame& ide, TourRecord& record)
        : m_ide(ide), m_record(record), m_watch(*ViewOf<CWatchGridCtrl>(ide.panes.watch1))
    {
    }

    void Play()
    {
        TypeExpressions();
        Expand();
        WriteAndFormat();
        RunAndRefresh();
        ShowMemoryAndFixedList();
    }

private:
    void Step(const std::string& utf8) { m_ide.transcript.Step(utf8); }

    void Add(const char* expression)
    {
        m_watch.SetFocus();
        m_watch.SelectItem(m_watch.GetItemCount() - 1);
        m_watch.SetCurrentColumn(kExpressionColumn);
        Input::Type(expression);
        Input::Key(VK_RETURN);
    }

    void Click(int line, int column)
    {
        if (line < 0) {
            m_ide.transcript.Line("   (tour: a watch row is missing)");
            return;
        }
        // The user scrolls the row into sight first.
        m_watch.EnsureVisible(line, FALSE);
        Input::Wait();
        Input::Click(&m_watch, GridCellCentre(m_watch, line, column));
    }

    void TypeExpressions()
    {
        Step("the user types watch expressions on the input row, one of them wrong");
        for (const char* expression : {"timings[2] * 3", "cfg.red_time > 5 && phase == 0", "*current", "lamp_mask[phase] & 0x03",
                                       "undefined_name", "lights[1].lamps["}) {
            Add(expression);
        }
        m_record.Shot("watch-expressions", "Watch expressions typed on the input row; the wrong ones show the service's messages.");
    }

    void Expand()
    {
        Step("the user expands 'cfg', then 'lights' and its element 1, by their boxes");
        for (const char* text : {"cfg", "lights", "[01]"}) {
            const int line = GridLineOf(m_watch, text);
            if (line < 0) continue;
            m_watch.EnsureVisible(line, FALSE);
            Input::Wait();
            Input::Click(&m_watch, GridExpandBoxCentre(m_watch, line));
        }
        m_record.Shot("watch-expanded", "A structure and an array of structures expanded into member and element rows.");
    }

    void WriteAndFormat()
    {
        Step("the user shows 'phase' in binary: its format list, then Home, which picks and closes");
        const int phase = GridLineOf(m_watch, "phase");
        Click(phase, kFormatColumn);
        Click(phase, kFormatColumn);
        Input::Key(VK_HOME);

        Step("the user writes 9 into 'cfg.red_time': a click on its value, Enter, the new value, Enter");
        Click(GridLineOf(m_watch, "red_time"), kValueColumn);
        Input::Key(VK_RETURN);
        Input::Key(VK_HOME);
        Input::Key(VK_END, Input::kShift);
        Input::Type("9");
        Input::Key(VK_RETURN);

        Step("the user drags 'mode' up onto 'ticks'");
        const int mode = GridLineOf(m_watch, "mode");
        const int ticks = GridLineOf(m_watch, "ticks");
        if (mode >= 0 && ticks >= 0) {
            m_watch.EnsureVisible(ticks, FALSE);
            Input::Wait();
            Input::Drag(&m_watch, GridCellCentre(m_watch, mode, kExpressionColumn), GridCellCentre(m_watch, ticks, kExpressionColumn));
        }
        m_record.Shot("watch-edited", "'cfg.red_time' written to the target, 'phase' in binary, 'mode' dragged above 'ticks'.");
    }

    void RunAndRefresh()
    {
        Step("the target runs two steps; the host refreshes the watch panes");
        m_ide.RunStep();
        m_ide.RunStep();
        Step("the host asks for the quick view of 'ticks' in assembler notation");
        if (const CGridRow* ticks = m_watch.GetRowAt(GridLineOf(m_watch, "ticks"))) {
            char text[kQuickViewBytes] = {};
            m_watch.SendMessage(UWM_WATCH_FORMAT_VALUE, reinterpret_cast<WPARAM>(text), reinterpret_cast<LPARAM>(RecordOf(ticks)));
            m_ide.transcript.Line(std::string("quick view: ") + GbkToUtf8(text));
        }
        m_record.Shot("watch-run", "After the target ran: values that changed are red.");
    }

    void ShowMemoryAndFixedList()
    {
        Step("the user presses Ctrl+M on 'cfg.offset': the memory pane shows its bytes");
        m_watch.SetFocus();
        m_watch.SelectItem(GridLineOf(m_watch, "offset"));
        Input::Key('M', Input::kControl);
        m_record.Shot("memory", "Ctrl+M on a member: the memory pane shows xdata at its address, its bytes marked.");

        Step("the user clicks the second watch's tab: the debugger's own list, refreshed after another step");
        ClickTab(m_ide, m_ide.panes.watch2);
        m_ide.RunStep();
        m_record.Shot("fixed-list", "The fixed-list watch pane mirrors the debugger's list; it takes no new rows.");
        Step("the user clicks the first watch's tab again");
        ClickTab(m_ide, m_ide.panes.watch1);
    }

    CIdeFrame& m_ide;
    TourRecord& m_record;
    CWatchGridCtrl& m_watch;
};

}  // namespace

void PlayWatchTour(CIdeFrame& ide, TourRecord& record)
{
    WatchTour(ide, record).Play();
}
