// Reading s51's replies: a garbled reply is a failed read, never trusted.
#include <gtest/gtest.h>

#include "demo/debugger/ucsim/console_text.h"
#include "demo/debugger/ucsim/hex_dump.h"
#include "demo/debugger/ucsim/uart_lines.h"

namespace {

TEST(ConsoleText, DropsEscapesCarriageReturnsAndTrailingBlanks)
{
    EXPECT_EQ(CleanConsoleLine("0x0c23 F  90 01 00 MOV    DPTR,#0x0100\x1b[0K\r"), "0x0c23 F  90 01 00 MOV    DPTR,#0x0100");
    EXPECT_EQ(CleanConsoleLine("\x1b[40m\x1b[97m42   "), "42");
    EXPECT_EQ(CleanConsoleLine("cut \x1b["), "cut");
}

TEST(ConsoleText, NumbersAreWholeTokens)
{
    EXPECT_EQ(ParseConsoleNumber("3107"), 3107u);
    EXPECT_EQ(ParseConsoleNumber("0x0C23"), 0xC23u);
    for (const char* bad : {"", "0x", "12a", "-1", "0x1g", "99999999999"}) EXPECT_FALSE(ParseConsoleNumber(bad)) << bad;
}

TEST(HexDump, CommandAsksForSixteenBytesALine)
{
    EXPECT_EQ(DumpCommand("xram", 0x100, 0x100), "dump /h xram 0x100 0x1ff 16");
}

TEST(HexDump, ReadsTheBytesAndNotTheCharacterColumn)
{
    // The character column of a line may itself look like a hex byte.
    const auto bytes = ParseHexDump("0x0010 61 62 63 64 65 66 67 68 69 6a 6b 6c 6d 6e 6f 70 abcdefghijklmnop\n"
                                    "0x0020 00 11 22 33 44 55 66 77 88 99 aa bb cc dd ee ff ................\n",
                                    0x10, 0x20);
    ASSERT_TRUE(bytes);
    EXPECT_EQ((*bytes)[0], 0x61);
    EXPECT_EQ((*bytes)[16], 0x00);
    EXPECT_EQ((*bytes)[31], 0xFF);
}

TEST(HexDump, GarbledRepliesReadAsNothing)
{
    const std::string good = "0x0010 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f ................\n";
    EXPECT_TRUE(ParseHexDump(good, 0x10, 16));
    const char* bad[] = {
        "",                                                                       // nothing
        "0x0020 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f ................\n",  // wrong address
        "0x0010 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e\n",                 // a byte short
        "0x0010 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0g ................\n",  // not hex
        "0x0010 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f0 ...............\n",  // too wide
        "Error: no such memory\n",
    };
    for (const char* reply : bad) EXPECT_FALSE(ParseHexDump(reply, 0x10, 16)) << reply;
    // More lines than asked for: the console's framing slipped.
    EXPECT_FALSE(ParseHexDump(good + "0x0020 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f x\n", 0x10, 16));
}

TEST(UartLines, HandsOnCompleteLinesWithoutTheirEnds)
{
    std::vector<std::string> lines;
    UartLines uart([&](const std::string& line) { lines.push_back(line); });
    uart.Feed("TRAFFIC R");
    EXPECT_TRUE(lines.empty());
    uart.Feed("ED\r\nGREEN\r\n\r\nYEL");
    EXPECT_EQ(lines, (std::vector<std::string>{"TRAFFIC RED", "GREEN", ""}));
}

TEST(UartLines, AnEndlessLineComesInPieces)
{
    std::vector<std::string> lines;
    UartLines uart([&](const std::string& line) { lines.push_back(line); });
    uart.Feed(std::string(UartLines::kMaxLine * 2 + 5, 'x'));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].size(), UartLines::kMaxLine);
}

}  // namespace
