// The constants a user may type into the watch's value column.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/text/gbk.h"
#include "siblings/orv_project_misc.h"

namespace {

constexpr unsigned char kBinary = 0;
constexpr unsigned char kDecimal = 1;
constexpr unsigned char kHexadecimal = 2;
constexpr unsigned long kUntouched = 0x5A5A5A5A5A5Aul;

struct Accepted {
    std::string text;
    unsigned char format;
    unsigned long value;
};

struct Rejected {
    std::string text;
    std::vector<unsigned char> formats;
};

const std::vector<unsigned char> kEveryFormat = {kBinary, kDecimal, kHexadecimal, 3, 255};

TEST(IsConstantData, AcceptsEachFormatsDigitsAndTheNotationsEveryFormatKnows)
{
    const std::vector<Accepted> cases = {
        // Binary digits, with or without the trailing b.
        {"0", kBinary, 0},
        {"101", kBinary, 5},
        {"101b", kBinary, 5},
        {"101B", kBinary, 5},
        {"11111111111111111111111111111111", kBinary, 0xFFFFFFFF},
        {"-10b", kBinary, 0xFFFFFFFE},
        {"-10000000000000000000000000000000", kBinary, 0x80000000},
        {"000000000000000000000000000000000001", kBinary, 1},  // leading zeros are not bits
        // Decimal digits, negatives as two's complement.
        {"65", kDecimal, 65},
        {"+65", kDecimal, 65},
        {"4294967295", kDecimal, 0xFFFFFFFF},
        {"-1", kDecimal, 0xFFFFFFFF},
        {"-0", kDecimal, 0},
        {"-2147483648", kDecimal, 0x80000000},
        {"  42\t", kDecimal, 42},
        // Hexadecimal digits; b is a digit here.
        {"1F", kHexadecimal, 0x1F},
        {"ff", kHexadecimal, 0xFF},
        {"101b", kHexadecimal, 0x101B},
        {"FFFFFFFF", kHexadecimal, 0xFFFFFFFF},
        {"00000000FFFFFFFF", kHexadecimal, 0xFFFFFFFF},
        {"-80000000", kHexadecimal, 0x80000000},
        // Hexadecimal notation whatever the format.
        {"1Fh", kBinary, 0x1F},
        {"1FH", kDecimal, 0x1F},
        {"0x1F", kDecimal, 0x1F},
        {"0X1f", kHexadecimal, 0x1F},
        {"FFh", kDecimal, 0xFF},
        {"0h", kBinary, 0},
        {"-1Fh", kDecimal, 0xFFFFFFE1},
        {"0xFFFFFFFF", kBinary, 0xFFFFFFFF},
        {"1Fh", 3, 0x1F},
        // Singles whatever the format: the bits of the IEEE 754 number.
        {"1.5", kDecimal, 0x3FC00000},
        {"1.5", kBinary, 0x3FC00000},
        {"1.5", kHexadecimal, 0x3FC00000},
        {"1.5", 255, 0x3FC00000},
        {"-2.", kDecimal, 0xC0000000},
        {"3.", kDecimal, 0x40400000},
        {".5", kDecimal, 0x3F000000},
        {"-0.", kDecimal, 0x80000000},
        {"1.5e3", kDecimal, 0x44BB8000},
        {"15.E+2", kDecimal, 0x44BB8000},
        {"3.4028235e38", kDecimal, 0x7F7FFFFF},  // the largest single
        {"1.0e-45", kDecimal, 0x00000001},       // the smallest subnormal
        {" -2. ", kHexadecimal, 0xC0000000},
    };
    for (const Accepted& c : cases) {
        CString text(c.text.c_str());
        unsigned long value = kUntouched;
        EXPECT_NE(IsConstantData(text, value, c.format), 0) << '"' << c.text << "\" format " << int(c.format);
        EXPECT_EQ(value, c.value) << '"' << c.text << "\" format " << int(c.format);
        EXPECT_EQ(text.str(), c.text) << "the text is only read";
    }
}

TEST(IsConstantData, RejectsAnythingElseAndLeavesTheValueAlone)
{
    const std::vector<Rejected> cases = {
        // Nothing, or shapes that are no number in any format.
        {"", kEveryFormat},
        {" \t ", kEveryFormat},
        {"-", kEveryFormat},
        {"+", kEveryFormat},
        {"--1", kEveryFormat},
        {"+-1", kEveryFormat},
        {"- 1", kEveryFormat},
        {"1 0", kEveryFormat},
        {"1,5", kEveryFormat},
        {GBK(u8"中"), kEveryFormat},
        {"1" + GBK(u8"中"), kEveryFormat},
        {std::string("1\0", 2), kEveryFormat},
        // Hexadecimal notation that is not quite.
        {"h", kEveryFormat},
        {"0x", kEveryFormat},
        {"x1F", kEveryFormat},
        {"1x2", kEveryFormat},
        {"0x1Fh", kEveryFormat},
        {"1F h", kEveryFormat},
        {"1Gh", kEveryFormat},
        {"1.5h", kEveryFormat},
        {"100000000h", kEveryFormat},
        {"0x100000000", kEveryFormat},
        {"-80000001h", kEveryFormat},
        // Singles that are not quite, or do not fit.
        {".", kEveryFormat},
        {"-.", kEveryFormat},
        {"1.2.3", kEveryFormat},
        {"1.5e", kEveryFormat},
        {"1.5e+", kEveryFormat},
        {"1.5 e3", kEveryFormat},
        {"1e5.", kEveryFormat},
        {"nan.", kEveryFormat},
        {"inf.", kEveryFormat},
        {"3.4028236e38", kEveryFormat},  // rounds to infinity
        {"-1.0e39", kEveryFormat},
        {"1.0e-50", kEveryFormat},  // rounds to zero
        {"1.0e99999999999999999999", kEveryFormat},
        // Digits of another format, or too many bits.
        {"2", {kBinary}},
        {"b", {kBinary}},
        {"1bb", {kBinary}},
        {"100000000000000000000000000000000", {kBinary}},
        {"-10000000000000000000000000000001", {kBinary}},
        {"101b", {kDecimal}},
        {"1A", {kDecimal}},
        {"1e5", {kDecimal}},
        {"4294967296", {kDecimal}},
        {"-2147483649", {kDecimal}},
        {"99999999999999999999999999", {kDecimal}},
        {"G", {kHexadecimal}},
        {"100000000", {kHexadecimal}},
        {"-80000001", {kHexadecimal}},
        // Plain digits mean nothing without a format.
        {"1", {3, 255}},
    };
    for (const Rejected& c : cases) {
        for (const unsigned char format : c.formats) {
            CString text(std::string_view(c.text));
            unsigned long value = kUntouched;
            EXPECT_EQ(IsConstantData(text, value, format), 0) << '"' << c.text << "\" format " << int(format);
            EXPECT_EQ(value, kUntouched) << '"' << c.text << "\" format " << int(format);
        }
    }
}

}  // namespace
