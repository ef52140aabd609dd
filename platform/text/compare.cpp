#include "platform/text/compare.h"

int AsciiToLower(int byte)
{
    byte &= 0xFF;
    return (byte >= 'A' && byte <= 'Z') ? byte + ('a' - 'A') : byte;
}

int _strnicmp(const char* a, const char* b, size_t count)
{
    if (!a || !b) return a ? 1 : (b ? -1 : 0);
    for (size_t i = 0; i < count; ++i) {
        const int ca = AsciiToLower(static_cast<unsigned char>(a[i]));
        const int cb = AsciiToLower(static_cast<unsigned char>(b[i]));
        if (ca != cb) return ca - cb;
        if (ca == 0) return 0;
    }
    return 0;
}

int _stricmp(const char* a, const char* b)
{
    return _strnicmp(a, b, static_cast<size_t>(-1));
}
