#include <gtest/gtest.h>

#include "gdi_test_support.h"

using gdi_test::Canvas;

namespace {
constexpr std::uint32_t kWhite = 0xFFFFFF, kBlack = 0x000000, kRed = 0xFF0000, kBlue = 0x0000FF;
}

TEST(DcRectangle, OutlineWithPenFillWithBrushRightBottomExclusive)
{
    Canvas c(12, 10);
    CBrush red(RGB(255, 0, 0));
    c.dc.SelectObject(&red);
    c.dc.Rectangle(2, 2, 8, 6);
    for (int x = 2; x < 8; ++x) EXPECT_TRUE(c.At(x, 2) == kBlack && c.At(x, 5) == kBlack) << x;
    for (int y = 2; y < 6; ++y) EXPECT_TRUE(c.At(2, y) == kBlack && c.At(7, y) == kBlack) << y;
    EXPECT_EQ(c.Count(kRed, CRect(3, 3, 7, 5)), 8);
    EXPECT_EQ(c.Count(kWhite, c.surface.Bounds()), 12 * 10 - 6 * 4);
}

TEST(DcRectangle, NullPenFillsOnePixelLessAndNullBrushLeavesInside)
{
    Canvas c(12, 10);
    CBrush red(RGB(255, 0, 0));
    c.dc.SelectObject(&red);
    c.dc.SelectStockObject(NULL_PEN);
    c.dc.Rectangle(2, 2, 8, 6);
    EXPECT_EQ(c.Count(kRed, c.surface.Bounds()), 5 * 3);
    EXPECT_EQ(c.Count(kRed, CRect(2, 2, 7, 5)), 5 * 3);

    Canvas d(12, 10);
    d.dc.SelectStockObject(NULL_BRUSH);
    d.dc.Rectangle(2, 2, 8, 6);
    EXPECT_EQ(d.Count(kBlack, d.surface.Bounds()), 16);
    EXPECT_EQ(d.Count(kWhite, CRect(3, 3, 7, 5)), 8);
}

TEST(DcRectangle, WidePenOutlinesInsideAndInvertedCornersAreNormalised)
{
    Canvas c(12, 12);
    CPen wide(PS_SOLID, 2, RGB(0, 0, 255));
    c.dc.SelectObject(&wide);
    c.dc.Rectangle(10, 10, 1, 1);  // given backwards
    EXPECT_EQ(c.Count(kBlue, c.surface.Bounds()), 9 * 9 - 5 * 5);
    EXPECT_EQ(c.Count(kWhite, CRect(3, 3, 8, 8)), 25);  // white stock brush inside
    EXPECT_EQ(c.At(9, 9), kBlue);
    EXPECT_EQ(c.At(10, 10), kWhite);
}

TEST(DcFill, SolidFillsBrushFillsAndFrames)
{
    Canvas c(10, 10);
    const CRect backwards(8, 8, 2, 2);
    c.dc.FillSolidRect(&backwards, RGB(255, 0, 0));  // normalised, unlike FillRect
    EXPECT_EQ(c.Count(kRed, c.surface.Bounds()), 36);
    EXPECT_EQ(c.dc.GetBkColor(), RGB(255, 0, 0));

    Canvas f(10, 10);
    CBrush red(RGB(255, 0, 0));
    const CRect r(1, 1, 6, 5);
    f.dc.FrameRect(&r, &red);
    EXPECT_EQ(f.Count(kRed, f.surface.Bounds()), 2 * 5 + 2 * 2);
    f.dc.FillRect(&r, CBrush::FromHandle(GetStockObject(NULL_BRUSH)));
    f.dc.FillRect(&r, nullptr);
    const CRect inverted(6, 5, 1, 1);
    f.dc.FillRect(&inverted, &red);
    EXPECT_EQ(f.At(3, 3), kWhite);
    f.dc.FillRect(&r, &red);
    EXPECT_EQ(f.Count(kRed, f.surface.Bounds()), 20);
}

TEST(DcFill, Draw3dRectEdgesAndCorners)
{
    Canvas c(8, 8, 0x808080);
    const CRect r(1, 1, 6, 5);
    c.dc.Draw3dRect(&r, RGB(255, 0, 0), RGB(0, 0, 255));
    EXPECT_EQ(c.Count(kRed, CRect(1, 1, 5, 2)), 4);  // top, without the far corner
    EXPECT_EQ(c.Count(kRed, CRect(1, 1, 2, 4)), 3);  // left, without the bottom corner
    EXPECT_EQ(c.Count(kBlue, CRect(5, 1, 6, 5)), 4);
    EXPECT_EQ(c.Count(kBlue, CRect(1, 4, 6, 5)), 5);
    EXPECT_EQ(c.Count(0x808080, c.surface.Bounds()), 64 - 14);
    EXPECT_EQ(c.dc.GetBkColor(), RGB(0, 0, 255));
}

TEST(DcFill, FocusRectIsDottedAndTwiceRestores)
{
    Canvas c(16, 12);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 16; ++x) c.surface.SetPixel(x, y, static_cast<std::uint32_t>(x * 977 + y * 131) * 2654435761u);
    const std::vector<std::uint32_t> before = c.surface.Pixels();
    for (const CRect& r : {CRect(2, 2, 13, 9), CRect(1, 4, 9, 5), CRect(5, 1, 6, 11), CRect(-3, -3, 10, 20)}) {
        c.dc.DrawFocusRect(&r);
        EXPECT_NE(c.surface.Pixels(), before);
        c.dc.DrawFocusRect(&r);
        EXPECT_EQ(c.surface.Pixels(), before);
    }
    Canvas d(12, 12, 0);
    const CRect r(2, 2, 10, 8);
    d.dc.DrawFocusRect(&r);
    EXPECT_EQ(d.Count(kWhite, CRect(2, 2, 10, 3)), 4);
    EXPECT_NE(d.At(2, 2), d.At(3, 2));
    EXPECT_EQ(d.Count(kWhite, CRect(3, 3, 9, 7)), 0);
}

TEST(DcFill, PatBltAndInvertRect)
{
    Canvas c(10, 10, 0x00FF00);
    CBrush blue(RGB(0, 0, 255));
    c.dc.SelectObject(&blue);
    EXPECT_TRUE(c.dc.PatBlt(0, 0, 2, 2, PATCOPY));
    EXPECT_TRUE(c.dc.PatBlt(4, 4, -2, -2, PATINVERT));  // negative sizes reach back
    EXPECT_TRUE(c.dc.PatBlt(6, 6, 1, 1, DSTINVERT));
    EXPECT_FALSE(c.dc.PatBlt(0, 0, 1, 1, 0x12345678));
    EXPECT_EQ(c.Count(kBlue, CRect(0, 0, 2, 2)), 4);
    EXPECT_EQ(c.Count(0x00FFFF, CRect(2, 2, 4, 4)), 4);
    EXPECT_EQ(c.At(6, 6), 0xFF00FFu);
    const CRect r(5, 0, 9, 3);
    c.dc.InvertRect(&r);
    EXPECT_EQ(c.Count(0xFF00FF, r), 12);
    c.dc.InvertRect(&r);
    EXPECT_EQ(c.Count(0x00FF00, r), 12);
}
