// IsConstantData: the constants a user may type into the watch's value column.
// The accepted syntax is described with the declaration.
#include <bit>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

#include "siblings/orv_project_misc.h"

namespace {

using Bits = std::optional<std::uint32_t>;
using Magnitude = std::optional<std::uint64_t>;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDecimalDigit(char c) { return c >= '0' && c <= '9'; }

// The value of a hexadecimal digit character, or -1.
int DigitValue(char c)
{
    if (IsDecimalDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// The magnitude the digits spell in base; none when there are no digits, one
// is not a digit of base, or the magnitude needs more than 32 bits.
Magnitude ReadMagnitude(std::string_view digits, unsigned base)
{
    if (digits.empty()) return std::nullopt;
    std::uint64_t magnitude = 0;
    for (const char c : digits) {
        const int digit = DigitValue(c);
        if (digit < 0 || static_cast<unsigned>(digit) >= base) return std::nullopt;
        magnitude = magnitude * base + static_cast<unsigned>(digit);
        // Stopping here also keeps the 64-bit accumulator from ever wrapping.
        if (magnitude > 0xFFFFFFFFu) return std::nullopt;
    }
    return magnitude;
}

// The digits of "0x1F" or "1Fh"; empty (no digits) for any other shape.
std::string_view HexNotationDigits(std::string_view number)
{
    if (number.size() > 2 && number[0] == '0' && (number[1] == 'x' || number[1] == 'X')) return number.substr(2);
    if (number.size() > 1 && (number.back() == 'h' || number.back() == 'H')) return number.substr(0, number.size() - 1);
    return {};
}

Magnitude ReadPlain(std::string_view number, unsigned char format)
{
    switch (format) {
    case 0:
        if (number.size() > 1 && (number.back() == 'b' || number.back() == 'B')) number.remove_suffix(1);
        return ReadMagnitude(number, 2);
    case 1:
        return ReadMagnitude(number, 10);
    case 2:
        return ReadMagnitude(number, 16);
    default:
        return std::nullopt;
    }
}

Bits IntegerBits(Magnitude magnitude, bool negative)
{
    if (!magnitude) return std::nullopt;
    const auto bits = static_cast<std::uint32_t>(*magnitude);
    if (!negative) return bits;
    if (*magnitude > 0x80000000u) return std::nullopt;
    return static_cast<std::uint32_t>(0u - bits);  // two's complement
}

// Length of the run of decimal digits at text[pos].
std::size_t DigitRun(std::string_view text, std::size_t pos)
{
    std::size_t end = pos;
    while (end < text.size() && IsDecimalDigit(text[end])) ++end;
    return end - pos;
}

bool IsFloatSyntax(std::string_view number)
{
    std::size_t pos = 0;
    const std::size_t whole = DigitRun(number, pos);
    pos += whole;
    if (pos >= number.size() || number[pos] != '.') return false;
    ++pos;
    const std::size_t fraction = DigitRun(number, pos);
    pos += fraction;
    if (whole + fraction == 0) return false;
    if (pos < number.size() && (number[pos] == 'e' || number[pos] == 'E')) {
        ++pos;
        if (pos < number.size() && (number[pos] == '+' || number[pos] == '-')) ++pos;
        const std::size_t exponent = DigitRun(number, pos);
        if (exponent == 0) return false;
        pos += exponent;
    }
    return pos == number.size();
}

Bits FloatBits(std::string_view number, bool negative)
{
    if (!IsFloatSyntax(number)) return std::nullopt;
    float single = 0;
    const char* end = number.data() + number.size();
    // Out of range covers both a magnitude that rounds to infinity and a
    // non-zero one that rounds to zero: neither fits a single.
    const auto [stop, error] = std::from_chars(number.data(), end, single, std::chars_format::general);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return std::bit_cast<std::uint32_t>(negative ? -single : single);
}

}  // namespace

int IsConstantData(CString& text, unsigned long& value, unsigned char format)
{
    std::string_view number(text.str());
    while (!number.empty() && IsBlank(number.front())) number.remove_prefix(1);
    while (!number.empty() && IsBlank(number.back())) number.remove_suffix(1);
    bool negative = false;
    if (!number.empty() && (number.front() == '+' || number.front() == '-')) {
        negative = number.front() == '-';
        number.remove_prefix(1);
    }
    Bits bits;
    if (number.find_first_of("hHxX") != std::string_view::npos)
        bits = IntegerBits(ReadMagnitude(HexNotationDigits(number), 16), negative);
    else if (number.find('.') != std::string_view::npos)
        bits = FloatBits(number, negative);
    else
        bits = IntegerBits(ReadPlain(number, format), negative);
    if (!bits) return 0;
    value = *bits;
    return 1;
}
