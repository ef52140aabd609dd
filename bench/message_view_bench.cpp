// The message view: appending a record repaints the whole control at once,
// as the view must, and that cost must not grow with the records already
// shown; painting one page of it on its own.
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

// A 590 x 390 view in a frame, holding `records` records.
struct MessageWindow {
    CFrameWnd frame;
    CMessageEditCtrl view;
    int next = 0;

    explicit MessageWindow(int records)
    {
        frame.Create(nullptr, "bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 600, 400));
        view.Create(&frame);
        view.MoveWindow(0, 0, 590, 390);
        while (next < records) Append();
    }
    void Append()
    {
        const MessageLineRecord record = BuildLine(next++);
        view.SendMessage(UWM_MSGVIEW_APPEND, 1, reinterpret_cast<LPARAM>(&record));
    }
};

// Measures one append, with its repaint, into a view that already holds
// state.range(0) records.
void AppendAtSize(benchmark::State& state)
{
    MessageWindow window(static_cast<int>(state.range(0)));
    for (auto _ : state) window.Append();
    state.counters["records"] = static_cast<double>(window.view.GetMessageCount());
}
BENCHMARK(AppendAtSize)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// Repaints the page shown (the last one) as the view does after an append:
// the whole client invalidated with its background, painted at once.
void PaintPage(benchmark::State& state)
{
    MessageWindow window(static_cast<int>(state.range(0)));
    for (auto _ : state) window.view.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}
BENCHMARK(PaintPage)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
