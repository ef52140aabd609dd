#include <gtest/gtest.h>

#include "gdi_test_support.h"
#include "platform/gdi/font_model.h"
#include "platform/text/gbk.h"

using gdi_test::BoxGlyphs;
using gdi_test::Canvas;

namespace {
constexpr std::uint32_t kWhite = 0xFFFFFF, kBlack = 0x000000;
}

TEST(FontModel, PixelHeightFromPointsAndLogFont)
{
    for (const auto& [tenths, px] : {std::pair{90, 12}, {100, 13}, {80, 11}, {-50, 1}})
        EXPECT_EQ(gdi::PointTenthsToPixels(tenths), px) << tenths;
    for (const auto& [height, px] : {std::pair{-20, 20}, {20, 20}, {0, gdi::kDefaultFontHeight}, {INT32_MIN, gdi::kMaxFontHeight}}) {
        LOGFONT lf;
        lf.lfHeight = height;
        EXPECT_EQ(gdi::PixelHeightOf(lf), px) << height;
    }
}

TEST(FontModel, ExtentsOfMixedText)
{
    Canvas c(4, 4);
    // A new DC uses the system font: 16 high, 8 per byte.
    EXPECT_EQ(c.dc.GetTextExtent("abc", -1), CSize(24, 16));
    EXPECT_EQ(c.dc.GetTextExtent(GBK("中").c_str(), -1), CSize(16, 16));
    c.dc.SelectStockObject(DEFAULT_GUI_FONT);
    EXPECT_EQ(c.dc.GetTextExtent("abc", -1), CSize(18, 12));
    EXPECT_EQ(c.dc.GetTextExtent(GBK("a中b文").c_str(), -1), CSize(6 + 12 + 6 + 12, 12));
    EXPECT_EQ(c.dc.GetTextExtent("abcdef", 2), CSize(12, 12));
    EXPECT_EQ(c.dc.GetTextExtent("a\xD6", -1), CSize(12, 12));  // a lead byte at the end counts as one byte
    EXPECT_EQ(c.dc.GetTextExtent(nullptr, 5), CSize(0, 12));
    EXPECT_EQ(c.dc.GetTextExtent("abc", -7), CSize(0, 12));
    CFont odd;
    odd.CreatePointFont(100, "x");  // 13 px: single bytes advance 6
    c.dc.SelectObject(&odd);
    EXPECT_EQ(c.dc.GetTextExtent(GBK("ab中").c_str(), -1), CSize(6 + 6 + 13, 13));
}

TEST(FontModel, TextMetricsFollowTheHeight)
{
    Canvas c(4, 4);
    TEXTMETRIC tm;
    ASSERT_TRUE(c.dc.GetTextMetrics(&tm));  // the system font
    EXPECT_EQ((std::vector<LONG>{tm.tmHeight, tm.tmAscent, tm.tmDescent, tm.tmAveCharWidth, tm.tmMaxCharWidth}),
              (std::vector<LONG>{16, 13, 3, 8, 16}));
    c.dc.SelectStockObject(DEFAULT_GUI_FONT);
    c.dc.GetTextMetrics(&tm);
    EXPECT_EQ((std::vector<LONG>{tm.tmHeight, tm.tmAscent, tm.tmDescent, tm.tmAveCharWidth, tm.tmMaxCharWidth}),
              (std::vector<LONG>{12, 10, 2, 6, 12}));
    LOGFONT lf;
    CFont::FromHandle(GetStockObject(DEFAULT_GUI_FONT))->GetLogFont(&lf);
    EXPECT_STREQ(lf.lfFaceName, GBK("宋体").c_str());
}

TEST(DcText, OpaqueTextFillsItsCellTransparentTextDoesNot)
{
    BoxGlyphs boxes;
    Canvas c(40, 20, 0x808080);
    c.dc.SelectStockObject(DEFAULT_GUI_FONT);
    EXPECT_TRUE(c.dc.TextOut(2, 3, "a b", -1));
    const CRect cell(2, 3, 2 + 18, 3 + 12);
    EXPECT_EQ(c.Count(0x808080, cell), 0);
    EXPECT_EQ(c.Count(0x808080, c.surface.Bounds()), 40 * 20 - 18 * 12);
    // Box glyphs: the outline of each non-blank cell, one row in from the top and bottom.
    EXPECT_EQ(c.At(2, 4), kBlack);
    EXPECT_EQ(c.At(7, 13), kBlack);
    EXPECT_EQ(c.At(2, 3), kWhite);
    EXPECT_EQ(c.Count(kBlack, CRect(8, 3, 14, 15)), 0);  // the space
    EXPECT_EQ(c.Count(kBlack, CRect(3, 5, 7, 13)), 0);  // inside a box

    Canvas t(40, 20, 0x808080);
    t.dc.SelectStockObject(DEFAULT_GUI_FONT);
    t.dc.SetBkMode(TRANSPARENT);
    t.dc.SetTextColor(RGB(255, 0, 0));
    t.dc.TextOut(0, 0, GBK("中").c_str(), -1);
    EXPECT_EQ(t.Count(kWhite, t.surface.Bounds()), 0);
    EXPECT_EQ(t.InkBounds(0x808080), CRect(0, 1, 12, 11));
    EXPECT_EQ(t.At(0, 1), 0xFF0000u);
}

