// Appending records to a message view: the cost of one append must not grow
// with the number of records already shown.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "output/message_edit_ctrl.h"
#include "platform/docking/frame_wnd.h"

namespace {

MessageLineRecord BuildLine(int index)
{
    MessageLineRecord record{};
    record.level = 1;
    std::snprintf(record.text, sizeof record.text, "main.c(%d): warning C280: 'x': unreferenced local variable\r\n", index);
    record.located = 1;
    std::snprintf(record.file, sizeof record.file, "C:\\8051\\traffic\\main.c");
    record.line = index;
    return record;
}

// Measures one append into a view that already holds state.range(0) records.
void AppendAtSize(benchmark::State& state)
{
    CFrameWnd frame;
    frame.Create(nullptr, "bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 600, 400));
    CMessageEditCtrl view;
    view.Create(&frame);
    view.MoveWindow(0, 0, 590, 390);
    for (int i = 0; i < state.range(0); ++i) {
        const MessageLineRecord record = BuildLine(i);
        view.SendMessage(UWM_MSGVIEW_APPEND, 1, reinterpret_cast<LPARAM>(&record));
    }
    int next = static_cast<int>(state.range(0));
    for (auto _ : state) {
        const MessageLineRecord record = BuildLine(next++);
        view.SendMessage(UWM_MSGVIEW_APPEND, 1, reinterpret_cast<LPARAM>(&record));
    }
    state.counters["records"] = static_cast<double>(view.GetMessageCount());
}
BENCHMARK(AppendAtSize)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

}  // namespace
