#include "demo/views/c_syntax.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "demo/project/c_literal.h"
#include "platform/text/gbk.h"

namespace {

// C keywords and the SDCC storage and function attributes the sample uses.
constexpr std::array kKeywords = {
    "auto",     "break",     "case",     "char",      "const",     "continue",   "default",  "do",
    "double",   "else",      "enum",     "extern",    "float",     "for",        "goto",     "if",
    "int",      "long",      "register", "return",    "short",     "signed",     "sizeof",   "static",
    "struct",   "switch",    "typedef",  "union",     "unsigned",  "void",       "volatile", "while",
    "__at",     "__bit",     "__code",   "__critical", "__data",   "__idata",    "__interrupt", "__naked",
    "__pdata",  "__reentrant", "__sbit", "__sfr",     "__sfr16",   "__using",    "__xdata",  "bool",
};

bool IsIdentifierStart(unsigned char c) { return std::isalpha(c) || c == '_'; }
bool IsIdentifierChar(unsigned char c) { return std::isalnum(c) || c == '_'; }

bool IsKeyword(std::string_view word)
{
    return std::find(kKeywords.begin(), kKeywords.end(), word) != kKeywords.end();
}

}  // namespace

std::vector<SyntaxRun> ColourLine(std::string_view line, bool& inComment)
{
    std::vector<SyntaxRun> runs;
    const auto add = [&](size_t start, size_t end, SyntaxKind kind) {
        if (end <= start) return;
        if (!runs.empty() && runs.back().kind == kind && runs.back().start + runs.back().length == start) {
            runs.back().length += end - start;
        } else {
            runs.push_back({start, end - start, kind});
        }
    };
    size_t pos = 0;
    const size_t firstInk = line.find_first_not_of(' ');
    while (pos < line.size()) {
        if (inComment) {
            const size_t close = line.find("*/", pos);
            const size_t end = close == std::string_view::npos ? line.size() : close + 2;
            inComment = close == std::string_view::npos;
            add(pos, end, SyntaxKind::Comment);
            pos = end;
            continue;
        }
        const auto c = static_cast<unsigned char>(line[pos]);
        const std::string_view rest = line.substr(pos);
        if (rest.starts_with("//")) {
            add(pos, line.size(), SyntaxKind::Comment);
            break;
        }
        if (rest.starts_with("/*")) {
            inComment = true;
            add(pos, pos + 2, SyntaxKind::Comment);
            pos += 2;
            continue;
        }
        if (c == '#' && pos == firstInk) {
            // The directive word alone; what follows is coloured as code.
            size_t end = pos + 1;
            while (end < line.size() && (line[end] == ' ' || IsIdentifierChar(static_cast<unsigned char>(line[end])))) ++end;
            add(pos, end, SyntaxKind::Preprocessor);
            pos = end;
        } else if (c == '"' || c == '\'') {
            const size_t end = CLiteralEnd(line, pos);
            add(pos, end, SyntaxKind::String);
            pos = end;
        } else if (std::isdigit(c)) {
            size_t end = pos;
            while (end < line.size() && IsIdentifierChar(static_cast<unsigned char>(line[end]))) ++end;
            add(pos, end, SyntaxKind::Number);
            pos = end;
        } else if (IsIdentifierStart(c)) {
            size_t end = pos;
            while (end < line.size() && IsIdentifierChar(static_cast<unsigned char>(line[end]))) ++end;
            add(pos, end, IsKeyword(line.substr(pos, end - pos)) ? SyntaxKind::Keyword : SyntaxKind::Plain);
            pos = end;
        } else {
            // A double-byte character whole: its trail byte may look like a letter.
            const size_t end = pos + static_cast<size_t>(GbkCharLength(line, pos));
            add(pos, end, SyntaxKind::Plain);
            pos = end;
        }
    }
    return runs;
}
