// Readable rectangles, sizes and points in test failure messages. Every test
// source gets this header first (see tests/CMakeLists.txt), so that all of
// them print these types the same way.
#pragma once

#include <ostream>

#include "platform/core/win_types.h"

inline void PrintTo(const CRect& r, std::ostream* os)
{
    *os << "(" << r.left << ", " << r.top << ")-(" << r.right << ", " << r.bottom << ")";
}
inline void PrintTo(const CSize& s, std::ostream* os) { *os << s.cx << " x " << s.cy; }
inline void PrintTo(const CPoint& p, std::ostream* os) { *os << "(" << p.x << ", " << p.y << ")"; }
