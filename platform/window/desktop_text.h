// Text between the desktop (UTF-8, lines ending in "\n") and the platform
// (GBK, lines ending in "\r\n"). Pure conversions, no display needed.
#pragma once

#include <string>
#include <string_view>

namespace DesktopText {

// Clipboard text for the desktop: UTF-8, "\r\n" turned into "\n".
std::string ToDesktop(std::string_view gbk);
// Desktop clipboard or dropped text for the platform: GBK, every line ending
// "\r\n". Characters GBK lacks become '?'.
std::string FromDesktop(std::string_view utf8);
// The bytes typed text delivers as WM_CHAR: GBK, control characters left
// out (the keys that type them deliver those).
std::string Typed(std::string_view utf8);

}  // namespace DesktopText
