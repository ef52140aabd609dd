// Geometry of the list view in report view: where lines and columns lie for
// a given size, font, count and scroll position. Painting, hit testing, item
// rectangles and scrolling all take their positions from here. Everything is
// arithmetic on the count, so a line's place costs the same at item 10 as at
// item 10 million.
#pragma once

#include <utility>
#include <vector>

#include "platform/core/win_types.h"

namespace listview {

// A line is the font's height plus this, unless the owner measures it.
constexpr int kLineVerticalSpace = 4;
// Width of a column inserted without one.
constexpr int kDefaultColumnWidth = 60;
// Room left and right of a cell's text, as the header leaves beside a heading.
constexpr int kCellPadding = 6;
// A press on an item starts a drag once the pointer has moved further than
// this in either direction.
constexpr int kDragThreshold = 4;
// Pixels one horizontal scroll line moves.
constexpr int kHorizontalLine = 8;
// The most items an owner-data list accepts.
constexpr int kMaxItemCount = 100'000'000;

// A column's extent in content coordinates (x = 0 at the first column's
// left edge, before horizontal scrolling).
struct Column {
    int left = 0;
    int right = 0;
    int format = 0;  // HDF_* of its heading: how its cells align
};

struct Geometry {
    CRect client;
    int headerHeight = 0;  // 0 when no header shows
    int lineHeight = 16;
    int count = 0;
    int top = 0;      // index of the first line shown
    int scrollX = 0;  // pixels scrolled to the right
    std::vector<Column> columns;

    int ItemsTop() const { return client.top + headerHeight; }
    int TotalWidth() const { return columns.empty() ? 0 : columns.back().right; }
    // Whole lines that fit under the header, at least one.
    int PageLines() const;
    int MaxTop() const;
    int MaxScrollX() const;
    int ClampTop(long long top) const;
    int ClampScrollX(long long x) const;

    // Client y of a line's top edge; far-away lines are pinned to the edge
    // of the coordinate range rather than overflowing it.
    LONG LineTop(int index) const;
    // The whole line: every column.
    CRect LineBounds(int index) const;
    // One column of a line; the empty rectangle for a bad column.
    CRect CellRect(int index, int column) const;
    // Lines [from, to) across the whole client width: owner drawing and
    // highlights may reach past the columns.
    CRect RowsRect(int from, int to) const;
    // Lines [first, last) that meet client rows [yTop, yBottom), whether or
    // not items exist there.
    std::pair<int, int> LinesIn(int yTop, int yBottom) const;
    // Column under a client x, or -1.
    int ColumnAt(int x) const;

    // LVHT_* flags for a client point; *item and *column receive what is
    // under it (-1 when nothing). fullRow: any column hits the item, as with
    // LVS_EX_FULLROWSELECT or owner drawing; otherwise only the first.
    UINT HitTest(POINT pt, bool fullRow, int* item, int* column) const;
};

}  // namespace listview
