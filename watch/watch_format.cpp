#include "watch/watch_format.h"

#include <algorithm>
#include <bit>
#include <cstdarg>
#include <string>
#include <string_view>

#include "platform/text/gbk.h"
#include "siblings/orv_project_misc.h"
#include "watch/short_text.h"
#include "watch/watch_row.h"

namespace {

// Memory spaces first, then types at kWatchSpaceCount + type.
constexpr const char* kWatchNames[kWatchSpaceCount + kWatchTypeCount] = {
    "code", "xdata", "data", "idata", "bit", "const", "stack", "pdata", "file", "sys", "number",
    "null", "bit", "char", "unsigned char", "int", "unsigned int", "long", "unsigned long",
    "float", "double", "label", "void", "float",
    "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "",
    "struct", "union", "enum", "pointer", "general pointer", "function", "array", "list",
    "typedef", "address",
};
static_assert(std::size(kWatchNames) == 53);

// The only bit patterns of a single with a text of their own.
constexpr std::uint32_t kFloatNaN = 0xFFFFFFFF;
constexpr std::uint32_t kFloatPlusInfinity = 0x7F800000;
constexpr std::uint32_t kFloatMinusInfinity = 0xFF800000;

bool IsFloat(std::uint32_t type) { return type == WT_FLOAT || type == WT_FLOAT_ALT; }

const char* SpecialFloatText(std::uint32_t bits)
{
    switch (bits) {
    case kFloatNaN: return "NaN";
    case kFloatPlusInfinity: return "+INF";
    case kFloatMinusInfinity: return "-INF";
    default: return nullptr;
    }
}

CString Formatted(const char* format, ...) __attribute__((format(printf, 1, 2)));
CString Formatted(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    CString text;
    text.FormatV(format, args);
    va_end(args);
    return text;
}

CString DecimalText(const WatchRecord& record)
{
    const std::uint32_t value = record.value;
    if (IsFloat(record.type)) {
        if (const char* special = SpecialFloatText(value)) return special;
        return Formatted("%f", static_cast<double>(std::bit_cast<float>(value)));
    }
    auto number = static_cast<std::int32_t>(value);
    if (record.type == WT_CHAR) number = static_cast<std::int8_t>(value);
    if (record.type == WT_INT) number = static_cast<std::int16_t>(value);
    return CString(ShortText().AddDecimal(number).View());
}

CString HexadecimalText(const WatchRecord& record)
{
    const std::uint32_t value = record.value;
    if (IsFloat(record.type)) {
        if (const char* special = SpecialFloatText(value)) return special;
        return CString(ShortText().AddHex(value, 4).View());
    }
    // Always all 32 bits: a value wider than its size shows its upper bytes.
    const std::size_t digits = record.size == 1 ? 2 : record.size == 2 ? 4 : 8;
    return CString(ShortText().AddHex(value, digits).View());
}

CString FormatIn(const WatchRecord& record, std::uint32_t format)
{
    if (record.unavailable) return "????";
    switch (format) {
    case WF_BINARY: return FormatBinary(&record);
    case WF_DECIMAL: return DecimalText(record);
    case WF_HEXADECIMAL: return HexadecimalText(record);
    default: return "";
    }
}

// "space(type)" for constants, "space:address, type" for objects in memory;
// "" outside the named spaces and types.
ShortText AttributeText(const WatchRecord& record)
{
    ShortText attribute;
    if (record.space >= kWatchSpaceCount || record.type >= kWatchTypeCount) return attribute;
    const char* space = WatchSpaceName(record.space);
    const char* type = WatchTypeName(record.type);
    if (record.space == WS_CONST || record.space == WS_NUMBER) {
        attribute.Add(space).Add('(').Add(type).Add(')');
        return attribute;
    }
    attribute.Add(space).Add(':').AddHex(record.address, 4).Add(", ").Add(type);
    const auto signedValue = static_cast<std::int32_t>(record.value);
    if (record.type == WT_CHAR && signedValue >= 32 && signedValue <= 128) {
        attribute.Add(", \"").Add(static_cast<char>(signedValue)).Add('"');
    }
    return attribute;
}

}  // namespace

