// The edit control over a long single line, as the grid's cell editor holds
// a long name: a paint draws the part that shows, whatever the length, and a
// typed character costs the text once (the change and the new character
// index), not once for every measure a paint and a scroll take.
#include <benchmark/benchmark.h>

#include <string>

#include "platform/controls/edit.h"
#include "platform/core/paint.h"
#include "platform/input/input.h"

namespace {

struct LongLine {
    explicit LongLine(int bytes)
    {
        parent.CreateEx(0, "BenchParent", "bench", WS_OVERLAPPED | WS_VISIBLE, CRect(0, 0, 320, 80), nullptr, 0);
        edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(10, 10, 210, 34), &parent, 1);
        edit.SetLimitText(0);
        std::string text;
        // Narrow and wide characters mixed: "a" and 中 in GBK.
        while (static_cast<int>(text.size()) < bytes) text += "a\xD6\xD0";
        edit.SetWindowText(text.c_str());
        edit.SetFocus();
        edit.SetSel(static_cast<int>(text.size()), static_cast<int>(text.size()));
        Paint::UpdateAllWindows();
    }
    ~LongLine()
    {
        edit.DestroyWindow();
        parent.DestroyWindow();
    }

    CWnd parent;
    CEdit edit;
};

// One full repaint of the control, the caret at the end.
void BM_PaintLongLine(benchmark::State& state)
{
    LongLine line(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        line.edit.Invalidate();
        Paint::UpdateAllWindows();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_PaintLongLine)->Arg(64)->Arg(4096)->Arg(65536);

// One character typed at the end and one taken back, each repainted.
void BM_TypeIntoLongLine(benchmark::State& state)
{
    LongLine line(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Input::Type("m");
        Input::Key(VK_BACK);
    }
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(BM_TypeIntoLongLine)->Arg(64)->Arg(4096)->Arg(65536);

}  // namespace
