// What an expression stands for: an object in target memory, or a value
// computed from constants and objects, which lives nowhere (WS_NUMBER).
#pragma once

#include <cstdint>

#include "demo/debugger/type_table.h"
#include "watch/debug_protocol.h"

struct Evaluated {
    TypeId type = kNoType;
    std::uint32_t space = WS_NUMBER;
    std::uint32_t address = 0;  // an object's
    std::uint32_t bits = 0;     // a computed value, cut to its type's size

    bool IsObject() const { return space != WS_NUMBER; }
};
