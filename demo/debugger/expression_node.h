// An expression parsed into a tree; operands are owned by their operator.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "watch/debug_protocol.h"

// The type a cast names: a basic type, or a pointer to one (or to such a
// pointer) whose first level points into a space.
struct CastType {
    std::uint32_t code = 0;         // the basic WatchType (WT_BIT to WT_FLOAT)
    std::uint32_t space = WS_NONE;  // the pointee's space; WS_NONE: generic
    std::uint32_t pointers = 0;     // the stars after the basic type
};

struct ExpressionNode {
    enum class Kind {
        Name,     // text: the name
        Number,   // type and bits
        Unary,    // text: the operator; left: the operand
        Binary,   // text: the operator; left and right
        Index,    // left[right]
        Member,   // left.text
        Arrow,    // left->text
        Cast,     // (cast)left
    };
    Kind kind = Kind::Name;
    std::string text;
    std::uint32_t type = 0;  // a number's WatchType
    std::uint32_t bits = 0;  // a number's value
    CastType cast;
    std::unique_ptr<ExpressionNode> left;
    std::unique_ptr<ExpressionNode> right;
};
