#include "demo/debugger/expression_lexer.h"

#include <algorithm>
#include <array>

#include "demo/debugger/evaluation_error.h"
#include "demo/debugger/number_literal.h"
#include "demo/debugger/type_codes.h"
#include "platform/text/gbk.h"
#include "watch/debug_protocol.h"

namespace {

constexpr std::array<std::string_view, 9> kPairOperators{"->", "<<", ">>", "<=", ">=", "==", "!=", "&&", "||"};
// "=" is a token so that the parser can refuse an assignment by name.
constexpr std::string_view kSingleOperators = "()[].+-*/%&|^~<>!=";

bool IsNameStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool IsNamePart(char c)
{
    return IsNameStart(c) || (c >= '0' && c <= '9');
}

bool IsSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

// Bytes up to and with the quote that closes the literal starting at text[0];
// a backslash keeps the next character, a double-byte character is skipped
// whole (its second byte may look like a backslash).
std::size_t QuotedLength(std::string_view text)
{
    const char quote = text[0];
    std::size_t i = 1;
    while (i < text.size() && text[i] != quote) {
        const bool escape = text[i] == '\\';
        i += escape ? 1 : static_cast<std::size_t>(GbkCharLength(text, i));
        if (escape && i < text.size()) i += static_cast<std::size_t>(GbkCharLength(text, i));
    }
    if (i >= text.size()) Fail(WERR_QUOTES);
    return i + 1;
}

// The byte an escape sequence after a backslash stands for; advances i past it.
std::uint8_t ReadEscape(std::string_view body, std::size_t& i)
{
    if (i >= body.size()) return '\\';
    const char c = body[i++];
    switch (c) {
    case 'n': return '\n';
    case 't': return '\t';
    case 'r': return '\r';
    case 'a': return '\a';
    case 'b': return '\b';
    case 'f': return '\f';
    case 'v': return '\v';
    default: break;
    }
    const bool hex = c == 'x';
    const bool octal = c >= '0' && c <= '7';
    if (!hex && !octal) return static_cast<std::uint8_t>(c);
    unsigned value = octal ? static_cast<unsigned>(c - '0') : 0;
    for (std::size_t digits = octal ? 1 : 0; i < body.size() && digits < (hex ? 2u : 3u); ++digits, ++i) {
        const char d = body[i];
        const char lower = static_cast<char>(d | 0x20);
        if (hex && (d >= '0' && d <= '9')) value = value * 16 + static_cast<unsigned>(d - '0');
        else if (hex && lower >= 'a' && lower <= 'f') value = value * 16 + static_cast<unsigned>(lower - 'a' + 10);
        else if (octal && d >= '0' && d <= '7') value = value * 8 + static_cast<unsigned>(d - '0');
        else break;
    }
    return static_cast<std::uint8_t>(value);
}

// A character constant ('A', '\n', '\x41') between its quotes.
Token ReadCharacter(std::string_view body)
{
    if (body.empty()) Fail(WERR_EXPRESSION_FORMAT);
    std::size_t i = 0;
    std::uint8_t value = static_cast<std::uint8_t>(body[i++]);
    if (value == '\\') value = ReadEscape(body, i);
    if (i < body.size()) Fail(WERR_STRING_TOO_LONG);
    return {Token::Kind::Number, {}, WT_CHAR, value};
}

}  // namespace

std::vector<Token> Tokenize(std::string_view text)
{
    std::vector<Token> tokens;
    std::size_t i = 0;
    while (i < text.size()) {
        const char c = text[i];
        const std::string_view rest = text.substr(i);
        std::size_t length = 1;
        if (IsSpace(c)) {
            ++i;
            continue;
        }
        if (IsNameStart(c)) {
            while (length < rest.size() && IsNamePart(rest[length])) ++length;
            tokens.push_back({Token::Kind::Name, std::string(rest.substr(0, length))});
        } else if (c >= '0' && c <= '9') {
            length = NumberLength(rest);
            tokens.push_back(ReadNumber(rest.substr(0, length)));
        } else if (c == '\'' || c == '"') {
            length = QuotedLength(rest);
            const std::string_view body = rest.substr(1, length - 2);
            tokens.push_back(c == '"' ? Token{Token::Kind::String, std::string(body)} : ReadCharacter(body));
        } else if (rest.size() > 1 && std::find(kPairOperators.begin(), kPairOperators.end(), rest.substr(0, 2)) != kPairOperators.end()) {
            length = 2;
            tokens.push_back({Token::Kind::Operator, std::string(rest.substr(0, 2))});
        } else if (kSingleOperators.find(c) != std::string_view::npos) {
            tokens.push_back({Token::Kind::Operator, std::string(1, c)});
        } else {
            Fail(WERR_ILLEGAL_CHARACTER);
        }
        i += length;
    }
    return tokens;
}
