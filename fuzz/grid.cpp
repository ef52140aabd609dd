// The tree grid under the watch, driven as a user drives it. The input builds
// a row tree (chains deeper than the 8 bits a level keeps, any flags, cells
// in and outside the 32 columns a row holds, texts with any bytes: GBK,
// invalid, embedded NULs, unterminated views, many kilobytes) and a header
// of 1 to 36 columns, then plays up to 12 operations: keys, typing, clicks
// and double clicks on cells, expand boxes, the header and the scroll bars,
// header dividers dragged, the wheel, window resizes, full repaints, rows
// added, removed and reflagged as a host's refresh would, the focus taken
// away mid-edit. Each operation ends with a paint pass, as the message loop
// would run one once the user's gesture is handled. After each operation
// the grid must still agree with its rows: the list's line count equals the
// lines the rows show, the selection and the focus name lines that exist and
// the selected line's row is found back on that line, the current column
// lies within the header, and the scroll positions lie within their ranges.
// A broken invariant aborts; so does any crash or sanitizer report.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/support/fuzz_check.h"
#include "fuzz/support/fuzz_grid.h"
#include "platform/core/input_state.h"
#include "platform/core/paint.h"
#include "platform/input/input.h"
#include "platform/ole/clipboard.h"
#include "tests/support/test_host.h"
#include "tests/support/test_pane.h"

namespace {

constexpr DWORD kGridStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDRAWFIXED | LVS_OWNERDATA;
// Small, so that a paint pass draws few lines; inputs make it any size.
const CRect kPaneRect(0, 0, 240, 100);
constexpr int kMaxOperations = 12;
// Rows one input may make, the chain past the 8 bits of a level included.
constexpr int kRowBudget = 400;
constexpr int kMaxChain = 300;
constexpr size_t kMaxHugeText = 16384;
// The header between inputs: the watch's four columns.
constexpr int kDefaultColumns = 4;
constexpr int kDefaultWidths[kDefaultColumns] = {70, 50, 30, 50};
constexpr const char* kHeading = "Column";

void SetHeading(FuzzGrid& grid, std::string heading)
{
    LVCOLUMN column;
    column.mask = LVCF_TEXT;
    column.pszText = heading.data();
    grid.SetColumn(0, &column);
}

// The header between inputs; what already is as it should be is left alone.
void DefaultHeader(FuzzGrid& grid, bool heading)
{
    CHeaderCtrl* header = grid.GetHeaderCtrl();
    while (header->GetItemCount() > kDefaultColumns) grid.DeleteColumn(header->GetItemCount() - 1);
    while (header->GetItemCount() < kDefaultColumns) grid.InsertColumn(header->GetItemCount(), kHeading, LVCFMT_LEFT, 80);
    for (int c = 0; c < kDefaultColumns; ++c) {
        if (grid.GetColumnWidth(c) != kDefaultWidths[c]) grid.SetColumnWidth(c, kDefaultWidths[c]);
    }
    if (heading) SetHeading(grid, kHeading);
}

// The windows, made once: a host frame, the grid's pane and another pane to
// take the focus away.
struct World {
    TestHost host;
    TestPane pane;
    TestPane other;
    FuzzGrid grid;
    UINT editLimit = 0;
    bool headerChanged = false;

