// Where a source view puts things: the gutter (marks, then right-aligned
// line numbers) and the text to its right, in rows of one line each.
#pragma once

#include <algorithm>

#include "platform/core/win_types.h"

struct SourceLayout {
    static constexpr int kLineGap = 2;        // pixels between rows, so marks do not touch
    static constexpr int kMarkWidth = 14;     // the mark column: a 12-pixel glyph and a margin
    static constexpr int kNumberMargin = 4;   // on each side of the line numbers
    static constexpr int kTextIndent = 4;     // between the gutter's edge and the first column

    CRect client;
    int charWidth = 6;    // a single-byte character; a double-byte one is two
    int lineHeight = 14;
    int numberRight = 0;  // line numbers end here
    int gutterRight = 0;  // the gutter ends and the text area begins here

    int TextLeft() const { return gutterRight + kTextIndent; }
    int TextWidth() const { return std::max(0, static_cast<int>(client.right) - TextLeft()); }
    // Rows wholly inside the client; at least one, so that paging always moves.
    int FullLines() const { return std::max(1, static_cast<int>(client.Height()) / lineHeight); }
    int RowTop(int line, int top) const { return static_cast<int>(client.top) + (line - top) * lineHeight; }
};

// Digits of the largest line number, at least 3 so the gutter does not
// jump while small files are shown.
inline int LineNumberDigits(int lineCount)
{
    int digits = 1;
    for (int n = std::max(lineCount, 1); n >= 10; n /= 10) ++digits;
    return std::max(3, digits);
}

inline SourceLayout MakeSourceLayout(const CRect& client, int fontHeight, int lineCount)
{
    SourceLayout l;
    l.client = client;
    l.charWidth = std::max(1, fontHeight / 2);
    l.lineHeight = fontHeight + SourceLayout::kLineGap;
    l.numberRight = client.left + SourceLayout::kMarkWidth + SourceLayout::kNumberMargin + LineNumberDigits(lineCount) * l.charWidth;
    l.gutterRight = l.numberRight + SourceLayout::kNumberMargin;
    return l;
}
