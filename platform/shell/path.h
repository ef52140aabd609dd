// The shell's path helpers, on GBK paths: a separator is '\\' or '/' when it
// is a character of its own, never the second byte of a double-byte
// character (which can be 0x5C, the byte of '\\'). '/' is taken as well
// because a host on this platform may hand over POSIX paths.
#pragma once

#include "platform/core/win_types.h"

// A path separator byte; whether it stands as a character of its own is the
// caller's to know (GbkCharLength gives 1).
constexpr bool IsPathSeparator(char c) { return c == '\\' || c == '/'; }

// Removes the last component and the separator before it: "C:\\p\\x.prj" ->
// "C:\\p", "C:\\x.prj" -> "C:\\", "\\x" -> "\\", "\\\\server\\share" ->
// "\\\\server", "C:x.prj" -> "C:", "x.prj" -> "". A root ("C:\\", "\\",
// "\\\\") is kept whole. Returns TRUE when something was removed; FALSE for
// a null path.
AFX_API BOOL PathRemoveFileSpec(LPSTR path);
