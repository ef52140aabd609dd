// The grid: drawing one line and a page of 40 lines, expanding a row into
// 10,000 children and collapsing it again, and the display lines of a tree
// of 100,000 lines: the row on a line, appending rows, expanding one row.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "grid/grid_ctrl.h"
#include "platform/core/paint.h"
#include "platform/core/paint_dc.h"
#include "platform/docking/frame_wnd.h"

namespace {

constexpr int kChildren = 10000;
constexpr int kPageLines = 40;

class BenchGrid : public CGridCtrl {
public:
    // Walks the shown rows in display order, skipping collapsed subtrees.
    CGridRow* FindRowAt(int displayIndex, CGridRowArray* rows, int* counter) override
    {
        return FindRowInDisplayOrder(displayIndex, rows, counter);
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == UWM_GRID_FILL_CHILDREN) {
            auto* row = reinterpret_cast<CGridRow*>(wParam);
            for (int i = 0; i < kChildren; ++i) {
                auto* child = new CGridRow;
                child->parent = row;
                child->level = row->level + 1;
                child->text = ("element[" + std::to_string(i) + "]").c_str();
                child->SetCellText(1, "0x1234");
                row->children.AddRow(child);
            }
            return 0;
        }
        return CGridCtrl::WindowProc(message, wParam, lParam);
    }
};

// A grid of three columns in a frame, without rows.
struct GridWindow {
    CFrameWnd frame;
    BenchGrid grid;

    GridWindow()
    {
        frame.Create(nullptr, "bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 500, 800));
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDRAWFIXED | LVS_OWNERDATA,
                    CRect(0, 0, 480, 780), &frame, 100);
        grid.InsertColumn(0, "Name", LVCFMT_LEFT, 160);
        grid.InsertColumn(1, "Value", LVCFMT_LEFT, 120);
        grid.InsertColumn(2, "Format", LVCFMT_LEFT, 60);
    }
};

// One row expanded into 10,000 children.
struct Fixture : GridWindow {
    Fixture()
    {
        auto* row = new CGridRow;
        row->text = "table";
        row->SetFlags(GRF_PARENT | GRF_COLLAPSED);
        grid.Rows().AddRow(row);
        grid.SetItemCount(1);
        grid.ToggleExpand(0);
    }

    void DrawLines(int count)
    {
        CClientDC dc(&grid);
        for (int i = 0; i < count; ++i) {
            DRAWITEMSTRUCT draw;
            draw.CtlType = ODT_LISTVIEW;
            draw.itemID = static_cast<UINT>(i);
            draw.hDC = dc.GetSafeHdc();
            grid.GetItemRect(i, &draw.rcItem, LVIR_BOUNDS);
            grid.DrawItem(&draw);
        }
    }
};

void DrawOneLine(benchmark::State& state)
{
    Fixture fixture;
    for (auto _ : state) fixture.DrawLines(1);
}
BENCHMARK(DrawOneLine)->Unit(benchmark::kMicrosecond);

void DrawPage(benchmark::State& state)
{
    Fixture fixture;
    for (auto _ : state) fixture.DrawLines(kPageLines);
}
BENCHMARK(DrawPage)->Unit(benchmark::kMicrosecond);

// The whole window through the paint pass: header, lines drawn on
// WM_DRAWITEM, and the uncovered background.
void PaintWindow(benchmark::State& state)
{
    Fixture fixture;
    for (auto _ : state) {
        fixture.grid.Invalidate(FALSE);
        Paint::UpdateAllWindows();
    }
    state.counters["lines"] = fixture.grid.GetCountPerPage();
}
BENCHMARK(PaintWindow)->Unit(benchmark::kMicrosecond);

// The children exist: each expand and each collapse changes the counts above the row.
void ExpandAndCollapse10000(benchmark::State& state)
{
    Fixture fixture;
    for (auto _ : state) {
        fixture.grid.ToggleExpand(0);
        fixture.grid.ToggleExpand(0);
    }
    state.counters["lines"] = fixture.grid.GetItemCount();
}
BENCHMARK(ExpandAndCollapse10000)->Unit(benchmark::kMicrosecond);

