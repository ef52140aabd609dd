// The font the views make for themselves: 9 points of 宋体.
#pragma once

constexpr char kViewFontFace[] = "\xCB\xCE\xCC\xE5";  // 宋体
constexpr int kViewFontTenths = 90;                  // point size in tenths
