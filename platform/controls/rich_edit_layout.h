// Layout of the rich edit control by the font model: every line is one font
// height tall, a single-byte character advances h/2, a double-byte one h,
// and a tab runs to the next stop (every eight narrow characters). Lines are
// never wrapped.
#pragma once

#include <string>

#include "platform/core/win_types.h"
#include "platform/gdi/font_model.h"
#include "platform/text/gbk.h"

namespace richedit {

// Gap between the client's left edge and the text.
constexpr int kLeftMargin = 1;
constexpr int kTabStopChars = 8;

struct Metrics {
    CRect client;
    CRect view;  // where text is drawn: the client less the margin
    gdi::FontMetrics font;
    int lineHeight = 1;
    int tabWidth = 1;

    // Lines wholly visible (at least one, so that scrolling always moves).
    int FullLines() const { return std::max(1, static_cast<int>(view.Height()) / lineHeight); }
};

Metrics MakeMetrics(const CRect& client, const gdi::FontMetrics& font);

// Advance of the character at offset when it starts at x (text coordinates).
// Inline: painting and hit testing take it for every character.
inline int CharAdvance(const Metrics& m, const std::string& text, int offset, int x)
{
    if (text[static_cast<size_t>(offset)] == '\t') return (x / m.tabWidth + 1) * m.tabWidth - x;
    return m.font.Advance(GbkCharLength(text, static_cast<size_t>(offset)));
}
// x of the boundary at offset (a character boundary), from the text's start.
int TextX(const Metrics& m, const std::string& text, int offset);
// The character boundary nearest x: a click on a character's left half goes
// before it, on its right half after it.
int OffsetNearX(const Metrics& m, const std::string& text, int x);
// The character whose cell holds x; the last character for x past the end,
// 0 for an empty line.
int OffsetUnderX(const Metrics& m, const std::string& text, int x);

}  // namespace richedit
