// Character boundaries, selection and replacement of the edit control's text.
#include "platform/controls/edit_buffer.h"

#include <algorithm>

#include "platform/text/gbk.h"

namespace edit {

std::string_view Buffer::Selected() const
{
    return std::string_view(m_text).substr(static_cast<size_t>(SelStart()), static_cast<size_t>(SelEnd() - SelStart()));
}

void Buffer::SetLimit(int limit)
{
    m_limit = limit <= 0 ? kMaxLimit : std::min(limit, kMaxLimit);
}

const std::vector<int>& Buffer::Starts() const
{
    if (m_staleFrom == kIndexed) return m_starts;
    // Characters before the change stand. The last of them is read again: a
    // change may begin inside it when an earlier one left a lead byte unpaired.
    auto stale = std::lower_bound(m_starts.begin(), m_starts.end(), m_staleFrom);
    if (stale != m_starts.begin()) --stale;
    size_t at = stale != m_starts.end() ? static_cast<size_t>(*stale) : 0;
    m_starts.erase(stale, m_starts.end());
    for (; at < m_text.size(); at += static_cast<size_t>(GbkCharLength(m_text, at))) m_starts.push_back(static_cast<int>(at));
    m_starts.push_back(Length());
    m_staleFrom = kIndexed;
    return m_starts;
}

int Buffer::IndexOf(long long pos) const
{
    const std::vector<int>& starts = Starts();
    if (pos <= 0) return 0;
    if (pos >= Length()) return static_cast<int>(starts.size()) - 1;
    return static_cast<int>(std::upper_bound(starts.begin(), starts.end(), pos) - starts.begin()) - 1;
}

int Buffer::Snap(long long pos) const
{
    return Starts()[static_cast<size_t>(IndexOf(pos))];
}

int Buffer::CharCount(long long from, long long to) const
{
    return std::max(0, IndexOf(to) - IndexOf(from));
}

int Buffer::CharStart(long long index) const
{
    const std::vector<int>& starts = Starts();
    if (index <= 0) return 0;
    return index >= static_cast<long long>(starts.size()) ? Length() : starts[static_cast<size_t>(index)];
}

int Buffer::PrevChar(int pos) const
{
    return pos <= 0 ? 0 : Snap(pos - 1);
}

int Buffer::NextChar(int pos) const
{
    pos = Snap(pos);
    if (pos >= Length()) return Length();
    return pos + GbkCharLength(m_text, static_cast<size_t>(pos));
}

Buffer::WordStarts Buffer::WordStartsBefore(long long pos) const
{
    WordStarts starts{0, 0};
    // The characters before Snap(pos).
    for (size_t at = 0; at < m_text.size();) {
        const size_t next = at + static_cast<size_t>(GbkCharLength(m_text, at));
        if (static_cast<long long>(next) > pos) break;
        if (m_text[at] == ' ') starts.current = static_cast<int>(next);
        else starts.last = starts.current;
        at = next;
    }
    return starts;
}

int Buffer::WordLeft(int pos) const
{
    return WordStartsBefore(pos).last;
}

int Buffer::WordStart(int pos) const
{
    return WordStartsBefore(pos).current;
}

int Buffer::WordRight(int pos) const
{
    size_t at = static_cast<size_t>(Snap(pos));
    while (at < m_text.size() && m_text[at] != ' ') at += static_cast<size_t>(GbkCharLength(m_text, at));
    while (at < m_text.size() && m_text[at] == ' ') ++at;
    return static_cast<int>(at);
}

void Buffer::Select(long long anchor, long long caret)
{
    m_anchor = Snap(anchor);
    m_caret = Snap(caret);
}

void Buffer::MoveCaret(int pos, bool extend)
{
    m_caret = Snap(pos);
    if (!extend) m_anchor = m_caret;
}

bool Buffer::ReplaceSelection(std::string_view text, bool honourLimit, bool saveUndo, bool* truncated)
{
    if (truncated) *truncated = false;
    const int start = SelStart();
    const int end = SelEnd();
    size_t keep = text.size();
    if (honourLimit) {
        const long long room = std::max<long long>(0, static_cast<long long>(m_limit) - (Length() - (end - start)));
        if (static_cast<long long>(keep) > room) {
            keep = GbkPrefixBytes(text, static_cast<size_t>(room));
            if (truncated) *truncated = true;
        }
    }
    if (start == end && keep == 0) return false;
    if (saveUndo) SaveUndo();
    m_text.replace(static_cast<size_t>(start), static_cast<size_t>(end - start), text.substr(0, keep));
    Changed(start);
    m_caret = m_anchor = start + static_cast<int>(keep);
    return true;
}

void Buffer::SetText(std::string_view text)
{
    m_text.assign(text);
    Changed(0);
    m_caret = m_anchor = 0;
}

void Buffer::SaveUndo()
{
    m_canUndo = true;
    m_undoText = m_text;
    m_undoCaret = m_caret;
    m_undoAnchor = m_anchor;
}

bool Buffer::Undo()
{
    if (!m_canUndo) return false;
    // Undoing again redoes, as the platform's single-level undo does.
    std::swap(m_text, m_undoText);
    Changed(0);
    std::swap(m_caret, m_undoCaret);
    std::swap(m_anchor, m_undoAnchor);
    m_caret = Snap(m_caret);
    m_anchor = Snap(m_anchor);
    return true;
}

}  // namespace edit
