#include "demo/toolchain/message_line.h"

#include <algorithm>
#include <cstdio>

// Room left in the text for the line break and the terminator.
constexpr std::size_t kMaxTextBytes = 500;

MessageLineRecord MessageLine(int level, std::string_view gbkText, std::string_view path, int line)
{
    MessageLineRecord record{};
    record.level = level;
    std::snprintf(record.text, sizeof record.text, "%.*s\r\n", static_cast<int>(std::min(gbkText.size(), kMaxTextBytes)),
                  gbkText.data());
    if (!path.empty()) {
        record.located = 1;
        std::snprintf(record.file, sizeof record.file, "%.*s", static_cast<int>(path.size()), path.data());
        record.line = line;
    }
    return record;
}
