// The demo IDE under a long seeded random stream of user input and host
// messages: it must never crash nor trip the sanitizers, and every so often
// its frame, panes and focus must still be sound. A failure names its seed
// and step; DOCKPANES_MONKEY_SEED replays the same stream, and
// DOCKPANES_MONKEY_STEPS sets its length.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "demo/ide_frame.h"
#include "demo/sample_project.h"
#include "platform/core/message_box.h"
#include "platform/core/module.h"
#include "platform/core/thread.h"
#include "platform/menu/menu_driver.h"
#include "tests/demo_monkey/crash_note.h"
#include "tests/demo_monkey/monkey.h"
#include "tests/demo_tour/ide_frame_suite.h"

namespace {

constexpr std::uint32_t kDefaultSeed = 8051;
constexpr long kDefaultSteps = 100000;
// Checks are cheap, but not free: one every this many steps.
constexpr long kCheckEvery = 50;
// Message boxes and menus are recorded; the records are let go this often.
constexpr long kForgetEvery = 1000;

long FromEnvironment(const char* name, long otherwise)
{
    const char* text = std::getenv(name);
    if (!text || !*text) return otherwise;
    char* end = nullptr;
    const long value = std::strtol(text, &end, 10);
    return *end == '\0' && value >= 0 ? value : otherwise;
}

class DemoMonkey : public IdeFrameSuite {
protected:
    void SetUp() override
    {
        MenuDriver::Reset();
        MessageBoxes::Reset();
        m_temp = std::filesystem::temp_directory_path() / ("dockpanes_monkey_" + std::to_string(getpid()));
        std::filesystem::create_directories(m_temp);
        // F7 and debugging stay in-process: the log kept with the project,
        // the simulated target.
        ide.UseToolchain(false);
        ide.SetBuildFolder(m_temp);
        ASSERT_TRUE(ide.CreateIde(CRect(0, 0, 1280, 900)));
        ide.OpenProject();
    }
    void TearDown() override
    {
        MenuDriver::Reset();
        MessageBoxes::Reset();
        s_app->m_pMainWnd = nullptr;
        std::filesystem::remove_all(m_temp);
    }

    // What must hold between any two steps.
    void CheckTheFrame()
    {
        ASSERT_TRUE(::IsWindow(ide.GetSafeHwnd()));
        const CBCGPDockingControlBar* bars[] = {&ide.panes.files,  &ide.panes.targets, &ide.panes.functions,
                                                &ide.panes.bookmarks, &ide.panes.breakpoints, &ide.panes.memory,
                                                &ide.panes.build,  &ide.panes.search,  &ide.panes.debug,
                                                &ide.panes.watch1, &ide.panes.watch2};
        CRect frame;
        ide.GetWindowRect(&frame);
        for (const CBCGPDockingControlBar* bar : bars) {
            ASSERT_TRUE(::IsWindow(bar->GetSafeHwnd())) << bar;
            if (!bar->IsWindowVisible()) continue;
            CRect place;
            bar->GetWindowRect(&place);
            // A pane squeezed to nothing by a dragged splitter is still in its place.
            if (place.IsRectEmpty()) continue;
            CRect inside;
            inside.IntersectRect(place, frame);
            EXPECT_EQ(inside, place) << "a shown pane lies outside the frame";
        }
        const HWND views[] = {ide.panes.files.GetViewHwnd(),  ide.panes.targets.GetViewHwnd(),
                              ide.panes.functions.GetViewHwnd(), ide.panes.bookmarks.GetViewHwnd(),
                              ide.panes.breakpoints.GetViewHwnd(), ide.panes.memory.View().GetSafeHwnd(),
                              ide.panes.build.GetViewHwnd(),  ide.panes.search.GetViewHwnd(),
                              ide.panes.debug.GetViewHwnd(),  ide.panes.watch1.GetViewHwnd(),
                              ide.panes.watch2.GetViewHwnd(), ide.source.GetSafeHwnd()};
        for (HWND view : views) ASSERT_TRUE(::IsWindow(view));
        const HWND focus = ::GetFocus();
        EXPECT_TRUE(focus == nullptr || ::IsWindow(focus)) << "the focus is a window that is gone";
        // Every gesture ends with its buttons up: nothing may keep the mouse.
        EXPECT_EQ(::GetCapture(), nullptr) << "a window kept the mouse after its button went up";
        EXPECT_NE(ide.Project().FileAt(ide.source.Path()), nullptr) << "the source view shows no project file";
    }

    std::filesystem::path m_temp;
};

TEST_F(DemoMonkey, SurvivesARandomStreamOfUserInputAndHostMessages)
{
    ASSERT_NE(s_module, nullptr);
    const auto seed = static_cast<std::uint32_t>(FromEnvironment("DOCKPANES_MONKEY_SEED", kDefaultSeed));
    const long steps = FromEnvironment("DOCKPANES_MONKEY_STEPS", kDefaultSteps);
    std::printf("monkey: seed %u, %ld steps\n", seed, steps);
    std::fflush(stdout);
    Monkey monkey(ide, seed);
    CrashNote::Install(seed, monkey.LastAction());
    struct ForgetTheMonkey {
        ~ForgetTheMonkey() { CrashNote::Forget(); }
    } forget;
    const auto start = std::chrono::steady_clock::now();
    for (long step = 0; step < steps; ++step) {
        CrashNote::At(step);
        monkey.Step();
        if (step % kForgetEvery == 0) {
            MessageBoxes::Reset();
        }
        if (step % kCheckEvery == kCheckEvery - 1 || step == steps - 1) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step) + " (" + monkey.LastAction() +
                         "): replay with DOCKPANES_MONKEY_SEED=" + std::to_string(seed));
            CheckTheFrame();
            if (HasFailure()) return;
        }
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("monkey: %ld steps in %.1f s\n", steps, seconds);
    RecordProperty("seconds", std::to_string(seconds));
}

}  // namespace
