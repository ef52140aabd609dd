// The ANSI code page of the system is GBK (code page 936). Source files are
// UTF-8; every text that reaches the library at run time is GBK bytes.
#pragma once

#include <string>
#include <string_view>

#include "platform/core/win_types.h"

// A GBK lead byte: the first byte of a double-byte character.
constexpr bool IsDBCSLeadByte(unsigned char byte) { return byte >= 0x81 && byte <= 0xFE; }

// Bytes of the character that starts at text[pos]: 2 for a lead byte followed
// by a trail byte, else 1. A lead byte at the end of the text counts as 1,
// and pos at or past the end gives 0. Inline: text loops call it per byte.
inline int GbkCharLength(std::string_view text, size_t pos)
{
    if (pos >= text.size()) return 0;
    return IsDBCSLeadByte(static_cast<unsigned char>(text[pos])) && pos + 1 < text.size() && text[pos + 1] != '\0' ? 2 : 1;
}

// Bytes of the longest prefix of whole characters that is at most maxBytes long.
AFX_API size_t GbkPrefixBytes(std::string_view text, size_t maxBytes);

// Copies the longest whole-character prefix that fits into buffer with its
// terminator; returns the bytes copied. A null buffer or a size of 0 takes nothing.
AFX_API size_t CopyGbkText(std::string_view text, char* buffer, size_t size);

// Conversions; characters that have no counterpart become '?'.
AFX_API std::string Utf8ToGbk(std::string_view utf8);
AFX_API std::string GbkToUtf8(std::string_view gbk);
AFX_API std::u32string GbkToUnicode(std::string_view gbk);

// Shorthand used by tests and the example programs for Chinese literals.
inline std::string GBK(std::string_view utf8) { return Utf8ToGbk(utf8); }
inline std::string GBK(std::u8string_view utf8)
{
    return Utf8ToGbk(std::string_view(reinterpret_cast<const char*>(utf8.data()), utf8.size()));
}
