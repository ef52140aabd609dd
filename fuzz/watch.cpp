// The watch of the debugger under a service whose every answer comes from the
// input. Two watch panes as a host creates them, the editable watch and the
// fixed list that mirrors the service's own list, over a FuzzedDebugger. The
// input is read front to back: an operation byte and its arguments (typing
// and evaluating expressions, expanding and collapsing rows, refreshing
// either watch, display formats from the menu and from the format list, value
// and expression edits, quick views, keys, clicks, wheel and scroll bars,
// drags, drops, menu commands, the host's expression list, paint passes),
// and between them the bytes the service answers with, request by request.
// Both watches are emptied at the end of each input, so it replays alone.
//
// Findings beyond a crash or a sanitizer report (each an abort):
// - a grid whose list shows another number of lines than its rows take;
// - a fixed list whose rows are not exactly the entries the service gave,
//   cut to kMaxWatchListEntries;
// - more element rows than the element block allows (count, and
//   kMaxElementBytes / size), more member rows than kMaxWatchChildren;
// - a write request carrying anything but the edited row's own record;
// - a quick view that is not terminated within its 86 bytes, or that changes
//   the record it formats;
// - a host expression list that is not every expression row;
// - a request the protocol does not allow (see FuzzedDebugger);
// - global memory blocks left behind by a drag or a drop.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "fuzz/support/op_stream.h"
#include "fuzz/support/fuzz_check.h"
#include "fuzz/support/fuzzed_debugger.h"
#include "host/resource_ids.h"
#include "panes/dock_bar_watch.h"
#include "platform/core/module.h"
#include "platform/core/paint.h"
#include "platform/input/input.h"
#include "platform/menu/menu_driver.h"
#include "platform/ole/clipboard.h"
#include "platform/ole/format_blocks.h"
#include "platform/ole/global_memory.h"
#include "platform/ole/global_text.h"
#include "siblings/orv_project_misc.h"
#include "tests/support/test_host.h"
#include "watch/watch_format.h"

namespace {

// Enough to build, expand and refresh a few levels; more only slows a run.
constexpr int kMaxOperations = 16;
constexpr std::size_t kMaxTextBytes = 48;
constexpr UINT kFirstPaneId = 0xE800;
// Small windows: a paint pass costs by the pixel.
constexpr RECT kHostRect{0, 0, 240, 130};
constexpr RECT kEditableRect{0, 0, 240, 64};
constexpr RECT kFixedRect{0, 64, 240, 120};
// Columns as a user narrows them to fit; the last takes the rest.
constexpr int kColumnWidths[kAttributeColumn] = {80, 50, 30};

enum Operation : std::uint8_t {
    kTypeExpression,   // over the input row (or a line), committed with Enter
    kHostAdd,          // UWM_WATCH_ADD_EXPRESSION
    kToggleExpand,     // a line's expand box
    kRefresh,          // UWM_WATCH_REFRESH to the grid in use
    kRefreshFixed,     // UWM_WATCH_REFRESH to the fixed list
    kFormatList,       // the format column's list
    kEditCell,         // the value or expression column's edit box
    kQuickView,        // UWM_WATCH_FORMAT_VALUE
    kKey,
    kType,
    kClick,
    kWheel,
    kScroll,
    kMenu,             // the pane's menu, one command chosen
    kPaint,
    kService,          // the project's debugger window comes or goes
    kExpressions,      // UWM_WATCH_EXPRESSIONS, either way
    kClear,            // UWM_WATCH_CLEAR
    kSwitchGrid,
    kDisplayMode,      // the host's default format setting
    kDrag,
    kDropText,
    kSelect,
    kResize,
    kClipboard,        // another application copies text
    kOperationCount
};

struct Rig {
    Rig()
    {
        // The panes' menus and strings, as a host has them after loading the module.
        FUZZ_CHECK(AfxLoadLibrary(DOCKPANES_MODULE_PATH) != nullptr);
        host.MoveWindow(CRect(kHostRect));
        service.CreateService(&host);
        editablePane.Create("watch", &host, CRect(kEditableRect), kFirstPaneId);
        fixedPane.Create("watch", &host, CRect(kFixedRect), kFirstPaneId + 1);
        fixedPane.SetWatchNumb(kFixedWatchNumb);
        grids[0] = dynamic_cast<CWatchGridCtrl*>(CWnd::FromHandle(editablePane.GetViewHwnd()));
        grids[1] = dynamic_cast<CWatchGridCtrl*>(CWnd::FromHandle(fixedPane.GetViewHwnd()));
        FUZZ_CHECK(grids[0] && grids[1] && grids[1]->fixedRows);
        for (CWatchGridCtrl* grid : grids) {
            for (int c = 0; c < kAttributeColumn; ++c) grid->SetColumnWidth(c, kColumnWidths[c]);
        }
        service.onWrite = [this](const WatchRecord* record) {
            // The edited row's record itself, not a copy or another row's. The
            // edit may close in either watch: the focus moving away commits it.
            bool own = false;
            for (CWatchGridCtrl* grid : grids) {
                const int selected = grid->GetSelectedItem();
                own = own || (selected != -1 && record == RecordOf(grid->GetRowAt(selected)));
            }
            FUZZ_CHECK(own);
        };
    }

