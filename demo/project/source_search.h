// Finding text in a source file for the search results pane: one hit per
// line that contains the text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct SearchHit {
    std::string file;
    int line = 0;      // 1-based
    std::string text;  // the whole line, without its line end
};

// Lines of `text` (GBK, "\n" or "\r\n" line ends) containing `needle`. A
// match never starts inside a double-byte character; without matchCase only
// ASCII letters fold. An empty needle finds nothing.
std::vector<SearchHit> SearchText(const std::string& file, std::string_view text, std::string_view needle, bool matchCase);
