// Comparisons on byte strings of the ANSI code page. Only ASCII letters fold:
// lead and trail bytes of double-byte characters compare as they are, so they
// sort after every ASCII character.
#pragma once

#include "platform/core/win_types.h"

AFX_API int _stricmp(const char* a, const char* b);
AFX_API int _strnicmp(const char* a, const char* b, size_t count);
AFX_API int AsciiToLower(int byte);