// The first expand, with the derived class making the 10,000 children.
void FirstExpand10000(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto fixture = std::make_unique<Fixture>();
        fixture->grid.ToggleExpand(0);  // collapse
        fixture->grid.Rows().GetRow(0)->children.DeleteAll();
        fixture->grid.SetItemCount(1);
        state.ResumeTiming();
        fixture->grid.ToggleExpand(0);
        state.PauseTiming();
        fixture.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(FirstExpand10000)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------- 100,000 display lines

constexpr int kTopRows = 50000;
// Every tenth top-level row is expanded with ten children: 100,000 lines.
constexpr int kParentEvery = 10;
constexpr int kChildrenEach = 10;
constexpr int kAppendedRows = 100000;

CGridRow* NewBenchRow(int i)
{
    auto* row = new CGridRow;
    row->text = ("row" + std::to_string(i)).c_str();
    return row;
}

// One grid of 100,000 lines, built once for every benchmark that reads it.
struct LargeFixture : GridWindow {
    LargeFixture()
    {
        for (int i = 0; i < kTopRows; ++i) {
            CGridRow* row = NewBenchRow(i);
            if (i % kParentEvery == 0) {
                row->SetFlags(GRF_PARENT | GRF_EXPANDED);
                for (int c = 0; c < kChildrenEach; ++c) row->children.AddRow(NewBenchRow(c));
            }
            grid.Rows().AddRow(row);
        }
        grid.SetItemCount(grid.CountVisibleRows(grid.Rows()));
    }

    static LargeFixture& Get()
    {
        static LargeFixture fixture;
        return fixture;
    }
};

// The walk every lookup used to take, for comparison.
CGridRow* WalkToLine(int displayIndex, const CGridRowArray& rows, int& counter)
{
    for (int i = 0; i < rows.GetSize(); ++i) {
        CGridRow* row = rows.GetRow(i);
        if (counter++ == displayIndex) return row;
        if (row->ShowsChildren()) {
            if (CGridRow* found = WalkToLine(displayIndex, row->children, counter)) return found;
        }
    }
    return nullptr;
}

// The row on line 10 or line 50,000 of 100,000.
void FindRowOnLine(benchmark::State& state)
{
    CGridRowArray& rows = LargeFixture::Get().grid.Rows();
    const int line = static_cast<int>(state.range(0));
    for (auto _ : state) {
        int counter = 0;
        benchmark::DoNotOptimize(FindRowInDisplayOrder(line, &rows, &counter));
    }
    state.counters["lines"] = rows.ShownLines();
}
BENCHMARK(FindRowOnLine)->Arg(10)->Arg(50000)->Unit(benchmark::kNanosecond);

void WalkToRowOnLine(benchmark::State& state)
{
    const CGridRowArray& rows = LargeFixture::Get().grid.Rows();
    const int line = static_cast<int>(state.range(0));
    for (auto _ : state) {
        int counter = 0;
        benchmark::DoNotOptimize(WalkToLine(line, rows, counter));
    }
}
BENCHMARK(WalkToRowOnLine)->Arg(10)->Arg(50000)->Unit(benchmark::kMicrosecond);

// The line of the row on line 50,000, a child of an expanded row.
void DisplayLineOfRow(benchmark::State& state)
{
    CGridRowArray& rows = LargeFixture::Get().grid.Rows();
    int counter = 0;
    const CGridRow* row = FindRowInDisplayOrder(50005, &rows, &counter);
    for (auto _ : state) benchmark::DoNotOptimize(DisplayLineOf(rows, row));
}
BENCHMARK(DisplayLineOfRow)->Unit(benchmark::kNanosecond);

// Collapsing and expanding the first row of the 100,000-line grid through the
// grid, which finds the row and sets the list's item count each time.
void ToggleOneOf100000(benchmark::State& state)
{
    BenchGrid& grid = LargeFixture::Get().grid;
    for (auto _ : state) {
        grid.ToggleExpand(0);
        grid.ToggleExpand(0);
    }
    state.counters["lines"] = grid.GetItemCount();
}
BENCHMARK(ToggleOneOf100000)->Unit(benchmark::kMicrosecond);

// The same on the rows alone, a row near the top, each change followed by a
// lookup of line 50,000 that brings the counts up to date.
void CollapseExpandAndLookUp(benchmark::State& state)
{
    CGridRowArray& rows = LargeFixture::Get().grid.Rows();
    CGridRow* row = rows.GetRow(kParentEvery);
    for (auto _ : state) {
        int counter = 0;
        row->MarkCollapsed();
        benchmark::DoNotOptimize(FindRowInDisplayOrder(50000, &rows, &counter));
        counter = 0;
        row->MarkExpanded();
        benchmark::DoNotOptimize(FindRowInDisplayOrder(50000, &rows, &counter));
    }
}
BENCHMARK(CollapseExpandAndLookUp)->Unit(benchmark::kNanosecond);

// Appending rows one at a time, the last line looked up after each; the rows
// are made once and taken out again outside the timing.
void AppendAndLookUp(benchmark::State& state)
{
    static std::vector<CGridRow*> pool = [] {
        std::vector<CGridRow*> rows;
        for (int i = 0; i < kAppendedRows; ++i) rows.push_back(NewBenchRow(i));
        return rows;
    }();
    const int n = static_cast<int>(state.range(0));
    CGridRowArray rows;
    for (auto _ : state) {
        for (int i = 0; i < n; ++i) {
            rows.AddRow(pool[static_cast<size_t>(i)]);
            int counter = 0;
            benchmark::DoNotOptimize(FindRowInDisplayOrder(i, &rows, &counter));
        }
        state.PauseTiming();
        for (int i = n - 1; i >= 0; --i) rows.RemoveRow(i);
        state.ResumeTiming();
    }
    state.SetComplexityN(n);
}
BENCHMARK(AppendAndLookUp)->Arg(25000)->Arg(50000)->Arg(100000)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);

}  // namespace
