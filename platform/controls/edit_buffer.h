// The edit control's text: GBK bytes with a caret, an anchor and a byte
// limit. Every position it hands out or accepts is snapped to a character
// boundary, so nothing ever lands inside a double-byte character.
#pragma once

#include <string>
#include <string_view>

namespace edit {

// What a new control lets the user enter, and the largest limit there is.
constexpr int kDefaultLimit = 30000;
constexpr int kMaxLimit = 0x7FFFFFFE;

class Buffer {
public:
    const std::string& Text() const { return m_text; }
    int Length() const { return static_cast<int>(m_text.size()); }
    int Caret() const { return m_caret; }
    int Anchor() const { return m_anchor; }
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
    int WordLeft(int pos) const;
    int WordRight(int pos) const;

    // Sets both ends, snapped.
    void Select(long long anchor, long long caret);
    // Puts the caret at pos; with extend the anchor stays.
    void MoveCaret(int pos, bool extend);

    // Replaces the selection with text, up to the limit when honourLimit is
    // set (cut at a character boundary; *truncated tells whether any was
    // left out). The caret ends after the new text. Returns whether the text
    // changed.
    bool ReplaceSelection(std::string_view text, bool honourLimit, bool* truncated = nullptr);
    // New text, regardless of the limit; the caret goes to the start.
    void SetText(std::string_view text);

    // One level of undo: the text and selection before the last change.
    bool CanUndo() const { return m_canUndo; }
    void SaveUndo();
    bool Undo();
    void EmptyUndo() { m_canUndo = false; }

private:
    std::string m_text;
    int m_caret = 0;
    int m_anchor = 0;
    int m_limit = kDefaultLimit;

    bool m_canUndo = false;
    std::string m_undoText;
    int m_undoCaret = 0;
    int m_undoAnchor = 0;
};

}  // namespace edit
