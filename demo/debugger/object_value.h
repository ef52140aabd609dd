// The value of a scalar or pointer object in target memory: its bytes as one
// number, least significant first, zero-extended to 32 bits.
#pragma once

#include <cstdint>
#include <optional>

class DebugTarget;

// Nothing when the bytes cannot be read or the size is not 1 to 4.
std::optional<std::uint32_t> ReadValue(DebugTarget& target, std::uint32_t space, std::uint32_t address, std::uint32_t size);
// Stores value cut to size bytes; false when that cannot be done.
bool WriteValue(DebugTarget& target, std::uint32_t space, std::uint32_t address, std::uint32_t size, std::uint32_t value);
