// SDCC's generic pointer: a 16-bit address with a third, top byte naming the
// space, which its library's pointer routines test bit by bit (7: code,
// 6 clear: xdata, 5: pdata, else internal RAM).
#pragma once

#include <cstdint>
#include <optional>

struct PointerTarget {
    std::uint32_t space = 0;
    std::uint32_t address = 0;
};

// The generic pointer value to an address in a space; spaces without a tag
// (bit, number) point into xdata, as a cast of a plain address would.
std::uint32_t EncodeGenericPointer(std::uint32_t space, std::uint32_t address);
// Where a generic pointer value points; nothing for a tag no space has.
std::optional<PointerTarget> DecodeGenericPointer(std::uint32_t value);
