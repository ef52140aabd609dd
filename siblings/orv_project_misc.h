// Stand-in for the sibling module of miscellaneous project routines that the
// panes call: relative paths, the stop and refresh keys, the panes' font, the
// value display setting and the parsing of a typed constant. The stop and
// refresh routines report to a listener so that a host (or a test) can see
// them happen.
#pragma once

#include <functional>
#include <string_view>

#include "platform/core/win_types.h"
#include "platform/text/cstring.h"
#include "platform/text/path_buffer.h"

// Writes into out (kPathBytes bytes) the path of `path` relative to the
// directory `baseDir`: "sub\\a.c" below it, "..\\x\\a.c" beside it, the path
// itself on another drive or when baseDir is empty. Separators '\\' and '/' are
// both understood and the path's own style is kept; letters compare without
// case; GBK trail bytes are never taken for separators. The result is always
// zero-terminated, cut at a character boundary if it would not fit. Returns
// TRUE when a relative path was made.
AFX_API BOOL PathRelativePathToEx(char* out, const char* path, const char* baseDir);

// Stops the running build or debug session (the Esc key and the "停止" command).
AFX_API void CleanTerminate(int code);
// Refreshes the host's windows (the F5 key).
AFX_API void KeyF5RefreshWnd();

// The panes' font as the user chose it: writes the face name (GBK) into a
// kPathBytes buffer and returns the size in points. 宋体 9 until a host
// sets another.
AFX_API int GetDockFontInfo(char* faceName);

// The user's value display setting: 1 shows every value in decimal, 2 every
// value in hexadecimal, anything else lets the type choose. 0 until a host
// sets another.
AFX_API long CustomGetValueDisplayMode();

// Parses a constant typed into the watch's value column, in the row's display
// format (0 binary, 1 decimal, 2 hexadecimal). On success returns non-zero and
// sets value to the constant's 32 bits (zero-extended); otherwise returns 0
// and leaves value alone. The text is only read.
//
//   text     = blanks [sign] number blanks
//   blanks   = { " " | TAB }
//   sign     = "+" | "-"
//   number   = hex       when the text holds an h, H, x or X (in any format)
//            | float     else when it holds a "."              (in any format)
//            | plain     else, by format:
//                            0: bindigit {bindigit} ["b" | "B"]
//                            1: digit {digit}
//                            2: hexdigit {hexdigit}
//   hex      = "0" ("x" | "X") hexdigit {hexdigit}
//            | hexdigit {hexdigit} ("h" | "H")
//   float    = digit {digit} "." {digit} [exponent]
//            | "." digit {digit} [exponent]
//   exponent = ("e" | "E") [sign] digit {digit}
//
// Integers: without "-" the magnitude is at most 0xFFFFFFFF; with "-" at
// most 2^31, and the value is its two's complement ("-1" gives 0xFFFFFFFF).
// Leading zeros do not count towards the range. Floats: the value is the bits
// of the nearest IEEE 754 single ("1.5" gives 0x3FC00000, "-0." 0x80000000);
// a non-zero magnitude that rounds to infinity or to zero does not fit a
// single and is rejected. Anything else is rejected: an empty or blank text,
// blanks inside the number, any other character (GBK bytes included), and
// plain digits under a format other than 0, 1 and 2.
AFX_API int IsConstantData(CString& text, unsigned long& value, unsigned char format);

namespace OrvProjectMisc {
// Sets what CustomGetValueDisplayMode answers (the host's display setting).
AFX_API void SetValueDisplayMode(long mode);
// Sets what GetDockFontInfo answers (the host's font setting).
AFX_API void SetDockFont(const char* faceName, int points);
// Called with the routine's name and argument on every CleanTerminate and
// KeyF5RefreshWnd; an empty function removes the listener.
using Listener = std::function<void(std::string_view routine, int argument)>;
AFX_API void SetListener(Listener listener);
}  // namespace OrvProjectMisc
