// The edit control's text: GBK bytes with a caret, an anchor and a byte
// limit. Every position it hands out or accepts is snapped to a character
// boundary, so nothing ever lands inside a double-byte character.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace edit {

// What a new control lets the user enter, and the largest limit there is.
constexpr int kDefaultLimit = 30000;
constexpr int kMaxLimit = 0x7FFFFFFE;

class Buffer {
public:
    const std::string& Text() const { return m_text; }
    int Length() const { return static_cast<int>(m_text.size()); }
    int Caret() const { return m_caret; }
    int SelStart() const { return m_anchor < m_caret ? m_anchor : m_caret; }
    int SelEnd() const { return m_anchor < m_caret ? m_caret : m_anchor; }
    bool HasSelection() const { return m_anchor != m_caret; }
    std::string_view Selected() const;

    int Limit() const { return m_limit; }
    // 0 or less sets the largest limit.
    void SetLimit(int limit);

    // The character boundary at or before pos, within the text.
    int Snap(long long pos) const;
    int PrevChar(int pos) const;
    int NextChar(int pos) const;
    // Starts of words: a word is a run of characters other than spaces.
    // WordLeft: the start of the last word before pos; WordStart: the start
    // of the word that ends at pos (pos itself after a space).
    int WordLeft(int pos) const;
    int WordStart(int pos) const;
    int WordRight(int pos) const;

    // Counting characters, for measuring: CharCount is the number in
    // [Snap(from), Snap(to)); CharStart(i) the position of the i-th
    // (Length() from the count on).
    int CharCount(long long from, long long to) const;
    int CharStart(long long index) const;
    int Chars() const { return static_cast<int>(Starts().size()) - 1; }

    // Sets both ends, snapped.
    void Select(long long anchor, long long caret);
    // Puts the caret at pos; with extend the anchor stays.
    void MoveCaret(int pos, bool extend);

    // Replaces the selection with text, up to the limit when honourLimit is
    // set (cut at a character boundary; *truncated tells whether any was
    // left out). The caret ends after the new text; with saveUndo a change
    // can be undone. Returns whether the text changed.
    bool ReplaceSelection(std::string_view text, bool honourLimit, bool saveUndo, bool* truncated = nullptr);
    // New text, regardless of the limit; the caret goes to the start.
    void SetText(std::string_view text);

    // One level of undo: the text and selection before the last change.
    bool CanUndo() const { return m_canUndo; }
    bool Undo();
    void EmptyUndo() { m_canUndo = false; }

private:
    struct WordStarts {
        int current;  // the word that ends at pos (pos itself after a space)
        int last;     // the last word before pos (0 when there is none)
    };
    // Both in one pass from the start: trail bytes look like lead bytes, so
    // walking back would need a pass for each character.
    WordStarts WordStartsBefore(long long pos) const;
    void SaveUndo();
    // The text changed from pos on.
    void Changed(int pos) { m_staleFrom = std::min(m_staleFrom, pos); }
    // The start of every character, then Length(); brought up to date on
    // first use after a change, from the change on. Trail bytes look like
    // lead bytes, so without it every snap and every measure would walk the
    // text from its start.
    const std::vector<int>& Starts() const;
    // Index of the character at Snap(pos).
    int IndexOf(long long pos) const;

    std::string m_text;
    int m_caret = 0;
    int m_anchor = 0;
    int m_limit = kDefaultLimit;
    mutable std::vector<int> m_starts;
    // Starts from here on are out of date; kIndexed when none is.
    static constexpr int kIndexed = kMaxLimit + 1;
    mutable int m_staleFrom = 0;

    bool m_canUndo = false;
    std::string m_undoText;
    int m_undoCaret = 0;
    int m_undoAnchor = 0;
};

}  // namespace edit