const char* WatchSpaceName(std::uint32_t space)
{
    return space < kWatchSpaceCount ? kWatchNames[space] : "";
}

const char* WatchTypeName(std::uint32_t type)
{
    return type < kWatchTypeCount ? kWatchNames[kWatchSpaceCount + type] : "";
}

CString FormatValue(CGridRow* row, BOOL bApplyDefault)
{
    const WatchRecord* record = RecordOf(static_cast<const CGridRow*>(row));
    if (!record) return "";
    if (bApplyDefault) ApplyDefaultFormat(row);
    return FormatIn(*record, row->format);
}

CString FormatBinary(const WatchRecord* record)
{
    if (!record) return "";
    // The value has 32 bits: a larger size (up to 0xFFFFFFFF from a bad
    // record) must not build a text of billions of digits.
    const std::uint64_t digits = record->space == WS_BIT ? 1 : std::min<std::uint64_t>(8ull * record->size, 32);
    auto bits = static_cast<std::int32_t>(record->value);
    std::string text(digits, '0');
    for (std::uint64_t i = digits; i-- > 0; bits >>= 1) {
        if (bits & 1) text[i] = '1';
    }
    return CString(std::string_view(text));
}

void FormatRow(CGridRow* row, BOOL bApplyDefault)
{
    const WatchRecord* record = RecordOf(row);
    if (!record) return;
    if (record->status == 0) {
        CString message;
        message.LoadString(record->errorId);  // an id without a string leaves it empty
        row->SetCellText(kValueColumn, message.str());
        return;
    }
    // The default format is set even where no value is shown.
    const CString text = FormatValue(row, bApplyDefault);
    row->SetCellText(kValueColumn, record->space == WS_NONE ? std::string_view("") : text.str());
    row->SetCellText(kAttributeColumn, AttributeText(*record).View());
}

void ApplyDefaultFormat(CGridRow* row)
{
    if (!row) return;
    const WatchRecord* record = RecordOf(static_cast<const CGridRow*>(row));
    const std::uint32_t type = record ? record->type : 0;
    std::uint32_t format = WF_DECIMAL;
    switch (CustomGetValueDisplayMode()) {
    case 1: format = WF_DECIMAL; break;
    case 2: format = WF_HEXADECIMAL; break;
    default:
        // Unsigned and structured types read best as bit patterns.
        if (type == WT_UCHAR || type == WT_UINT || type == WT_ULONG || type >= WT_STRUCT) format = WF_HEXADECIMAL;
        break;
    }
    row->format = format;
    row->SetCellIcon(kFormatColumn, static_cast<int>(format));
}

int QuickViewText(char* buffer, const WatchRecord* record)
{
    if (!buffer) return 0;
    if (!record) {
        buffer[0] = '\0';
        return 0;
    }
    const bool assembler = buffer[0] != '\0';
    const CString decimal = FormatIn(*record, WF_DECIMAL);
    CString hexadecimal = FormatIn(*record, WF_HEXADECIMAL);
    if (assembler) {
        // An assembler number starts with a digit; "????" gets one too.
        if (hexadecimal.GetAt(0) > '9') hexadecimal = "0" + hexadecimal;
        hexadecimal += "H";
    } else {
        hexadecimal = "0x" + hexadecimal;
    }
    CString text = Formatted("%s,%s", decimal.GetString(), hexadecimal.GetString());
    if (assembler && record->size == 1) text += "," + FormatBinary(record) + "B";
    if (record->space < kWatchSpaceCount) {
        const char* space = WatchSpaceName(record->space);
        text = Formatted("%s(%s:%04X)", text.GetString(), space, static_cast<unsigned>(record->address));
    }
    CopyGbkText(text.str(), buffer, kQuickViewBytes);
    return 1;
}
