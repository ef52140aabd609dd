// Comparisons and logical operators: the int 0 or 1, a value that lives
// nowhere, by C's precedence and its usual conversions for a 16-bit int.
#include <gtest/gtest.h>

#include <vector>

#include "tests/demo/expected_record.h"
#include "tests/demo/service_driver.h"

namespace {

struct Expected {
    const char* text;
    std::uint32_t value;
};

// Every case is an int truth value: type int, two bytes, no place.
void ExpectTruths(std::initializer_list<Expected> cases)
{
    std::vector<ExpectedRecord> records;
    for (const Expected& expected : cases) records.push_back({expected.text, WT_INT, WS_NUMBER, 0, 2, expected.value});
    ServiceDriver driver;
    ExpectRecords(driver, records);
}

TEST(EvaluateOperators, ComparisonsOfConstantsGiveZeroOrOne)
{
    ExpectTruths({
        {"1 < 2", 1}, {"2 < 1", 0}, {"2 < 2", 0},   {"2 <= 2", 1}, {"3 <= 2", 0}, {"3 > 2", 1},
        {"2 > 2", 0}, {"2 >= 2", 1}, {"1 >= 2", 0}, {"7 == 7", 1}, {"7 == 8", 0}, {"7 != 8", 1},
        {"7 != 7", 0}, {"1.5 > 1", 1}, {"0.5 == 0.5f", 1}, {"'A' == 65", 1}, {"-2.5 < -2", 1},
    });
}

TEST(EvaluateOperators, ComparisonsConvertBothSidesToTheirCommonType)
{
    ExpectTruths({
        {"-1 < 1", 1},
        {"-1 < 1u", 0},    // int meets unsigned int: -1 becomes 65535
        {"-1 < 1L", 1},    // long holds every int
        {"-1L < 1u", 1},   // and every unsigned int
        {"-1L < 1UL", 0},  // unsigned long holds no negative
        {"65535u == -1", 1},
        {"65536L == 0", 0},
        {"-1 < 0.5", 1},
        {"'\\xFF' == 255", 0},  // char is signed: '\xFF' is -1
        {"'\\xFF' == -1", 1},
    });
}

TEST(EvaluateOperators, PrecedenceSitsBetweenShiftsAndBitwiseOperators)
{
    ExpectTruths({
        {"1 + 1 == 2", 1},
        {"1 << 2 < 5", 1},       // (1 << 2) < 5, not 1 << (2 < 5)
        {"4 | 2 == 2", 5},       // 4 | (2 == 2)
        {"2 & 3 != 0", 0},       // 2 & (3 != 0)
        {"1 < 2 == 1", 1},       // relational before equality
        {"3 > 2 > 1", 0},        // left to right: (3 > 2) > 1
        {"1 || 0 && 0", 1},      // && before ||
        {"0 && 0 || 1", 1},
        {"!0 + 1", 2},           // ! binds as a prefix
        {"1 ^ 0 && 0", 0},       // ^ before &&
        {"!(2 < 1) == 1", 1},
    });
}

TEST(EvaluateOperators, LogicalOperatorsTestTruthOfEveryScalar)
{
    ExpectTruths({
        {"1 && 2", 1}, {"1 && 0", 0}, {"0 || 0", 0},  {"0 || 3", 1},  {"!0", 1},       {"!5", 0},
        {"!!7", 1},    {"!0.0", 1},   {"!-0.0", 1},   {"!0.5", 0},    {"0.25 && 1", 1}, {"!0x10000L", 0},
        {"!'\\0'", 1}, {"!cursor", 0}, {"!fault", 1}, {"label && 1", 1}, {"!phase", 1}, {"red && !green", 1},
    });
}

TEST(EvaluateOperators, TheRightOperandRunsOnlyWhenItDecides)
{
    ExpectTruths({{"fault && fault->state", 0}, {"!fault || fault->state", 1}, {"0 && 1 / 0", 0}, {"1 || 1 / 0", 1}});
    ServiceDriver driver;
    EXPECT_EQ(driver.ErrorOf("1 && 1 / 0"), WERR_DIVISION_BY_ZERO);
    EXPECT_EQ(driver.ErrorOf("0 || fault->state"), WERR_INVALID_POINTER);
}

TEST(EvaluateOperators, ObjectsCompareByTheirValues)
{
    ExpectTruths({
        {"phase == 0", 1},      {"counter > 9", 1},         {"counter >= 11", 0},   {"mode == 'A'", 1},
        {"cfg.offset < 0", 1},  {"total == 123456", 1},     {"temperature > 21.4", 1}, {"temperature == 21.5", 1},
        {"red == 1", 1},        {"green != 0", 0},          {"timings[3] == 15", 1},  {"lamp_mask[1] == 4", 1},
        {"phase == 0 && red", 1}, {"lights[2].state > lights[1].state", 1},
    });
}

TEST(EvaluateOperators, PointersCompareByWhereTheyPoint)
{
    ExpectTruths({
        {"cursor == log", 1},
        {"cursor == &log[0]", 1},
        {"current == &lights[0]", 1},
        {"current == lights + 1", 0},
        {"current < lights + 1", 1},
        {"lights + 2 > current", 1},
        {"label == name", 1},        // a generic pointer meets a code pointer to the same byte
        {"label == &name[1]", 0},
        {"label < name + 1", 1},
        {"(char xdata *)0x810 == (char code *)0x810", 0},  // the same address in two spaces
        {"fault == 0", 1},
        {"cursor != 0", 1},
        {"cursor == 0x160", 1},      // a number meets the bits the pointer holds
        {"label == 0x800810", 1},
    });
}

TEST(EvaluateOperators, ComparisonsFollowTheTargetAsItRuns)
{
    ServiceDriver driver;
    EXPECT_EQ(driver.Evaluate("phase == 1 && green").value, 0u);
    for (int step = 0; step < 10; ++step) driver.service.Step();  // the red phase lasts cfg.red_time steps
    EXPECT_EQ(driver.Evaluate("phase == 1 && green").value, 1u);
    EXPECT_EQ(driver.Evaluate("current == &lights[1]").value, 1u);
    EXPECT_EQ(driver.Evaluate("cursor == log + 1").value, 1u);
}

}  // namespace
