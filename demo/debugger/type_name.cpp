#include "demo/debugger/type_name.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "demo/debugger/evaluation_error.h"
#include "watch/debug_protocol.h"

namespace {

// Far more than any program declares; it bounds the pointer types a text adds.
constexpr std::uint32_t kMaxPointers = 8;

struct Qualifier {
    std::string_view plain;
    std::string_view underscored;
    std::uint32_t space;
};

constexpr std::array<Qualifier, 5> kQualifiers{{
    {"data", "__data", WS_DATA},
    {"idata", "__idata", WS_IDATA},
    {"pdata", "__pdata", WS_PDATA},
    {"xdata", "__xdata", WS_XDATA},
    {"code", "__code", WS_CODE},
}};

// Special function registers and their bits are reached by direct address
// only: no pointer points there, and no value is cast into one.
constexpr std::array<std::string_view, 8> kRegisterQualifiers{
    "sfr", "__sfr", "sfr16", "__sfr16", "sfr32", "__sfr32", "sbit", "__sbit",
};

// Each basic word counted once per use: "long long" counts two.
struct Words {
    int sign = 0;  // signed or unsigned
    bool isUnsigned = false;
    int chars = 0, shorts = 0, ints = 0, longs = 0, floats = 0, bits = 0, voids = 0;
};

// C's words for types and their qualifiers, and SDCC's bit: after "(" each
// can only start a cast.
constexpr std::array<std::string_view, 17> kOpeningWords{
    "signed", "unsigned", "char",  "short", "int",      "long",   "float", "double", "bit",
    "__bit",  "_Bool",    "void",  "const", "volatile", "struct", "union", "enum",
};

bool Is(const Token& token, std::string_view word)
{
    return token.kind == Token::Kind::Name && token.text == word;
}

bool IsRegisterQualifier(std::string_view word)
{
    return std::find(kRegisterQualifiers.begin(), kRegisterQualifiers.end(), word) != kRegisterQualifiers.end();
}

std::optional<std::uint32_t> QualifierSpace(const Token& token, bool plainToo)
{
    if (token.kind != Token::Kind::Name) return std::nullopt;
    for (const Qualifier& qualifier : kQualifiers) {
        if (token.text == qualifier.underscored || (plainToo && token.text == qualifier.plain)) return qualifier.space;
    }
    return std::nullopt;
}

// Counts one word; false for a word that is no part of a basic type.
bool Count(const std::string& word, Words& words)
{
    if (word == "signed" || word == "unsigned") {
        ++words.sign;
        words.isUnsigned = word == "unsigned";
    } else if (word == "char") {
        ++words.chars;
    } else if (word == "short") {
        ++words.shorts;
    } else if (word == "int") {
        ++words.ints;
    } else if (word == "long") {
        ++words.longs;
    } else if (word == "float" || word == "double") {
        ++words.floats;  // SDCC's double is its float
    } else if (word == "bit" || word == "__bit" || word == "_Bool") {
        ++words.bits;
    } else if (word == "void") {
        ++words.voids;
    } else {
        return word == "const" || word == "volatile";
    }
    return true;
}

// The basic type the words make, with an 8051 compiler's sizes: short is
// int, int is 16 bits, long 32.
std::uint32_t BasicType(const Words& w)
{
    if (w.voids || w.longs > 1) Fail(WERR_NUMERIC_TYPE);
    const int kinds = (w.chars > 0) + (w.shorts > 0) + (w.longs > 0) + (w.floats > 0) + (w.bits > 0);
    const bool repeated = w.sign > 1 || w.chars > 1 || w.shorts > 1 || w.ints > 1 || w.floats > 1 || w.bits > 1;
    if (kinds > 1 || repeated) Fail(WERR_EXPRESSION_FORMAT);
    if ((w.floats || w.bits) && (w.sign || w.ints)) Fail(WERR_EXPRESSION_FORMAT);
    if (w.chars && w.ints) Fail(WERR_EXPRESSION_FORMAT);
    if (w.floats) return WT_FLOAT;
    if (w.bits) return WT_BIT;
    if (w.chars) return w.isUnsigned ? WT_UCHAR : WT_CHAR;
    if (w.longs) return w.isUnsigned ? WT_ULONG : WT_LONG;
    if (w.shorts || w.ints || w.sign) return w.isUnsigned ? WT_UINT : WT_INT;
    Fail(WERR_EXPRESSION_FORMAT);  // qualifiers without a type
}

}  // namespace

bool StartsTypeName(const std::vector<Token>& tokens, std::size_t at)
{
    const auto opening = [&](std::size_t i) {
        return i < tokens.size() && tokens[i].kind == Token::Kind::Name &&
               std::find(kOpeningWords.begin(), kOpeningWords.end(), tokens[i].text) != kOpeningWords.end();
    };
    if (at >= tokens.size() || tokens[at].kind != Token::Kind::Name) return false;
    if (opening(at)) return true;
    if (tokens[at].text.starts_with("__")) {
        return IsRegisterQualifier(tokens[at].text) || QualifierSpace(tokens[at], false);
    }
    // A plain qualifier first ("xdata char *") needs a type word after it.
    return QualifierSpace(tokens[at], true) && opening(at + 1);
}

CastType ReadTypeName(const std::vector<Token>& tokens, std::size_t& next)
{
    const auto at = [&](std::size_t i) -> const Token* { return i < tokens.size() ? &tokens[i] : nullptr; };
    CastType cast;
    Words words;
    bool qualified = false;
    for (const Token* token = at(next); token && token->kind == Token::Kind::Name; token = at(++next)) {
        if (Is(*token, "struct") || Is(*token, "union") || Is(*token, "enum")) {
            const Token* tag = at(next + 1);
            Fail(tag && tag->kind == Token::Kind::Name ? WERR_NUMERIC_TYPE : WERR_EXPRESSION_FORMAT);
        }
        if (IsRegisterQualifier(token->text)) Fail(WERR_NO_SPACE);
        if (const std::optional<std::uint32_t> space = QualifierSpace(*token, true)) {
            if (qualified) Fail(WERR_EXPRESSION_FORMAT);
            qualified = true;
            cast.space = *space;
        } else if (!Count(token->text, words)) {
            break;  // a word no type has; the caller finds no ")" there
        }
    }
    cast.code = BasicType(words);
    while (const Token* token = at(next)) {
        if (token->kind == Token::Kind::Operator && token->text == "*") {
            if (++cast.pointers > kMaxPointers) Fail(WERR_EXPRESSION_FORMAT);
        } else if (!Is(*token, "const") && !Is(*token, "volatile")) {
            break;
        }
        ++next;
    }
    return cast;
}
