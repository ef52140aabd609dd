// The watch at scale: finding the row on a line deep in 100,000 display lines
// against one near the top, painting a page there against a page at the top,
// expanding an array of 10,000 elements and one of 65,536 (all of xdata),
// what a row holds, and refreshing 1,000 expressions against a service that
// answers at once. Each must cost what it looks at or changes, not what lies
// before it.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "bench/support/heap_counter.h"
#include "host/host_messages.h"
#include "host/host_records.h"
#include "platform/core/paint.h"
#include "platform/core/thread.h"
#include "platform/docking/frame_wnd.h"
#include "watch/watch_format.h"
#include "watch/watch_grid_ctrl.h"

namespace {

constexpr int kStructures = 20000;
constexpr int kMembers = 4;  // so 100,000 lines with every structure expanded
constexpr int kDeepLine = 50000;
constexpr int kShallowLine = 10;
constexpr int kElements = 10000;
constexpr int kXdataBytes = 65536;
constexpr int kRefreshedRows = 1000;

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

// An array the service knows by name.
struct BenchArray {
    const char* name;
    std::int32_t count;
    std::uint32_t elementType;
    std::uint32_t elementSize;
};
constexpr BenchArray kArrays[] = {
    {"table", kElements, WT_INT, 2},
    {"xdata", kXdataBytes, WT_CHAR, 1},
};

const BenchArray* ArrayNamed(const char* name)
{
    for (const BenchArray& array : kArrays) {
        if (std::strcmp(name, array.name) == 0) return &array;
    }
    return nullptr;
}

// A service that answers at once: every expression is an int, "table" an
// array of 10,000 ints and "xdata" one of 65,536 chars, each handed over as
// one block.
class InstantService : public CWnd {
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != UWM_DEBUG_REQUEST) return CWnd::WindowProc(message, wParam, lParam);
        auto* record = reinterpret_cast<WatchRecord*>(lParam);
        if (wParam > kLastDebugRequest) {
            *record = Scalar(0x100, 7);
            if (const BenchArray* array = ArrayNamed(reinterpret_cast<const char*>(wParam))) {
                record->type = WT_ARRAY;
                record->size = array->elementSize * static_cast<std::uint32_t>(array->count);
                record->count = array->count;
                // The service's own note of which array this is.
                record->serviceData1 = static_cast<std::uint32_t>(array - kArrays);
            }
        } else if (wParam == DRQ_GET_COUNT) {
            record->count = record->type == WT_ARRAY ? kArrays[record->serviceData1].count : 0;
        } else if (wParam == DRQ_GET_ELEMENTS) {
            auto* block = reinterpret_cast<ElementBlock*>(lParam);
            const BenchArray& array = kArrays[block->array->serviceData1];
            const auto bytes = static_cast<std::size_t>(array.count) * array.elementSize;
            *block->element = Scalar(0x100, 0);
            block->element->type = array.elementType;
            block->element->size = array.elementSize;
            block->data = static_cast<std::uint8_t*>(std::calloc(bytes, 1));
            block->valid = static_cast<std::uint8_t*>(std::malloc(bytes));
            std::memset(block->valid, 1, bytes);
        }
        return 0;
    }
};

// The main frame: hands out its records, whose context names the service.
class BenchHost : public CFrameWnd {
public:
    BenchHost()
    {
        m_data.context = &m_context;
        Create(nullptr, "bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 720, 800));
        m_service.Create(nullptr, "service", WS_CHILD, CRect(0, 0, 0, 0), this, 0);
        m_context.debuggerWindow = m_service.GetSafeHwnd();
        m_app.m_pMainWnd = this;
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == UWM_GET_APP_DATA && lParam) {
            *reinterpret_cast<AppData**>(lParam) = &m_data;
            return 0;
        }
        return CFrameWnd::WindowProc(message, wParam, lParam);
    }

private:
    CWinApp m_app;
    AppData m_data;
    ProjectContext m_context;
    InstantService m_service;
};

