// The memories of a classic 8051 as the simulated target holds them: 64 KiB
// of code and of external RAM, 256 bytes of internal RAM, and the 128 bits of
// the bit-addressable internal bytes.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

class TargetMemory {
public:
    TargetMemory();

    // Bytes of a space (a WatchSpace code); see DebugTarget for the rules.
    bool Read(std::uint32_t space, std::uint32_t address, std::span<std::uint8_t> out) const;
    bool Write(std::uint32_t space, std::uint32_t address, std::span<const std::uint8_t> bytes);
    // How a program image reaches code memory, which a debugger cannot write.
    bool LoadCode(std::uint32_t address, std::span<const std::uint8_t> bytes);

private:
    // The bytes a space lives in; empty for a space without memory.
    template <class Memory>
    static auto Bytes(Memory& memory, std::uint32_t space);

    std::vector<std::uint8_t> m_code;
    std::vector<std::uint8_t> m_external;
    std::vector<std::uint8_t> m_internal;
};
