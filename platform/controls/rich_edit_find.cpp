// EM_FINDTEXT: matches start and end on character boundaries, so a search
// never finds half of a double-byte character.
#include "platform/controls/rich_edit_control.h"

#include <vector>

#include "platform/text/compare.h"
#include "platform/text/gbk.h"

namespace richedit {
LRESULT RichEditControl::OnFindText(WPARAM flags, const CHARRANGE& range, const char* what, CHARRANGE* found) const
{
    if (found) *found = CHARRANGE{-1, -1};
    if (!what) return -1;
    const std::string needle = NormalizeInput(what, false);
    if (needle.empty()) return -1;
    const Pos length = m_text.Length();
    const auto end = [length](LONG cp) { return cp < 0 ? length : std::min<Pos>(cp, length); };
    Pos lo = m_text.Snap(end(range.cpMin));
    Pos hi = m_text.Snap(end(range.cpMax));
    if (lo > hi) std::swap(lo, hi);

    // Whole lines around the range, so that character boundaries and the
    // characters next to a match are known; matches stay inside the range.
    const Pos base = m_text.LineStart(m_text.LineOf(lo));
    const std::string hay = m_text.Text(base, m_text.LineEnd(m_text.LineOf(hi)), false);
    const size_t first = static_cast<size_t>(lo - base);
    const size_t limit = static_cast<size_t>(hi - base);
    std::vector<size_t> starts;
    for (size_t pos = 0; pos < hay.size(); pos += static_cast<size_t>(GbkCharLength(hay, pos))) starts.push_back(pos);

    const bool matchCase = (flags & FR_MATCHCASE) != 0;
    const bool wholeWord = (flags & FR_WHOLEWORD) != 0;
    const auto accept = [&](size_t i) {
        const size_t pos = starts[i];
        if (pos < first || pos + needle.size() > limit || !GbkMatchesFoldedAt(hay, pos, needle, matchCase)) return false;
        return !wholeWord || ((i == 0 || !IsWordCharAt(hay, starts[i - 1])) && !IsWordCharAt(hay, pos + needle.size()));
    };
    const auto report = [&](size_t i) {
        const Pos at = base + static_cast<Pos>(starts[i]);
        if (found) *found = CHARRANGE{static_cast<LONG>(at), static_cast<LONG>(at + static_cast<Pos>(needle.size()))};
        return static_cast<LRESULT>(at);
    };
    if (flags & FR_DOWN) {
        for (size_t i = 0; i < starts.size(); ++i)
            if (accept(i)) return report(i);
    } else {
        for (size_t i = starts.size(); i-- > 0;)
            if (accept(i)) return report(i);
    }
    return -1;
}

}  // namespace richedit
