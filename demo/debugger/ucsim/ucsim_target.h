// The sample program on ucsim's s51: a DebugTarget whose reads come from a
// cache of the simulator's memories, filled with one dump command per region
// on first use after each stop, and dropped whenever the program runs or a
// write changes memory. A refresh of a watch full of variables so costs a
// few console round trips, not one per variable.
//
// Spaces: data 0x00-0x7F and idata/stack 0x00-0xFF are internal RAM; bit
// 0x00-0x7F are the bits of internal bytes 0x20-0x2F (one byte per bit);
// xdata 0x0000-0xFFFF; pdata 0x00-0xFF is the xdata page P2 selects (the
// sample sets P2 to 0); code and const are the program memory, read-only;
// kSfrSpace 0x80-0xFF are the special function registers.
//
// Running blocks: s51 does not read its console while it simulates, so Run()
// and Step() return when a breakpoint stops the program, and a program that
// does not stop within the run timeout has its simulator killed.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "demo/debugger/debug_target.h"
#include "demo/debugger/execution_control.h"
#include "demo/debugger/ucsim/uart_lines.h"
#include "demo/debugger/ucsim/ucsim_process.h"
#include "watch/debug_protocol.h"

// The SFRs have no watch space of their own; the system space stands for them.
constexpr std::uint32_t kSfrSpace = WS_SYS;

class UcsimTarget : public DebugTarget, public ExecutionControl {
public:
    // Bytes per cached block of xdata and code: one dump line short of a
    // console screenful, and a structure rarely straddles two.
    static constexpr std::uint32_t kBlockBytes = 0x100;
    // A run of the sample to its next pass takes a few milliseconds; a run
    // this long means the program will not stop.
    static constexpr std::chrono::milliseconds kDefaultRunTimeout{2000};
    // A step without a breakpoint: enough instructions for the sample's
    // timer to come round, few enough to return at once.
    static constexpr std::uint32_t kStepInstructions = 10000;

    struct Options {
        // Where one step of the program stops: the code address of the
        // function its main loop calls once a pass. Without one, a step is
        // kStepInstructions instructions.
        std::optional<std::uint32_t> stepBreakpoint;
        std::chrono::milliseconds runTimeout = kDefaultRunTimeout;
        // Told each complete line the program prints on its serial port.
        std::function<void(const std::string& line)> uartLine;
    };

    // Over a started simulator (see UcsimProcess::Alive for whether it is).
    UcsimTarget(std::unique_ptr<UcsimProcess> process, Options options);

    bool Read(std::uint32_t space, std::uint32_t address, std::span<std::uint8_t> out) override;
    bool Write(std::uint32_t space, std::uint32_t address, std::span<const std::uint8_t> bytes) override;
    // Runs to the step breakpoint, or a bounded number of instructions.
    void Step() override;

    bool SetBreakpoint(std::uint32_t address) override;
    bool ClearBreakpoint(std::uint32_t address) override;
    bool Run() override;
    std::optional<std::uint32_t> ProgramCounter() override;

    UcsimProcess& Process() { return *m_process; }
    // Reads what the program printed since the last look and hands on its
    // complete lines; every request does this too.
    void DrainUart();

private:
    enum class Region : std::uint8_t { Internal, Sfr, External, Code };
    using Block = std::array<std::uint8_t, kBlockBytes>;

    // The cached block of a region holding address, dumped on first use.
    const Block* CachedBlock(Region region, std::uint32_t address);
    // Dumps the blocks into the cache, all in one round trip.
    bool Fill(std::span<const std::pair<Region, std::uint32_t>> blocks);
    static std::uint32_t Key(Region region, std::uint32_t base);
    bool ReadRegion(Region region, std::uint32_t address, std::span<std::uint8_t> out);
    bool ReadBits(std::uint32_t address, std::span<std::uint8_t> out);
    bool WriteBytes(const char* memory, std::uint32_t address, std::span<const std::uint8_t> bytes);
    bool WriteBits(std::uint32_t address, std::span<const std::uint8_t> bytes);
    // The xdata address of a pdata byte.
    std::optional<std::uint32_t> PagedAddress(std::uint32_t address);
    std::optional<std::string> Request(const std::string& command,
                                       std::chrono::milliseconds timeout = UcsimProcess::kDefaultTimeout);
    // The program ran or memory changed: everything but code is stale.
    void Invalidate();

    std::unique_ptr<UcsimProcess> m_process;
    Options m_options;
    UartLines m_uart;
    std::unordered_map<std::uint32_t, Block> m_cache;  // keyed by region and block
    // External RAM blocks read since the program was loaded: a watch reads
    // the same ones after every stop, so they are fetched together.
    std::set<std::uint32_t> m_externalInUse;
    std::set<std::uint32_t> m_breakpoints;
};
