#include "demo/debugger/target_memory.h"

#include <algorithm>

#include "watch/debug_protocol.h"

namespace {

constexpr std::size_t kCodeBytes = 0x10000;
constexpr std::size_t kExternalBytes = 0x10000;
constexpr std::size_t kInternalBytes = 0x100;
// Paged external RAM is one 256-byte page of xdata; the page register is 0.
constexpr std::size_t kPageBytes = 0x100;
// Bit addresses 0x00 to 0x7F are the bits of internal bytes 0x20 to 0x2F.
constexpr std::uint32_t kBitCount = 0x80;
constexpr std::uint32_t kFirstBitByte = 0x20;

bool Fits(std::uint32_t address, std::size_t count, std::size_t limit)
{
    return static_cast<std::uint64_t>(address) + count <= limit;
}

}  // namespace

TargetMemory::TargetMemory() : m_code(kCodeBytes), m_external(kExternalBytes), m_internal(kInternalBytes) {}

template <class Memory>
auto TargetMemory::Bytes(Memory& memory, std::uint32_t space)
{
    using Span = decltype(std::span(memory.m_code));
    switch (space) {
    case WS_CODE:
    case WS_CONST:
        return Span(memory.m_code);
    case WS_XDATA:
        return Span(memory.m_external);
    case WS_PDATA:
        return Span(memory.m_external).first(kPageBytes);
    case WS_DATA:
    case WS_IDATA:
    case WS_STACK:
        return Span(memory.m_internal);
    default:
        return Span();
    }
}

bool TargetMemory::Read(std::uint32_t space, std::uint32_t address, std::span<std::uint8_t> out) const
{
    if (space == WS_BIT) {
        if (!Fits(address, out.size(), kBitCount)) return false;
        for (std::size_t i = 0; i < out.size(); ++i) {
            const std::uint32_t bit = address + static_cast<std::uint32_t>(i);
            out[i] = (m_internal[kFirstBitByte + bit / 8] >> (bit % 8)) & 1;
        }
        return true;
    }
    const auto bytes = Bytes(*this, space);
    if (bytes.empty() || !Fits(address, out.size(), bytes.size())) return false;
    std::copy_n(bytes.begin() + address, out.size(), out.begin());
    return true;
}

bool TargetMemory::Write(std::uint32_t space, std::uint32_t address, std::span<const std::uint8_t> bytes)
{
    if (space == WS_CODE || space == WS_CONST) return false;
    if (space == WS_BIT) {
        if (!Fits(address, bytes.size(), kBitCount)) return false;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            const std::uint32_t bit = address + static_cast<std::uint32_t>(i);
            std::uint8_t& byte = m_internal[kFirstBitByte + bit / 8];
            const auto mask = static_cast<std::uint8_t>(1u << (bit % 8));
            byte = bytes[i] ? byte | mask : byte & ~mask;
        }
        return true;
    }
    const auto target = Bytes(*this, space);
    if (target.empty() || !Fits(address, bytes.size(), target.size())) return false;
    std::copy(bytes.begin(), bytes.end(), target.begin() + address);
    return true;
}

bool TargetMemory::LoadCode(std::uint32_t address, std::span<const std::uint8_t> bytes)
{
    if (!Fits(address, bytes.size(), m_code.size())) return false;
    std::copy(bytes.begin(), bytes.end(), m_code.begin() + address);
    return true;
}
