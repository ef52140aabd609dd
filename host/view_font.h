// The font the views make for themselves: 9 points of 宋体; and the panes'
// font that the sibling module reports.
#pragma once

#include <algorithm>

constexpr char kViewFontFace[] = "\xCB\xCE\xCC\xE5";  // 宋体
constexpr int kViewFontTenths = 90;                  // point size in tenths

// The sizes of the panes' font that are taken as they come; the sibling
// module's answer is clamped to them before it is turned into tenths.
constexpr int kDockFontMinPoints = 1;
constexpr int kDockFontMaxPoints = 1000;

// A size in points from GetDockFontInfo, in tenths of a point.
constexpr int DockFontTenths(int points)
{
    return std::clamp(points, kDockFontMinPoints, kDockFontMaxPoints) * 10;
}
