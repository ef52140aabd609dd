#include "demo/debugger/number_literal.h"

#include <bit>
#include <charconv>
#include <cmath>

#include "demo/debugger/evaluation_error.h"
#include "demo/debugger/type_codes.h"
#include "watch/debug_protocol.h"

namespace {

bool IsDigitIn(char c, int base)
{
    if (c >= '0' && c <= '9') return c - '0' < base;
    const char lower = static_cast<char>(c | 0x20);
    return base == 16 && lower >= 'a' && lower <= 'f';
}

int DigitValue(char c)
{
    return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10;
}

bool IsHex(std::string_view spelling)
{
    return spelling.size() > 1 && spelling[0] == '0' && (spelling[1] | 0x20) == 'x';
}

// The smallest type that holds value, among those C allows a constant with
// this base and these suffixes.
std::uint32_t IntegerType(std::uint64_t value, bool decimal, bool isUnsigned, bool isLong)
{
    if (!isLong && !isUnsigned && value <= 0x7FFF) return WT_INT;
    if (!isLong && (isUnsigned || !decimal) && value <= 0xFFFF) return WT_UINT;
    if (!isUnsigned && value <= 0x7FFFFFFF) return WT_LONG;
    return WT_ULONG;
}

Token ReadFloat(std::string_view spelling)
{
    if ((spelling.back() | 0x20) == 'f') spelling.remove_suffix(1);
    float value = 0;
    const auto [end, error] = std::from_chars(spelling.data(), spelling.data() + spelling.size(), value);
    if (error == std::errc::result_out_of_range || (error == std::errc() && std::isinf(value))) Fail(WERR_NUMERIC_TYPE);
    if (error != std::errc() || end != spelling.data() + spelling.size()) Fail(WERR_EXPRESSION_FORMAT);
    return {Token::Kind::Number, {}, WT_FLOAT, std::bit_cast<std::uint32_t>(value)};
}

}  // namespace

std::size_t NumberLength(std::string_view text)
{
    const bool hex = IsHex(text);
    std::size_t length = 0;
    while (length < text.size()) {
        const char c = text[length];
        const bool sign = (c == '+' || c == '-') && !hex && length > 0 && (text[length - 1] | 0x20) == 'e';
        const bool part = (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z') || c == '_' || c == '.';
        if (!part && !sign) break;
        ++length;
    }
    return length;
}

Token ReadNumber(std::string_view spelling)
{
    const bool hex = IsHex(spelling);
    if (!hex && spelling.find_first_of(".eE") != std::string_view::npos) return ReadFloat(spelling);
    const int base = hex ? 16 : spelling.size() > 1 && spelling[0] == '0' ? 8 : 10;
    std::size_t i = hex ? 2 : 0;
    const std::size_t firstDigit = i;
    std::uint64_t value = 0;
    for (; i < spelling.size() && IsDigitIn(spelling[i], base); ++i) {
        value = value * static_cast<std::uint64_t>(base) + static_cast<std::uint64_t>(DigitValue(spelling[i]));
        if (value > 0xFFFFFFFF) Fail(WERR_NUMERIC_TYPE);
    }
    if (i == firstDigit) Fail(WERR_EXPRESSION_FORMAT);
    bool isUnsigned = false;
    bool isLong = false;
    for (; i < spelling.size(); ++i) {
        bool& suffix = (spelling[i] | 0x20) == 'u' ? isUnsigned : isLong;
        if (suffix || ((spelling[i] | 0x20) != 'u' && (spelling[i] | 0x20) != 'l')) Fail(WERR_EXPRESSION_FORMAT);
        suffix = true;
    }
    return {Token::Kind::Number, {}, IntegerType(value, base == 10, isUnsigned, isLong), static_cast<std::uint32_t>(value)};
}
