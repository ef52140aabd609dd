// The type codes a watch record carries, by the names the service uses.
#pragma once

#include <cstdint>

enum TypeCode : std::uint32_t {
    TC_BIT = 1,
    TC_CHAR = 2,
    TC_UCHAR = 3,
    TC_INT = 4,
    TC_UINT = 5,
    TC_LONG = 6,
    TC_ULONG = 7,
    TC_FLOAT = 8,
    TC_STRUCT = 32,
    TC_UNION = 33,
    TC_POINTER = 35,          // points into one space, which its type names
    TC_GENERIC_POINTER = 36,  // carries its space in its top byte
    TC_ARRAY = 38,
};

constexpr bool IsIntegral(std::uint32_t code) { return code >= TC_BIT && code <= TC_ULONG; }
constexpr bool IsPointerCode(std::uint32_t code) { return code == TC_POINTER || code == TC_GENERIC_POINTER; }
constexpr bool IsAggregateCode(std::uint32_t code) { return code == TC_STRUCT || code == TC_UNION || code == TC_ARRAY; }
