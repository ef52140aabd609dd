// Comparisons on byte strings of the ANSI code page. Only ASCII letters fold:
// lead and trail bytes of double-byte characters compare as they are, so they
// sort after every ASCII character.
#pragma once

#include <string_view>

#include "platform/core/win_types.h"

AFX_API int _stricmp(const char* a, const char* b);
AFX_API int _strnicmp(const char* a, const char* b, size_t count);
AFX_API int AsciiToLower(int byte);

// _stricmp on views: the end of a view compares as a zero byte does.
AFX_API int CompareFolded(std::string_view a, std::string_view b);

// Whether needle occurs in hay at pos (a character boundary of hay),
// character by character: a double-byte character matches only a
// double-byte character, byte for byte; single bytes fold unless matchCase.
AFX_API bool GbkMatchesFoldedAt(std::string_view hay, size_t pos, std::string_view needle, bool matchCase);
