// Text between the desktop (UTF-8, "\n") and the platform (GBK, "\r\n"):
// clipboard text both ways, and typed text.
#include <gtest/gtest.h>

#include <string>

#include "platform/text/gbk.h"
#include "platform/window/desktop_text.h"

namespace {

std::string Utf8(std::u8string_view text)
{
    return std::string(reinterpret_cast<const char*>(text.data()), text.size());
}

}  // namespace

TEST(DesktopClipboardText, ChineseTextRoundTripsBothWays)
{
    const std::string gbk = GBK(u8"红灯时长\r\n第二行：绿灯\r\n");
    const std::string desktop = DesktopText::ToDesktop(gbk);
    EXPECT_EQ(desktop, Utf8(u8"红灯时长\n第二行：绿灯\n"));
    EXPECT_EQ(DesktopText::FromDesktop(desktop), gbk);

    const std::string utf8 = Utf8(u8"交通灯 phase = 3\n温度");
    EXPECT_EQ(DesktopText::FromDesktop(utf8), GBK(u8"交通灯 phase = 3\r\n温度"));
    EXPECT_EQ(DesktopText::ToDesktop(DesktopText::FromDesktop(utf8)), utf8);
}

TEST(DesktopClipboardText, LineEndsAreTurnedOnceAndLoneReturnsKept)
{
    // Text from the desktop that already ends lines in "\r\n" is not doubled.
    EXPECT_EQ(DesktopText::FromDesktop("a\r\nb\nc\n"), "a\r\nb\r\nc\r\n");
    EXPECT_EQ(DesktopText::FromDesktop("\n\n"), "\r\n\r\n");
    EXPECT_EQ(DesktopText::ToDesktop("a\rb\r\n\r"), "a\rb\n\r");
    EXPECT_EQ(DesktopText::ToDesktop(""), "");
    EXPECT_EQ(DesktopText::FromDesktop(""), "");
}

TEST(DesktopClipboardText, WhatEitherSideCannotSayBecomesAQuestionMark)
{
    // An emoji has no GBK code; a broken UTF-8 sequence is no character.
    EXPECT_EQ(DesktopText::FromDesktop(Utf8(u8"a😀b")), "a?b");
    EXPECT_EQ(DesktopText::FromDesktop("a\xE7\xBA" "b"), "a?b");
    // A GBK lead byte without its trail byte.
    EXPECT_EQ(DesktopText::ToDesktop("x\xD6"), "x?");
}

TEST(TypedText, ChineseFromAnInputMethodBecomesGbkBytes)
{
    const std::string typed = DesktopText::Typed(Utf8(u8"中a文"));
    EXPECT_EQ(typed, GBK(u8"中a文"));
    ASSERT_EQ(typed.size(), 5u);
    EXPECT_TRUE(IsDBCSLeadByte(static_cast<unsigned char>(typed[0])));
    EXPECT_EQ(typed[2], 'a');
}

TEST(TypedText, ControlCharactersAreLeftToTheirKeys)
{
    EXPECT_EQ(DesktopText::Typed("a\tb\r\n\x1B\x7F" "c"), "abc");
    EXPECT_EQ(DesktopText::Typed(std::string("x\0y", 3)), "xy");
    EXPECT_EQ(DesktopText::Typed(""), "");
    // Trail bytes of double-byte characters are never taken for controls.
    const std::string trails = DesktopText::Typed(Utf8(u8"丂乗"));  // trail bytes 0x40 and 0x5C
    EXPECT_EQ(trails, GBK(u8"丂乗"));
}
