// s51 as a child: the console's framing, the bound on every request, and
// that the child is reaped however it ends.
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "demo/debugger/ucsim/ucsim_process.h"
#include "tests/demo_ucsim/sample_build.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// Reaping a killed child is quick; this is the most a failure may take.
constexpr milliseconds kFailFast{500};

TEST(UcsimProcess, AnswersEachCommandWithItsOwnReply)
{
    SKIP_WITHOUT_TOOLCHAIN();
    auto process = StartSample();
    ASSERT_TRUE(process->Alive());
    const auto first = process->Request("expression 6*7");
    const auto second = process->Request("expression 0x10+1");
    ASSERT_TRUE(first && second);
    EXPECT_EQ(*first, "42\n");
    EXPECT_EQ(*second, "17\n");
}

TEST(UcsimProcess, ABatchAnswersEachCommandInOrderInOneRoundTrip)
{
    SKIP_WITHOUT_TOOLCHAIN();
    auto process = StartSample();
    const auto trips = process->RequestCount();
    const std::vector<std::string> commands = {"expression 1+1", "dump /h rom 0x800 0x80f 16", "expression 3*3"};
    const auto replies = process->Batch(commands);
    ASSERT_TRUE(replies);
    ASSERT_EQ(replies->size(), 3u);
    EXPECT_EQ((*replies)[0], "2\n");
    EXPECT_EQ((*replies)[1].substr(0, 16), "0x0800 01 04 02 ");  // lamp_mask
    EXPECT_EQ((*replies)[2], "9\n");
    EXPECT_EQ(process->RequestCount(), trips + 1);
    EXPECT_EQ(process->CommandCount(), trips + 3);
}

TEST(UcsimProcess, RoundTripOfATrivialCommand)
{
    SKIP_WITHOUT_TOOLCHAIN();
    auto process = StartSample();
    ASSERT_TRUE(process->Alive());
    constexpr int kRounds = 50;
    // s51 looks at an idle console about every 100 ms; a mean beyond this
    // means replies wait on something else.
    constexpr double kMostMilliseconds = 250.0;
    double slowest = 0;
    const auto start = Clock::now();
    for (int i = 0; i < kRounds; ++i) {
        const auto sent = Clock::now();
        ASSERT_TRUE(process->Request("expression 1"));
        slowest = std::max(slowest, std::chrono::duration<double, std::milli>(Clock::now() - sent).count());
    }
    const double mean = std::chrono::duration<double, std::milli>(Clock::now() - start).count() / kRounds;
    RecordProperty("round_trip_us", static_cast<int>(mean * 1000));
    std::printf("s51 console round trip: mean %.1f ms, slowest %.1f ms\n", mean, slowest);
    EXPECT_LT(mean, kMostMilliseconds);
}

TEST(UcsimProcess, RefusesACommandWithALineBreak)
{
    SKIP_WITHOUT_TOOLCHAIN();
    auto process = StartSample();
    EXPECT_FALSE(process->Request("pc\nkill"));
    // The refused text never reached the console: the simulator still answers.
    EXPECT_TRUE(process->Request("expression 1"));
}

TEST(UcsimProcess, AProgramThatDoesNotLoadLeavesNoSimulator)
{
    SKIP_WITHOUT_TOOLCHAIN();
    UcsimLaunch launch;
    launch.program = "/nonexistent/traffic.ihx";
    UcsimProcess process(launch);
    EXPECT_FALSE(process.Alive());
    EXPECT_EQ(process.Pid(), -1);
    EXPECT_FALSE(process.Request("expression 1"));
}

TEST(UcsimProcess, AMissingSimulatorIsDeadNotAHang)
{
    UcsimLaunch launch;
    launch.executable = "/nonexistent/s51";
    launch.program = "traffic.ihx";
    UcsimProcess process(launch);
    EXPECT_FALSE(process.Alive());
    EXPECT_FALSE(process.Request("expression 1"));
}

TEST(UcsimProcess, ASimulatorKilledMidSessionFailsFastAndIsReaped)
{
    SKIP_WITHOUT_TOOLCHAIN();
    auto process = StartSample();
    ASSERT_TRUE(process->Alive());
    const pid_t pid = process->Pid();
    ASSERT_EQ(kill(pid, SIGKILL), 0);

    const auto start = Clock::now();
    EXPECT_FALSE(process->Request("expression 1"));
    EXPECT_FALSE(process->Request("expression 2"));
    EXPECT_LT(Clock::now() - start, kFailFast);
    EXPECT_FALSE(process->Alive());
    EXPECT_FALSE(ChildExists(pid));
}

TEST(UcsimProcess, ARequestThatNeverEndsIsCutOffAndTheChildReaped)
{
    SKIP_WITHOUT_TOOLCHAIN();
    auto process = StartSample();
    ASSERT_TRUE(process->Alive());
    const pid_t pid = process->Pid();
    // No breakpoint: the program's main loop runs for ever and s51 never
    // reads its console again.
    constexpr milliseconds kBound{300};
    const auto start = Clock::now();
    EXPECT_FALSE(process->Request("run", kBound));
    const auto took = Clock::now() - start;
    EXPECT_GE(took, kBound);
    EXPECT_LT(took, kBound + kFailFast);
    EXPECT_FALSE(process->Alive());
    EXPECT_FALSE(ChildExists(pid));
    EXPECT_FALSE(process->Request("expression 1"));
}

TEST(UcsimProcess, DestructionReapsTheChild)
{
    SKIP_WITHOUT_TOOLCHAIN();
    pid_t pid = -1;
    {
        auto process = StartSample();
        ASSERT_TRUE(process->Alive());
        pid = process->Pid();
        ASSERT_TRUE(ChildExists(pid));
    }
    EXPECT_FALSE(ChildExists(pid));
}

TEST(UcsimProcess, ShutdownOfASimulatorThatIgnoresQuitStillReapsIt)
{
    SKIP_WITHOUT_TOOLCHAIN();
    auto process = StartSample();
    ASSERT_TRUE(process->Alive());
    const pid_t pid = process->Pid();
    // A stopped process reads no quit and handles no SIGTERM until it goes
    // on; only the last stage, SIGKILL, ends it.
    ASSERT_EQ(kill(pid, SIGSTOP), 0);
    const auto start = Clock::now();
    process->Shutdown();
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(2));
    EXPECT_FALSE(ChildExists(pid));
    EXPECT_FALSE(process->Alive());
}

}  // namespace
