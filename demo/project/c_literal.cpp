#include "demo/project/c_literal.h"

#include "platform/text/gbk.h"

size_t CLiteralEnd(std::string_view text, size_t open)
{
    if (open >= text.size()) return text.size();
    const char quote = text[open];
    size_t i = open + 1;
    while (i < text.size() && text[i] != '\n') {
        if (text[i] == quote) return i + 1;
        if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] != '\n') ++i;
        i += static_cast<size_t>(GbkCharLength(text, i));
    }
    return i;
}

size_t CLogicalLineEnd(std::string_view text, size_t pos)
{
    for (size_t i = pos; i < text.size(); ++i) {
        if (text[i] != '\n') continue;
        const bool crlf = i > 0 && text[i - 1] == '\r';
        const size_t before = crlf ? i - 1 : i;
        if (before == 0 || text[before - 1] != '\\') return i;
    }
    return text.size();
}
