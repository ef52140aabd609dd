// A copy of C source with comments and preprocessor lines turned into
// blanks (line ends kept), so that a scan sees only code at the same offsets.
#pragma once

#include <string>
#include <string_view>

std::string BlankCommentsAndDirectives(std::string_view source);
