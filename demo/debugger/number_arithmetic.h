// Arithmetic on values as an 8051 C compiler does it: char and int promote to
// the 16-bit int, the wider or unsigned operand decides the type, results
// wrap at their type's size, and float joins only + - *, / and comparisons.
// Comparisons and ! give the int 0 or 1.
#pragma once

#include <cstdint>
#include <string_view>

struct Number {
    std::uint32_t type = 0;  // an arithmetic WatchType (bit to float)
    std::uint32_t bits = 0;  // the value cut to its type's size; a float's IEEE bits
};

// The value as a signed or unsigned number of its type, widened.
std::int64_t IntegerOf(const Number& number);
// < > <= >= == !=, which give the int 0 or 1.
bool IsComparison(std::string_view op);
// Whether C takes the value as true: not zero (a float's -0.0 is zero).
bool IsNonZero(const Number& number);
// The value converted to another arithmetic type as a cast does: integers
// cut to the type's size (its sign comes back when read), floats to
// integers toward zero, and to a bit 0 or 1 by truth.
Number Convert(const Number& number, std::uint32_t type);

// Throws EvaluationError: WERR_DIVISION_BY_ZERO, and WERR_NUMERIC_TYPE for an
// operator its operands' types do not take (a float with %, & or a shift, a
// negative shift count). Comparisons convert both operands to their common
// type first, as C does: -1 < 1u compares 65535 with 1.
Number ApplyBinary(std::string_view op, const Number& left, const Number& right);
// Unary -, +, ~ and !.
Number ApplyUnary(std::string_view op, const Number& operand);
