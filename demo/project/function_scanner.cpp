#include "demo/project/function_scanner.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "demo/project/c_literal.h"
#include "demo/project/source_blanking.h"

namespace {


// Words before a parenthesis that never name a function.
constexpr std::array<std::string_view, 22> kKeywords = {
    "if",    "while",  "for",    "switch",   "return", "sizeof",  "void",  "char",  "int",    "long",   "short",
    "float", "double", "signed", "unsigned", "struct", "union",   "enum",  "const", "volatile", "static", "extern",
};
// SDCC attributes of the old spelling, which may follow a parameter list.
constexpr std::array<std::string_view, 8> kPlainAttributes = {
    "interrupt", "using", "reentrant", "critical", "naked", "small", "compact", "large",
};

bool IsIdentifierStart(char c) { return std::isalpha(static_cast<unsigned char>(c)) || c == '_'; }
bool IsIdentifierChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }
bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v'; }

// Attributes (SDCC spells them with two underscores) follow a parameter list
// or an object; neither they nor keywords are names of functions.
bool IsAttribute(std::string_view word)
{
    return word.starts_with("__") || std::find(kPlainAttributes.begin(), kPlainAttributes.end(), word) != kPlainAttributes.end();
}

bool IsKeyword(std::string_view word)
{
    return std::find(kKeywords.begin(), kKeywords.end(), word) != kKeywords.end();
}

size_t SkipSpace(std::string_view t, size_t i)
{
    while (i < t.size() && IsSpace(t[i])) ++i;
    return i;
}

size_t IdentifierEnd(std::string_view t, size_t i)
{
    while (i < t.size() && IsIdentifierChar(t[i])) ++i;
    return i;
}

// Offset just past the bracket that closes the one at `open`, skipping
// literals; the text's end when it is never closed.
size_t GroupEnd(std::string_view t, size_t open, char opener, char closer)
{
    int depth = 0;
    size_t i = open;
    while (i < t.size()) {
        const char c = t[i];
        if (c == '"' || c == '\'') {
            i = CLiteralEnd(t, i);
            continue;
        }
        if (c == opener) ++depth;
        else if (c == closer && --depth == 0) return i + 1;
        ++i;
    }
    return t.size();
}

std::string Collapse(std::string_view text)
{
    std::string out;
    bool space = false;
    for (const char c : text) {
        if (IsSpace(c)) {
            space = !out.empty();
        } else {
            if (space) out.push_back(' ');
            out.push_back(c);
            space = false;
        }
    }
    return out;
}

// 1-based line of an offset, by the offsets of the line ends.
class LineIndex {
public:
    explicit LineIndex(std::string_view text)
    {
        for (size_t i = 0; i < text.size(); ++i)
            if (text[i] == '\n') m_ends.push_back(i);
    }
    int LineOf(size_t offset) const
    {
        return 1 + static_cast<int>(std::lower_bound(m_ends.begin(), m_ends.end(), offset) - m_ends.begin());
    }

private:
    std::vector<size_t> m_ends;
};

// After a parameter list closing at `from`: the end of any attributes
// (words and their arguments, "__interrupt(1)" or the old "interrupt 1").
size_t AttributesEnd(std::string_view t, size_t from)
{
    size_t end = from;
    for (;;) {
        const size_t word = SkipSpace(t, end);
        if (word >= t.size() || !IsIdentifierStart(t[word])) return end;
        const size_t wordEnd = IdentifierEnd(t, word);
        if (!IsAttribute(t.substr(word, wordEnd - word))) return end;
        end = wordEnd;
        const size_t args = SkipSpace(t, end);
        if (args < t.size() && t[args] == '(') end = GroupEnd(t, args, '(', ')');
        else if (args < t.size() && std::isdigit(static_cast<unsigned char>(t[args]))) end = IdentifierEnd(t, args);
    }
}

}  // namespace

std::vector<ScannedFunction> ScanFunctions(std::string_view cSource)
{
    const std::string blanked = BlankCommentsAndDirectives(cSource);
    const std::string_view t = blanked;
    const LineIndex lines(t);
    std::vector<ScannedFunction> found;
    size_t statement = 0;  // where the declaration being read began
    size_t i = 0;
    while (i < t.size()) {
        const char c = t[i];
        if (c == '"' || c == '\'') {
            i = CLiteralEnd(t, i);
        } else if (c == '{') {
            // A body or initialiser of something that is not a function.
            i = GroupEnd(t, i, '{', '}');
            statement = i;
        } else if (c == ';' || c == '}') {
            statement = ++i;
        } else if (c == '(' || c == '[') {
            i = GroupEnd(t, i, c, c == '(' ? ')' : ']');
        } else if (!IsIdentifierStart(c)) {
            ++i;
        } else {
            const size_t nameEnd = IdentifierEnd(t, i);
            const std::string_view name = t.substr(i, nameEnd - i);
            const size_t open = SkipSpace(t, nameEnd);
            if (open >= t.size() || t[open] != '(' || IsKeyword(name) || IsAttribute(name)) {
                i = nameEnd;
                continue;
            }
            const size_t paramsEnd = AttributesEnd(t, GroupEnd(t, open, '(', ')'));
            const size_t next = SkipSpace(t, paramsEnd);
            if (next < t.size() && t[next] == '{') {
                found.push_back({Collapse(t.substr(statement, i - statement)), std::string(name),
                                 Collapse(t.substr(open, paramsEnd - open)), lines.LineOf(i)});
                i = GroupEnd(t, next, '{', '}');
                statement = i;
            } else {
                // A prototype or a call; a word after it (a macro used
                // without a semicolon) begins the next declaration.
                if (next < t.size() && IsIdentifierStart(t[next])) statement = next;
                i = next;
            }
        }
    }
    return found;
}
