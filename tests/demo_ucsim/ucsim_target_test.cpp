// The sample program on s51 behind the debugger's target interface: its
// globals where traffic_layout.h says, writes, breakpoints, the serial
// port, and how few console requests a refresh costs.
#include <gtest/gtest.h>
#include <signal.h>

#include <array>
#include <chrono>
#include <vector>

#include "demo/debugger/traffic_layout.h"
#include "demo/debugger/ucsim/ucsim_target.h"
#include "tests/demo_ucsim/sample_build.h"

namespace {

using namespace Traffic;

// config.h's timing, as lights_init() sets it up.
constexpr std::uint8_t kRedPasses = 10;
constexpr std::uint8_t kGreenPasses = 8;
constexpr std::int16_t kJunctionOffset = -3;

class UcsimTargetTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_TOOLCHAIN();
        const auto pass = FunctionAddress("lights_pass");
        ASSERT_TRUE(pass) << "lights_pass is not in traffic.map";
        m_pass = *pass;
        UcsimTarget::Options options;
        options.stepBreakpoint = m_pass;
        options.uartLine = [this](const std::string& line) { m_lines.push_back(line); };
        m_target = std::make_unique<UcsimTarget>(StartSample(), options);
        ASSERT_TRUE(m_target->Process().Alive());
    }

    std::uint32_t ReadUnsigned(std::uint32_t space, std::uint32_t address, std::size_t size)
    {
        std::array<std::uint8_t, 4> bytes{};
        EXPECT_TRUE(m_target->Read(space, address, std::span(bytes).first(size))) << space << ":" << address;
        std::uint32_t value = 0;
        for (std::size_t i = size; i-- > 0;) value = value << 8 | bytes[i];
        return value;
    }

    std::uint32_t m_pass = 0;
    std::vector<std::string> m_lines;
    std::unique_ptr<UcsimTarget> m_target;
};

TEST_F(UcsimTargetTest, StepStopsAtThePassFunction)
{
    m_target->Step();
    EXPECT_EQ(m_target->ProgramCounter(), m_pass);
}

TEST_F(UcsimTargetTest, GlobalsHoldWhatStartUpSetWhereTheLayoutSays)
{
    m_target->Step();
    EXPECT_EQ(ReadUnsigned(WS_XDATA, kCfg + kRedTime, 1), kRedPasses);
    EXPECT_EQ(ReadUnsigned(WS_XDATA, kCfg + kGreenTime, 1), kGreenPasses);
    EXPECT_EQ(static_cast<std::int16_t>(ReadUnsigned(WS_XDATA, kCfg + kOffset, 2)), kJunctionOffset);
    EXPECT_EQ(ReadUnsigned(WS_DATA, kPhase, 1), 0u);            // red
    EXPECT_EQ(ReadUnsigned(WS_DATA, kTicks, 2), 1u);            // the first pass counted
    EXPECT_EQ(ReadUnsigned(WS_XDATA, kCounter, 2), kRedPasses);  // lights_pass not yet run
    EXPECT_EQ(ReadUnsigned(WS_DATA, kCursor, 2), kLog);
    EXPECT_EQ(ReadUnsigned(WS_DATA, kCurrent, 2), kLights);     // &lights[red]
    EXPECT_EQ(ReadUnsigned(WS_DATA, kFault, 2), 0u);
    EXPECT_EQ(ReadUnsigned(WS_IDATA, kMode, 1), 'A');
    EXPECT_EQ(ReadUnsigned(WS_PDATA, kFaults, 1), 0u);
    EXPECT_EQ(ReadUnsigned(WS_XDATA, kTotal, 4), 123456u + 1u);
    // Red lit alone, in the bit space and on the active-low port.
    EXPECT_EQ(ReadUnsigned(WS_BIT, kRed, 1), 1u);
    EXPECT_EQ(ReadUnsigned(WS_BIT, kGreen, 1), 0u);
    EXPECT_EQ(ReadUnsigned(WS_BIT, kYellow, 1), 0u);
    constexpr std::uint32_t kP1 = 0x90;
    EXPECT_EQ(ReadUnsigned(kSfrSpace, kP1, 1), 0xFEu);
    // The constants in code.
    std::array<std::uint8_t, 3> mask{};
    ASSERT_TRUE(m_target->Read(WS_CODE, kLampMask, mask));
    EXPECT_EQ(mask, (std::array<std::uint8_t, 3>{0x01, 0x04, 0x02}));
    std::array<std::uint8_t, 8> name{};
    ASSERT_TRUE(m_target->Read(WS_CODE, kName, name));
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(name.data())), "TRAFFIC");
}

