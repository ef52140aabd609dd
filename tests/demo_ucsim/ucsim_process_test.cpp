// s51 as a child: the console's framing, the bound on every request, and
// that the child is reaped however it ends.
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iterator>

#include "demo/debugger/ucsim/ucsim_process.h"
#include "tests/demo_ucsim/sample_build.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// Reaping a killed child is quick; this is the most a failure may take.
constexpr milliseconds kFailFast{500};

// A simulator on the sample, started for each test.
class UcsimProcessTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_TOOLCHAIN();
        m_process = StartSample();
        ASSERT_TRUE(m_process->Alive());
        m_pid = m_process->Pid();
        ASSERT_TRUE(ChildExists(m_pid));
    }

    // Dead for good: no requests, and no child left, not even a zombie.
    void ExpectGone()
    {
        EXPECT_FALSE(m_process->Alive());
        EXPECT_FALSE(m_process->Request("expression 1"));
        EXPECT_FALSE(ChildExists(m_pid));
    }

    std::unique_ptr<UcsimProcess> m_process;
    pid_t m_pid = -1;
};

TEST_F(UcsimProcessTest, AnswersEachCommandWithItsOwnReply)
{
    const auto first = m_process->Request("expression 6*7");
    const auto second = m_process->Request("expression 0x10+1");
    ASSERT_TRUE(first && second);
    EXPECT_EQ(*first, "42\n");
    EXPECT_EQ(*second, "17\n");
}

TEST_F(UcsimProcessTest, ABatchAnswersEachCommandInOrderInOneRoundTrip)
{
    const auto trips = m_process->RequestCount();
    const std::vector<std::string> commands = {"expression 1+1", "dump /h rom 0x800 0x80f 16", "expression 3*3"};
    const auto replies = m_process->Batch(commands);
    ASSERT_TRUE(replies);
    ASSERT_EQ(replies->size(), 3u);
    EXPECT_EQ((*replies)[0], "2\n");
    EXPECT_EQ((*replies)[1].substr(0, 16), "0x0800 01 04 02 ");  // lamp_mask
    EXPECT_EQ((*replies)[2], "9\n");
    EXPECT_EQ(m_process->RequestCount(), trips + 1);
    EXPECT_EQ(m_process->CommandCount(), trips + 3);
}

TEST_F(UcsimProcessTest, RoundTripOfATrivialCommand)
{
    constexpr int kRounds = 50;
    // s51 looks at an idle console about every 100 ms; a mean beyond this
    // means replies wait on something else.
    constexpr double kMostMilliseconds = 250.0;
    double slowest = 0;
    const auto start = Clock::now();
    for (int i = 0; i < kRounds; ++i) {
        const auto sent = Clock::now();
        ASSERT_TRUE(m_process->Request("expression 1"));
        slowest = std::max(slowest, std::chrono::duration<double, std::milli>(Clock::now() - sent).count());
    }
    const double mean = std::chrono::duration<double, std::milli>(Clock::now() - start).count() / kRounds;
    RecordProperty("round_trip_us", static_cast<int>(mean * 1000));
    std::printf("s51 console round trip: mean %.1f ms, slowest %.1f ms\n", mean, slowest);
    EXPECT_LT(mean, kMostMilliseconds);
}

TEST_F(UcsimProcessTest, RefusesACommandWithALineBreak)
{
    EXPECT_FALSE(m_process->Request("pc\nkill"));
    // The refused text never reached the console: the simulator still answers.
    EXPECT_TRUE(m_process->Request("expression 1"));
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

TEST_F(UcsimProcessTest, ASimulatorKilledMidSessionFailsFastAndIsReaped)
{
    ASSERT_EQ(kill(m_pid, SIGKILL), 0);

    const auto start = Clock::now();
    EXPECT_FALSE(m_process->Request("expression 1"));
    EXPECT_FALSE(m_process->Request("expression 2"));
    EXPECT_LT(Clock::now() - start, kFailFast);
    ExpectGone();
}

TEST_F(UcsimProcessTest, ARequestThatNeverEndsIsCutOffAndTheChildReaped)
{
    // No breakpoint: the program's main loop runs for ever and s51 never
    // reads its console again.
    constexpr milliseconds kBound{300};
    const auto start = Clock::now();
    EXPECT_FALSE(m_process->Request("run", kBound));
    const auto took = Clock::now() - start;
    EXPECT_GE(took, kBound);
    EXPECT_LT(took, kBound + kFailFast);
    ExpectGone();
}

TEST_F(UcsimProcessTest, DestructionReapsTheChild)
{
    m_process.reset();
    EXPECT_FALSE(ChildExists(m_pid));
}

TEST(UcsimProcess, LeavesNoDescriptorOpen)
{
    SKIP_WITHOUT_TOOLCHAIN();
    const auto open = [] {
        const std::filesystem::directory_iterator fds("/proc/self/fd");
        return std::distance(begin(fds), end(fds));
    };
    const auto before = open();
    {
        auto process = StartSample();
        ASSERT_TRUE(process->Alive());
        EXPECT_GT(open(), before);
    }
    EXPECT_EQ(open(), before);
}

TEST_F(UcsimProcessTest, ShutdownOfASimulatorThatIgnoresQuitStillReapsIt)
{
    // A stopped process reads no quit and handles no SIGTERM until it goes
    // on; only the last stage, SIGKILL, ends it.
    ASSERT_EQ(kill(m_pid, SIGSTOP), 0);
    const auto start = Clock::now();
    m_process->Shutdown();
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(2));
    ExpectGone();
}

}  // namespace
