#include "demo/project/source_search.h"

#include <functional>

#include "platform/text/gbk.h"

namespace {

char FoldAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Folds single-byte letters only: the second byte of a double-byte
// character may be a letter, and folding it would make another character.
std::string Folded(std::string_view text, bool matchCase)
{
    std::string out(text);
    if (matchCase) return out;
    for (size_t pos = 0; pos < out.size();) {
        const int bytes = GbkCharLength(text, pos);
        if (bytes == 1) out[pos] = FoldAscii(out[pos]);
        pos += static_cast<size_t>(bytes);
    }
    return out;
}

// Whether a match starting at each offset of a line would start on a
// character boundary.
std::vector<bool> CharacterStarts(std::string_view line)
{
    std::vector<bool> starts(line.size(), false);
    for (size_t pos = 0; pos < line.size(); pos += static_cast<size_t>(GbkCharLength(line, pos))) starts[pos] = true;
    return starts;
}

}  // namespace

std::vector<SearchHit> SearchText(const std::string& file, std::string_view text, std::string_view needle, bool matchCase)
{
    std::vector<SearchHit> hits;
    if (needle.empty()) return hits;
    // Folding keeps every byte's place, so offsets in the folded line are
    // offsets in the line.
    const std::string foldedNeedle = Folded(needle, matchCase);
    const std::boyer_moore_horspool_searcher searcher(foldedNeedle.begin(), foldedNeedle.end());
    int lineNumber = 0;
    size_t start = 0;
    while (start < text.size()) {
        ++lineNumber;
        const size_t newline = text.find('\n', start);
        const size_t end = newline == std::string_view::npos ? text.size() : newline;
        std::string_view line = text.substr(start, end - start);
        if (line.ends_with('\r')) line.remove_suffix(1);
        start = end + 1;
        if (line.size() < foldedNeedle.size()) continue;

        const std::string folded = Folded(line, matchCase);
        const std::vector<bool> boundaries = CharacterStarts(line);
        for (auto from = folded.begin();;) {
            const auto match = std::search(from, folded.end(), searcher);
            if (match == folded.end()) break;
            if (boundaries[static_cast<size_t>(match - folded.begin())]) {
                hits.push_back({file, lineNumber, std::string(line)});
                break;
            }
            from = match + 1;
        }
    }
    return hits;
}