BenchHost& Host()
{
    // Kept for the whole run: the platform's windows outlive no benchmark.
    static BenchHost* host = new BenchHost;
    return *host;
}

// A watch in the host, cleared.
struct Watch {
    CWatchGridCtrl grid;

    Watch()
    {
        grid.Create(&Host());
        grid.Layout(0, 0, 700, 780);
        grid.SendMessage(UWM_WATCH_CLEAR, 0, 0);
    }

    // Scrolls so that the line is the first one shown, and paints.
    void ShowFrom(int line)
    {
        grid.EnsureVisible(grid.GetItemCount() - 1, FALSE);
        grid.EnsureVisible(line, FALSE);
        Paint::UpdateAllWindows();
    }

    void PaintPage()
    {
        grid.Invalidate(FALSE);
        Paint::UpdateAllWindows();
    }
};

// 20,000 expanded structures of four members each: 100,000 lines.
Watch& Structures()
{
    static Watch* watch = [] {
        auto* w = new Watch;
        for (int s = 0; s < kStructures; ++s) {
            CGridRow* row = MakeWatchRow(("cfg[" + std::to_string(s) + "]").c_str());
            WatchRecord* record = RecordOf(row);
            *record = Scalar(static_cast<std::uint32_t>(s * 8), 0);
            record->type = 32;
            record->typeRef = 1;
            record->count = kMembers;
            w->grid.InitRowCells(row);
            FormatRow(row, TRUE);
            for (int m = 0; m < kMembers; ++m) {
                CGridRow* member = MakeWatchRow("");
                *RecordOf(member) = Scalar(static_cast<std::uint32_t>(s * 8 + m * 2), static_cast<std::uint32_t>(m));
                std::snprintf(RecordOf(member)->name, sizeof RecordOf(member)->name, "field%d", m);
                member->parent = row;
                member->level = 1;
                row->children.AddRow(member);
                w->grid.UpdateRow(member, FALSE);
            }
            row->MarkExpanded();
            w->grid.Rows().AddRow(row);
        }
        w->grid.SetItemCount(w->grid.CountVisibleRows(w->grid.Rows()));
        return w;
    }();
    return *watch;
}

void FindRowAtLine(benchmark::State& state)
{
    Watch& watch = Structures();
    const int line = static_cast<int>(state.range(0));
    for (auto _ : state) {
        int counter = 0;
        benchmark::DoNotOptimize(watch.grid.FindRowAt(line, &watch.grid.Rows(), &counter));
        benchmark::DoNotOptimize(counter);
    }
    state.counters["lines"] = watch.grid.GetItemCount();
}
BENCHMARK(FindRowAtLine)->Arg(kShallowLine)->Arg(kDeepLine)->Unit(benchmark::kNanosecond);

void LineOfRowDeep(benchmark::State& state)
{
    Watch& watch = Structures();
    const CGridRow* row = watch.grid.GetRowAt(kDeepLine);
    for (auto _ : state) benchmark::DoNotOptimize(watch.grid.LineOfRow(row));
}
BENCHMARK(LineOfRowDeep)->Unit(benchmark::kNanosecond);

void PaintPageAtLine(benchmark::State& state)
{
    Watch& watch = Structures();
    watch.ShowFrom(static_cast<int>(state.range(0)));
    for (auto _ : state) watch.PaintPage();
    state.counters["top"] = watch.grid.GetTopIndex();
    state.counters["lines"] = watch.grid.GetCountPerPage();
}
BENCHMARK(PaintPageAtLine)->Arg(0)->Arg(kDeepLine)->Unit(benchmark::kMicrosecond);

// A watch with the array's expression added, not expanded.
std::unique_ptr<Watch> WatchOfArray(const char* name)
{
    auto watch = std::make_unique<Watch>();
    watch->grid.SendMessage(UWM_WATCH_ADD_EXPRESSION, reinterpret_cast<WPARAM>(name), 0);
    return watch;
}

