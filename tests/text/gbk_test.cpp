// Whole-character prefixes and copies of GBK text: a double-byte character is
// never split, and a copy is always terminated within its buffer.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/text/gbk.h"

TEST(GbkText, PrefixesAndCopiesNeverSplitACharacter)
{
    const std::string text = "a" + GBK("中文") + "b";  // 1 + 2 + 2 + 1 bytes
    EXPECT_EQ(GbkPrefixBytes(text, 0), 0u);
    EXPECT_EQ(GbkPrefixBytes(text, 2), 1u);  // the cut would fall inside 中
    EXPECT_EQ(GbkPrefixBytes(text, 3), 3u);
    EXPECT_EQ(GbkPrefixBytes(text, 100), text.size());
    // A lone lead byte at the end counts as one character.
    EXPECT_EQ(GbkPrefixBytes("x\xD6", 2), 2u);

    char buffer[8];
    std::memset(buffer, 'Z', sizeof buffer);
    EXPECT_EQ(CopyGbkText(text, buffer, 5), 3u);
    EXPECT_STREQ(buffer, text.substr(0, 3).c_str());
    EXPECT_EQ(buffer[4], 'Z');  // nothing written past the terminator
    EXPECT_EQ(CopyGbkText(text, buffer, 1), 0u);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(CopyGbkText(text, buffer, 0), 0u);
    EXPECT_EQ(CopyGbkText(text, nullptr, 8), 0u);
}

TEST(GbkText, EachUtf8CharacterGbkLacksBecomesOneQuestionMark)
{
    EXPECT_EQ(Utf8ToGbk("a\xF0\x9F\x98\x80" "b"), "a?b");       // an emoji: four bytes, one character
    EXPECT_EQ(Utf8ToGbk("a\xE7\xBA" "b"), "a?b");               // a character cut short
    EXPECT_EQ(Utf8ToGbk("a\xE7\xBA"), "a?");                    // ... at the end
    EXPECT_EQ(Utf8ToGbk("\x80\xBF" "c"), "??c");                // stray continuation bytes, one each
    EXPECT_EQ(Utf8ToGbk("\xC0\xAF"), "??");                     // an overlong form is no character
    EXPECT_EQ(Utf8ToGbk("\xE4\xB8\xAD\xF0\x9F\x98\x80"), GBK("中") + "?");
}