    // Back to a fresh pair of watches, so that an input replays alone.
    void Reset()
    {
        Input::Wait();  // no double click across inputs
        MenuDriver::Reset();
        OrvProjectMisc::SetValueDisplayMode(0);
        SetClipboardText(host.GetSafeHwnd(), "");
        service.AnswerFrom(nullptr);
        host.context.debuggerWindow = service.GetSafeHwnd();
        for (CWatchGridCtrl* grid : grids) {
            grid->EditBox().SetWindowText("");
            grid->EditBox().SetModify(FALSE);
            grid->EditBox().ShowWindow(SW_HIDE);
            grid->ComboBox().ShowWindow(SW_HIDE);
            grid->DeleteAllRows();
            grid->SetCurrentColumn(0);
        }
        PlacePane(editablePane, kEditableRect);
        PlacePane(fixedPane, kFixedRect);
        grids[0]->EnsureInputRow();
        FUZZ_CHECK(grids[0]->GetItemCount() == 1 && grids[1]->GetItemCount() == 0);
        grids[0]->SetFocus();
        Drawing(false);
        host.Clear();
        blocksAtStart = GlobalMemory::BlockCount();
    }

    // Every simulated event would paint, which costs more than anything the
    // watch does: drawing stays off but for the paint passes the input asks
    // for, which draw every shown line.
    void Drawing(bool on)
    {
        for (CWnd* window : {static_cast<CWnd*>(&host), static_cast<CWnd*>(grids[0]), static_cast<CWnd*>(grids[1])}) {
            window->SendMessage(WM_SETREDRAW, on, 0);
        }
    }

    void PaintPass()
    {
        Drawing(true);
        host.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        Paint::UpdateAllWindows();
        Drawing(false);
    }

    void PlacePane(CDockBarWatch& pane, const RECT& rect)
    {
        CRect now;
        pane.GetWindowRect(&now);
        host.ScreenToClient(&now);
        if (now != CRect(rect)) pane.MoveWindow(CRect(rect));
    }

