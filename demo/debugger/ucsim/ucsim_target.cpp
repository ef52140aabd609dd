#include "demo/debugger/ucsim/ucsim_target.h"

#include <unistd.h>

#include <algorithm>
#include <vector>

#include "demo/debugger/ucsim/console_text.h"
#include "demo/debugger/ucsim/hex_dump.h"

namespace {

constexpr std::uint32_t kInternalBytes = 0x100;
constexpr std::uint32_t kDirectBytes = 0x80;  // data: the directly addressed half
constexpr std::uint32_t kSfrFirst = 0x80;
constexpr std::uint32_t kExternalBytes = 0x10000;
constexpr std::uint32_t kPageBytes = 0x100;
constexpr std::uint32_t kP2 = 0xA0;  // the SFR holding the pdata page
// Bit addresses 0x00-0x7F are the bits of internal bytes 0x20-0x2F.
constexpr std::uint32_t kBitCount = 0x80;
constexpr std::uint32_t kFirstBitByte = 0x20;
// Bytes per `set mem` command: keeps a console line short.
constexpr std::size_t kBytesPerSet = 32;
// s51 answers a `set mem` by dumping what it stored, a `break` by naming it.
constexpr std::string_view kStored = "0x";
constexpr std::string_view kBreakpointSet = "Breakpoint ";
constexpr std::string_view kNoBreakpoint = "No breakpoint";
constexpr std::string_view kStopped = "Stop at ";
// How much serial output one look reads at most.
constexpr std::size_t kUartChunk = 4096;

bool Fits(std::uint32_t address, std::size_t count, std::uint32_t limit)
{
    return static_cast<std::uint64_t>(address) + count <= limit;
}

std::string Hex(std::uint32_t value)
{
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    do {
        text.insert(text.begin(), kDigits[value % 16]);
        value /= 16;
    } while (value != 0);
    return "0x" + text;
}

bool StartsWith(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

}  // namespace

UcsimTarget::UcsimTarget(std::unique_ptr<UcsimProcess> process, Options options)
    : m_process(std::move(process)), m_options(std::move(options)), m_uart(m_options.uartLine)
{
}

std::optional<std::string> UcsimTarget::Request(const std::string& command, std::chrono::milliseconds timeout)
{
    auto reply = m_process->Request(command, timeout);
    DrainUart();
    return reply;
}

void UcsimTarget::DrainUart()
{
    const int fd = m_process->UartFd();
    if (fd < 0) return;
    char buffer[kUartChunk];
    ssize_t got;
    while ((got = read(fd, buffer, sizeof buffer)) > 0) m_uart.Feed(std::string_view(buffer, static_cast<std::size_t>(got)));
}

void UcsimTarget::Invalidate()
{
    std::erase_if(m_cache, [](const auto& entry) { return static_cast<Region>(entry.first >> 16) != Region::Code; });
}

std::uint32_t UcsimTarget::Key(Region region, std::uint32_t base)
{
    return static_cast<std::uint32_t>(region) << 16 | base / kBlockBytes;
}

const UcsimTarget::Block* UcsimTarget::CachedBlock(Region region, std::uint32_t address)
{
    const std::uint32_t base = address / kBlockBytes * kBlockBytes;
    const std::uint32_t key = Key(region, base);
    if (const auto found = m_cache.find(key); found != m_cache.end()) return &found->second;
    // Every round trip to the simulator costs as much as many dumps, so a
    // miss fetches in one batch what a refresh after a stop goes on to read:
    // internal RAM and the SFRs (small, and a pdata read needs P2) and the
    // external blocks read before.
    using Wanted = std::pair<Region, std::uint32_t>;
    std::vector<Wanted> wanted{{region, base}};
    const auto add = [&](Region other, std::uint32_t otherBase) {
        if (Wanted{other, otherBase} != wanted.front() && !m_cache.count(Key(other, otherBase))) wanted.emplace_back(other, otherBase);
    };
    add(Region::Internal, 0);
    add(Region::Sfr, 0);
    if (region == Region::External) m_externalInUse.insert(base);
    for (const std::uint32_t other : m_externalInUse) add(Region::External, other);
    if (!Fill(wanted)) return nullptr;
    return &m_cache.at(key);
}

bool UcsimTarget::Fill(std::span<const std::pair<Region, std::uint32_t>> blocks)
{
    // The SFRs are the upper half of their block; the rest is never read.
    static constexpr const char* kMemory[] = {"iram", "sfr", "xram", "rom"};
    const auto first = [](Region region, std::uint32_t base) { return region == Region::Sfr ? kSfrFirst : base; };
    std::vector<std::string> commands;
    for (const auto& [region, base] : blocks) {
        const std::uint32_t from = first(region, base);
        commands.push_back(DumpCommand(kMemory[static_cast<int>(region)], from, kBlockBytes - (from - base)));
    }
    auto replies = m_process->Batch(commands);
    DrainUart();
    if (!replies) return false;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const auto [region, base] = blocks[i];
        const std::uint32_t from = first(region, base);
        const auto bytes = ParseHexDump((*replies)[i], from, kBlockBytes - (from - base));
        if (!bytes) return false;
        Block& block = m_cache[Key(region, base)];
        block.fill(0);
        std::copy(bytes->begin(), bytes->end(), block.begin() + (from - base));
    }
    return true;
}

bool UcsimTarget::ReadRegion(Region region, std::uint32_t address, std::span<std::uint8_t> out)
{
    std::size_t done = 0;
    while (done < out.size()) {
        const std::uint32_t at = address + static_cast<std::uint32_t>(done);
        const Block* block = CachedBlock(region, at);
        if (!block) return false;
        const std::size_t offset = at % kBlockBytes;
        const std::size_t take = std::min(out.size() - done, kBlockBytes - offset);
        std::copy_n(block->begin() + offset, take, out.begin() + done);
        done += take;
    }
    return true;
}

