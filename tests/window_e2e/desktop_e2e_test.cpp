// The demo IDE in a real window on an X server of the test's own, driven by
// real X input (xdotool) as a person would drive it; what the host did is
// read from its transcript, what the screen shows from the server itself.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <thread>

#include "tests/window_e2e/child_process.h"
#include "tests/window_e2e/x_session.h"

namespace {

constexpr const char* kXdotool = "/usr/bin/xdotool";
constexpr std::chrono::milliseconds kStartLimit(30000);
constexpr std::chrono::milliseconds kExitLimit(30000);
constexpr std::chrono::milliseconds kPoll(50);
// How far the test drags the splitter above the bottom panes.
constexpr int kSplitterLift = 80;
// Displays from here on belong to these tests; the process id picks one so
// that tests run side by side do not meet.
constexpr int kFirstDisplay = 140;
constexpr int kDisplays = 50;
// Under the address sanitizer the demo is still checked for memory errors,
// but not for leaks: SDL loads and unloads the desktop's libraries (the bus,
// input methods) at run time and leaves memory behind in them that the leak
// checker can no longer attribute. The in-process tests check our leaks.
constexpr const char* kNoLeakCheck = "ASAN_OPTIONS=detect_leaks=0";

using Points = std::map<std::string, std::pair<int, int>>;

// The points the demo writes once its window shows: "name x y" per line,
// in the window's coordinates; the file appears whole.
std::optional<Points> WaitForPoints(const std::filesystem::path& file, ChildProcess& demo)
{
    const auto deadline = std::chrono::steady_clock::now() + kStartLimit;
    while (std::chrono::steady_clock::now() < deadline && demo.Running()) {
        std::ifstream in(file);
        Points points;
        std::string name;
        int x = 0, y = 0;
        while (in >> name >> x >> y) points[name] = {x, y};
        if (!points.empty()) return points;
        std::this_thread::sleep_for(kPoll);
    }
    return std::nullopt;
}

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

bool SamePixel(const std::optional<ScreenPixel>& a, const std::optional<ScreenPixel>& b)
{
    return a && b && a->r == b->r && a->g == b->g && a->b == b->b;
}

class DesktopWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (access("/usr/bin/Xvfb", X_OK) != 0 || access(kXdotool, X_OK) != 0) GTEST_SKIP() << "needs Xvfb and xdotool";
        m_out = std::filesystem::temp_directory_path() / ("dockpanes_window_" + std::to_string(getpid()));
        std::filesystem::remove_all(m_out);
        std::filesystem::create_directories(m_out);
        m_x = std::make_unique<XSession>(kFirstDisplay + getpid() % kDisplays);
        ASSERT_TRUE(m_x->Ready()) << "Xvfb did not start";
    }
    void TearDown() override
    {
        m_demo.reset();
        m_x.reset();
        if (!m_out.empty()) std::filesystem::remove_all(m_out);
    }

    // xdotool with the test's display.
    int Xdo(const std::string& arguments) { return RunCommand(std::string(kXdotool) + " " + arguments, m_x->DisplayEnv()); }
    std::string At(std::pair<int, int> point) const
    {
        return std::to_string(m_origin.first + point.first) + " " + std::to_string(m_origin.second + point.second);
    }

    std::filesystem::path m_out;
    std::unique_ptr<XSession> m_x;
    std::unique_ptr<ChildProcess> m_demo;
    std::pair<int, int> m_origin{0, 0};
};

