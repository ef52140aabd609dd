// The demo host: an 8051 IDE frame in miniature. It loads the panes module,
// docks the nine panes around a source view over the sample project, plays a
// scripted tour through the input layer and writes numbered screenshots, an
// index of them (tour.md) and a transcript of every message it exchanged.
//
//   demohost <output folder>
#include <cstdio>
#include <filesystem>

#include "demo/ide_frame.h"
#include "demo/sample_project.h"
#include "demo/tour.h"
#include "demo/tour_script.h"
#include "platform/core/module.h"
#include "platform/core/thread.h"

namespace {

// Big enough for the source view's 80 columns between the docked columns.
const CRect kFrameRect(0, 0, 1280, 900);

}  // namespace

int main(int argc, char** argv)
{
    const std::filesystem::path out = argc > 1 ? argv[1] : ".";
    std::filesystem::create_directories(out);

    CWinApp app("dockpanes demo");
    HINSTANCE module = AfxLoadLibrary(DOCKPANES_MODULE_PATH);
    if (!module) {
        std::fprintf(stderr, "cannot load the panes module: %s\n", AfxLastLoadError());
        return 1;
    }
    int result = 1;
    {
        const SampleProject project(DEMO_SAMPLE_DIR);
        CIdeFrame ide(project);
        if (!ide.CreateIde(kFrameRect)) {
            std::fprintf(stderr, "cannot create the demo frame\n");
            AfxFreeLibrary(module);
            return 1;
        }
        TourRecord record(ide, ide.transcript, out);
        const bool played = PlayTour(ide, record);
        const bool written = record.Finish() && record.AllShotsWritten();
        std::printf("%s\n", (out / "tour.md").c_str());
        result = played && written ? 0 : 1;
        app.m_pMainWnd = nullptr;
    }
    AfxFreeLibrary(module);
    return result;
}
