// A mark a source view draws in its gutter beside one line.
#pragma once

struct LineMark {
    enum Kind { Bookmark, BreakpointOn, BreakpointOff, Error, Warning };
    int line = 0;  // 1-based
    Kind kind = Bookmark;
};
