// The demo IDE's tour, played in-process: it must run to its end, and what
// the host and the library said to each other must show each milestone.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include <unistd.h>

#include "demo/ide_frame.h"
#include "demo/sample_project.h"
#include "demo/tour.h"
#include "demo/tour_script.h"
#include "demo/ui_points.h"
#include "demo/toolchain/process_run.h"
#include "platform/core/module.h"
#include "platform/core/thread.h"
#include "watch/debug_protocol.h"

namespace {

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

class DemoTour : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        // CTest runs each case in a process of its own, side by side.
        s_out = std::filesystem::temp_directory_path() / ("dockpanes_tour_test_" + std::to_string(getpid()));
        std::filesystem::remove_all(s_out);
        std::filesystem::create_directories(s_out);
        s_app = new CWinApp("tour test");
        s_module = AfxLoadLibrary(DOCKPANES_MODULE_PATH);
        s_project = new SampleProject(DEMO_SAMPLE_DIR);
        s_ide = new CIdeFrame(*s_project);
        if (!s_ide->CreateIde(CRect(0, 0, 1280, 900))) return;
        s_app->m_pMainWnd = s_ide;
        s_bottomBefore = s_ide->GetRegionSize(DockRegion::Bottom);
        TourRecord record(*s_ide, s_ide->transcript, s_out);
        s_played = PlayTour(*s_ide, record);
        s_finished = record.Finish() && record.AllShotsWritten();
        s_transcript = s_ide->transcript.Text();
    }

    static void TearDownTestSuite()
    {
        std::filesystem::remove_all(s_out);
        s_app->m_pMainWnd = nullptr;
        delete s_ide;
        delete s_project;
        if (s_module) AfxFreeLibrary(s_module);
        delete s_app;
    }

    static bool Says(const std::string& text) { return s_transcript.find(text) != std::string::npos; }

    static inline std::filesystem::path s_out;
    static inline CWinApp* s_app = nullptr;
    static inline HINSTANCE s_module = nullptr;
    static inline SampleProject* s_project = nullptr;
    static inline CIdeFrame* s_ide = nullptr;
    static inline int s_bottomBefore = 0;
    static inline bool s_played = false;
    static inline bool s_finished = false;
    static inline std::string s_transcript;
};

TEST_F(DemoTour, RunsToItsEndAndIndexesEveryScreenshot)
{
    ASSERT_NE(s_module, nullptr);
    EXPECT_TRUE(s_played) << s_transcript;
    // Every step found what it pointed at.
    EXPECT_FALSE(Says("(tour:")) << s_transcript;
    EXPECT_TRUE(s_finished);
    const std::string index = ReadFile(s_out / "tour.md");
    int shots = 0;
    for (const auto& entry : std::filesystem::directory_iterator(s_out)) {
        if (entry.path().extension() != ".png") continue;
        ++shots;
        EXPECT_NE(index.find(entry.path().filename().string()), std::string::npos) << entry.path();
        EXPECT_GT(entry.file_size(), 1000u) << entry.path();
    }
    EXPECT_GE(shots, 16);
}

TEST_F(DemoTour, TheProjectPanesAskedTheHostToOpenFilesAtTheirLines)
{
    EXPECT_TRUE(Says("UWM_WORKSPACE_OPEN_FILE   file C:\\8051\\traffic\\timer0.c, line 1"));
    EXPECT_TRUE(Says("UWM_FUNCLIST_SELECTED"));
    EXPECT_TRUE(Says("UWM_GOTO_SOURCE           file C:\\8051\\traffic\\lights.c"));
    // The first error of the broken edit's build (the compiler's) or of the
    // log kept with the project (without a compiler).
    const SampleProject variants(std::filesystem::path(DEMO_SAMPLE_DIR) / "variants");
    EXPECT_TRUE(Says("UWM_MSGVIEW_GOTO          file C:\\8051\\traffic\\lights.c, line " +
                     std::to_string(variants.LineOf("lights_broken.c", "= stat;"))) ||
                Says("UWM_MSGVIEW_GOTO          file C:\\8051\\traffic\\uart.c, line " +
                     std::to_string(s_project->LineOf("uart.c", "SBUF = c"))));
    // The search result the tour follows, in next_phase.
    EXPECT_TRUE(Says("UWM_GOTO_SOURCE           file C:\\8051\\traffic\\lights.c, line " +
                     std::to_string(s_project->LineOf("lights.c", "phase = (phase + 1)"))));
}

TEST_F(DemoTour, TheWatchTalkedToTheDebuggerService)
{
    EXPECT_TRUE(Says("debugger: evaluate \"timings[2] * 3\""));
    EXPECT_TRUE(Says("-> error " + std::to_string(WERR_UNDEFINED)));
    EXPECT_TRUE(Says("debugger: write"));
    EXPECT_TRUE(Says("debugger: memory view shows"));
    EXPECT_TRUE(Says("quick view: "));
}

// With the toolchain installed the tour builds with SDCC and debugs on s51:
// the breakpoint set in the timer interrupt is hit, and the program's serial
// port is read. Without it the same tour runs on the simulated target.
TEST_F(DemoTour, WithTheToolchainTheTourDebugsTheRealProgram)
{
    if (!FindOnPath("sdcc") || !FindOnPath("s51")) {
        EXPECT_TRUE(Says("debugging the simulated target"));
        GTEST_SKIP() << "SDCC or s51 is not installed: the tour ran on the simulated target";
    }
    EXPECT_TRUE(Says("(SDCC built the sample: success)"));
    EXPECT_TRUE(Says("(SDCC built the sample: failed)"));
    EXPECT_TRUE(Says("(debugging the sample on s51)"));
    // The tour's F9 went on the fifth line of the interrupt routine.
    const int interruptBreakpoint = s_project->LineOf("timer0.c", "__interrupt") + 5;
    EXPECT_TRUE(Says("(s51 stopped at timer0.c(" + std::to_string(interruptBreakpoint) + "))")) << s_transcript;
    auto* debugView = dynamic_cast<CMessageEditCtrl*>(CWnd::FromHandle(s_ide->panes.debug.GetViewHwnd()));
    ASSERT_NE(debugView, nullptr);
    EXPECT_GE(EditLineOf(*debugView, "TRAFFIC RED"), 0);
    EXPECT_TRUE(Says("debugger: evaluate \"phase\" -> unsigned char in data at 0x0030"));
}

TEST_F(DemoTour, TheHostStateFollowedTheUser)
{
    ASSERT_NE(s_ide->GetSafeHwnd(), nullptr);
    // F9 in timer0.c set a breakpoint there; the bookmark menu cleared every bookmark.
    int timerBreakpoints = 0;
    for (int i = 0; i < s_ide->breakpoints.GetSize(); ++i) {
        if (std::string(s_ide->breakpoints.GroupAt(i)->file).ends_with("timer0.c")) {
            timerBreakpoints += s_ide->breakpoints.GroupAt(i)->GetSize();
        }
    }
    EXPECT_GE(timerBreakpoints, 2);
    EXPECT_EQ(s_ide->bookmarks.GetSize(), 0);
    EXPECT_TRUE(Says("(clear all bookmarks)"));
    // The splitter drag made the bottom panes taller; 'go to' opened main.c.
    EXPECT_GT(s_ide->GetRegionSize(DockRegion::Bottom), s_bottomBefore);
    EXPECT_TRUE(s_ide->source.Path().ends_with("main.c"));
    // The project kept the watch list, the typed expressions with it.
    EXPECT_TRUE(Says("project watch list: "));
    EXPECT_TRUE(Says("timings[2] * 3, "));
}

}  // namespace