TEST(DcText, ExtTextOutOpaqueRectClippingAndWidths)
{
    BoxGlyphs boxes;
    Canvas c(60, 20, 0x808080);
    c.dc.SelectStockObject(DEFAULT_GUI_FONT);
    c.dc.SetBkColor(RGB(0, 0, 255));
    const CRect band(0, 0, 60, 2);
    EXPECT_TRUE(c.dc.ExtTextOut(0, 0, ETO_OPAQUE, &band, "", 0));
    EXPECT_EQ(c.Count(0x0000FF, c.surface.Bounds()), 120);

    c.dc.SetBkMode(TRANSPARENT);
    const CRect clip(0, 2, 9, 20);
    c.dc.ExtTextOut(0, 4, ETO_CLIPPED, &clip, "ab", 2);
    EXPECT_EQ(c.At(8, 5), kBlack);  // the top of the box of "b"
    EXPECT_EQ(c.Count(kBlack, CRect(9, 2, 60, 20)), 0);

    Canvas e(60, 20, 0x808080);
    e.dc.SelectStockObject(DEFAULT_GUI_FONT);
    const int widths[] = {20, 30};
    e.dc.SetBkMode(TRANSPARENT);
    e.dc.ExtTextOut(0, 0, 0, nullptr, "ab", 2, widths);
    EXPECT_EQ(e.InkBounds(0x808080), CRect(0, 1, 26, 11));  // the second cell starts at 20
    EXPECT_EQ(e.Count(kBlack, CRect(6, 0, 20, 20)), 0);
    EXPECT_FALSE(e.dc.ExtTextOut(0, 0, 0, nullptr, nullptr, 3));
}

TEST(DcText, UnderlinedFontDrawsALineUnderTheRun)
{
    BoxGlyphs boxes;
    Canvas c(40, 20, 0x808080);
    CFont font;
    font.CreateFont(-12, 0, 0, 0, FW_NORMAL, 0, TRUE, 0, 0, 0, 0, 0, 0, "x");
    c.dc.SelectObject(&font);
    c.dc.SetBkMode(TRANSPARENT);
    c.dc.TextOut(1, 0, "   ", 3);  // blanks: only the underline has ink
    EXPECT_EQ(c.InkBounds(0x808080), CRect(1, 11, 19, 12));
}

TEST(DcText, InkNeverLeavesTheCellWithRealGlyphs)
{
    if (!gdi::GlyphCache::Instance().HasFonts()) GTEST_SKIP() << "no bitmap CJK font installed";
    for (int tenths : {90, 120, 240}) {
        Canvas c(200, 40, 0x808080);
        CFont font;
        font.CreatePointFont(tenths, "x");
        c.dc.SelectObject(&font);
        c.dc.SetBkMode(TRANSPARENT);
        const std::string text = GBK("MWgjy@中文");
        c.dc.TextOut(10, 10, text.c_str(), -1);
        const CSize extent = c.dc.GetTextExtent(text.c_str(), -1);
        const CRect ink = c.InkBounds(0x808080);
        CRect inside;
        inside.IntersectRect(ink, CRect(CPoint(10, 10), extent));
        EXPECT_EQ(inside, ink) << tenths;
    }
}

TEST(DcText, ChineseTextDrawsRealGlyphsWhenTheFontIsThere)
{
    if (!gdi::GlyphCache::Instance().HasFonts()) GTEST_SKIP() << "no bitmap CJK font installed";
    EXPECT_EQ(gdi::GlyphCache::Instance().FontSizeFor(12), 12);
    Canvas zhong(12, 12), wen(12, 12);
    for (Canvas* c : {&zhong, &wen}) c->dc.SelectStockObject(DEFAULT_GUI_FONT);
    zhong.dc.TextOut(0, 0, GBK("中").c_str(), -1);
    wen.dc.TextOut(0, 0, GBK("文").c_str(), -1);
    const int inked = zhong.Count(kBlack, zhong.surface.Bounds());
    EXPECT_GT(inked, 10);
    EXPECT_LT(inked, 12 * 12 / 2);
    EXPECT_NE(zhong.surface.Pixels(), wen.surface.Pixels());
}
