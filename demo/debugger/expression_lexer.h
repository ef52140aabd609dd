// Splits an expression's GBK text into the tokens of the C subset the
// service evaluates: names, numbers, character constants, strings and the
// operators ( ) [ ] . -> + - * / % & | ^ ~ << >> < > <= >= == != && || ! and
// the assignment = that the parser refuses.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct Token {
    enum class Kind { Name, Number, String, Operator };
    Kind kind = Kind::Operator;
    std::string text;        // a name or an operator as written
    std::uint32_t type = 0;  // a number's WatchType
    std::uint32_t bits = 0;  // a number's value; a float's IEEE 754 bits
};

// Throws EvaluationError: WERR_ILLEGAL_CHARACTER for a byte no token starts
// with (a double-byte character outside quotes among them), WERR_QUOTES for
// a quote left open, WERR_EXPRESSION_FORMAT for a malformed number or an
// empty character constant, WERR_STRING_TOO_LONG for a character constant of
// more than one character, WERR_NUMERIC_TYPE for a number above 32 bits.
std::vector<Token> Tokenize(std::string_view text);
