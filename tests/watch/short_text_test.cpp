// The watch's stack texts: numbers as the format strings they replace wrote
// them, and what does not fit dropped.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>

#include "watch/short_text.h"

namespace {

std::string Printed(const char* format, auto... args)
{
    char buffer[128];
    std::snprintf(buffer, sizeof buffer, format, args...);
    return buffer;
}

TEST(ShortText, NumbersReadAsTheirFormatStrings)
{
    const std::uint32_t values[] = {0, 1, 9, 10, 0xA, 0xF, 0x10, 0xAB, 0x1234, 0xFFFF, 0x10000, 0x12345, 0xABCDEF01,
                                    0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    for (std::uint32_t value : values) {
        for (int digits : {1, 2, 4, 8, 10}) {
            EXPECT_EQ(ShortText().AddHex(value, static_cast<std::size_t>(digits)).View(), Printed("%0*X", digits, value))
                << value << " in " << digits;
        }
        const auto asSigned = static_cast<std::int32_t>(value);
        EXPECT_EQ(ShortText().AddDecimal(asSigned).View(), Printed("%d", asSigned)) << value;
        EXPECT_EQ(ShortText().AddDecimal(value, 2).View(), Printed("%02u", value)) << value;
    }
    EXPECT_EQ(ShortText().AddDecimal(-5, 3).View(), "-005");
    EXPECT_EQ(ShortText().AddDecimal(std::numeric_limits<std::int64_t>::min()).View(), "-9223372036854775808");
    EXPECT_EQ(ShortText().Add('[').AddDecimal(7, 2).Add(']').Add("").View(), "[07]");
    EXPECT_EQ(ShortText().Add('[').AddDecimal(65535, 2).Add(']').View(), "[65535]");
}

TEST(ShortText, WhatDoesNotFitIsDropped)
{
    const std::string full(ShortText::kCapacity - 2, 'a');
    ShortText text;
    text.Add(full).AddHex(0xABCD, 4);
    EXPECT_EQ(text.View(), full + "AB");
    text.Add("more").Add('x').AddDecimal(-1).AddHex(1, 1000);
    EXPECT_EQ(text.View(), full + "AB");

    ShortText padded;
    padded.AddHex(0x5, 1000);  // padding stops at the end, the digit with it
    EXPECT_EQ(padded.View(), std::string(ShortText::kCapacity, '0'));
}

}  // namespace
