#include "demo/views/source_text.h"

#include <algorithm>

SourceText::SourceText(std::string_view gbkText)
{
    m_text.reserve(gbkText.size() + 1);
    size_t lineStart = 0;
    int column = 0;
    const auto endLine = [&] {
        m_starts.push_back(lineStart);
        m_text.push_back('\n');
        m_maxColumns = std::max(m_maxColumns, column);
        lineStart = m_text.size();
        column = 0;
    };
    size_t pos = 0;
    while (pos < gbkText.size()) {
        const char c = gbkText[pos];
        if (c == '\n') {
            endLine();
            ++pos;
        } else if (c == '\r') {
            ++pos;
        } else if (c == '\t') {
            const int spaces = kTabColumns - column % kTabColumns;
            m_text.append(static_cast<size_t>(spaces), ' ');
            column += spaces;
            ++pos;
        } else {
            // Every byte is a column: a double-byte character is two wide.
            m_text.push_back(c);
            ++column;
            ++pos;
        }
    }
    // Text after the last line end is a line too; an empty file has one empty line.
    if (lineStart < m_text.size() || m_starts.empty()) endLine();
}

std::string_view SourceText::Line(int index) const
{
    if (index < 0 || index >= LineCount()) return {};
    const size_t start = m_starts[static_cast<size_t>(index)];
    const size_t next = index + 1 < LineCount() ? m_starts[static_cast<size_t>(index) + 1] : m_text.size();
    return std::string_view(m_text).substr(start, next - 1 - start);
}
