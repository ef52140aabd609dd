// An expression parsed into a tree; operands are owned by their operator.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

struct ExpressionNode {
    enum class Kind {
        Name,     // text: the name
        Number,   // type and bits
        Unary,    // text: the operator; left: the operand
        Binary,   // text: the operator; left and right
        Index,    // left[right]
        Member,   // left.text
        Arrow,    // left->text
    };
    Kind kind = Kind::Name;
    std::string text;
    std::uint32_t type = 0;  // a number's WatchType
    std::uint32_t bits = 0;  // a number's value
    std::unique_ptr<ExpressionNode> left;
    std::unique_ptr<ExpressionNode> right;
};
