#include "demo/project/source_blanking.h"

#include "demo/project/c_literal.h"

std::string BlankCommentsAndDirectives(std::string_view source)
{
    std::string out(source);
    const auto blank = [&](size_t from, size_t to) {
        for (size_t i = from; i < to; ++i)
            if (out[i] != '\n' && out[i] != '\r') out[i] = ' ';
    };
    bool lineStart = true;  // only blanks since the last line end
    size_t i = 0;
    while (i < source.size()) {
        const char c = source[i];
        const std::string_view rest = source.substr(i);
        size_t end = i + 1;
        if (c == '"' || c == '\'') {
            end = CLiteralEnd(source, i);  // a comment opener inside a literal is text
        } else if (rest.starts_with("//") || (c == '#' && lineStart)) {
            end = CLogicalLineEnd(source, i);
            blank(i, end);
        } else if (rest.starts_with("/*")) {
            const size_t close = source.find("*/", i + 2);
            end = close == std::string_view::npos ? source.size() : close + 2;
            blank(i, end);
        }
        if (c == '\n') lineStart = true;
        else if (c != ' ' && c != '\t' && c != '\r') lineStart = false;
        i = end;
    }
    return out;
}
