#include "demo/views/memory_line.h"

#include <algorithm>

#include "watch/debug_protocol.h"

namespace {

constexpr int kGap = 2;        // blanks between the address, hex and ASCII parts
constexpr int kHexCell = 3;    // two digits and a blank
constexpr char kDigits[] = "0123456789ABCDEF";

int PrefixColumns(const MemorySpace& space)
{
    return 2 + space.addressDigits;  // letter and colon
}

}  // namespace

std::optional<MemorySpace> MemorySpaceOf(std::uint32_t space)
{
    switch (space) {
    case WS_CODE: return MemorySpace{'C', 0x10000, 4};
    case WS_XDATA: return MemorySpace{'X', 0x10000, 4};
    case WS_DATA: return MemorySpace{'D', 0x80, 2};
    case WS_IDATA: return MemorySpace{'I', 0x100, 2};
    case WS_PDATA: return MemorySpace{'P', 0x100, 2};
    case WS_BIT: return MemorySpace{'B', 0x80, 2};
    default: return std::nullopt;
    }
}

int MemoryHexColumn(const MemorySpace& space, int index)
{
    return PrefixColumns(space) + kGap + index * kHexCell;
}

int MemoryAsciiColumn(const MemorySpace& space, int index)
{
    // The last hex cell has no trailing blank of its own.
    return MemoryHexColumn(space, kMemoryBytesPerLine) - 1 + kGap + index;
}

std::string FormatMemoryLine(const MemorySpace& space, std::uint32_t lineAddress, std::span<const int> bytes)
{
    std::string line(static_cast<size_t>(MemoryAsciiColumn(space, kMemoryBytesPerLine)), ' ');
    line[0] = space.letter;
    line[1] = ':';
    for (int d = 0; d < space.addressDigits; ++d) {
        const int shift = 4 * (space.addressDigits - 1 - d);
        line[static_cast<size_t>(2 + d)] = kDigits[(lineAddress >> shift) & 0xF];
    }
    const int count = std::min(static_cast<int>(bytes.size()), kMemoryBytesPerLine);
    for (int i = 0; i < count; ++i) {
        const int value = bytes[static_cast<size_t>(i)];
        const bool readable = value >= 0 && value <= 0xFF;
        const auto hex = static_cast<size_t>(MemoryHexColumn(space, i));
        line[hex] = readable ? kDigits[value >> 4] : '?';
        line[hex + 1] = readable ? kDigits[value & 0xF] : '?';
        const bool printable = readable && value >= 0x20 && value < 0x7F;
        line[static_cast<size_t>(MemoryAsciiColumn(space, i))] = printable ? static_cast<char>(value) : readable ? '.' : ' ';
    }
    return line;
}
