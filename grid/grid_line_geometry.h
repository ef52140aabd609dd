// Geometry shared by every line of the grid, from the bounds of item 0 (all
// lines have its left, right and height) and the client rectangle: the
// indentation step, the expand boxes and where column 0's text begins.
#pragma once

#include <algorithm>

#include "platform/core/win_types.h"

struct GridLineGeometry {
    CRect first;   // bounds of item 0
    CRect client;
    CRect buffer;  // the list's horizontal coordinates, line top at 0
    int height = 0;
    int unit = 0;     // U: indentation step and expand box size
    int quarter = 0;  // Q: top of the expand box

    GridLineGeometry(const CRect& firstLine, const CRect& clientRect)
        : first(firstLine),
          client(clientRect),
          buffer(firstLine.left, 0, std::max(firstLine.right, clientRect.right), firstLine.Height()),
          height(firstLine.Height()),
          unit(height / 4 + 4),
          quarter(height / 4)
    {
    }

    // The expand box of a level, with the line's top at 0.
    CRect ExpandBox(int level) const
    {
        const int left = first.left + unit * level + unit / 2;
        return CRect(left, quarter, left + unit, quarter + unit);
    }
    // Where column 0's text begins for a level, past the indentation and the box.
    int TextLeft(int level) const { return unit * (level + 1) + unit / 2 + unit / 2; }
    // Whether x falls in the zone a click on expands or collapses a row of that level.
    bool InExpandZone(int level, int x) const
    {
        const int left = first.left + unit * level;
        return x >= left && x < left + unit + unit / 2;
    }
};