    TestHost host;
    FuzzedDebugger service;
    CDockBarWatch editablePane;
    CDockBarWatch fixedPane;
    CWatchGridCtrl* grids[2] = {};
    std::size_t blocksAtStart = 0;
};

Rig& TheRig()
{
    // Windows are costly to make: made once, reset for every input.
    static Rig* rig = new Rig;
    return *rig;
}

CDockBarWatch& PaneOf(Rig& rig, const CWatchGridCtrl* grid)
{
    return grid == rig.grids[0] ? rig.editablePane : rig.fixedPane;
}

// A display line, or one past the last.
int ReadLine(OpStream& input, CWatchGridCtrl* grid)
{
    return input.Byte() % (grid->GetItemCount() + 1);
}

// Anywhere over the grid, its scroll bars and a little beyond.
CPoint ReadPoint(OpStream& input)
{
    const int x = input.Byte() * 3;
    const int y = input.Byte() * 3 / 2;
    return CPoint(x, y);
}

// A point on a line's expression, away from its expand box.
CPoint PointOnLine(CWatchGridCtrl* grid, int line)
{
    CRect r;
    grid->GetSubItemRect(line, 0, LVIR_LABEL, r);
    return CPoint(r.left + 40, r.CenterPoint().y);
}

// A value as a user might type it, or any bytes.
std::string ReadValueText(OpStream& input)
{
    const std::uint8_t form = input.Byte();
    const std::uint32_t n = input.U32();
    char text[32];
    switch (form % 5) {
    case 0: std::snprintf(text, sizeof text, "%d", static_cast<int>(n)); return text;
    case 1: std::snprintf(text, sizeof text, "%XH", n); return text;
    case 2: std::snprintf(text, sizeof text, "0x%x", n); return text;
    case 3: std::snprintf(text, sizeof text, "%d.%u", static_cast<int>(n) >> 8, n & 0xFF); return text;
    default: return input.ShortText(kMaxTextBytes);
    }
}

void SelectCell(CWatchGridCtrl* grid, int line, int column)
{
    grid->SetFocus();
    grid->SelectItem(line);
    grid->SetCurrentColumn(column);
}

// Opens the editor of a cell with Enter, replaces its text and commits.
void EditCell(CWatchGridCtrl* grid, int line, int column, const std::string& text)
{
    SelectCell(grid, line, column);
    Input::Key(VK_RETURN);
    grid->EditBox().SetWindowText(text.c_str());
    grid->EditBox().SetModify(TRUE);
    Input::Key(VK_RETURN);
}

void QuickView(CWatchGridCtrl* grid, OpStream& input)
{
    // Exactly the host's buffer, so a byte past it is a report.
    auto buffer = std::make_unique<char[]>(kQuickViewBytes);
    std::memset(buffer.get(), 'Z', kQuickViewBytes);
    buffer[0] = static_cast<char>(input.Byte() & 1);
    WatchRecord raw{};
    const WatchRecord* record = &raw;
    if (const std::uint8_t form = input.Byte(); form & 1) {
        input.Copy(&raw, sizeof raw);
    } else if (CGridRow* row = grid->GetRowAt(ReadLine(input, grid))) {
        record = RecordOf(row);
    }
    const WatchRecord before = *record;
    FUZZ_CHECK(grid->SendMessage(UWM_WATCH_FORMAT_VALUE, reinterpret_cast<WPARAM>(buffer.get()),
                            reinterpret_cast<LPARAM>(record)) == 1);
    FUZZ_CHECK(std::memchr(buffer.get(), '\0', kQuickViewBytes) != nullptr);
    FUZZ_CHECK(std::memcmp(&before, record, sizeof before) == 0);
}

void Expressions(CWatchGridCtrl* grid, OpStream& input)
{
    CStringArray list;
    if (input.Byte() & 1) {
        grid->SendMessage(UWM_WATCH_EXPRESSIONS, reinterpret_cast<WPARAM>(&list), TRUE);
        // Every top-level row but the last (the input row of an editable watch).
        FUZZ_CHECK(list.GetSize() == std::max(grid->Rows().GetSize() - 1, 0));
        return;
    }
    const int n = input.Byte() % 4;
    for (int i = 0; i < n; ++i) list.Add(input.ShortText(kMaxTextBytes).c_str());
    grid->SendMessage(UWM_WATCH_EXPRESSIONS, reinterpret_cast<WPARAM>(&list), FALSE);
}

void Menu(Rig& rig, CWatchGridCtrl* grid, OpStream& input)
{
    static constexpr UINT kCommands[] = {
        ID_WATCH_DELETE, ID_WATCH_CLEAR, ID_WATCH_FORMAT_BIN, ID_WATCH_FORMAT_DEC, ID_WATCH_FORMAT_HEX,
        ID_WATCH_EDIT, ID_WATCH_SHOW_IN_MEMORY, ID_WATCH_MOVE_DOWN, ID_WATCH_MOVE_UP, 0,
    };
    const UINT id = kCommands[input.Byte() % std::size(kCommands)];
    if (id) {
        MenuDriver::Choose(id);
    } else {
        MenuDriver::Dismiss();
    }
    // As the platform passes a request up from the view to its pane.
    CPoint point = ReadPoint(input);
    grid->ClientToScreen(&point);
    PaneOf(rig, grid).SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(grid->GetSafeHwnd()),
                                  MAKELPARAM(point.x, point.y));
    MenuDriver::Reset();
}