TEST_F(DesktopWindow, APersonDrivesTheIdeWithRealInputAndClosesIt)
{
    m_demo = std::make_unique<ChildProcess>(std::vector<std::string>{DEMOHOST_PATH, "--window", m_out.string()},
                                            std::vector<std::string>{m_x->DisplayEnv(), "SDL_VIDEODRIVER=x11", kNoLeakCheck});
    ASSERT_TRUE(m_demo->Started());
    const auto window = m_x->WaitForWindow("dockpanes", kStartLimit);
    ASSERT_TRUE(window) << "no window appeared";
    const auto points = WaitForPoints(m_out / "window_points.txt", *m_demo);
    ASSERT_TRUE(points) << "the demo wrote no points to click";
    const auto origin = m_x->Origin(*window);
    ASSERT_TRUE(origin);
    m_origin = *origin;
    for (const char* name : {"bookmark1", "breakpoint1", "watch_input_row", "bottom_splitter"}) {
        ASSERT_TRUE(points->count(name)) << name;
    }

    // A click on a bookmark opens its file at its line.
    EXPECT_EQ(Xdo("mousemove " + At(points->at("bookmark1")) + " click 1"), 0);
    // An expression typed on the watch's input row, then Enter.
    EXPECT_EQ(Xdo("mousemove " + At(points->at("watch_input_row")) + " click 1"), 0);
    EXPECT_EQ(Xdo("type --delay 20 'ticks + 1'"), 0);
    EXPECT_EQ(Xdo("key Return"), 0);
    // The breakpoint's context menu, drawn over the frame: its first item
    // ("go to") by the keyboard.
    EXPECT_EQ(Xdo("mousemove " + At(points->at("breakpoint1")) + " click 1 click 3"), 0);
    EXPECT_EQ(Xdo("key Down key Return"), 0);

    // The splitter above the bottom panes, dragged up: the screen shows it
    // where the source view was.
    const auto splitter = points->at("bottom_splitter");
    const std::pair<int, int> lifted{splitter.first, splitter.second - kSplitterLift};
    const auto splitterColour = m_x->Pixel(m_origin.first + splitter.first, m_origin.second + splitter.second);
    EXPECT_FALSE(SamePixel(splitterColour, m_x->Pixel(m_origin.first + lifted.first, m_origin.second + lifted.second)));
    EXPECT_EQ(Xdo("mousemove " + At(splitter) + " mousedown 1 mousemove " + At({splitter.first, splitter.second - kSplitterLift / 2}) +
                  " mousemove " + At(lifted) + " mouseup 1"),
              0);
    // The window shows what the frame painted once it has blitted it.
    bool moved = false;
    const auto deadline = std::chrono::steady_clock::now() + kStartLimit;
    while (!moved && std::chrono::steady_clock::now() < deadline) {
        moved = SamePixel(splitterColour, m_x->Pixel(m_origin.first + lifted.first, m_origin.second + lifted.second));
        if (!moved) std::this_thread::sleep_for(kPoll);
    }
    EXPECT_TRUE(moved) << "the splitter did not move on the screen";

    // Closed as a window manager closes it, the demo ends cleanly.
    ASSERT_TRUE(m_x->RequestClose(*window));
    EXPECT_EQ(m_demo->WaitForExit(kExitLimit), std::optional<int>(0));

    // The bookmark's click, the breakpoint's click and the menu's "go to"
    // each asked the host to show a source line; the watch asked the
    // debugger for the typed expression.
    const std::string transcript = ReadFile(m_out / "transcript.txt");
    int gotos = 0;
    for (std::size_t at = transcript.find("UWM_GOTO_SOURCE"); at != std::string::npos; at = transcript.find("UWM_GOTO_SOURCE", at + 1)) {
        ++gotos;
    }
    EXPECT_GE(gotos, 3) << transcript;
    EXPECT_NE(transcript.find("debugger: evaluate \"ticks + 1\""), std::string::npos) << transcript;
    // The host kept the new watch row and the taller bottom with the project.
    const std::string settings = ReadFile(m_out / "traffic.prj");
    EXPECT_NE(settings.find("watch ticks + 1\n"), std::string::npos) << settings;
    EXPECT_EQ(settings.find("region bottom 290\n"), std::string::npos) << settings;
    EXPECT_NE(settings.find("region bottom "), std::string::npos) << settings;
}

}  // namespace
