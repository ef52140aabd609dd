// Casts to the basic types and to pointers into the 8051's spaces: values
// cut and sign-extended as C converts them, and pointers that reach memory.
#include <gtest/gtest.h>

#include <bit>

#include "tests/demo/expected_record.h"
#include "tests/demo/service_driver.h"

namespace {

std::uint32_t FloatBits(float value)
{
    return std::bit_cast<std::uint32_t>(value);
}

TEST(EvaluateCasts, IntegersAreCutToTheTypeAndReadBackWithItsSign)
{
    ServiceDriver driver;
    ExpectRecords(driver, {
        {"(char)300", WT_CHAR, WS_NUMBER, 0, 1, 44},
        {"(char)200", WT_CHAR, WS_NUMBER, 0, 1, 0xC8},
        {"(char)200 + 0", WT_INT, WS_NUMBER, 0, 2, 0xFFC8},
        {"(signed char)0x80 + 0", WT_INT, WS_NUMBER, 0, 2, 0xFF80},
        {"(unsigned char)-1", WT_UCHAR, WS_NUMBER, 0, 1, 0xFF},
        {"(unsigned char)-1 + 0", WT_INT, WS_NUMBER, 0, 2, 0xFF},
        {"(int)70000", WT_INT, WS_NUMBER, 0, 2, 70000 & 0xFFFF},
        {"(short)-2", WT_INT, WS_NUMBER, 0, 2, 0xFFFE},
        {"(signed)5u", WT_INT, WS_NUMBER, 0, 2, 5},
        {"(unsigned)-1", WT_UINT, WS_NUMBER, 0, 2, 0xFFFF},
        {"(unsigned int)65536L", WT_UINT, WS_NUMBER, 0, 2, 0},
        {"(unsigned short int)-1", WT_UINT, WS_NUMBER, 0, 2, 0xFFFF},
        {"(long)-1", WT_LONG, WS_NUMBER, 0, 4, 0xFFFFFFFF},
        {"(long)(unsigned)-1", WT_LONG, WS_NUMBER, 0, 4, 0xFFFF},
        {"(long int)0x8000", WT_LONG, WS_NUMBER, 0, 4, 0x8000},
        {"(unsigned long)-1", WT_ULONG, WS_NUMBER, 0, 4, 0xFFFFFFFF},
        {"(const unsigned char)0x1FF", WT_UCHAR, WS_NUMBER, 0, 1, 0xFF},
        {"(int)'A'", WT_INT, WS_NUMBER, 0, 2, 65},
        {"(bit)2", WT_BIT, WS_NUMBER, 0, 1, 1},
        {"(__bit)256", WT_BIT, WS_NUMBER, 0, 1, 1},
        {"(_Bool)0.0", WT_BIT, WS_NUMBER, 0, 1, 0},
    });
}

TEST(EvaluateCasts, FloatsConvertTheirValueNotTheirBits)
{
    ServiceDriver driver;
    ExpectRecords(driver, {
        {"(int)3.99", WT_INT, WS_NUMBER, 0, 2, 3},
        {"(int)-3.99", WT_INT, WS_NUMBER, 0, 2, 0xFFFD},
        {"(unsigned char)257.9", WT_UCHAR, WS_NUMBER, 0, 1, 1},
        {"(long)temperature", WT_LONG, WS_NUMBER, 0, 4, 21},
        {"(float)counter", WT_FLOAT, WS_NUMBER, 0, 4, FloatBits(10.0f)},
        {"(double)-1", WT_FLOAT, WS_NUMBER, 0, 4, FloatBits(-1.0f)},
        {"(float)7 / 2", WT_FLOAT, WS_NUMBER, 0, 4, FloatBits(3.5f)},  // the cast binds before /
        {"(float)(7 / 2)", WT_FLOAT, WS_NUMBER, 0, 4, FloatBits(3.0f)},
        {"(float)(unsigned)-1", WT_FLOAT, WS_NUMBER, 0, 4, FloatBits(65535.0f)},
    });
}

TEST(EvaluateCasts, ACastBindsAsAPrefixDoes)
{
    ServiceDriver driver;
    ExpectRecords(driver, {
        {"(char)0x100 + 1", WT_INT, WS_NUMBER, 0, 2, 1},
        {"-(unsigned char)1", WT_INT, WS_NUMBER, 0, 2, 0xFFFF},
        {"(unsigned char)(char)-1", WT_UCHAR, WS_NUMBER, 0, 1, 0xFF},
        {"(char)cfg.offset", WT_CHAR, WS_NUMBER, 0, 1, 0xFD},
        {"(int)timings[2]", WT_INT, WS_NUMBER, 0, 2, 10},
        {"(unsigned char)lights[1].cfg.red_time", WT_UCHAR, WS_NUMBER, 0, 1, 11},
    });
}

TEST(EvaluateCasts, NumbersBecomePointersIntoTheNamedSpace)
{
    ServiceDriver driver;
    ExpectRecords(driver, {
        {"(unsigned char xdata *)0x100", WT_POINTER, WS_NUMBER, 0, 2, 0x100},
        {"(int code *)0x800", WT_POINTER, WS_NUMBER, 0, 2, 0x800},
        {"(unsigned char data *)0x1234", WT_POINTER, WS_NUMBER, 0, 1, 0x34},  // one byte of address
        {"(char __idata *)0x80", WT_POINTER, WS_NUMBER, 0, 1, 0x80},
        {"(char pdata *)0x10", WT_POINTER, WS_NUMBER, 0, 1, 0x10},
        {"(char *)0x810", WT_GENERAL_POINTER, WS_NUMBER, 0, 3, 0x000810},  // tag 0: xdata
        {"(char *)0x800810L", WT_GENERAL_POINTER, WS_NUMBER, 0, 3, 0x800810},
        {"(xdata char *)0x20", WT_POINTER, WS_NUMBER, 0, 2, 0x20},
        {"(const char code * const)0x810", WT_POINTER, WS_NUMBER, 0, 2, 0x810},
        {"(char code **)0x33", WT_GENERAL_POINTER, WS_NUMBER, 0, 3, 0x33},
        {"(unsigned char xdata *)0x100 + 2", WT_POINTER, WS_NUMBER, 0, 2, 0x102},
    });
}

TEST(EvaluateCasts, PointersCastToPointersKeepWhereTheyPoint)
{
    ServiceDriver driver;
    ExpectRecords(driver, {
        {"(char *)name", WT_GENERAL_POINTER, WS_NUMBER, 0, 3, 0x800810},
        {"(char *)&mode", WT_GENERAL_POINTER, WS_NUMBER, 0, 3, 0x400080},
        {"(unsigned char *)cursor", WT_GENERAL_POINTER, WS_NUMBER, 0, 3, 0x000160},
        {"(char code *)label", WT_POINTER, WS_NUMBER, 0, 2, 0x810},
        {"(int xdata *)cursor", WT_POINTER, WS_NUMBER, 0, 2, 0x160},
        {"(unsigned)cursor", WT_UINT, WS_NUMBER, 0, 2, 0x160},
        {"(unsigned char)cursor", WT_UCHAR, WS_NUMBER, 0, 1, 0x60},
        {"(long)label", WT_LONG, WS_NUMBER, 0, 4, 0x800810},
        {"(bit)fault", WT_BIT, WS_NUMBER, 0, 1, 0},
    });
}

TEST(EvaluateCasts, CastPointersReadTheSpaceTheyName)
{
    ServiceDriver driver;
    ExpectRecords(driver, {
        {"*(unsigned char xdata *)0x100", WT_UCHAR, WS_XDATA, 0x100, 1, 10},
        {"*(unsigned int __xdata *)0x100", WT_UINT, WS_XDATA, 0x100, 2, 10},
        {"*(int xdata *)0x122", WT_INT, WS_XDATA, 0x122, 2, 5},
        {"((int xdata *)0x120)[2]", WT_INT, WS_XDATA, 0x124, 2, 10},
        {"*(unsigned long xdata *)0x106", WT_ULONG, WS_XDATA, 0x106, 4, 123456},
        {"*(float xdata *)0x10A", WT_FLOAT, WS_XDATA, 0x10A, 4, FloatBits(21.5f)},
        {"*(int code *)0x800", WT_INT, WS_CODE, 0x800, 2, 0x0401},  // lamp_mask's first two bytes
        {"*(char __code *)0x810", WT_CHAR, WS_CODE, 0x810, 1, 'T'},
        {"*(unsigned char data *)0x39", WT_UCHAR, WS_DATA, 0x39, 1, 2},  // sensor's high byte
        {"*(char __idata *)0x80", WT_CHAR, WS_IDATA, 0x80, 1, 'A'},
        {"*(unsigned char __pdata *)0x10", WT_UCHAR, WS_PDATA, 0x10, 1, 0},
        {"*(char *)0x800810", WT_CHAR, WS_CODE, 0x810, 1, 'T'},
        {"*(unsigned int *)cursor", WT_UINT, WS_XDATA, 0x160, 2, 0},
        {"*(char code *)label", WT_CHAR, WS_CODE, 0x810, 1, 'T'},
        {"((char code *)label)[6]", WT_CHAR, WS_CODE, 0x816, 1, 'C'},
    });
}

TEST(EvaluateCasts, ACastPointerSeesWhatTheProgramWrites)
{
    ServiceDriver driver;
    driver.service.Step();
    EXPECT_EQ(driver.Evaluate("*(unsigned int xdata *)0x100").value, 9u);
    EXPECT_EQ(driver.Evaluate("*(int data *)0x31 == ticks").value, 1u);
    EXPECT_EQ(driver.Evaluate("*(long xdata *)0x102").value, 1u);
}

}  // namespace