void Play(Rig& rig, CWatchGridCtrl*& grid, OpStream& input)
{
    static constexpr UINT kKeys[16] = {
        VK_RETURN, VK_ESCAPE, VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_INSERT, VK_DELETE,
        VK_HOME, VK_END, VK_PRIOR, VK_NEXT, VK_TAB, VK_BACK, 'M', 'V',
    };
    switch (static_cast<Operation>(input.Byte() % kOperationCount)) {
    case kTypeExpression: {
        const std::uint8_t where = input.Byte();
        const int line = where & 1 ? where % (grid->GetItemCount() + 1) : grid->GetItemCount() - 1;
        SelectCell(grid, line, 0);
        Input::Type(input.ShortText(kMaxTextBytes));
            Input::Key(VK_RETURN);
        break;
    }
    case kHostAdd: {
        const std::string text = input.ShortText(kMaxTextBytes);
        grid->SendMessage(UWM_WATCH_ADD_EXPRESSION, reinterpret_cast<WPARAM>(text.c_str()), 0);
        break;
    }
    case kToggleExpand:
        grid->ToggleExpand(ReadLine(input, grid));
        break;
    case kRefresh:
        grid->SendMessage(UWM_WATCH_REFRESH, 0, 0);
        break;
    case kRefreshFixed: {
        CWatchGridCtrl* fixed = rig.grids[1];
        fixed->SendMessage(UWM_WATCH_REFRESH, 0, 0);
        // The first n rows mirror the n entries, and nothing is left after them.
        if (rig.host.context.debuggerWindow) {
            FUZZ_CHECK(fixed->Rows().GetSize() == std::clamp(rig.service.ListSize(), 0, kMaxWatchListEntries));
        }
        break;
    }
    case kFormatList: {
        SelectCell(grid, ReadLine(input, grid), kFormatColumn);
        Input::Key(VK_RETURN);
        // -1 (no choice), the three formats, or past them.
        grid->ComboBox().SetCurSel(input.Byte() % 5 - 1);
        Input::Key(VK_RETURN);
        break;
    }
    case kEditCell: {
        const int line = ReadLine(input, grid);
        const std::uint8_t column = input.Byte();
        const std::string text = column & 1 ? ReadValueText(input) : input.ShortText(kMaxTextBytes);
        EditCell(grid, line, column & 1 ? kValueColumn : kExpressionColumn, text);
        break;
    }
    case kQuickView:
        QuickView(grid, input);
        break;
    case kKey: {
        const std::uint8_t key = input.Byte();
            Input::Key(kKeys[key & 15], (key >> 4) & 7);
        break;
    }
    case kType:
            Input::Type(input.ShortText(8));
        break;
    case kClick: {
        const std::uint8_t kind = input.Byte();
        const CPoint point = ReadPoint(input);
            if (kind % 3 == 0) Input::Click(grid, point, (kind >> 2) & 3);
        if (kind % 3 == 1) Input::DoubleClick(grid, point);
        if (kind % 3 == 2) Input::RightClick(grid, point);
        Input::Wait();
        break;
    }
    case kWheel: {
        const int notches = static_cast<std::int8_t>(input.Byte()) % 8;
        Input::Wheel(grid, ReadPoint(input), notches * 120);
        break;
    }
    case kScroll: {
        const std::uint8_t code = input.Byte();
        const UINT message = code & 0x80 ? WM_HSCROLL : WM_VSCROLL;
        grid->SendMessage(message, MAKEWPARAM(code % 9, input.U16()), 0);
        break;
    }
    case kMenu:
        Menu(rig, grid, input);
        break;
    case kPaint:
        rig.PaintPass();
        break;
    case kService:
        rig.host.context.debuggerWindow = rig.host.context.debuggerWindow ? nullptr : rig.service.GetSafeHwnd();
        break;
    case kExpressions:
        Expressions(grid, input);
        break;
    case kClear:
        grid->SendMessage(UWM_WATCH_CLEAR, 0, 0);
        break;
    case kSwitchGrid:
        grid = grid == rig.grids[0] ? rig.grids[1] : rig.grids[0];
        break;
    case kDisplayMode:
        OrvProjectMisc::SetValueDisplayMode(static_cast<std::int8_t>(input.Byte()) % 4);
        break;
    case kDrag: {
        const int from = ReadLine(input, grid);
        const CPoint to = ReadPoint(input);
        const unsigned modifiers = input.Byte() & 1 ? Input::kControl : Input::kNone;
        Input::Wait();
        Input::Drag(grid, PointOnLine(grid, from), to, 2, modifiers);
        Input::Wait();
        break;
    }
    case kDropText: {
        const std::string text = input.ShortText(kMaxTextBytes);
        FormatBlocks data;
        data.Set(CF_TEXT, GlobalText::Alloc(text));
        Input::DropFromOutside(data, Input::Gesture().MoveTo(grid, ReadPoint(input), 2).Release());
        Input::Wait();
        break;
    }
    case kSelect: {
        const int line = ReadLine(input, grid);
        if (line < grid->GetItemCount()) SelectCell(grid, line, input.Byte() % kWatchColumnCount);
        break;
    }
    case kResize: {
        CDockBarWatch& pane = PaneOf(rig, grid);
        CRect rect;
        pane.GetWindowRect(&rect);
        rig.host.ScreenToClient(&rect);
        pane.MoveWindow(rect.left, rect.top, input.Byte() * 4, input.Byte() * 2);
        break;
    }
    case kClipboard:
        SetClipboardText(rig.host.GetSafeHwnd(), input.ShortText(kMaxTextBytes));
        break;
    case kOperationCount:
        break;
    }
}

