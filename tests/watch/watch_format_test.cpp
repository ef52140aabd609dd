// The watch's texts for a record: value in each format, attribute, quick view.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/watch/watch_format_support.h"
#include "watch/watch_format.h"

namespace {

struct Example {
    const char* what;
    WatchRecord record;
    const char* binary;
    const char* decimal;
    const char* hexadecimal;
    const char* quickC;
    const char* quickAsm;
    const char* attribute;
};

TEST(WatchFormat, ValueAttributeAndQuickViewOfEachKindOfRecord)
{
    WatchRecord unavailableInt = MakeRecord(WT_INT, WS_NONE, 0, 2, 0x1234);
    unavailableInt.unavailable = 1;
    WatchRecord unavailableChar = MakeRecord(WT_CHAR, WS_DATA, 0x30, 1, 65);
    unavailableChar.unavailable = 1;
    const std::string ones(32, '1');
    const std::string zeros(32, '0');

    const std::vector<Example> examples = {
        {"char 65", MakeRecord(WT_CHAR, WS_DATA, 0x30, 1, 65), "01000001", "65", "41", "65,0x41(data:0030)",
         "65,41H,01000001B(data:0030)", "data:0030, char, \"A\""},
        {"int -1", MakeRecord(WT_INT, WS_XDATA, 0x0100, 2, 0x0000FFFF), "1111111111111111", "-1", "FFFF",
         "-1,0xFFFF(xdata:0100)", "-1,0FFFFH(xdata:0100)", "xdata:0100, int"},
        {"int with upper bytes", MakeRecord(WT_INT, WS_DATA, 0x20, 2, 0x00017FFF), "0111111111111111", "32767", "17FFF",
         "32767,0x17FFF(data:0020)", "32767,17FFFH(data:0020)", "data:0020, int"},
        {"unsigned char", MakeRecord(3, WS_IDATA, 0x80, 1, 0xC8), "11001000", "200", "C8", "200,0xC8(idata:0080)",
         "200,0C8H,11001000B(idata:0080)", "idata:0080, unsigned char"},
        {"unsigned long", MakeRecord(7, WS_DATA, 0x40, 4, 0xFFFFFFFF), ones.c_str(), "-1", "FFFFFFFF",
         "-1,0xFFFFFFFF(data:0040)", "-1,0FFFFFFFFH(data:0040)", "data:0040, unsigned long"},
        {"double is an integer", MakeRecord(9, WS_XDATA, 0x10, 4, 0x3FC00000), "00111111110000000000000000000000",
         "1069547520", "3FC00000", "1069547520,0x3FC00000(xdata:0010)", "1069547520,3FC00000H(xdata:0010)",
         "xdata:0010, double"},
        {"float 1.5", MakeRecord(WT_FLOAT, WS_IDATA, 0x80, 4, 0x3FC00000), "00111111110000000000000000000000",
         "1.500000", "3FC00000", "1.500000,0x3FC00000(idata:0080)", "1.500000,3FC00000H(idata:0080)",
         "idata:0080, float"},
        {"float tiny", MakeRecord(WT_FLOAT_ALT, WS_DATA, 0x50, 4, 0x00000001), "00000000000000000000000000000001",
         "0.000000", "0001", "0.000000,0x0001(data:0050)", "0.000000,0001H(data:0050)", "data:0050, float"},
        {"float NaN", MakeRecord(WT_FLOAT_ALT, WS_DATA, 0x50, 4, 0xFFFFFFFF), ones.c_str(), "NaN", "NaN",
         "NaN,0xNaN(data:0050)", "NaN,0NaNH(data:0050)", "data:0050, float"},
        {"float +INF", MakeRecord(WT_FLOAT, WS_DATA, 0x50, 4, 0x7F800000), "01111111100000000000000000000000", "+INF",
         "+INF", "+INF,0x+INF(data:0050)", "+INF,+INFH(data:0050)", "data:0050, float"},
        {"float -INF, no space", MakeRecord(WT_FLOAT, WS_NONE, 0x50, 4, 0xFF800000), "11111111100000000000000000000000",
         "-INF", "-INF", "-INF,0x-INF", "-INF,-INFH", ""},
        {"unavailable", unavailableInt, "????", "????", "????", "????,0x????", "????,0????H", ""},
        // A byte's binary digits in assembler come from the record, read or not.
        {"unavailable byte", unavailableChar, "????", "????", "????", "????,0x????" "(data:0030)",
         "????,0????H,01000001B(data:0030)", "data:0030, char, \"A\""},
        {"number constant", MakeRecord(WT_INT, WS_NUMBER, 0, 2, 5), "0000000000000101", "5", "0005",
         "5,0x0005(number:0000)", "5,0005H(number:0000)", "number(int)"},
        {"const constant", MakeRecord(3, WS_CONST, 0x1234, 1, 7), "00000111", "7", "07", "7,0x07(const:1234)",
         "7,07H,00000111B(const:1234)", "const(unsigned char)"},
        {"struct", MakeRecord(32, WS_XDATA, 0x1F00, 6, 0), zeros.c_str(), "0",
         "00000000", "0,0x00000000(xdata:1F00)", "0,00000000H(xdata:1F00)", "xdata:1F00, struct"},
        {"bit", MakeRecord(1, WS_BIT, 0x21, 1, 1), "1", "1", "01", "1,0x01(bit:0021)", "1,01H,1B(bit:0021)",
         "bit:0021, bit"},
        {"wide address", MakeRecord(WT_GENERAL_POINTER, WS_SYS, 0x12345, 3, 0x020100), "000000100000000100000000",
         "131328", "00020100", "131328,0x00020100(sys:12345)", "131328,00020100H(sys:12345)",
         "sys:12345, general pointer"},
    };
    for (const Example& example : examples) {
        SCOPED_TRACE(example.what);
        EXPECT_EQ(ValueIn(example.record, WF_BINARY), example.binary);
        EXPECT_EQ(ValueIn(example.record, WF_DECIMAL), example.decimal);
        EXPECT_EQ(ValueIn(example.record, WF_HEXADECIMAL), example.hexadecimal);
        EXPECT_EQ(QuickView(example.record, false), example.quickC);
        EXPECT_EQ(QuickView(example.record, true), example.quickAsm);
        const RowTexts row = FormatRowOf(example.record, WF_DECIMAL);
        EXPECT_EQ(row.value, example.record.space == WS_NONE ? "" : example.decimal);
        EXPECT_EQ(row.attribute, example.attribute);
    }
}

TEST(WatchFormat, CharacterShownOnlyForPrintableValues)
{
    struct Case {
        std::uint32_t value;
        std::string attribute;
    };
    const std::vector<Case> cases = {
        {31, "data:0030, char"},
        {32, "data:0030, char, \" \""},
        {126, "data:0030, char, \"~\""},
        {128, "data:0030, char, \"\x80\""},
        {129, "data:0030, char"},
        {200, "data:0030, char"},
        {0xFFFFFF41, "data:0030, char"},  // byte 65, but negative as a whole
    };
    for (const Case& c : cases) {
        EXPECT_EQ(FormatRowOf(MakeRecord(WT_CHAR, WS_DATA, 0x30, 1, c.value), WF_DECIMAL).attribute, c.attribute)
            << "value " << c.value;
    }
    // Only a char gets one.
    EXPECT_EQ(FormatRowOf(MakeRecord(3, WS_DATA, 0x30, 1, 65), WF_DECIMAL).attribute, "data:0030, unsigned char");
}

TEST(WatchFormat, OtherFormatsAndMissingRowsGiveEmptyTexts)
{
    const WatchRecord record = MakeRecord(WT_INT, WS_DATA, 0x30, 2, 5);
    EXPECT_EQ(ValueIn(record, 3), "");
    EXPECT_EQ(ValueIn(record, 0xFFFFFFFF), "");
    EXPECT_EQ(FormatValue(nullptr, TRUE), "");
    CGridRow bare;
    EXPECT_EQ(FormatValue(&bare, FALSE), "");
    EXPECT_EQ(bare.record, nullptr) << "reading a value makes no record";
    EXPECT_EQ(FormatBinary(nullptr), "");
    FormatRow(nullptr, TRUE);
    ApplyDefaultFormat(nullptr);
}

TEST(WatchFormat, NamesOfSpacesAndTypes)
{
    EXPECT_STREQ(WatchSpaceName(WS_CODE), "code");
    EXPECT_STREQ(WatchSpaceName(WS_PDATA), "pdata");
    EXPECT_STREQ(WatchSpaceName(WS_NUMBER), "number");
    EXPECT_STREQ(WatchSpaceName(kWatchSpaceCount), "");
    EXPECT_STREQ(WatchSpaceName(WS_NONE), "");
    EXPECT_STREQ(WatchTypeName(0), "null");
    EXPECT_STREQ(WatchTypeName(12), "float");
    EXPECT_STREQ(WatchTypeName(13), "");
    EXPECT_STREQ(WatchTypeName(31), "");
    EXPECT_STREQ(WatchTypeName(32), "struct");
    EXPECT_STREQ(WatchTypeName(41), "address");
    EXPECT_STREQ(WatchTypeName(kWatchTypeCount), "");
    EXPECT_STREQ(WatchTypeName(0xFFFFFFFF), "");
}

}  // namespace