bool UcsimTarget::ReadBits(std::uint32_t address, std::span<std::uint8_t> out)
{
    const Block* block = CachedBlock(Region::Internal, 0);
    if (!block) return false;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const std::uint32_t bit = address + static_cast<std::uint32_t>(i);
        out[i] = ((*block)[kFirstBitByte + bit / 8] >> (bit % 8)) & 1;
    }
    return true;
}

std::optional<std::uint32_t> UcsimTarget::PagedAddress(std::uint32_t address)
{
    std::uint8_t page = 0;
    if (!ReadRegion(Region::Sfr, kP2, std::span(&page, 1))) return std::nullopt;
    return page * kPageBytes + address;
}

bool UcsimTarget::Read(std::uint32_t space, std::uint32_t address, std::span<std::uint8_t> out)
{
    // A cache outliving its simulator would show a program that is gone.
    if (!m_process->Alive()) return false;
    switch (space) {
    case WS_DATA:
        return Fits(address, out.size(), kDirectBytes) && ReadRegion(Region::Internal, address, out);
    case WS_IDATA:
    case WS_STACK:
        return Fits(address, out.size(), kInternalBytes) && ReadRegion(Region::Internal, address, out);
    case WS_BIT:
        return Fits(address, out.size(), kBitCount) && ReadBits(address, out);
    case WS_XDATA:
        return Fits(address, out.size(), kExternalBytes) && ReadRegion(Region::External, address, out);
    case WS_PDATA: {
        if (!Fits(address, out.size(), kPageBytes)) return false;
        const auto external = PagedAddress(address);
        return external && ReadRegion(Region::External, *external, out);
    }
    case WS_CODE:
    case WS_CONST:
        return Fits(address, out.size(), kExternalBytes) && ReadRegion(Region::Code, address, out);
    case kSfrSpace:
        return address >= kSfrFirst && Fits(address, out.size(), kInternalBytes) && ReadRegion(Region::Sfr, address, out);
    default:
        return false;
    }
}

bool UcsimTarget::WriteBytes(const char* memory, std::uint32_t address, std::span<const std::uint8_t> bytes)
{
    Invalidate();
    for (std::size_t done = 0; done < bytes.size(); done += kBytesPerSet) {
        std::string command = std::string("set mem ") + memory + " " + Hex(address + static_cast<std::uint32_t>(done));
        for (std::size_t i = done; i < std::min(bytes.size(), done + kBytesPerSet); ++i) command += " " + Hex(bytes[i]);
        const auto reply = Request(command);
        if (!reply || !StartsWith(*reply, kStored)) return false;
    }
    return true;
}

bool UcsimTarget::WriteBits(std::uint32_t address, std::span<const std::uint8_t> bytes)
{
    Invalidate();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto reply = Request("set bit " + Hex(address + static_cast<std::uint32_t>(i)) + (bytes[i] ? " 1" : " 0"));
        if (!reply || !StartsWith(*reply, kStored)) return false;
    }
    return true;
}

bool UcsimTarget::Write(std::uint32_t space, std::uint32_t address, std::span<const std::uint8_t> bytes)
{
    switch (space) {
    case WS_DATA:
        return Fits(address, bytes.size(), kDirectBytes) && WriteBytes("iram", address, bytes);
    case WS_IDATA:
    case WS_STACK:
        return Fits(address, bytes.size(), kInternalBytes) && WriteBytes("iram", address, bytes);
    case WS_BIT:
        return Fits(address, bytes.size(), kBitCount) && WriteBits(address, bytes);
    case WS_XDATA:
        return Fits(address, bytes.size(), kExternalBytes) && WriteBytes("xram", address, bytes);
    case WS_PDATA: {
        if (!Fits(address, bytes.size(), kPageBytes)) return false;
        const auto external = PagedAddress(address);
        return external && WriteBytes("xram", *external, bytes);
    }
    case kSfrSpace:
        return address >= kSfrFirst && Fits(address, bytes.size(), kInternalBytes) && WriteBytes("sfr", address, bytes);
    default:
        // Code is read-only to a debugger, as on the chip.
        return false;
    }
}

void UcsimTarget::Step()
{
    if (m_options.stepBreakpoint && SetBreakpoint(*m_options.stepBreakpoint)) {
        Run();
        return;
    }
    Invalidate();
    Request("step " + std::to_string(kStepInstructions), m_options.runTimeout);
}

bool UcsimTarget::SetBreakpoint(std::uint32_t address)
{
    if (m_breakpoints.contains(address)) return true;
    const auto reply = Request("break " + Hex(address));
    if (!reply || !StartsWith(*reply, kBreakpointSet)) return false;
    m_breakpoints.insert(address);
    return true;
}

bool UcsimTarget::ClearBreakpoint(std::uint32_t address)
{
    if (!m_breakpoints.erase(address)) return false;
    const auto reply = Request("clear " + Hex(address));
    return reply && reply->find(kNoBreakpoint) == std::string::npos;
}

bool UcsimTarget::Run()
{
    Invalidate();
    const auto reply = Request("run", m_options.runTimeout);
    return reply && reply->find(kStopped) != std::string::npos;
}

std::optional<std::uint32_t> UcsimTarget::ProgramCounter()
{
    const auto reply = Request("expression PC");
    if (!reply) return std::nullopt;
    const auto line = reply->substr(0, reply->find('\n'));
    return ParseConsoleNumber(line);
}