    World()
    {
        pane.view = &grid;
        FUZZ_CHECK(pane.CreatePane(&host, kPaneRect));
        FUZZ_CHECK(grid.Create(kGridStyle, CRect(1, 1, kPaneRect.right - 1, kPaneRect.bottom - 1), &pane, 100) != FALSE);
        FUZZ_CHECK(other.CreatePane(&host, CRect(kPaneRect.right, 0, kPaneRect.right + 200, kPaneRect.bottom)));
        editLimit = grid.EditBox().GetLimitText();
        DefaultHeader(grid, true);
        pane.SetRedraw(FALSE);
    }
};

// The input layer paints after every event it delivers: a drag or a typed
// word would draw the grid many times over, which costs more than anything
// the grid itself does. Drawing stays held at the pane (the list would redraw
// all of itself if its own flag were turned back on) but for one pass an
// operation.
void PaintPass(World& world)
{
    world.pane.SetRedraw(TRUE);
    Paint::UpdateAllWindows();
    world.pane.SetRedraw(FALSE);
}

World& TheWorld()
{
    static World* world = new World;  // lives to the end, as the windows do
    return *world;
}

// Bytes held in a block of exactly their size: a view of them has no
// terminator, so reading one byte past it is a sanitizer report.
class ExactBytes {
public:
    explicit ExactBytes(const std::string& text) : m_size(text.size()), m_bytes(new char[m_size ? m_size : 1])
    {
        std::memcpy(m_bytes.get(), text.data(), m_size);
    }
    std::string_view View() const { return {m_bytes.get(), m_size}; }

private:
    size_t m_size;
    std::unique_ptr<char[]> m_bytes;
};

// What an input picks takes the same bytes whatever the state (counts are
// taken modulo what exists), so that a seed still means what it was written
// for after the operations before it changed the grid.
int PickIndex(FuzzedDataProvider& in, int count)
{
    const auto byte = in.ConsumeIntegral<std::uint8_t>();
    return count > 0 ? byte % count : 0;
}

// Any bytes; now and then a piece repeated into many kilobytes.
std::string ConsumeText(FuzzedDataProvider& in)
{
    if (in.ConsumeIntegral<std::uint8_t>() < 240) return in.ConsumeRandomLengthString(320);
    std::string piece = in.ConsumeRandomLengthString(8);
    if (piece.empty()) piece = "\xD6\xB5";
    const size_t size = in.ConsumeIntegralInRange<size_t>(256, kMaxHugeText);
    std::string text;
    while (text.size() < size) text += piece;
    return text;
}

// The setters keep a cell text within 255 bytes, up to its first NUL.
void SetCellText(CGridRow* row, int c, const std::string& text)
{
    const int cellsBefore = row->CellCount();
    const ExactBytes bytes(text);
    row->SetCellText(c, bytes.View());
    const std::string_view kept = row->CellText(c);
    if (c < 0 || c >= kGridMaxCells) {
        FUZZ_CHECK(kept.empty() && row->CellCount() == cellsBefore);
        return;
    }
    const std::string_view given = std::string_view(text).substr(0, text.find('\0'));
    FUZZ_CHECK(kept.size() <= GridCellText::kMaxBytes && given.substr(0, kept.size()) == kept);
    if (given.size() <= GridCellText::kMaxBytes) FUZZ_CHECK(kept.size() == given.size());
}

// One cell change, of any kind, on any column.
void ChangeCell(FuzzedDataProvider& in, CGridRow* row)
{
    const int c = in.ConsumeIntegralInRange(-2, kGridMaxCells + 3);
    switch (in.ConsumeIntegralInRange(0, 6)) {
    case 0: {
        const bool enable = in.ConsumeBool();
        row->SetCellTextEdit(c, enable, in.ConsumeIntegral<int>());
        break;
    }
    case 1: {
        const bool enable = in.ConsumeBool();
        row->SetCellNumberEdit(c, enable, in.ConsumeIntegralInRange(-1, 40));
        break;
    }
    case 2: row->SetCellList(c, in.ConsumeBool()); break;
    case 3: row->SetCellIcon(c, in.ConsumeIntegral<int>()); break;
    case 4: row->SetCellKind(c, in.ConsumeIntegral<std::uint32_t>()); break;
    case 5: row->changed = in.ConsumeBool(); break;
    default: SetCellText(row, c, ConsumeText(in)); break;
    }
}

std::uint32_t ConsumeFlags(FuzzedDataProvider& in)
{
    const auto bits = in.ConsumeIntegral<std::uint8_t>();
    return bits == 0xFF ? in.ConsumeIntegral<std::uint32_t>() : bits & 0x1F;
}

// A row's own content: name, flags, level, cells.
void FillRow(FuzzedDataProvider& in, CGridRow* row)
{
    const ExactBytes name(ConsumeText(in));
    row->text = CString(name.View());
    row->SetFlags(ConsumeFlags(in));
    if (in.ConsumeIntegral<std::uint8_t>() == 0xFF) row->level = in.ConsumeIntegral<std::uint32_t>();
    const int cells = in.ConsumeIntegralInRange(0, 4);
    for (int i = 0; i < cells; ++i) ChangeCell(in, row);
    if (in.ConsumeIntegral<std::uint8_t>() == 0xFF) row->record = new GridRowRecord{};
}

// A row reached from the top by indexes the input picks; null for none.
CGridRow* WalkToRow(FuzzedDataProvider& in, CGridRowArray& top)
{
    CGridRow* row = nullptr;
    for (CGridRowArray* rows = &top; rows->GetSize() > 0;) {
        row = rows->GetRow(PickIndex(in, rows->GetSize()));
        if (!in.ConsumeBool()) break;
        rows = &row->children;
    }
    return row;
}

// New rows: under a walked-to row or at the top, at any index.
void AddRows(FuzzedDataProvider& in, FuzzGrid& grid, int count)
{
    for (int i = 0; i < count; ++i) {
        CGridRow* parent = in.ConsumeBool() ? WalkToRow(in, grid.Rows()) : nullptr;
        CGridRowArray& rows = parent ? parent->children : grid.Rows();
        CGridRow* row = grid.MakeRow(parent);
        if (!row) return;
        FillRow(in, row);
        rows.InsertRow(PickIndex(in, rows.GetSize() + 1), row);
        FUZZ_CHECK(row->Container() == &rows);
    }
}

// A chain of single children, each expanded, below a walked-to row.
void AddChain(FuzzedDataProvider& in, FuzzGrid& grid)
{
    CGridRow* above = WalkToRow(in, grid.Rows());
    const int depth = in.ConsumeIntegralInRange(1, kMaxChain);
    const std::uint32_t flags = in.ConsumeBool() ? GRF_PARENT | GRF_EXPANDED : ConsumeFlags(in);
    for (int i = 0; i < depth; ++i) {
        CGridRow* row = grid.MakeRow(above);
        if (!row) return;
        row->SetFlags(flags);
        (above ? above->children : grid.Rows()).AddRow(row);
        above = row;
    }
}

void BuildTree(FuzzedDataProvider& in, FuzzGrid& grid)
{
    AddRows(in, grid, in.ConsumeIntegralInRange(0, 24));
    if (in.ConsumeBool()) AddChain(in, grid);
    grid.SyncCount();
}

// The header: mostly the watch's four columns at their widths; now and then
// 1 to 6 columns, or more than a row has cells, and any widths from 0. Only
// what differs is changed, as each change is a round of notifications.
void SetColumns(FuzzedDataProvider& in, World& world)
{
    FuzzGrid& grid = world.grid;
    const auto shape = in.ConsumeIntegral<std::uint8_t>();
    if (shape < 0xC0) return;
    const int columns = shape >= 0xF8 ? kGridMaxCells + 1 + (shape & 3) : 1 + shape % 6;
    CHeaderCtrl* header = grid.GetHeaderCtrl();
    while (header->GetItemCount() > columns) grid.DeleteColumn(header->GetItemCount() - 1);
    while (header->GetItemCount() < columns) grid.InsertColumn(header->GetItemCount(), kHeading, LVCFMT_LEFT, 80);
    for (int c = 0; c < columns; ++c) {
        const int width = in.ConsumeIntegralInRange(0, 400);
        if (grid.GetColumnWidth(c) != width) grid.SetColumnWidth(c, width);
    }
    if (in.ConsumeBool()) SetHeading(grid, ConsumeText(in));
    world.headerChanged = true;
}

// What the input chooses before its rows: the hooks' parameters, the flags a
// derived grid sets, the clipboard and the header.
void Configure(World& world, FuzzedDataProvider& in)
{
    FuzzGrid& grid = world.grid;
    Input::Wait();  // the first click is a single one
    grid.RecordCtrlHeld();
    grid.rowBudget = kRowBudget;
    grid.childrenToMake = in.ConsumeIntegralInRange(0, 40);
    grid.childFlags = ConsumeFlags(in);
    grid.fixedRows = in.ConsumeBool();
    grid.m_menuLoop = in.ConsumeIntegral<std::uint8_t>() == 0xFF;
    grid.SetGridLines(in.ConsumeBool());
    SetClipboardText(world.host.GetSafeHwnd(), ConsumeText(in));
    SetColumns(in, world);
}

// Back to the state every input starts from, with everything the input
// allocated freed, so that an input replays alone and libFuzzer sees no
// more allocations than frees (which would make it look for leaks).
void Tidy(World& world)
{
    FuzzGrid& grid = world.grid;
    grid.rowBudget = 0;
    grid.SetFocus();
    grid.ComboBox().ShowDropDown(FALSE);
    grid.ComboBox().ShowWindow(SW_HIDE);
    grid.ComboBox().SetCurSel(-1);
    grid.ComboBox().TestAndClearModified();
    grid.EditBox().ShowWindow(SW_HIDE);
    grid.EditBox().SetLimitText(world.editLimit);
    grid.EditBox().Empty();
    grid.EditBox().EmptyUndoBuffer();
    ReleaseCapture();
    grid.DeleteAllRows();
    CRect pane;
    world.pane.GetWindowRect(&pane);
    if (pane.Width() != kPaneRect.Width() || pane.Height() != kPaneRect.Height()) world.pane.MoveWindow(&kPaneRect);
    grid.SetCurrentColumn(0);
    grid.Scroll(CSize(-(1 << 24), 0));
    DefaultHeader(grid, world.headerChanged);  // the user may have dragged a divider
    world.headerChanged = false;
    if (OpenClipboard(world.host.GetSafeHwnd())) {
        EmptyClipboard();
        CloseClipboard();
    }
    world.host.Clear();
}

// ---------------------------------------------------------------- points

CRect WindowInClient(CWnd& wnd)
{
    CRect window;
    wnd.GetWindowRect(&window);
    wnd.ScreenToClient(&window);
    return window;
}

// A line from one above the top one to a page below it.
int LineNear(FuzzedDataProvider& in, FuzzGrid& grid)
{
    return grid.GetTopIndex() + in.ConsumeIntegralInRange(-1, 8);
}

// A point of the grid: in a cell, in an expand zone, on a scroll bar or anywhere.
CPoint GridPoint(FuzzedDataProvider& in, FuzzGrid& grid)
{
    CRect client;
    grid.GetClientRect(&client);
    const CRect window = WindowInClient(grid);
    const int dx = in.ConsumeIntegralInRange(-3, 3);
    const int dy = in.ConsumeIntegralInRange(-3, 3);
    const int kind = in.ConsumeIntegralInRange(0, 4);
    const int line = LineNear(in, grid);
    const int along = in.ConsumeIntegral<std::uint16_t>();
    switch (kind) {
    case 0: {
        CRect cell;
        const int column = PickIndex(in, grid.GetHeaderCtrl()->GetItemCount() + 1);
        if (!grid.GetSubItemRect(line, column, LVIR_LABEL, cell)) return CPoint(dx, dy);
        return cell.CenterPoint() + CPoint(dx, dy);
    }
    case 1: {
        CRect first, bounds;
        const CGridRow* row = grid.GetRowAt(line);
        if (!row || !grid.GetItemRect(0, &first, LVIR_BOUNDS) || !grid.GetItemRect(line, &bounds, LVIR_BOUNDS))
            return CPoint(dx, dy);
        const int unit = first.Height() / 4 + 4;
        return CPoint(bounds.left + unit * row->Level() + unit / 2 + dx, bounds.CenterPoint().y + dy);
    }
    case 2:  // the vertical bar, arrows and thumb included
        return CPoint(client.right + std::abs(dx) * 3, along % (client.bottom + 1));
    case 3:  // the horizontal bar
        return CPoint(along % (client.right + 1), client.bottom + std::abs(dy) * 3);
    default:
        return CPoint(window.left - 4 + along % (window.Width() + 9), window.top - 4 + line * 7 % (window.Height() + 9));
    }
}

// A header item and a point on it: within it, or on its right divider.
CPoint HeaderPoint(FuzzedDataProvider& in, CHeaderCtrl& header, bool divider)
{
    const int index = PickIndex(in, header.GetItemCount());
    const int offset = in.ConsumeIntegralInRange(-3, 400);
    CRect item;
    if (!header.GetItemRect(index, &item)) return CPoint(offset, 0);
    return CPoint(divider ? item.right + offset % 6 : item.left + offset, item.CenterPoint().y);
}

// ---------------------------------------------------------------- operations

constexpr UINT kKeys[] = {VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_PRIOR, VK_NEXT, VK_HOME, VK_END,  VK_RETURN,
                          VK_ESCAPE, VK_F2, VK_DELETE, VK_INSERT, VK_TAB, VK_BACK, VK_SPACE, 'A',  'F',
                          'M', 'V', 'C', 'X', 'Z', '0', '7'};

unsigned ConsumeModifiers(FuzzedDataProvider& in)
{
    const auto bits = in.ConsumeIntegral<std::uint8_t>();
    return bits < 0xC0 ? Input::kNone : (bits & (Input::kShift | Input::kControl | Input::kAlt));
}

void Operate(FuzzedDataProvider& in, World& world)
{
    FuzzGrid& grid = world.grid;
    CHeaderCtrl& header = *grid.GetHeaderCtrl();
    switch (in.ConsumeIntegralInRange(0, 19)) {
    case 0:
    case 1: {
        const UINT key = in.PickValueInArray(kKeys);
        Input::Key(key, ConsumeModifiers(in));
        break;
    }
    case 2: Input::Type(in.ConsumeRandomLengthString(24)); break;
    case 3: {
        if (in.ConsumeBool()) Input::Wait();
        const CPoint point = GridPoint(in, grid);
        Input::Click(&grid, point, ConsumeModifiers(in));
        break;
    }
    case 4: Input::DoubleClick(&grid, GridPoint(in, grid)); break;
    case 5: Input::RightClick(&grid, GridPoint(in, grid)); break;
    case 6: {
        const CPoint from = GridPoint(in, grid);
        const CPoint to = GridPoint(in, grid);
        Input::Drag(&grid, from, to, in.ConsumeIntegralInRange(1, 4));
        break;
    }
    case 7: {
        const CPoint point = GridPoint(in, grid);
        Input::Wheel(&grid, point, WHEEL_DELTA * in.ConsumeIntegralInRange(-4, 4));
        break;
    }
    case 8: Input::Click(&header, HeaderPoint(in, header, false)); break;
    case 9: {
        const CPoint from = HeaderPoint(in, header, true);
        const int dx = in.ConsumeIntegralInRange(-300, 300);
        const int dy = in.ConsumeIntegralInRange(-5, 5);
        Input::Drag(&header, from, from + CPoint(dx, dy), in.ConsumeIntegralInRange(1, 4));
        break;
    }
    case 10: Input::DoubleClick(&header, HeaderPoint(in, header, true)); break;
    case 11: {
        const int width = in.ConsumeIntegralInRange(0, 1000);
        const int height = in.ConsumeIntegralInRange(0, 800);
        world.pane.MoveWindow(0, 0, width, height);
        break;
    }
    case 12: grid.Invalidate(); break;
    case 13: world.other.SetFocus(); break;  // the user works in another pane
    case 14:  // a refresh brings rows
        AddRows(in, grid, in.ConsumeIntegralInRange(1, 4));
        grid.SyncCount();
        break;
    case 15:  // a refresh takes a row, and its children, away
        if (CGridRow* row = WalkToRow(in, grid.Rows())) {
            CGridRowArray* rows = row->Container();
            rows->DeleteRows(rows->IndexOf(row), 1);
            grid.SyncCount();
        }
        break;
    case 16:  // a refresh changes a row's flags or cells
        if (CGridRow* row = WalkToRow(in, grid.Rows())) {
            if (in.ConsumeBool()) {
                row->SetFlags(ConsumeFlags(in));
            } else {
                ChangeCell(in, row);
            }
            grid.SyncCount();
            grid.Invalidate(FALSE);
        }
        break;
    case 17:
        grid.ToggleExpand(LineNear(in, grid));
        break;
    case 18:
        grid.SelectItem(LineNear(in, grid));
        break;
    default:
        if (in.ConsumeBool()) {
            grid.StartEdit(in.ConsumeBool());
        } else {
            grid.EndEdit();
        }
        break;
    }
}

// ---------------------------------------------------------------- invariants

void CheckScroll(FuzzGrid& grid, int bar)
{
    SCROLLINFO info;
    info.fMask = SIF_ALL;
    if (!grid.GetScrollInfo(bar, &info)) return;
    const int last = std::max(info.nMin, info.nMax - std::max(static_cast<int>(info.nPage), 1) + 1);
    FUZZ_CHECK(info.nPos >= info.nMin && info.nPos <= last);
}

void CheckGrid(FuzzGrid& grid)
{
    const int count = grid.GetItemCount();
    FUZZ_CHECK(count == grid.CountVisibleRows(grid.Rows()));
    const int selected = grid.GetSelectedItem();
    const int focused = grid.GetNextItem(-1, LVNI_FOCUSED);
    FUZZ_CHECK(selected >= -1 && selected < count);
    FUZZ_CHECK(focused >= -1 && focused < count);
    if (selected != -1) {
        const CGridRow* row = grid.GetRowAt(selected);
        FUZZ_CHECK(row != nullptr && DisplayLineOf(grid.Rows(), row) == selected);
        const CGridRowArray* rows = row->Container();
        const int index = rows->IndexOf(row);
        FUZZ_CHECK(row->prev == rows->GetRow(index - 1) && row->next == rows->GetRow(index + 1));
    }
    const int columns = grid.GetHeaderCtrl()->GetItemCount();
    FUZZ_CHECK(grid.GetCurrentColumn() >= 0 && grid.GetCurrentColumn() < std::max(columns, 1));
    const int top = grid.GetTopIndex();
    FUZZ_CHECK(top >= 0 && top <= std::max(count - 1, 0));
    CheckScroll(grid, SB_VERT);
    CheckScroll(grid, SB_HORZ);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    World& world = TheWorld();
    FuzzedDataProvider in(data, size);
    Configure(world, in);
    BuildTree(in, world.grid);
    PaintPass(world);
    CheckGrid(world.grid);
    for (int i = 0; i < kMaxOperations && in.remaining_bytes() > 0; ++i) {
        Operate(in, world);
        PaintPass(world);
        CheckGrid(world.grid);
    }
    Tidy(world);
    return 0;
}
