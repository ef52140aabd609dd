// The text a source view shows: tabs expanded once as the file is loaded,
// and where each line starts, so that reaching any line is one index.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class SourceText {
public:
    static constexpr int kTabColumns = 4;  // the sample project's tab stops

    SourceText() = default;
    // Splits GBK text into lines at "\r\n" and "\n" (a lone '\r' is dropped)
    // and expands tabs; a double-byte character takes two columns.
    explicit SourceText(std::string_view gbkText);

    int LineCount() const { return static_cast<int>(m_starts.size()); }
    // The line's text without its end; empty for a line that does not exist.
    std::string_view Line(int index) const;
    // Columns of the widest line (a double-byte character counts two).
    int MaxColumns() const { return m_maxColumns; }

private:
    std::string m_text;              // expanded lines, each ended by '\n'
    std::vector<size_t> m_starts;    // offset of each line in m_text
    int m_maxColumns = 0;
};
