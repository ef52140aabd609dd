#include <gtest/gtest.h>

#include "gdi_test_support.h"
#include "platform/text/gbk.h"

using gdi_test::BoxGlyphs;
using gdi_test::Canvas;

namespace {
constexpr std::uint32_t kGray = 0x808080;

// Text in the 12-pixel GUI font, transparent, with box glyphs: the ink of
// a line is exactly its cells minus their top and bottom rows.
struct TextCanvas : Canvas {
    TextCanvas(int width = 120, int height = 60) : Canvas(width, height, kGray)
    {
        dc.SelectStockObject(DEFAULT_GUI_FONT);
        dc.SetBkMode(TRANSPARENT);
    }
    BoxGlyphs boxes;
};

CRect Calc(const char* text, UINT format)
{
    TextCanvas c;
    CRect r(10, 20, 10, 20);
    const int height = c.dc.DrawText(text, -1, &r, format | DT_CALCRECT);
    EXPECT_EQ(height, r.Height());
    EXPECT_EQ(c.InkBounds(kGray), CRect()) << "measuring must not draw";
    return r;
}
}  // namespace

TEST(DrawText, CalcRectMeasuresLinesAndPrefixes)
{
    EXPECT_EQ(Calc("abc", DT_SINGLELINE), CRect(10, 20, 28, 32));
    EXPECT_EQ(Calc("ab\ncdef\r\nx", 0), CRect(10, 20, 34, 56));
    EXPECT_EQ(Calc("a\rb", 0), CRect(10, 20, 16, 44));
    EXPECT_EQ(Calc("ab\ncd", DT_SINGLELINE), CRect(10, 20, 40, 32));  // '\n' is just a character
    EXPECT_EQ(Calc("&File", 0), CRect(10, 20, 34, 32));
    EXPECT_EQ(Calc("&File", DT_NOPREFIX), CRect(10, 20, 40, 32));
    EXPECT_EQ(Calc("a&&b&", 0), CRect(10, 20, 28, 32));
    EXPECT_EQ(Calc(GBK("文件(&F)").c_str(), 0), CRect(10, 20, 52, 32));
    EXPECT_EQ(Calc("", 0), CRect(10, 20, 10, 32));
}

TEST(DrawText, HorizontalAlignment)
{
    const std::pair<UINT, int> cases[] = {{DT_LEFT, 0}, {DT_CENTER, 44}, {DT_RIGHT, 88}};
    for (const auto& [format, left] : cases) {
        TextCanvas c;
        CRect r(0, 0, 100, 40);
        c.dc.DrawText("ab", -1, &r, format | DT_SINGLELINE);
        EXPECT_EQ(c.InkBounds(kGray), CRect(left, 1, left + 12, 11)) << format;
    }
}

TEST(DrawText, VerticalAlignmentAppliesToSingleLines)
{
    TextCanvas c;
    CRect r(0, 0, 100, 40);
    EXPECT_EQ(c.dc.DrawText("ab", -1, &r, DT_VCENTER | DT_SINGLELINE), 14 + 12);
    EXPECT_EQ(c.InkBounds(kGray), CRect(0, 15, 12, 25));

    TextCanvas b;
    EXPECT_EQ(b.dc.DrawText("ab", -1, &r, DT_BOTTOM | DT_SINGLELINE), 40);
    EXPECT_EQ(b.InkBounds(kGray), CRect(0, 29, 12, 39));

    TextCanvas m;
    EXPECT_EQ(m.dc.DrawText("ab", -1, &r, DT_VCENTER), 12);
    EXPECT_EQ(m.InkBounds(kGray), CRect(0, 1, 12, 11));
}

TEST(DrawText, LinesStackAndAlignEachOnItsOwn)
{
    TextCanvas c;
    CRect r(0, 0, 100, 60);
    EXPECT_EQ(c.dc.DrawText("ab\nabcd", -1, &r, DT_RIGHT), 24);
    EXPECT_EQ(c.InkBounds(kGray), CRect(76, 1, 100, 23));
    EXPECT_EQ(c.Count(kGray, CRect(76, 1, 88, 11)), 12 * 10);  // the short line leaves this blank
}

TEST(DrawText, ClipsToTheRectangleUnlessNoClip)
{
    TextCanvas c;
    CRect r(0, 0, 10, 12);
    c.dc.DrawText("abcd", -1, &r, DT_SINGLELINE);
    EXPECT_EQ(c.InkBounds(kGray), CRect(0, 1, 10, 11));
    TextCanvas n;
    n.dc.DrawText("abcd", -1, &r, DT_SINGLELINE | DT_NOCLIP);
    EXPECT_EQ(n.InkBounds(kGray), CRect(0, 1, 24, 11));
    TextCanvas lines;
    CRect oneLine(0, 0, 50, 12);
    lines.dc.DrawText("a\nb\nc", -1, &oneLine, 0);
    EXPECT_EQ(lines.InkBounds(kGray), CRect(0, 1, 6, 11));
}

TEST(DrawText, EndEllipsisShortensWhatDoesNotFit)
{
    TextCanvas c;
    CRect r(0, 0, 30, 12);
    c.dc.DrawText("abcdefgh", -1, &r, DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOCLIP);
    EXPECT_EQ(c.InkBounds(kGray), CRect(0, 1, 30, 11));  // "ab..."
    TextCanvas fits;
    fits.dc.DrawText("abcde", -1, &r, DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOCLIP);
    EXPECT_EQ(fits.InkBounds(kGray), CRect(0, 1, 30, 11));
    // A double-byte character is never cut in half: "a" + "..." is all that fits in 35.
    TextCanvas wide;
    CRect r35(0, 0, 35, 12);
    wide.dc.DrawText(GBK("a中文字").c_str(), -1, &r35, DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOCLIP);
    EXPECT_EQ(wide.InkBounds(kGray), CRect(0, 1, 24, 11));
}

TEST(DrawText, PrefixUnderlinesTheMarkedCharacter)
{
    TextCanvas c;
    CRect r(0, 0, 100, 12);
    c.dc.DrawText("a&bc", -1, &r, DT_SINGLELINE);
    // Box glyphs end on row 10; the underline is row 11 under "b" only.
    EXPECT_EQ(c.Count(0x000000, CRect(0, 11, 100, 12)), 6);
    EXPECT_EQ(c.At(6, 11), 0x000000u);
    EXPECT_EQ(c.At(11, 11), 0x000000u);
    TextCanvas plain;
    plain.dc.DrawText("a&bc", -1, &r, DT_SINGLELINE | DT_NOPREFIX);
    EXPECT_EQ(plain.Count(0x000000, CRect(0, 11, 100, 12)), 0);
}

TEST(DrawText, BadArgumentsDrawNothing)
{
    TextCanvas c;
    CRect r(0, 0, 50, 50);
    EXPECT_EQ(c.dc.DrawText("abc", -1, nullptr, 0), 0);
    EXPECT_EQ(c.dc.DrawText("abc", -2, &r, 0), 0);
    EXPECT_EQ(c.dc.DrawText(nullptr, 3, &r, 0), 0);
    EXPECT_EQ(c.InkBounds(kGray), CRect());
    EXPECT_EQ(r, CRect(0, 0, 50, 50));
}
