#include "demo_watch_session.h"

#include "platform/input/input.h"
#include "platform/text/gbk.h"
#include "watch/watch_format.h"

namespace {

// The centre of a line's expand box, at the row's level.
CPoint ExpandBoxCentre(CGridCtrl& grid, int item)
{
    CRect first, line;
    grid.GetItemRect(0, &first, LVIR_BOUNDS);
    grid.GetItemRect(item, &line, LVIR_BOUNDS);
    const int unit = first.Height() / 4 + 4;
    const CGridRow* row = grid.GetRowAt(item);
    return CPoint(line.left + unit * (row ? row->Level() : 0) + unit, line.CenterPoint().y);
}

CPoint CellCentre(CGridCtrl& grid, int item, int column)
{
    CRect cell;
    grid.GetSubItemRect(item, column, LVIR_LABEL, cell);
    return cell.CenterPoint();
}

int LineOf(CWatchGridCtrl& watch, const char* text)
{
    for (int line = 0; line < watch.GetItemCount(); ++line) {
        const CGridRow* row = watch.GetRowAt(line);
        if (row && row->text == text) return line;
    }
    return -1;
}

}  // namespace

void RestoreWatchList(CWatchGridCtrl& watch, const std::function<void(const std::string&)>& note)
{
    note("the host restores the project's watch list");
    CStringArray list;
    for (const char* expression :
         {"phase", "ticks", "temperature", "cfg", "lights[1].lamps", "mode", "cursor", "total", "red", "speed"}) {
        list.Add(expression);
    }
    watch.SendMessage(UWM_WATCH_EXPRESSIONS, reinterpret_cast<WPARAM>(&list), FALSE);
}

void PlayWatchSession(CWatchGridCtrl& watch, const WatchSessionHooks& hooks)
{
    hooks.note("the user types 'timings[2] * 3' on the input row and presses Enter");
    watch.SetFocus();
    watch.SelectItem(watch.GetItemCount() - 1);
    Input::Type("timings[2] * 3");
    Input::Key(VK_RETURN);

    hooks.note("the user expands 'cfg' and then 'lights[1].lamps' by their boxes");
    Input::Wait();
    Input::Click(&watch, ExpandBoxCentre(watch, LineOf(watch, "cfg")));
    Input::Wait();
    Input::Click(&watch, ExpandBoxCentre(watch, LineOf(watch, "lights[1].lamps")));

    hooks.note("the user shows 'phase' in binary: its format list, then Home, which picks and closes");
    const int phase = LineOf(watch, "phase");
    Input::Wait();
    Input::Click(&watch, CellCentre(watch, phase, kFormatColumn));
    Input::Wait();
    Input::Click(&watch, CellCentre(watch, phase, kFormatColumn));
    Input::Key(VK_HOME);

    hooks.note("the user drags 'mode' up onto 'ticks'");
    Input::Wait();
    Input::Drag(&watch, CellCentre(watch, LineOf(watch, "mode"), kExpressionColumn),
                CellCentre(watch, LineOf(watch, "ticks"), kExpressionColumn));

    hooks.note("the target runs a step; the host refreshes the watch");
    hooks.runTarget();
    watch.SendMessage(UWM_WATCH_REFRESH, 0, 0);

    hooks.note("the user presses Ctrl+M on 'cfg.offset'");
    watch.SetFocus();
    watch.SelectItem(LineOf(watch, "offset"));
    Input::Key('M', Input::kControl);
    hooks.log("memory view shows: " + hooks.memoryView());

    hooks.note("the host asks for the quick view of 'ticks' in assembler notation");
    if (const CGridRow* ticks = watch.GetRowAt(LineOf(watch, "ticks"))) {
        char text[kQuickViewBytes] = {1};
        watch.SendMessage(UWM_WATCH_FORMAT_VALUE, reinterpret_cast<WPARAM>(text),
                          reinterpret_cast<LPARAM>(RecordOf(ticks)));
        hooks.log(std::string("quick view: ") + text);
    }

    hooks.note("the user selects the value of 'temperature'");
    watch.SelectItem(LineOf(watch, "temperature"));
    watch.SetCurrentColumn(kValueColumn);
}
