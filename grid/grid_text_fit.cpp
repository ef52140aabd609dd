#include "grid/grid_text_fit.h"

#include <string>
#include <vector>

#include "platform/text/gbk.h"

// Cuts the text to the longest prefix that fits, followed by a period. A
// double-byte character at the cut goes whole, so no lone lead byte is drawn.
CString FitCellText(CDC& dc, std::string_view text, int width)
{
    const auto fits = [&](std::string_view candidate) {
        return dc.GetTextExtent(candidate.data(), static_cast<int>(candidate.size())).cx + kGridTextPad < width;
    };
    if (text.empty() || fits(text)) return CString(text);
    // Candidate prefixes end on a character boundary and leave room for the
    // period: at most all but two bytes, or all but one of a text of two bytes
    // or less (which is cut once, whether it fits or not).
    const size_t longest = text.size() > 2 ? text.size() - 2 : text.size() - 1;
    std::vector<size_t> cuts;
    for (size_t pos = 0; pos < text.size();) {
        pos += static_cast<size_t>(GbkCharLength(text, pos));
        if (pos > longest) break;
        cuts.push_back(pos);
    }
    if (cuts.empty()) cuts.push_back(0);  // only a period is left
    const auto withPeriod = [&](size_t n) { return std::string(text.substr(0, n)) + "."; };
    if (text.size() <= 2) {
        return CString(withPeriod(cuts.back()));
    }
    // Extents grow with the prefix: the longest cut that fits, else the shortest.
    size_t lo = 0, hi = cuts.size();
    while (lo < hi) {
        const size_t mid = (lo + hi) / 2;
        if (fits(withPeriod(cuts[mid]))) {
            lo = mid + 1;
        } else {
            hi = mid;
        }
    }
    return CString(withPeriod(lo == 0 ? cuts.front() : cuts[lo - 1]));
}

