#include "platform/shell/path.h"

#include <string_view>

#include "platform/text/gbk.h"

BOOL PathRemoveFileSpec(LPSTR path)
{
    if (!path) return FALSE;
    const std::string_view text(path);
    // Where the part to remove begins: at the last separator, or just after
    // a root, which stays.
    size_t cut = 0;
    size_t pos = 0;
    for (int lead = 0; lead < 2 && pos < text.size() && IsPathSeparator(text[pos]); ++lead) cut = ++pos;
    while (pos < text.size()) {
        const auto length = static_cast<size_t>(GbkCharLength(text, pos));
        if (length == 1 && IsPathSeparator(text[pos])) {
            cut = pos;
        } else if (length == 1 && text[pos] == ':') {
            cut = ++pos;
            if (pos < text.size() && IsPathSeparator(text[pos])) cut = ++pos;
            continue;
        }
        pos += length;
    }
    if (cut >= text.size()) return FALSE;
    path[cut] = '\0';
    return TRUE;
}
