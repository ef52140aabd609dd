// Constants and arithmetic: values that live nowhere (space "number"), with
// the types and wrap-around of a compiler whose int is 16 bits.
#include <gtest/gtest.h>

#include <bit>

#include "demo/debugger/type_codes.h"
#include "tests/demo/service_driver.h"

namespace {

struct Expected {
    const char* text;
    std::uint32_t type;
    std::uint32_t value;
};

void ExpectValues(std::initializer_list<Expected> cases)
{
    ServiceDriver driver;
    for (const Expected& expected : cases) {
        SCOPED_TRACE(expected.text);
        const WatchRecord record = driver.Evaluate(expected.text);
        ASSERT_EQ(record.status, 1) << "error " << record.errorId;
        EXPECT_EQ(record.space, WS_NUMBER);
        EXPECT_EQ(record.type, expected.type);
        EXPECT_EQ(record.value, expected.value);
        EXPECT_EQ(record.count, 0);
    }
}

std::uint32_t FloatBits(float value)
{
    return std::bit_cast<std::uint32_t>(value);
}

TEST(EvaluateValues, ConstantsTakeTheSmallestTypeTheirSpellingAllows)
{
    ExpectValues({
        {"42", WT_INT, 42},
        {"0x7FFF", WT_INT, 0x7FFF},
        {"0x8000", WT_UINT, 0x8000},
        {"32768", WT_LONG, 32768},
        {"0xFFFFFFFF", WT_ULONG, 0xFFFFFFFF},
        {"2147483648", WT_ULONG, 0x80000000},
        {"017", WT_INT, 15},
        {"0", WT_INT, 0},
        {"10u", WT_UINT, 10},
        {"10L", WT_LONG, 10},
        {"10UL", WT_ULONG, 10},
        {"70000u", WT_ULONG, 70000},
        {"'A'", WT_CHAR, 0x41},
        {"'\\n'", WT_CHAR, 10},
        {"'\\x41'", WT_CHAR, 0x41},
        {"'\\101'", WT_CHAR, 0x41},
        {"'\\''", WT_CHAR, '\''},
        {"'\"'", WT_CHAR, '"'},
        {"1.5", WT_FLOAT, FloatBits(1.5f)},
        {"2.5e1f", WT_FLOAT, FloatBits(25.0f)},
    });
}

TEST(EvaluateValues, RecordsOfConstantsAreSizedByTheirType)
{
    ServiceDriver driver;
    EXPECT_EQ(driver.Evaluate("'A'").size, 1u);
    EXPECT_EQ(driver.Evaluate("42").size, 2u);
    EXPECT_EQ(driver.Evaluate("42L").size, 4u);
    EXPECT_EQ(driver.Evaluate("1.5").size, 4u);
}

TEST(EvaluateValues, ArithmeticFollowsPrecedenceAndWrapsAtItsType)
{
    ExpectValues({
        {"1 + 2 * 3", WT_INT, 7},
        {"(1 + 2) * 3", WT_INT, 9},
        {"10 - 2 - 3", WT_INT, 5},
        {"7 / 2", WT_INT, 3},
        {"-7 / 2", WT_INT, 0xFFFD},
        {"-7 % 3", WT_INT, 0xFFFF},
        {"-5", WT_INT, 0xFFFB},
        {"-1L", WT_LONG, 0xFFFFFFFF},
        {"~0", WT_INT, 0xFFFF},
        {"+'A'", WT_INT, 0x41},
        {"0x0F & 0x3C", WT_INT, 0x0C},
        {"0x0F | 0x30", WT_INT, 0x3F},
        {"0x0F ^ 0xFF", WT_INT, 0xF0},
        {"1 | 2 ^ 3 & 4", WT_INT, 3},
        {"1 << 4 + 1", WT_INT, 32},
        {"1 << 40", WT_INT, 0},
        {"0x8000 >> 15", WT_UINT, 1},
        {"-16 >> 2", WT_INT, 0xFFFC},
        {"32767 + 1", WT_INT, 0x8000},
        {"65535u + 1", WT_UINT, 0},
        {"40000 * 2", WT_LONG, 80000},
        {"-1 / 2u", WT_UINT, 0x7FFF},
        {"'A' + 1", WT_INT, 0x42},
        {"1.5 * 2", WT_FLOAT, FloatBits(3.0f)},
        {"-1.5", WT_FLOAT, FloatBits(-1.5f)},
        {"7 / 2.0", WT_FLOAT, FloatBits(3.5f)},
    });
}

TEST(EvaluateValues, ObjectsInArithmeticGiveTheirValuesPromoted)
{
    ExpectValues({
        {"ticks + 1", WT_INT, 1},
        {"phase - 1", WT_INT, 0xFFFF},
        {"counter * 2", WT_UINT, 20},
        {"total + 1", WT_ULONG, 123457},
        {"temperature + 0.5", WT_FLOAT, FloatBits(22.0f)},
        {"cfg.offset * 2", WT_INT, 0xFFFA},
        {"red + green", WT_INT, 1},
        {"mode + 0", WT_INT, 'A'},
    });
}

}  // namespace