TEST_F(UcsimTargetTest, EachStepIsOnePass)
{
    m_target->Step();
    const auto ticks = ReadUnsigned(WS_DATA, kTicks, 2);
    m_target->Step();
    m_target->Step();
    EXPECT_EQ(ReadUnsigned(WS_DATA, kTicks, 2), ticks + 2);
    EXPECT_EQ(ReadUnsigned(WS_XDATA, kCounter, 2), kRedPasses - 2u);
}

TEST_F(UcsimTargetTest, WritesReadBackInEverySpace)
{
    m_target->Step();
    const std::array<std::uint8_t, 2> ticks{0x34, 0x12};
    ASSERT_TRUE(m_target->Write(WS_DATA, kTicks, ticks));
    EXPECT_EQ(ReadUnsigned(WS_DATA, kTicks, 2), 0x1234u);
    const std::array<std::uint8_t, 1> red{7};
    ASSERT_TRUE(m_target->Write(WS_XDATA, kCfg + kRedTime, red));
    EXPECT_EQ(ReadUnsigned(WS_XDATA, kCfg + kRedTime, 1), 7u);
    const std::array<std::uint8_t, 1> mode{'M'};
    ASSERT_TRUE(m_target->Write(WS_IDATA, kMode, mode));
    EXPECT_EQ(ReadUnsigned(WS_IDATA, kMode, 1), 'M');
    const std::array<std::uint8_t, 1> faults{3};
    ASSERT_TRUE(m_target->Write(WS_PDATA, kFaults, faults));
    EXPECT_EQ(ReadUnsigned(WS_XDATA, kFaults, 1), 3u);
    const std::array<std::uint8_t, 2> bits{0, 1};
    ASSERT_TRUE(m_target->Write(WS_BIT, kRed, bits));
    EXPECT_EQ(ReadUnsigned(WS_BIT, kRed, 1), 0u);
    EXPECT_EQ(ReadUnsigned(WS_BIT, kYellow, 1), 1u);
    // The program sees the write: the next pass counts on from it.
    m_target->Step();
    EXPECT_EQ(ReadUnsigned(WS_DATA, kTicks, 2), 0x1235u);
}

TEST_F(UcsimTargetTest, OutOfRangeAndReadOnlyAccessFailWithoutARequest)
{
    std::array<std::uint8_t, 4> bytes{};
    const auto before = m_target->Process().RequestCount();
    EXPECT_FALSE(m_target->Read(WS_DATA, 0x7E, bytes));
    EXPECT_FALSE(m_target->Read(WS_BIT, 0x7E, bytes));
    EXPECT_FALSE(m_target->Read(WS_XDATA, 0xFFFE, bytes));
    EXPECT_FALSE(m_target->Read(kSfrSpace, 0x10, bytes));
    EXPECT_FALSE(m_target->Read(WS_NONE, 0, bytes));
    EXPECT_FALSE(m_target->Write(WS_CODE, kLampMask, bytes));
    EXPECT_FALSE(m_target->Write(WS_PDATA, 0xFE, bytes));
    EXPECT_EQ(m_target->Process().RequestCount(), before);
}

TEST_F(UcsimTargetTest, BreakpointsStopWhereSetAndClearedOnesDoNot)
{
    const auto uptime = FunctionAddress("timer0_uptime");
    ASSERT_TRUE(uptime);
    ASSERT_TRUE(m_target->SetBreakpoint(*uptime));
    ASSERT_TRUE(m_target->Run());
    EXPECT_EQ(m_target->ProgramCounter(), *uptime);
    EXPECT_TRUE(m_target->ClearBreakpoint(*uptime));
    EXPECT_FALSE(m_target->ClearBreakpoint(*uptime));
    // With timer0_uptime's gone, the pass function is where it stops next.
    m_target->Step();
    EXPECT_EQ(m_target->ProgramCounter(), m_pass);
}

TEST_F(UcsimTargetTest, SerialLinesReachTheListener)
{
    m_target->Step();
    // Red lasts ten passes; the eleventh switches to green and says so.
    for (int i = 0; i < kRedPasses + 1; ++i) m_target->Step();
    m_target->DrainUart();
    ASSERT_GE(m_lines.size(), 2u);
    EXPECT_EQ(m_lines[0], "TRAFFIC RED");
    EXPECT_EQ(m_lines[1], "GREEN");
}

