// Comparisons on byte strings of the ANSI code page. Only ASCII letters fold:
// lead and trail bytes of double-byte characters compare as they are, so they
// sort after every ASCII character.
#pragma once

#include <array>
#include <string_view>

#include "platform/core/win_types.h"

// Each byte folded to lower case (ASCII letters only): views compare many
// strings per refresh, so folding is a table lookup, not a call.
inline constexpr std::array<unsigned char, 256> kAsciiLower = [] {
    std::array<unsigned char, 256> table{};
    for (int byte = 0; byte < 256; ++byte)
        table[static_cast<size_t>(byte)] = static_cast<unsigned char>(byte >= 'A' && byte <= 'Z' ? byte + ('a' - 'A') : byte);
    return table;
}();

// The folded byte; only the low eight bits of the argument count.
inline int AsciiToLower(int byte) { return kAsciiLower[static_cast<unsigned char>(byte)]; }

// _stricmp on views: the end of a view compares as a zero byte does. Equal
// bytes are passed over without folding, so equal texts cost one pass.
inline int CompareFolded(std::string_view a, std::string_view b)
{
    const size_t n = a.size() < b.size() ? a.size() : b.size();
    for (size_t i = 0; i < n; ++i) {
        const auto ca = static_cast<unsigned char>(a[i]);
        const auto cb = static_cast<unsigned char>(b[i]);
        if (ca == cb) continue;
        const int fa = kAsciiLower[ca];
        const int fb = kAsciiLower[cb];
        if (fa != fb) return fa - fb;
    }
    if (a.size() < b.size()) return -AsciiToLower(b[n]);
    if (b.size() < a.size()) return AsciiToLower(a[n]);
    return 0;
}

AFX_API int _stricmp(const char* a, const char* b);
AFX_API int _strnicmp(const char* a, const char* b, size_t count);

// Whether needle occurs in hay at pos (a character boundary of hay),
// character by character: a double-byte character matches only a
// double-byte character, byte for byte; single bytes fold unless matchCase.
AFX_API bool GbkMatchesFoldedAt(std::string_view hay, size_t pos, std::string_view needle, bool matchCase);
