#include "demo/debugger/number_arithmetic.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "demo/debugger/evaluation_error.h"
#include "demo/debugger/type_codes.h"
#include "watch/debug_protocol.h"

namespace {

std::uint32_t Promote(std::uint32_t type)
{
    return type < WT_INT ? WT_INT : type;
}

// WT_INT < WT_UINT < WT_LONG < WT_ULONG < WT_FLOAT: the codes rank the
// promoted types as C's usual conversions do when int is 16 bits wide.
std::uint32_t Common(const Number& left, const Number& right)
{
    return std::max(Promote(left.type), Promote(right.type));
}

Number Make(std::uint32_t type, std::uint64_t value)
{
    std::uint64_t mask = 0xFFFFFFFF;
    if (type == WT_INT || type == WT_UINT) mask = 0xFFFF;
    if (type == WT_CHAR || type == WT_UCHAR) mask = 0xFF;
    if (type == WT_BIT) mask = 1;
    return {type, static_cast<std::uint32_t>(value & mask)};
}

Number Truth(bool value)
{
    return {WT_INT, value ? 1u : 0u};
}

template <typename T>
Number Compare(std::string_view op, T a, T b)
{
    if (op == "<") return Truth(a < b);
    if (op == ">") return Truth(a > b);
    if (op == "<=") return Truth(a <= b);
    if (op == ">=") return Truth(a >= b);
    if (op == "==") return Truth(a == b);
    return Truth(a != b);
}

float FloatOf(const Number& number)
{
    return number.type == WT_FLOAT ? std::bit_cast<float>(number.bits) : static_cast<float>(IntegerOf(number));
}

Number MakeFloat(float value)
{
    return {WT_FLOAT, std::bit_cast<std::uint32_t>(value)};
}

// Integer arithmetic in 64 bits, where no 32-bit operand overflows; Make cuts
// the result to its type.
Number Integer(std::string_view op, std::uint32_t type, std::int64_t a, std::int64_t b)
{
    const auto ua = static_cast<std::uint64_t>(a);
    const auto ub = static_cast<std::uint64_t>(b);
    if ((op == "/" || op == "%") && b == 0) Fail(WERR_DIVISION_BY_ZERO);
    if (op == "+") return Make(type, ua + ub);
    if (op == "-") return Make(type, ua - ub);
    if (op == "*") return Make(type, ua * ub);
    if (op == "/") return Make(type, static_cast<std::uint64_t>(a / b));
    if (op == "%") return Make(type, static_cast<std::uint64_t>(a % b));
    if (op == "&") return Make(type, ua & ub);
    if (op == "|") return Make(type, ua | ub);
    if (op == "^") return Make(type, ua ^ ub);
    Fail(WERR_EXPRESSION_FORMAT);
}

Number Shift(std::string_view op, const Number& left, const Number& right)
{
    if (left.type == WT_FLOAT || right.type == WT_FLOAT) Fail(WERR_NUMERIC_TYPE);
    const std::int64_t count = IntegerOf(right);
    if (count < 0) Fail(WERR_NUMERIC_TYPE);
    const std::uint32_t type = Promote(left.type);
    const std::int64_t value = IntegerOf(left);
    if (op == "<<") return Make(type, count >= 64 ? 0 : static_cast<std::uint64_t>(value) << count);
    // Signed values shift in copies of their sign, unsigned ones zeros.
    return Make(type, static_cast<std::uint64_t>(value >> std::min<std::int64_t>(count, 63)));
}

}  // namespace

std::int64_t IntegerOf(const Number& number)
{
    switch (number.type) {
    case WT_BIT: return number.bits & 1;
    case WT_CHAR: return static_cast<std::int8_t>(number.bits);
    case WT_UCHAR: return static_cast<std::uint8_t>(number.bits);
    case WT_INT: return static_cast<std::int16_t>(number.bits);
    case WT_UINT: return static_cast<std::uint16_t>(number.bits);
    case WT_LONG: return static_cast<std::int32_t>(number.bits);
    case WT_FLOAT: break;
    default: return number.bits;
    }
    // Out-of-range floats saturate rather than convert undefined.
    const float value = std::bit_cast<float>(number.bits);
    if (std::isnan(value)) return 0;
    constexpr float kLimit = 9.2e18f;
    return static_cast<std::int64_t>(std::clamp(value, -kLimit, kLimit));
}

bool IsComparison(std::string_view op)
{
    return op == "<" || op == ">" || op == "<=" || op == ">=" || op == "==" || op == "!=";
}

bool IsNonZero(const Number& number)
{
    return number.type == WT_FLOAT ? std::bit_cast<float>(number.bits) != 0.0f : IntegerOf(number) != 0;
}

Number Convert(const Number& number, std::uint32_t type)
{
    if (type == WT_FLOAT) return MakeFloat(FloatOf(number));
    if (type == WT_BIT) return {WT_BIT, IsNonZero(number) ? 1u : 0u};
    return Make(type, static_cast<std::uint64_t>(IntegerOf(number)));
}

Number ApplyBinary(std::string_view op, const Number& left, const Number& right)
{
    if (op == "<<" || op == ">>") return Shift(op, left, right);
    const std::uint32_t type = Common(left, right);
    if (type != WT_FLOAT) {
        // Both operands converted to the common type first: -1 / 2u divides 65535.
        const std::int64_t a = IntegerOf(Convert(left, type));
        const std::int64_t b = IntegerOf(Convert(right, type));
        return IsComparison(op) ? Compare(op, a, b) : Integer(op, type, a, b);
    }
    const float a = FloatOf(left);
    const float b = FloatOf(right);
    if (IsComparison(op)) return Compare(op, a, b);
    if (op == "+") return MakeFloat(a + b);
    if (op == "-") return MakeFloat(a - b);
    if (op == "*") return MakeFloat(a * b);
    if (op == "/" && b == 0.0f) Fail(WERR_DIVISION_BY_ZERO);
    if (op == "/") return MakeFloat(a / b);
    Fail(WERR_NUMERIC_TYPE);
}

Number ApplyUnary(std::string_view op, const Number& operand)
{
    if (op == "!") return Truth(!IsNonZero(operand));
    const std::uint32_t type = Promote(operand.type);
    if (type == WT_FLOAT) {
        if (op == "~") Fail(WERR_NUMERIC_TYPE);
        return op == "-" ? MakeFloat(-FloatOf(operand)) : operand;
    }
    const auto value = static_cast<std::uint64_t>(IntegerOf(operand));
    if (op == "-") return Make(type, 0 - value);
    if (op == "~") return Make(type, ~value);
    return Make(type, value);
}
