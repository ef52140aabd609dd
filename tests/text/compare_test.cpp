// Folded comparisons of GBK text: only ASCII letters fold, and a double-byte
// character is compared whole, byte for byte.
#include <gtest/gtest.h>

#include <string>

#include "platform/text/compare.h"

TEST(FoldedCompare, OrdersAsStricmpOnCStringsAndViews)
{
    EXPECT_EQ(_stricmp("Apple", "aPPLE"), 0);
    EXPECT_LT(_stricmp("_under", "apple"), 0);  // '_' comes before the folded letters
    EXPECT_LT(_stricmp("app", "apple"), 0);
    EXPECT_GT(_stricmp("\xB0\xA1", "zebra"), 0);  // double-byte text after every ASCII one
    EXPECT_EQ(_strnicmp("ABCx", "abcy", 3), 0);
    EXPECT_NE(_strnicmp("ABCx", "abcy", 4), 0);
    EXPECT_LT(_stricmp(nullptr, "a"), 0);
    EXPECT_EQ(_stricmp(nullptr, nullptr), 0);

    // Views end where they end, not at a zero byte further on.
    const std::string longer = "HELLO world";
    EXPECT_EQ(CompareFolded(std::string_view(longer).substr(0, 5), "hello"), 0);
    EXPECT_GT(CompareFolded(longer, "hello"), 0);
    EXPECT_LT(CompareFolded("b", "C"), 0);
}

TEST(FoldedCompare, MatchesWholeCharactersAtAPosition)
{
    const std::string hay = "x\xB0" "A" "Abc";  // x, a double-byte character ending in 'A', then "Abc"
    EXPECT_TRUE(GbkMatchesFoldedAt(hay, 3, "aBC", false));
    EXPECT_FALSE(GbkMatchesFoldedAt(hay, 3, "aBC", true));
    EXPECT_TRUE(GbkMatchesFoldedAt(hay, 3, "Abc", true));
    // The second byte of a double-byte character never folds.
    EXPECT_TRUE(GbkMatchesFoldedAt(hay, 1, "\xB0" "A", false));
    EXPECT_FALSE(GbkMatchesFoldedAt(hay, 1, "\xB0" "a", false));
    // A lone lead byte ending the needle is a character of one byte, so it
    // does not match the first half of the hay's double-byte character.
    EXPECT_FALSE(GbkMatchesFoldedAt(hay, 1, "\xB0", false));
    // Past the end nothing matches; the empty needle matches anywhere inside.
    EXPECT_FALSE(GbkMatchesFoldedAt(hay, 5, "bcd", false));
    EXPECT_FALSE(GbkMatchesFoldedAt(hay, 7, "c", false));
    EXPECT_TRUE(GbkMatchesFoldedAt(hay, 6, "", false));
}
