// The real target: one command's round trip to ucsim's s51, and what the
// watch pays after a stop to read 20 variables of every memory space (the
// target batches its reads into a few dumps). Skipped without SDCC and s51.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <array>
#include <filesystem>
#include <memory>

#include "demo/debugger/traffic_layout.h"
#include "demo/debugger/ucsim/ucsim_target.h"
#include "demo/toolchain/cdb_reader.h"
#include "demo/toolchain/process_run.h"
#include "demo/toolchain/sample_build.h"
#include "watch/debug_protocol.h"

namespace {

// The sample built once and loaded into a fresh s51 for each benchmark.
std::unique_ptr<UcsimTarget> StartTarget(benchmark::State& state)
{
    if (!FindOnPath("sdcc") || !FindOnPath("s51")) {
        state.SkipWithError("sdcc or s51 is not on PATH");
        return nullptr;
    }
    static const BuildResult build =
        BuildSample(DEMO_SAMPLE_DIR, std::filesystem::temp_directory_path() / ("dockpanes_bench_" + std::to_string(getpid())));
    const auto info = LoadDebugInfo(build.cdb);
    const DebugFunction* pass = info ? info->FindFunction("lights_pass") : nullptr;
    if (!build.success || !pass) {
        state.SkipWithError("the sample did not build");
        return nullptr;
    }
    UcsimLaunch launch;
    launch.program = build.ihx.string();
    UcsimTarget::Options options;
    options.stepBreakpoint = pass->start;
    auto target = std::make_unique<UcsimTarget>(std::make_unique<UcsimProcess>(launch), std::move(options));
    target->Step();
    return target;
}

void CommandRoundTrip(benchmark::State& state)
{
    auto target = StartTarget(state);
    if (!target) return;
    for (auto _ : state) benchmark::DoNotOptimize(target->Process().Request("expression 1"));
}
BENCHMARK(CommandRoundTrip)->Unit(benchmark::kMillisecond)->Iterations(20);

// 20 variables as a watch of the sample holds them: data, idata, pdata,
// bits, xdata and code, read afresh after each stop (the stop itself is not
// timed).
void RefreshTwentyRowsAfterAStop(benchmark::State& state)
{
    auto target = StartTarget(state);
    if (!target) return;
    using namespace Traffic;
    const struct {
        std::uint32_t space, address, size;
    } rows[] = {
        {WS_DATA, kPhase, 1},       {WS_DATA, kTicks, 2},        {WS_DATA, kCursor, 2},       {WS_DATA, kLabel, 3},
        {WS_DATA, kSensor, 2},      {WS_DATA, kCurrent, 2},      {WS_IDATA, kMode, 1},        {WS_PDATA, kFaults, 1},
        {WS_BIT, kRed, 1},          {WS_BIT, kYellow, 1},        {WS_BIT, kGreen, 1},         {WS_XDATA, kCounter, 2},
        {WS_XDATA, kUptime, 4},     {WS_XDATA, kTotal, 4},       {WS_XDATA, kTemperature, 4}, {WS_XDATA, kCfg, 4},
        {WS_XDATA, kTimings, 24},   {WS_XDATA, kLights, 24},     {WS_CODE, kLampMask, 3},     {WS_CODE, kName, 8},
    };
    std::array<std::uint8_t, 24> bytes{};
    for (auto _ : state) {
        state.PauseTiming();
        target->Step();
        state.ResumeTiming();
        for (const auto& row : rows) target->Read(row.space, row.address, std::span(bytes).first(row.size));
    }
}
BENCHMARK(RefreshTwentyRowsAfterAStop)->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace
