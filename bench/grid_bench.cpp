// The grid: drawing one line and a page of 40 lines, and expanding a row into
// 10,000 children and collapsing it again.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>

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
                std::strcpy(child->cells[1].text, "0x1234");
                row->children.AddRow(child);
            }
            return 0;
        }
        return CGridCtrl::WindowProc(message, wParam, lParam);
    }
};

struct Fixture {
    CFrameWnd frame;
    BenchGrid grid;

    Fixture()
    {
        frame.Create(nullptr, "bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 500, 800));
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDRAWFIXED | LVS_OWNERDATA,
                    CRect(0, 0, 480, 780), &frame, 100);
        grid.InsertColumn(0, "Name", LVCFMT_LEFT, 160);
        grid.InsertColumn(1, "Value", LVCFMT_LEFT, 120);
        grid.InsertColumn(2, "Format", LVCFMT_LEFT, 60);
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

// The children exist: each expand counts them, each collapse counts them again.
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

}  // namespace
