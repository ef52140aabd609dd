// Geometry of the tree control: the sizes everything is measured with, and
// where the parts of one row lie. Painting, hit testing, item rectangles and
// scrolling all take their positions from here.
#pragma once

#include "platform/core/win_types.h"
#include "platform/gdi/font_model.h"

namespace tree {

// Room above and below the text of a row, together.
constexpr int kTextVerticalSpace = 4;
// An image needs one spare pixel row so images of adjacent rows never touch.
constexpr int kImageVerticalSpace = 1;
// Horizontal step per level: the width of a button/line column.
constexpr int kIndent = 19;
// Between the image and the label.
constexpr int kImageGap = 3;
// Inside the label, left and right of the text (the highlight is wider than the text).
constexpr int kLabelPadding = 2;
// The expand button: a square with an odd side so the sign has a centre pixel.
constexpr int kButtonSize = 9;
// Arms of the + and - signs inside the button, from the centre.
constexpr int kSignArm = 2;
// Pixels one horizontal scroll line moves: a narrow character of the font model.
constexpr int kHorizontalLine = 6;

struct Metrics {
    DWORD style = 0;
    CRect client;
    gdi::FontMetrics font;
    int itemHeight = 16;
    int imageCx = 0;  // 0 without a normal image list
    int imageCy = 0;
    int stateCx = 0;  // 0 without a state image list
    int stateCy = 0;
    int scrollX = 0;  // pixels the rows are scrolled to the left

    bool Has(DWORD flag) const { return (style & flag) != 0; }
    // Rows that fit whole in the client area, at least one.
    int PageRows() const { return std::max(1, client.Height() / itemHeight); }
    // Client y of a row's top edge while row `top` is the first shown.
    int RowTop(int row, int top) const { return client.top + (row - top) * itemHeight; }
    // Client x of the left edge of a level's column.
    int LevelLeft(int level) const { return client.left + level * kIndent - scrollX; }
};

// Where the parts of one row lie, in client coordinates.
struct RowLayout {
    CRect row;        // the whole client width
    int level = 0;    // columns left of the item: depth, plus one with lines at root
    CRect column;     // the item's own button/line column; empty at level 0
    CRect stateIcon;  // empty without a state image list
    CRect icon;       // the image and the gap after it; empty without an image list
    CRect label;      // text plus padding
    CPoint text;      // where the text starts
    CPoint iconAt;    // top-left of the image
    CPoint stateAt;   // top-left of the state image
};

// rowTop: client y of the row; depth: the item's depth; textWidth: its text
// measured in the control's font.
RowLayout LayoutRow(const Metrics& m, int rowTop, int depth, int textWidth);
// How far right a row reaches, unscrolled: what the horizontal bar covers.
int RowExtent(const Metrics& m, int depth, int textWidth);

// TVHT_* flags for a point inside the client area on a row laid out as given.
UINT HitRow(const Metrics& m, const RowLayout& r, bool hasButton, POINT pt);

}  // namespace tree
