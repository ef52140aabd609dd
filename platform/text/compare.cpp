#include "platform/text/compare.h"

#include <algorithm>
#include <cstring>

#include "platform/text/gbk.h"

int _strnicmp(const char* a, const char* b, size_t count)
{
    if (!a || !b) return a ? 1 : (b ? -1 : 0);
    return CompareFolded(std::string_view(a, strnlen(a, count)), std::string_view(b, strnlen(b, count)));
}

int _stricmp(const char* a, const char* b)
{
    if (!a || !b) return a ? 1 : (b ? -1 : 0);
    return CompareFolded(a, b);
}

bool GbkMatchesFoldedAt(std::string_view hay, size_t pos, std::string_view needle, bool matchCase)
{
    if (pos > hay.size() || needle.size() > hay.size() - pos) return false;
    for (size_t i = 0; i < needle.size();) {
        const int length = GbkCharLength(needle, i);
        if (GbkCharLength(hay, pos + i) != length) return false;
        if (length == 2) {
            if (hay.compare(pos + i, 2, needle, i, 2) != 0) return false;
        } else if (matchCase ? hay[pos + i] != needle[i]
                             : AsciiToLower(hay[pos + i]) != AsciiToLower(needle[i])) {
            return false;
        }
        i += static_cast<size_t>(length);
    }
    return true;
}
