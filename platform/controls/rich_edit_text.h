// The rich edit control's text: a vector of lines, each with its runs of
// colour, and a line index that turns positions into lines and back in
// O(log n). Appending at the end costs O(log n) per line added; replacing
// inside one line costs O(log n) plus the line's length; adding or removing
// lines elsewhere costs O(n) once per replacement, however many lines it
// carries.
//
// Positions count bytes with one position for each line's end (its "\r").
// Every lead byte stored is followed by its second byte on the same line, so
// a line's end is always a character boundary.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/rich_edit_line_index.h"
#include "platform/core/win_types.h"

namespace richedit {

using Pos = std::int64_t;

// A colour of text: automatic (the system's window text colour) or given.
struct CharColor {
    bool automatic = true;
    COLORREF color = 0;

    static CharColor Auto() { return {}; }
    static CharColor Of(COLORREF c) { return {false, c}; }
    bool operator==(const CharColor& other) const
    {
        return automatic == other.automatic && (automatic || color == other.color);
    }
};

// Format from `start` (an offset in the line) up to the next run.
struct Run {
    int start = 0;
    CharColor format;
};

// A line's bytes without its "\r", and runs covering offsets [0, size]: the
// last offset is the line's end, whose format is what an empty line shows
// and what text typed at its start takes.
struct Line {
    std::string text;
    std::vector<Run> runs;  // never empty; runs[0].start == 0; starts rise

    int Size() const { return static_cast<int>(text.size()); }
    CharColor FormatAt(int offset) const;
};

// Lines [first, oldEnd) were replaced by lines [first, newEnd).
struct Change {
    size_t first = 0;
    size_t oldEnd = 0;
    size_t newEnd = 0;
};

// Text given to the control, as it is stored: "\r\n", "\n" and "\r" become
// one "\r" (or end the text for a single-line control), and a lead byte
// without its second byte on the line becomes '?'.
std::string NormalizeInput(std::string_view text, bool singleLine);

class TextStore {
public:
    TextStore();

    // One empty line whose end has the given format.
    void Reset(CharColor format);

    size_t LineCount() const { return m_lines.size(); }
    Pos Length() const { return m_index.Total() - 1; }
    // Length with "\r\n" line ends.
    Pos CrLfLength() const { return Length() + static_cast<Pos>(LineCount()) - 1; }
    Pos LineStart(size_t line) const { return m_index.Before(line); }
    int LineLength(size_t line) const { return line < m_lines.size() ? m_lines[line].Size() : 0; }
    Pos LineEnd(size_t line) const { return LineStart(line) + LineLength(line); }
    // The line holding pos (clamped to the text).
    size_t LineOf(Pos pos) const { return m_index.Find(pos); }
    const Line& LineAt(size_t line) const { return m_lines[line]; }

    // pos clamped into the text and moved to the start of its character.
    Pos Snap(Pos pos) const;
    // The character boundary after / before pos (a line's end counts as a
    // character); pos itself at the ends of the text.
    Pos NextChar(Pos pos) const;
    Pos PrevChar(Pos pos) const;

    // Format of the character at pos (at a line's end, of the line end).
    CharColor FormatAt(Pos pos) const;
    // Whether [from, to) has one format throughout; *first gets the format
    // of its first character (of `from` for an empty range).
    bool SameFormat(Pos from, Pos to, CharColor* first) const;

    // Replaces [from, to) (character boundaries, from <= to) with normalized
    // text in the given format.
    Change Replace(Pos from, Pos to, std::string_view text, CharColor format);
    void SetFormat(Pos from, Pos to, CharColor format);
    void SetAllFormats(CharColor format);

    // Copies [from, to) (character boundaries) into dest, whole characters
    // and line ends only, up to capacity bytes; lines end in "\r", or in
    // "\r\n" with crlf. Returns the bytes written; writes no terminator.
    size_t CopyOut(Pos from, Pos to, bool crlf, char* dest, size_t capacity) const;
    std::string Text(Pos from, Pos to, bool crlf) const;

private:
    void Splice(size_t first, size_t last, std::vector<Line>& lines);

    std::vector<Line> m_lines;
    LineIndex m_index;  // size of each line: its bytes and its end
};

// Whether the character at offset belongs in a word: ASCII letters, digits
// and '_', and every double-byte character.
bool IsWordCharAt(std::string_view text, size_t offset);

// Character boundaries within one line of stored text.
int SnapInLine(const std::string& text, int offset);
int NextInLine(const std::string& text, int offset);
int PrevInLine(const std::string& text, int offset);

}  // namespace richedit
