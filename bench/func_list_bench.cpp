// Showing a 3000-entry function list: the first show builds every line, an
// unchanged show again rewrites no line's text.
#include <benchmark/benchmark.h>

#include <string>

#include "funclist/func_list_tree_ctrl.h"
#include "platform/docking/frame_wnd.h"

namespace {

struct Fixture {
    CFrameWnd frame;
    CFuncListTreeCtrl view;
    CFuncSeekItems list;

    Fixture()
    {
        frame.Create(nullptr, "bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 300, 600));
        view.Create(&frame);
        view.MoveWindow(0, 0, 290, 590);
        for (int i = 0; i < kFuncListMaxLines; ++i) {
            auto* item = new CFuncSeekItem;
            item->typeText = "void";
            item->name = ("function_" + std::to_string(i)).c_str();
            item->paramText = "(unsigned char value)";
            item->line = 10 * i;
            list.Add(item);
        }
    }
    void Show() { view.SendMessage(UWM_REFRESH_VIEW, reinterpret_cast<WPARAM>("C:\\8051\\main.c"), reinterpret_cast<LPARAM>(&list)); }
};

void FirstShow(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto fixture = std::make_unique<Fixture>();
        state.ResumeTiming();
        fixture->Show();
        state.PauseTiming();
        fixture.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(FirstShow)->Unit(benchmark::kMillisecond);

void UnchangedShow(benchmark::State& state)
{
    Fixture fixture;
    fixture.Show();
    for (auto _ : state) fixture.Show();
}
BENCHMARK(UnchangedShow)->Unit(benchmark::kMillisecond);

}  // namespace
