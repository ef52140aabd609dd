// The debugger service over the real program: the sample built by SDCC, its
// symbols read from the compiler's debug information, its memory read from
// ucsim's s51, every request sent to the service's window as the watch
// sends it. The records the watch gets from a real 8051 must be what the
// simulated target gives for the same program.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstring>
#include <filesystem>

#include "demo/debugger/simulated_debugger_service.h"
#include "demo/debugger/ucsim/ucsim_target.h"
#include "demo/toolchain/cdb_reader.h"
#include "demo/toolchain/debug_symbols.h"
#include "demo/toolchain/process_run.h"
#include "demo/toolchain/sample_build.h"
#include "watch/debug_protocol.h"

namespace {

class RealTargetService : public testing::Test {
protected:
    void SetUp() override
    {
        if (!FindOnPath("sdcc") || !FindOnPath("s51")) GTEST_SKIP() << "sdcc or s51 is not on PATH: the real target is not checked";
        m_folder = std::filesystem::temp_directory_path() / ("dockpanes_real_service_" + std::to_string(getpid()));
        const BuildResult build = BuildSample(DEMO_SAMPLE_DIR, m_folder);
        ASSERT_TRUE(build.success) << testing::PrintToString(build.Lines());
        const auto info = LoadDebugInfo(build.cdb);
        ASSERT_TRUE(info);
        const DebugFunction* pass = info->FindFunction("lights_pass");
        ASSERT_TRUE(pass && pass->start);
        UcsimLaunch launch;
        launch.program = build.ihx.string();
        auto process = std::make_unique<UcsimProcess>(launch);
        ASSERT_TRUE(process->Alive());
        UcsimTarget::Options options;
        options.stepBreakpoint = pass->start;
        auto target = std::make_unique<UcsimTarget>(std::move(process), std::move(options));
        m_target = target.get();
        m_service.UseTarget(std::move(target), SymbolsFromDebugInfo(*info), {"phase", "ticks", "cfg"});
        ASSERT_TRUE(m_service.Create(nullptr));
        m_service.Step();  // through start-up to the main loop's first pass
    }
    void TearDown() override
    {
        std::error_code error;
        std::filesystem::remove_all(m_folder, error);
    }

    WatchRecord Evaluate(const char* text)
    {
        WatchRecord record{};
        m_service.SendMessage(UWM_DEBUG_REQUEST, reinterpret_cast<WPARAM>(text), reinterpret_cast<LPARAM>(&record));
        return record;
    }
    void Request(WPARAM code, WatchRecord& record)
    {
        m_service.SendMessage(UWM_DEBUG_REQUEST, code, reinterpret_cast<LPARAM>(&record));
    }

    std::filesystem::path m_folder;
    SimulatedDebuggerService m_service;
    UcsimTarget* m_target = nullptr;
};

TEST_F(RealTargetService, EvaluatesAndExpandsWhatTheProgramHolds)
{
    const WatchRecord cfg = Evaluate("cfg");
    ASSERT_NE(cfg.status, 0);
    EXPECT_EQ(cfg.type, static_cast<std::uint32_t>(WT_STRUCT));
    EXPECT_EQ(cfg.space, static_cast<std::uint32_t>(WS_XDATA));
    EXPECT_EQ(cfg.address, 0x0110u);
    WatchRecord count = cfg;
    Request(DRQ_GET_COUNT, count);
    EXPECT_EQ(count.count, 3);
    WatchRecord member = cfg;
    member.count = 2;
    Request(DRQ_GET_MEMBER, member);
    EXPECT_STREQ(member.name, "offset");
    EXPECT_EQ(member.address, 0x0112u);

    // The start-up code set these; the constant table is in code memory.
    EXPECT_EQ(Evaluate("lamp_mask[1]").value, 0x04u);
    EXPECT_EQ(Evaluate("name[0]").value, static_cast<std::uint32_t>('T'));
    EXPECT_EQ(Evaluate("mode").value, static_cast<std::uint32_t>('A'));
    EXPECT_EQ(Evaluate("nosuch").errorId, static_cast<std::uint32_t>(WERR_UNDEFINED));
}

TEST_F(RealTargetService, AWrittenValueReadsBackAndTheProgramRunsOnFromIt)
{
    WatchRecord green = Evaluate("cfg.green_time");
    ASSERT_NE(green.status, 0);
    green.value = 5;
    Request(DRQ_WRITE_VALUE, green);
    WatchRecord reread = green;
    reread.value = 0;
    Request(DRQ_READ_VALUE, reread);
    EXPECT_EQ(reread.value, 5u);

    const std::uint32_t ticks = Evaluate("ticks").value;
    m_service.Step();
    EXPECT_GT(Evaluate("ticks").value, ticks);
    EXPECT_EQ(Evaluate("cfg.green_time").value, 5u);
}

TEST_F(RealTargetService, ASimulatorThatDiesLeavesRecordsWithoutValues)
{
    const pid_t pid = m_target->Process().Pid();
    ASSERT_GT(pid, 0);
    kill(pid, SIGKILL);
    WatchRecord ticks = Evaluate("ticks");
    // The symbol is still known; its bytes cannot be read any more.
    EXPECT_NE(ticks.status, 0);
    EXPECT_NE(ticks.unavailable, 0);
}

}  // namespace
