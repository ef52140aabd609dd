// The cost of feeding a rich edit control the way the build output does:
// each record selects the end, replaces the selection with one line and
// colours that line. The cost per record should not grow with the text.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

#include "platform/controls/rich_edit_ctrl.h"

namespace {

struct Output {
    Output()
    {
        parent.CreateEx(0, "BenchParent", "bench", WS_OVERLAPPED | WS_VISIBLE, CRect(0, 0, 640, 480), nullptr, 0);
        edit.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_VSCROLL | WS_HSCROLL,
                    CRect(0, 0, 600, 400), &parent, 1);
    }
    ~Output()
    {
        edit.DestroyWindow();
        parent.DestroyWindow();
    }

    void Append(int record)
    {
        char line[96];
        std::snprintf(line, sizeof line, "main.c(%d): warning C280: 'i': unreferenced local variable\r\n", record);
        edit.SetSel(-1, -1);
        long start = 0, end = 0;
        edit.GetSel(start, end);
        edit.ReplaceSel(line);
        edit.SetSel(start, -1);
        CHARFORMAT cf;
        cf.cbSize = sizeof cf;
        cf.dwMask = CFM_COLOR;
        cf.crTextColor = record % 2 ? RGB(200, 0, 0) : RGB(0, 0, 160);
        edit.SetSelectionCharFormat(cf);
    }

    CWnd parent;
    CRichEditCtrl edit;
};

// Whole runs: N records into an empty control; items/s is records per second.
void BM_AppendRecords(benchmark::State& state)
{
    const int records = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto output = std::make_unique<Output>();
        state.ResumeTiming();
        for (int i = 0; i < records; ++i) output->Append(i);
        benchmark::DoNotOptimize(output->edit.GetLineCount());
        state.PauseTiming();
        output.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * records);
}
BENCHMARK(BM_AppendRecords)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

// One record at a time into a control already holding N lines.
void BM_AppendOneRecord(benchmark::State& state)
{
    Output output;
    const int lines = static_cast<int>(state.range(0));
    for (int i = 0; i < lines; ++i) output.Append(i);
    int record = lines;
    for (auto _ : state) output.Append(record++);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_AppendOneRecord)->Arg(1000)->Arg(100000)->Iterations(2000)->Unit(benchmark::kMicrosecond);

// EM_LINEINDEX and EM_EXLINEFROMCHAR over a control holding N lines.
void BM_LineLookups(benchmark::State& state)
{
    Output output;
    const int lines = static_cast<int>(state.range(0));
    for (int i = 0; i < lines; ++i) output.Append(i);
    unsigned seed = 1;
    for (auto _ : state) {
        seed = seed * 1103515245u + 12345u;
        const int line = static_cast<int>(seed % static_cast<unsigned>(lines));
        const int start = output.edit.LineIndex(line);
        benchmark::DoNotOptimize(output.edit.LineFromChar(start + 3));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_LineLookups)->Arg(1000)->Arg(100000)->Unit(benchmark::kNanosecond);

}  // namespace
