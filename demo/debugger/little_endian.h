// Multi-byte values in target memory. SDCC stores them least significant
// byte first on the 8051 (its manual: the only data-pointer step is an
// increment, so that order is the cheaper one), and so does the simulation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// The first four bytes at most, as a number.
inline std::uint32_t LoadLittle(std::span<const std::uint8_t> bytes)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < bytes.size() && i < 4; ++i) value |= static_cast<std::uint32_t>(bytes[i]) << (8 * i);
    return value;
}

// Fills bytes with value, least significant first; bytes past the fourth get 0.
inline void StoreLittle(std::span<std::uint8_t> bytes, std::uint32_t value)
{
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = i < 4 ? static_cast<std::uint8_t>(value >> (8 * i)) : 0;
}
