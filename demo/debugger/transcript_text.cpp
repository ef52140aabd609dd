#include "demo/debugger/transcript_text.h"

#include <array>
#include <cstdio>

#include "demo/debugger/type_codes.h"
#include "platform/text/gbk.h"

namespace {

constexpr std::size_t kShownTextBytes = 48;

// Names of the type codes 0 to 12; 32 and above follow.
constexpr std::array<const char*, 13> kScalarNames{
    "null", "bit", "char", "unsigned char", "int", "unsigned int", "long", "unsigned long",
    "float", "double", "label", "void", "float",
};
constexpr std::array<const char*, 10> kComposedNames{
    "struct", "union", "enum", "pointer", "generic pointer", "function", "array", "list", "typedef", "address",
};
constexpr std::array<const char*, 11> kSpaceNames{
    "code", "xdata", "data", "idata", "bit", "const", "stack", "pdata", "file", "sys", "number",
};

std::string Hex(std::uint32_t value, int digits)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%0*X", digits, value);
    return text;
}

}  // namespace

std::string TypeName(std::uint32_t type)
{
    if (type < kScalarNames.size()) return kScalarNames[type];
    if (type >= WT_STRUCT && type - WT_STRUCT < kComposedNames.size()) return kComposedNames[type - WT_STRUCT];
    return "type " + std::to_string(type);
}

std::string SpaceName(std::uint32_t space)
{
    if (space < kSpaceNames.size()) return kSpaceNames[space];
    return space == WS_NONE ? "no space" : "space " + std::to_string(space);
}

std::string RecordText(const WatchRecord& record)
{
    if (record.status == 0) return "error " + std::to_string(record.errorId);
    std::string text = TypeName(record.type);
    if (record.space == WS_NUMBER) return text + " value " + Hex(record.value, 1);
    text += " in " + SpaceName(record.space) + " at " + Hex(record.address, 4);
    if (IsAggregateCode(record.type)) return text + ", " + std::to_string(record.count) + " inside";
    return text + (record.unavailable ? " = unavailable" : " = " + Hex(record.value, 1));
}

std::string QuotedText(std::string_view gbk)
{
    const std::size_t shown = GbkPrefixBytes(gbk, kShownTextBytes);
    return "\"" + GbkToUtf8(gbk.substr(0, shown)) + (shown < gbk.size() ? "...\"" : "\"");
}
