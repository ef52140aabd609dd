// The bookmark and breakpoint views: a refresh that finds all 10,000 marks in
// 100 files already shown, and the first refresh that builds every node.
// Allocations made through operator new are counted (by the tests' counting
// allocator): an unchanged refresh should make the same few per file
// whatever the marks.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "marks/bookmark_tree_ctrl.h"
#include "marks/breakpoint_tree_ctrl.h"
#include "platform/core/thread.h"
#include "platform/docking/frame_wnd.h"
#include "tests/support/allocation_count.h"

namespace {

// A main frame that answers the views' two questions: the project's marks
// and its path.
class BenchHost : public CFrameWnd {
public:
    BenchHost()
    {
        appData.context = &context;
        Create(nullptr, "bench host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 800, 600));
        m_app.m_pMainWnd = this;
    }
    ~BenchHost() override
    {
        m_app.m_pMainWnd = nullptr;
        DestroyWindow();
    }

    AppData appData;
    ProjectContext context;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == UWM_GET_APP_DATA && lParam) {
            *reinterpret_cast<AppData**>(lParam) = &appData;
            return 0;
        }
        if (message == UWM_GET_PROJECT_PATH && wParam) {
            std::strcpy(reinterpret_cast<char*>(wParam), "C:\\8051\\traffic\\traffic.prj");
            return 0;
        }
        return CFrameWnd::WindowProc(message, wParam, lParam);
    }

private:
    CWinApp m_app;
};

void Attach(ProjectContext& context, CBookMarkList* list) { context.bookMarkList = list; }
void Attach(ProjectContext& context, CBreakPointList* list) { context.breakPointList = list; }

// A view of `files` files with `marksPerFile` marks each, in a host.
template <class View, class List>
struct Marks {
    BenchHost host;
    List list;
    View view;

    Marks(int files, int marksPerFile)
    {
        for (int f = 0; f < files; ++f) {
            auto* group = new typename List::GroupType;
            group->file = ("C:\\8051\\traffic\\src\\module_" + std::to_string(f) + ".c").c_str();
            for (int m = 0; m < marksPerFile; ++m) {
                auto* item = new typename List::GroupType::ItemType;
                item->line = 10 * m + 1;
                std::snprintf(item->text, sizeof item->text, "    P1 = lights[%d];  /* phase %d */", m, f);
                group->OrdAdd(item);
            }
            list.Add(group);
        }
        Attach(host.context, &list);
        view.Create(&host);
        view.MoveWindow(0, 0, 400, 500);
    }
    void Refresh() { view.SendMessage(UWM_REFRESH_VIEW, 0, 0); }
};

template <class View, class List>
void UnchangedRefresh(benchmark::State& state)
{
    Marks<View, List> marks(100, static_cast<int>(state.range(0)) / 100);
    marks.Refresh();
    const long before = AllocationCount::Total();
    for (auto _ : state) marks.Refresh();
    state.counters["allocs/refresh"] =
        static_cast<double>(AllocationCount::Total() - before) / static_cast<double>(state.iterations());
}

template <class View, class List>
void FirstRefresh(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto marks = std::make_unique<Marks<View, List>>(100, static_cast<int>(state.range(0)) / 100);
        state.ResumeTiming();
        marks->Refresh();
        state.PauseTiming();
        marks.reset();
        state.ResumeTiming();
    }
}

BENCHMARK(UnchangedRefresh<CBookMarkListTreeCtrl, CBookMarkList>)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(UnchangedRefresh<CBreakPointListTreeCtrl, CBreakPointList>)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(FirstRefresh<CBookMarkListTreeCtrl, CBookMarkList>)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
