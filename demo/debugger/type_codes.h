// Questions the service asks of the type codes a watch record carries.
#pragma once

#include <cstdint>

#include "watch/debug_protocol.h"

constexpr bool IsIntegral(std::uint32_t code) { return code >= WT_BIT && code <= WT_ULONG; }
constexpr bool IsPointerCode(std::uint32_t code) { return code == WT_POINTER || code == WT_GENERAL_POINTER; }
constexpr bool IsAggregateCode(std::uint32_t code) { return code == WT_STRUCT || code == WT_UNION || code == WT_ARRAY; }
