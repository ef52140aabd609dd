// The extent of a C string or character literal, as the demo's C scanners
// (colouring, function scan, comment blanking) all skip them.
#pragma once

#include <string_view>

// Given the offset of an opening quote, the offset just past its closing
// quote; an unclosed literal ends at its line's end (or the text's end).
// Steps by GBK characters, so a trail byte that looks like a backslash
// escapes nothing.
size_t CLiteralEnd(std::string_view text, size_t open);

// The offset of the '\n' ending the logical line at `pos` (a backslash just
// before a line end carries the line on), or the text's end.
size_t CLogicalLineEnd(std::string_view text, size_t pos);
