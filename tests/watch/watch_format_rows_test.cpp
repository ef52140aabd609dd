// A watch row's default format, its error message, and records no service
// should send but a broken one might.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "platform/text/gbk.h"
#include "siblings/orv_project_misc.h"
#include "tests/watch/watch_format_support.h"
#include "watch/watch_format.h"

namespace {

class WatchRowFormat : public ::testing::Test {
protected:
    void TearDown() override { OrvProjectMisc::SetValueDisplayMode(0); }
};

TEST_F(WatchRowFormat, DefaultFormatFollowsTheSettingOrTheType)
{
    struct Case {
        long mode;
        std::uint32_t type;
        std::uint32_t format;
    };
    const std::vector<Case> cases = {
        // Left to the type: unsigned and structured types in hexadecimal.
        {0, 0, WF_DECIMAL},          {0, WT_CHAR, WF_DECIMAL},      {0, 3, WF_HEXADECIMAL},
        {0, WT_INT, WF_DECIMAL},     {0, 5, WF_HEXADECIMAL},        {0, 6, WF_DECIMAL},
        {0, 7, WF_HEXADECIMAL},      {0, WT_FLOAT, WF_DECIMAL},     {0, 31, WF_DECIMAL},
        {0, 32, WF_HEXADECIMAL},     {0, WT_ARRAY, WF_HEXADECIMAL}, {0, 41, WF_HEXADECIMAL},
        {0, 42, WF_HEXADECIMAL},     {0, 0xFFFFFFFF, WF_HEXADECIMAL},
        {3, 3, WF_HEXADECIMAL},      {-1, WT_CHAR, WF_DECIMAL},
        // The setting overrides the type.
        {1, 3, WF_DECIMAL},          {1, 32, WF_DECIMAL},           {1, WT_CHAR, WF_DECIMAL},
        {2, WT_CHAR, WF_HEXADECIMAL}, {2, WT_FLOAT, WF_HEXADECIMAL}, {2, 3, WF_HEXADECIMAL},
    };
    for (const Case& c : cases) {
        OrvProjectMisc::SetValueDisplayMode(c.mode);
        const auto row = RowOf(MakeRecord(c.type, WS_DATA, 0, 1, 0), WF_BINARY);
        ApplyDefaultFormat(row.get());
        EXPECT_EQ(row->format, c.format) << "mode " << c.mode << " type " << c.type;
        EXPECT_TRUE(row->Cell(kFormatColumn)->kind & GCF_ICON) << "mode " << c.mode << " type " << c.type;
        EXPECT_EQ(row->Cell(kFormatColumn)->value, c.format) << "mode " << c.mode << " type " << c.type;
    }
}

TEST_F(WatchRowFormat, ValueAndRowTakeTheDefaultOnlyWhenAsked)
{
    const WatchRecord unsignedChar = MakeRecord(3, WS_DATA, 0x30, 1, 65);
    const auto row = RowOf(unsignedChar, WF_BINARY);
    EXPECT_EQ(FormatValue(row.get(), FALSE), "01000001");
    EXPECT_EQ(row->format, WF_BINARY);
    EXPECT_EQ(FormatValue(row.get(), TRUE), "41");
    EXPECT_EQ(row->format, WF_HEXADECIMAL);

    EXPECT_EQ(FormatRowOf(unsignedChar, WF_BINARY, TRUE).value, "41");
    EXPECT_EQ(FormatRowOf(unsignedChar, WF_BINARY, FALSE).value, "01000001");
    OrvProjectMisc::SetValueDisplayMode(1);
    EXPECT_EQ(FormatRowOf(unsignedChar, WF_BINARY, TRUE).value, "65");
    // A row without a space still takes its default format, though it shows no value.
    const RowTexts none = FormatRowOf(MakeRecord(3, WS_NONE, 0, 1, 65), WF_BINARY, TRUE);
    EXPECT_EQ(none.value, "");
    EXPECT_EQ(none.format, WF_DECIMAL);
}

TEST_F(WatchRowFormat, ErrorStatusShowsTheMessageAndKeepsTheAttribute)
{
    struct Case {
        std::uint32_t errorId;
        std::string message;
    };
    const std::vector<Case> cases = {
        {WERR_UNDEFINED, GBK(u8"变量未定义")},
        {WERR_WRONG_EXPRESSION, GBK(u8"错误的表达式")},
        {WERR_MISSING_OPEN, GBK(u8"括号配对错误，缺少\"[\"或\"(\"")},
        {WERR_INVALID_POINTER, GBK(u8"无效的指针")},
        {0, ""},
        {1, ""},
        {52073, ""},
        {0xFFFFFFFF, ""},
    };
    for (const Case& c : cases) {
        WatchRecord record = MakeRecord(WT_CHAR, WS_DATA, 0x30, 1, 65);
        record.status = 0;
        record.errorId = c.errorId;
        const RowTexts row = FormatRowOf(record, WF_BINARY, TRUE);
        EXPECT_EQ(row.value, c.message) << "error " << c.errorId;
        EXPECT_EQ(row.attribute, "old attribute") << "error " << c.errorId;
        EXPECT_EQ(row.format, WF_BINARY) << "an error row keeps its format";
    }
}

TEST_F(WatchRowFormat, UnknownTypesAndSpacesHaveNoAttribute)
{
    struct Case {
        std::uint32_t type;
        std::uint32_t space;
        const char* decimal;
        const char* quickC;
    };
    const std::vector<Case> cases = {
        {42, WS_DATA, "-2", "-2,0xFFFFFFFE(data:0030)"},
        {0xFFFFFFFF, WS_NUMBER, "-2", "-2,0xFFFFFFFE(number:0030)"},
        {WT_INT, 11, "-2", "-2,0xFFFFFFFE"},
        {WT_INT, 254, "-2", "-2,0xFFFFFFFE"},
        {WT_CHAR, 0xFFFFFFFF, "-2", "-2,0xFFFFFFFE"},
    };
    for (const Case& c : cases) {
        const WatchRecord record = MakeRecord(c.type, c.space, 0x30, 2, 0xFFFFFFFE);
        const RowTexts row = FormatRowOf(record, WF_DECIMAL);
        EXPECT_EQ(row.value, c.decimal) << "type " << c.type << " space " << c.space;
        EXPECT_EQ(row.attribute, "") << "type " << c.type << " space " << c.space;
        EXPECT_EQ(QuickView(record, false), c.quickC) << "type " << c.type << " space " << c.space;
    }
}

TEST_F(WatchRowFormat, BinaryDigitsStopAtTheValuesBits)
{
    struct Case {
        std::uint32_t size;
        std::uint32_t space;
        std::string binary;
        const char* hexadecimal;
    };
    const std::string highAndLow = "1" + std::string(30, '0') + "1";
    const std::vector<Case> cases = {
        {0, WS_DATA, "", "80000001"},
        {3, WS_DATA, std::string(23, '0') + "1", "80000001"},
        {5, WS_DATA, highAndLow, "80000001"},
        {0x20000000, WS_DATA, highAndLow, "80000001"},  // 8 x size wraps to 0 in 32 bits
        {0xFFFFFFFF, WS_DATA, highAndLow, "80000001"},
        {0, WS_BIT, "1", "80000001"},
        {0xFFFFFFFF, WS_BIT, "1", "80000001"},
    };
    for (const Case& c : cases) {
        const WatchRecord record = MakeRecord(7, c.space, 0, c.size, 0x80000001);
        EXPECT_EQ(FormatBinary(&record).str(), c.binary) << "size " << c.size << " space " << c.space;
        EXPECT_EQ(ValueIn(record, WF_BINARY), c.binary) << "size " << c.size << " space " << c.space;
        EXPECT_EQ(ValueIn(record, WF_HEXADECIMAL), c.hexadecimal) << "size " << c.size << " space " << c.space;
    }
}

TEST_F(WatchRowFormat, RecordOfAllOnesGetsItsDefinedTexts)
{
    WatchRecord ones;
    std::memset(&ones, 0xFF, sizeof ones);
    for (const BOOL apply : {FALSE, TRUE}) {
        const RowTexts row = FormatRowOf(ones, WF_DECIMAL, apply);
        EXPECT_EQ(row.value, "????");
        EXPECT_EQ(row.attribute, "");
        EXPECT_EQ(row.format, apply ? WF_HEXADECIMAL : WF_DECIMAL);
    }
    EXPECT_EQ(QuickView(ones, false), "????,0x????");
    EXPECT_EQ(QuickView(ones, true), "????,0????H");

    ones.unavailable = 0;
    EXPECT_EQ(FormatRowOf(ones, WF_DECIMAL).value, "-1");
    EXPECT_EQ(FormatRowOf(ones, WF_HEXADECIMAL).value, "FFFFFFFF");
    EXPECT_EQ(FormatRowOf(ones, WF_BINARY).value, std::string(32, '1'));
    EXPECT_EQ(QuickView(ones, false), "-1,0xFFFFFFFF");
    EXPECT_EQ(QuickView(ones, true), "-1,0FFFFFFFFH");
}

TEST_F(WatchRowFormat, LongestQuickViewFillsTheBufferExactly)
{
    // The widest "%f" of a single, a byte's binary digits and the longest
    // space name with an eight-digit address.
    const WatchRecord widest = MakeRecord(WT_FLOAT, WS_NUMBER, 0xFFFFFFFF, 1, 0xFF7FFFFF);
    const std::string text = QuickView(widest, true);
    EXPECT_EQ(text, "-340282346638528859811704183484516925440.000000,0FF7FFFFFH,11111111B(number:FFFFFFFF)");
    EXPECT_EQ(text.size(), kQuickViewBytes - 1);
}

TEST_F(WatchRowFormat, QuickViewWithoutBufferOrRecordWritesNothingElse)
{
    const WatchRecord record = MakeRecord(WT_CHAR, WS_DATA, 0x30, 1, 65);
    EXPECT_EQ(QuickViewText(nullptr, &record), 0);
    char buffer[kQuickViewBytes];
    std::memset(buffer, 'x', sizeof buffer);
    EXPECT_EQ(QuickViewText(buffer, nullptr), 0);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(buffer[1], 'x');
}

}  // namespace
