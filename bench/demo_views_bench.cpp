// The demo IDE's source view and docking frame: a jump to a line and a
// repaint must cost what the view shows, not the file's length, and a
// splitter drag lays out only the bars it moves.
#include <benchmark/benchmark.h>

#include <string>

#include "demo/views/source_view.h"
#include "platform/docking/bcgp_docking_control_bar.h"
#include "platform/docking/bcgp_frame_wnd.h"
#include "platform/input/input.h"

namespace {

std::string SourceOfLines(int lines)
{
    std::string text;
    for (int i = 0; i < lines; ++i) text += "    counter = phase_passes(phase); /* line " + std::to_string(i) + " */\r\n";
    return text;
}

// A 700 x 500 source view in a frame, showing a file of `lines` lines.
struct SourceWindow {
    CFrameWnd frame;
    CSourceView view;

    explicit SourceWindow(int lines)
    {
        frame.Create(nullptr, "bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 720, 520));
        view.Create(&frame, CRect(0, 0, 700, 500), 1);
        view.ShowFile("C:\\8051\\big.c", SourceOfLines(lines));
    }
};

// Jumps back and forth across the file, each jump scrolling and repainting.
void SourceGoToLine(benchmark::State& state)
{
    const int lines = static_cast<int>(state.range(0));
    SourceWindow window(lines);
    bool far = false;
    for (auto _ : state) {
        window.view.GoToLine(far ? lines - 10 : 10);
        window.view.UpdateWindow();
        far = !far;
    }
}
BENCHMARK(SourceGoToLine)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void SourcePaintPage(benchmark::State& state)
{
    SourceWindow window(static_cast<int>(state.range(0)));
    window.view.GoToLine(static_cast<int>(state.range(0)) / 2);
    for (auto _ : state) window.view.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}
BENCHMARK(SourcePaintPage)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// A 1280 x 900 frame with bars in every region; one step of a drag of the
// splitter above the bottom region, which lays out and repaints the frame.
void FrameSplitterDragStep(benchmark::State& state)
{
    CBCGPFrameWnd frame;
    frame.Create(nullptr, "bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 1280, 900));
    CBCGPDockingControlBar bars[9];
    const DockRegion regions[] = {DockRegion::Left, DockRegion::Left, DockRegion::Right, DockRegion::Right, DockRegion::Right,
                                  DockRegion::Bottom, DockRegion::Bottom, DockRegion::Bottom, DockRegion::Bottom};
    for (int i = 0; i < 9; ++i) {
        bars[i].Create("bar", &frame, CRect(0, 0, 100, 100), 100 + i);
        if (i == 6 || i == 8) {
            frame.AttachToTabs(&bars[i], &bars[i - 1]);
        } else {
            frame.DockControlBar(&bars[i], regions[i]);
        }
    }
    const CPoint grip = frame.RegionSplitterRect(DockRegion::Bottom).CenterPoint();
    Input::MouseDown(&frame, grip);
    bool up = false;
    for (auto _ : state) {
        Input::MouseMove(&frame, CPoint(grip.x, grip.y + (up ? -40 : 0)));
        up = !up;
    }
    Input::MouseUp(&frame, grip);
}
BENCHMARK(FrameSplitterDragStep)->Unit(benchmark::kMicrosecond);

}  // namespace