// An array's first expansion: one request for the count, one for all the
// elements, a row made for each from the bytes. Reports what the expansion
// keeps on the heap for each element and the most it held at once, counted
// in one more expansion outside the timing.
void ExpandArray(benchmark::State& state, const char* name)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto watch = WatchOfArray(name);
        state.ResumeTiming();
        watch->grid.ToggleExpand(0);
        state.PauseTiming();
        watch.reset();
        state.ResumeTiming();
    }
    const auto watch = WatchOfArray(name);
    heap_counter::Start();
    watch->grid.ToggleExpand(0);
    heap_counter::Stop();
    state.counters["kept_per_row"] = static_cast<double>(heap_counter::Growth()) / ArrayNamed(name)->count;
    state.counters["peak_MiB"] = static_cast<double>(heap_counter::PeakGrowth()) / (1 << 20);
}

void ExpandArray10000(benchmark::State& state)
{
    ExpandArray(state, "table");
}
BENCHMARK(ExpandArray10000)->Unit(benchmark::kMillisecond);

// All of an 8051's xdata as an array of chars.
void ExpandArray65536(benchmark::State& state)
{
    ExpandArray(state, "xdata");
}
BENCHMARK(ExpandArray65536)->Unit(benchmark::kMillisecond);

// A watch row with all four columns filled, an element's texts among them,
// and its record, as the heap holds them.
void WatchRowHeapBytes(benchmark::State& state)
{
    static Watch* watch = new Watch;
    std::ptrdiff_t held = 0;
    int cells = 0;
    for (auto _ : state) {
        heap_counter::Start();
        CGridRow* row = MakeWatchRow("");
        *RecordOf(row) = Scalar(0x100, 65);
        std::snprintf(RecordOf(row)->name, sizeof RecordOf(row)->name, "[%02d]", 1234);
        watch->grid.UpdateRow(row, FALSE);
        row->SetCellTextEdit(kExpressionColumn, TRUE, -1);
        held = heap_counter::Growth();
        heap_counter::Stop();
        cells = row->CellCount();
        delete row;
    }
    state.counters["bytes"] = static_cast<double>(held);
    state.counters["cells"] = cells;
}
BENCHMARK(WatchRowHeapBytes)->Unit(benchmark::kNanosecond);

// A page in the middle of the expanded array against one at its top.
void PaintPageInArray(benchmark::State& state)
{
    static Watch* watch = [] {
        auto* w = new Watch;
        w->grid.SendMessage(UWM_WATCH_ADD_EXPRESSION, reinterpret_cast<WPARAM>("table"), 0);
        w->grid.ToggleExpand(0);
        return w;
    }();
    watch->ShowFrom(static_cast<int>(state.range(0)));
    for (auto _ : state) watch->PaintPage();
    state.counters["top"] = watch->grid.GetTopIndex();
}
BENCHMARK(PaintPageInArray)->Arg(0)->Arg(kElements / 2)->Unit(benchmark::kMicrosecond);

void Refresh1000(benchmark::State& state)
{
    static Watch* watch = [] {
        auto* w = new Watch;
        w->grid.SendMessage(UWM_WATCH_CLEAR, 0, 0);
        CStringArray list;
        for (int i = 0; i < kRefreshedRows; ++i) list.Add(("v" + std::to_string(i)).c_str());
        w->grid.SendMessage(UWM_WATCH_EXPRESSIONS, reinterpret_cast<WPARAM>(&list), FALSE);
        return w;
    }();
    for (auto _ : state) watch->grid.SendMessage(UWM_WATCH_REFRESH, 0, 0);
    state.counters["rows"] = watch->grid.GetItemCount();
}
BENCHMARK(Refresh1000)->Unit(benchmark::kMicrosecond);

}  // namespace