const CGridRow* FindRowOf(const CGridRowArray& rows, const WatchRecord* record)
{
    for (int i = 0; i < rows.GetSize(); ++i) {
        const CGridRow* row = rows.GetRow(i);
        if (RecordOf(row) == record) return row;
        if (const CGridRow* found = FindRowOf(row->children, record)) return found;
    }
    return nullptr;
}

// The rows under an array: no more than the element block allowed.
void CheckElementRows(Rig& rig)
{
    const WatchRecord* array = rig.service.elementsArray;
    if (!array) return;
    for (CWatchGridCtrl* grid : rig.grids) {
        if (const CGridRow* row = FindRowOf(grid->Rows(), array)) {
            FUZZ_CHECK(row->children.GetSize() <= rig.service.elementsAllowed);
            return;
        }
    }
}

// Every row, shown or not: no more members than the cap.
void CheckChildCaps(const CGridRowArray& rows)
{
    for (int i = 0; i < rows.GetSize(); ++i) {
        const CGridRow* row = rows.GetRow(i);
        FUZZ_CHECK(row->children.GetSize() <= kMaxWatchChildren);
        CheckChildCaps(row->children);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    Rig& rig = TheRig();
    rig.Reset();
    OpStream input(data, size);
    rig.service.AnswerFrom(&input);
    CWatchGridCtrl* grid = rig.grids[0];
    for (int n = 0; n < kMaxOperations && !input.Done(); ++n) {
        rig.service.elementsArray = nullptr;
        Play(rig, grid, input);
        for (CWatchGridCtrl* each : rig.grids) FUZZ_CHECK(each->GetItemCount() == each->CountVisibleRows(each->Rows()));
        CheckElementRows(rig);
    }
    rig.service.AnswerFrom(nullptr);
    for (CWatchGridCtrl* each : rig.grids) CheckChildCaps(each->Rows());
    FUZZ_CHECK(rig.grids[1]->Rows().GetSize() <= kMaxWatchListEntries);
    FUZZ_CHECK(GlobalMemory::BlockCount() == rig.blocksAtStart);
    // Freed within the input that made them, so that a leak shows as one.
    rig.Reset();
    return 0;
}