TEST_F(UcsimTargetTest, ARefreshOfTwentyVariablesCostsAHandfulOfRequests)
{
    m_target->Step();
    struct Variable {
        std::uint32_t space, address, size;
    };
    const std::vector<Variable> watch = {
        {WS_DATA, kPhase, 1},    {WS_DATA, kTicks, 2},         {WS_DATA, kCursor, 2},     {WS_DATA, kLabel, 3},
        {WS_DATA, kSensor, 2},   {WS_DATA, kCurrent, 2},       {WS_DATA, kFault, 2},      {WS_IDATA, kMode, 1},
        {WS_PDATA, kFaults, 1},  {WS_XDATA, kCounter, 2},      {WS_XDATA, kUptime, 4},    {WS_XDATA, kTotal, 4},
        {WS_XDATA, kTemperature, 4}, {WS_XDATA, kCfg, 4},      {WS_XDATA, kTimings, 24},  {WS_XDATA, kLights, 24},
        {WS_XDATA, kLog, 16},    {WS_CODE, kLampMask, 3},      {WS_CODE, kName, 8},       {WS_BIT, kRed, 3},
    };
    // Two refreshes: the second is served from the cache alone.
    UcsimProcess& process = m_target->Process();
    using Cost = std::pair<std::size_t, std::size_t>;  // round trips, commands
    const auto refresh = [&] {
        const auto trips = process.RequestCount();
        const auto commands = process.CommandCount();
        for (const auto& v : watch) ReadUnsigned(v.space, v.address, std::min<std::uint32_t>(v.size, 4));
        return Cost(process.RequestCount() - trips, process.CommandCount() - commands);
    };
    // Dumps of internal RAM and the SFRs (for P2) in one round trip, then
    // xdata blocks 0x0000 (pdata) and 0x0100, and one code block.
    const Cost cold = refresh();
    std::printf("refresh of %zu variables: %zu round trips, %zu commands\n", watch.size(), cold.first, cold.second);
    EXPECT_EQ(cold, Cost(4, 5));
    // Again at the same stop: the cache alone answers.
    EXPECT_EQ(refresh(), Cost(0, 0));
    // Running drops the cache of everything but code; the blocks read before
    // come back together in one round trip.
    m_target->Step();
    EXPECT_EQ(refresh(), Cost(1, 4));
}

TEST_F(UcsimTargetTest, ASimulatorThatDiesMidSessionFailsReadsAndLeavesNoZombie)
{
    m_target->Step();
    EXPECT_EQ(ReadUnsigned(WS_IDATA, kMode, 1), 'A');  // now cached
    const pid_t pid = m_target->Process().Pid();
    ASSERT_EQ(kill(pid, SIGKILL), 0);
    const auto start = std::chrono::steady_clock::now();
    std::array<std::uint8_t, 1> byte{};
    // The first request after the kill finds the console closed...
    EXPECT_FALSE(m_target->Read(WS_XDATA, kCfg, byte));
    // ...and from then on not even the cache answers.
    EXPECT_FALSE(m_target->Read(WS_IDATA, kMode, byte));
    EXPECT_FALSE(m_target->Write(WS_XDATA, kCfg, byte));
    EXPECT_FALSE(m_target->Run());
    EXPECT_FALSE(m_target->ProgramCounter());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
    EXPECT_FALSE(ChildExists(pid));
}

TEST(UcsimTarget, WithoutAStepBreakpointAStepIsABoundedRunOfInstructions)
{
    SKIP_WITHOUT_TOOLCHAIN();
    UcsimTarget target(StartSample(false), UcsimTarget::Options{});
    ASSERT_EQ(target.ProgramCounter(), 0u);
    target.Step();
    // Ten thousand instructions reach past start-up into the main loop.
    std::array<std::uint8_t, 1> mode{};
    ASSERT_TRUE(target.Read(WS_IDATA, kMode, mode));
    EXPECT_EQ(mode[0], 'A');
    const auto pc = target.ProgramCounter();
    ASSERT_TRUE(pc);
    EXPECT_NE(*pc, 0u);
    EXPECT_TRUE(target.Process().Alive());
}

TEST(UcsimTarget, ARunThatNeverStopsIsCutOffAtItsBound)
{
    SKIP_WITHOUT_TOOLCHAIN();
    UcsimTarget::Options options;
    options.runTimeout = std::chrono::milliseconds(300);
    UcsimTarget target(StartSample(false), options);
    ASSERT_TRUE(target.Process().Alive());
    const pid_t pid = target.Process().Pid();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(target.Run());  // no breakpoint at all
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(800));
    EXPECT_FALSE(ChildExists(pid));
}

}  // namespace
