// The demo host: an 8051 IDE frame in miniature. It loads the panes module
// and docks the nine panes around a source view over the sample project.
// Headless, it plays a scripted tour through the input layer and writes
// numbered screenshots, an index of them (tour.md) and a transcript of every
// message it exchanged. In a desktop window a person drives it; on close it
// writes the transcript, and while it shows, window_points.txt names points
// of the window a script can click.
//
//   demohost [--window|--headless] <output folder>
//
// With neither flag it opens a window when a display is named (DISPLAY or
// WAYLAND_DISPLAY) and the platform was built with one, else plays the tour.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "demo/ide_frame.h"
#include "demo/project/project_settings.h"
#include "demo/sample_project.h"
#include "demo/tour.h"
#include "demo/tour_script.h"
#include "demo/window_points.h"
#include "platform/core/message_box.h"
#include "platform/core/module.h"
#include "platform/core/thread.h"
#include "platform/menu/menu_driver.h"
#ifdef DOCKPANES_HAVE_DESKTOP
#include "platform/window/desktop.h"
#endif

namespace {

// Big enough for the source view's 80 columns between the docked columns.
const CRect kFrameRect(0, 0, 1280, 900);
// What the host keeps with the project (watch list, layout), in the output
// folder: the sample's own folder is the sources', and stays as it is.
constexpr const char* kSettingsFile = "traffic.prj";

enum class Mode { kAuto, kWindow, kHeadless };

struct Options {
    Mode mode = Mode::kAuto;
    std::filesystem::path out = ".";
};

Options ParseOptions(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--window") == 0) options.mode = Mode::kWindow;
        else if (std::strcmp(argv[i], "--headless") == 0) options.mode = Mode::kHeadless;
        else options.out = argv[i];
    }
    return options;
}

#ifdef DOCKPANES_HAVE_DESKTOP
bool DisplayNamed()
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) {
        const char* value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}
#endif

bool WantsWindow([[maybe_unused]] Mode mode)
{
#ifdef DOCKPANES_HAVE_DESKTOP
    // A display named but not to be had plays the tour, as without one.
    return mode == Mode::kWindow || (mode == Mode::kAuto && DisplayNamed() && Desktop::Available());
#else
    return false;
#endif
}

int PlayTheTour(CIdeFrame& ide, const std::filesystem::path& out)
{
    TourRecord record(ide, ide.transcript, out);
    const bool played = PlayTour(ide, record) && ide.Settings().Save(out / kSettingsFile);
    const bool written = record.Finish() && record.AllShotsWritten();
    std::printf("%s\n", (out / "tour.md").c_str());
    return played && written ? 0 : 1;
}

#ifdef DOCKPANES_HAVE_DESKTOP
int RunInWindow(CIdeFrame& ide, const std::filesystem::path& out)
{
    ide.transcript.Step("the host opens the project in a desktop window");
    const std::filesystem::path settings = out / kSettingsFile;
    ide.OpenProject(ProjectSettings::Load(settings));
    MenuDriver::SetInteractive(true);
    MessageBoxes::SetInteractive(true);
    std::printf("close the window to quit (transcript: %s)\n", (out / "transcript.txt").c_str());
    std::fflush(stdout);
    const int result = Desktop::Run(ide, "dockpanes demo: 8051 IDE", [&ide, &out] {
        if (!WriteWindowPoints(ide, out / "window_points.txt")) std::fprintf(stderr, "cannot write the window's points\n");
    });
    ide.transcript.Step("the user closed the window; the host keeps the watch list and layout with the project");
    if (IsWindow(ide.GetSafeHwnd()) && !ide.Settings().Save(settings)) std::fprintf(stderr, "cannot save %s\n", settings.c_str());
    std::ofstream transcript(out / "transcript.txt");
    transcript << ide.transcript.Text();
    return result == 0 && transcript.good() ? 0 : 1;
}
#endif

}  // namespace

int main(int argc, char** argv)
{
    const Options options = ParseOptions(argc, argv);
    const bool window = WantsWindow(options.mode);
    if (options.mode == Mode::kWindow && !window) {
        std::fprintf(stderr, "this build has no desktop window (SDL2 was not found)\n");
        return 1;
    }
    std::filesystem::create_directories(options.out);

    CWinApp app("dockpanes demo");
    HINSTANCE module = AfxLoadLibrary(DOCKPANES_MODULE_PATH);
    if (!module) {
        std::fprintf(stderr, "cannot load the panes module: %s\n", AfxLastLoadError());
        return 1;
    }
    int result = 1;
    {
        SampleProject project(DEMO_SAMPLE_DIR);
        CIdeFrame ide(project);
        ide.SetBuildFolder(options.out / "build");
        if (!ide.CreateIde(kFrameRect)) {
            std::fprintf(stderr, "cannot create the demo frame\n");
            AfxFreeLibrary(module);
            return 1;
        }
#ifdef DOCKPANES_HAVE_DESKTOP
        result = window ? RunInWindow(ide, options.out) : PlayTheTour(ide, options.out);
#else
        result = PlayTheTour(ide, options.out);
#endif
        app.m_pMainWnd = nullptr;
    }
    AfxFreeLibrary(module);
    return result;
}
