// Text search over a file's lines: one hit per line, GBK-safe, ASCII folding.
#include <gtest/gtest.h>

#include "demo/project/source_search.h"

namespace {

std::vector<int> LinesOf(const std::vector<SearchHit>& hits)
{
    std::vector<int> lines;
    for (const SearchHit& h : hits) lines.push_back(h.line);
    return lines;
}

TEST(SearchText, EachLineWithTheTextOnceWithItsNumberAndText)
{
    const std::string text = "led = 1; led = 0;\r\nint x;\n\tled++;\nlast led";
    const std::vector<SearchHit> hits = SearchText("main.c", text, "led", true);
    ASSERT_EQ(LinesOf(hits), (std::vector<int>{1, 3, 4}));
    EXPECT_EQ(hits[0].file, "main.c");
    EXPECT_EQ(hits[0].text, "led = 1; led = 0;");  // without its "\r"
    EXPECT_EQ(hits[1].text, "\tled++;");
    EXPECT_EQ(hits[2].text, "last led");  // the last line needs no line end
}

TEST(SearchText, FoldsAsciiLettersUnlessCaseMatters)
{
    const std::string text = "P1_0 = LED_ON;\nled_on();\nLeD\n";
    EXPECT_EQ(LinesOf(SearchText("a.c", text, "led", false)), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(LinesOf(SearchText("a.c", text, "led", true)), (std::vector<int>{2}));
    EXPECT_EQ(LinesOf(SearchText("a.c", text, "p1_0", false)), (std::vector<int>{1}));
}

TEST(SearchText, NeverMatchesFromInsideADoubleByteCharacter)
{
    // 0x81 0x61 is one character whose second byte is 'a'; 0x81 0x41 one ending in 'A'.
    const std::string text = "\x81\x61" "b\n\x81\x41\n" "\x81\x61" "ab\n";
    EXPECT_EQ(LinesOf(SearchText("g.c", text, "ab", true)), (std::vector<int>{3}));
    EXPECT_EQ(LinesOf(SearchText("g.c", text, "a", false)), (std::vector<int>{3}));
    // Folding leaves second bytes alone: these two characters differ.
    EXPECT_EQ(LinesOf(SearchText("g.c", text, "\x81\x61", false)), (std::vector<int>{1, 3}));
    EXPECT_EQ(LinesOf(SearchText("g.c", text, "\x81\x41", false)), (std::vector<int>{2}));
    // A first match inside a character does not hide a later good one on the line.
    EXPECT_EQ(LinesOf(SearchText("g.c", "\x81\x61 a", "a", true)), (std::vector<int>{1}));
}

TEST(SearchText, EmptyNeedleOrTextFindsNothing)
{
    EXPECT_TRUE(SearchText("a.c", "abc\n", "", false).empty());
    EXPECT_TRUE(SearchText("a.c", "", "a", false).empty());
    EXPECT_TRUE(SearchText("a.c", "ab", "abc", false).empty());
    // A lead byte at the very end is a character of its own.
    EXPECT_EQ(LinesOf(SearchText("a.c", "x\x81", "\x81", true)), (std::vector<int>{1}));
}

}  // namespace
