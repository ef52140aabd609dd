// The watch at 100,000 display lines: finding the row on a line deep in the
// grid against one near the top, and painting a page there against a page at
// the top. Both must cost what they look at, not what lies before it.
#include <benchmark/benchmark.h>

#include <string>

#include "platform/core/paint.h"
#include "platform/docking/frame_wnd.h"
#include "watch/watch_format.h"
#include "watch/watch_grid_ctrl.h"

namespace {

constexpr int kStructures = 20000;
constexpr int kMembers = 4;  // so 100,000 lines with every structure expanded
constexpr int kDeepLine = 50000;
constexpr int kShallowLine = 10;

WatchRecord Scalar(std::uint32_t address, std::uint32_t value)
{
    WatchRecord record{};
    record.status = 1;
    record.type = 4;  // int
    record.space = WS_XDATA;
    record.size = 2;
    record.address = address;
    record.value = value;
    return record;
}

struct WatchFixture {
    CFrameWnd frame;
    CWatchGridCtrl grid;

    WatchFixture()
    {
        frame.Create(nullptr, "bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 720, 800));
        grid.Create(&frame);
        grid.Layout(0, 0, 700, 780);
        grid.SendMessage(UWM_WATCH_CLEAR, 0, 0);
        for (int s = 0; s < kStructures; ++s) {
            CGridRow* row = MakeWatchRow(("cfg[" + std::to_string(s) + "]").c_str());
            WatchRecord* record = RecordOf(row);
            *record = Scalar(static_cast<std::uint32_t>(s * 8), 0);
            record->type = 32;
            record->typeRef = 1;
            record->count = kMembers;
            grid.InitRowCells(row);
            FormatRow(row, TRUE);
            for (int m = 0; m < kMembers; ++m) {
                CGridRow* member = MakeWatchRow("");
                *RecordOf(member) = Scalar(static_cast<std::uint32_t>(s * 8 + m * 2), static_cast<std::uint32_t>(m));
                std::snprintf(RecordOf(member)->name, sizeof RecordOf(member)->name, "field%d", m);
                member->parent = row;
                member->level = 1;
                row->children.AddRow(member);
                grid.UpdateRow(member, FALSE);
            }
            row->MarkExpanded();
            grid.Rows().AddRow(row);
        }
        grid.SetItemCount(grid.CountVisibleRows(grid.Rows()));
    }

    // Scrolls so that the line is the first one shown.
    void ShowFrom(int line)
    {
        grid.EnsureVisible(grid.GetItemCount() - 1, FALSE);
        grid.EnsureVisible(line, FALSE);
        Paint::UpdateAllWindows();
    }
};

WatchFixture& Shared()
{
    static WatchFixture fixture;
    return fixture;
}

void FindRowAtLine(benchmark::State& state)
{
    WatchFixture& fixture = Shared();
    const int line = static_cast<int>(state.range(0));
    for (auto _ : state) {
        int counter = 0;
        benchmark::DoNotOptimize(fixture.grid.FindRowAt(line, &fixture.grid.Rows(), &counter));
        benchmark::DoNotOptimize(counter);
    }
    state.counters["lines"] = fixture.grid.GetItemCount();
}
BENCHMARK(FindRowAtLine)->Arg(kShallowLine)->Arg(kDeepLine)->Unit(benchmark::kNanosecond);

void PaintPageAtLine(benchmark::State& state)
{
    WatchFixture& fixture = Shared();
    fixture.ShowFrom(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        fixture.grid.Invalidate(FALSE);
        Paint::UpdateAllWindows();
    }
    state.counters["top"] = fixture.grid.GetTopIndex();
    state.counters["lines"] = fixture.grid.GetCountPerPage();
}
BENCHMARK(PaintPageAtLine)->Arg(0)->Arg(kDeepLine)->Unit(benchmark::kMicrosecond);

void LineOfRowDeep(benchmark::State& state)
{
    WatchFixture& fixture = Shared();
    const CGridRow* row = fixture.grid.GetRowAt(kDeepLine);
    for (auto _ : state) benchmark::DoNotOptimize(fixture.grid.LineOfRow(row));
}
BENCHMARK(LineOfRowDeep)->Unit(benchmark::kNanosecond);

}  // namespace
