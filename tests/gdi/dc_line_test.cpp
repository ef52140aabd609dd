#include <gtest/gtest.h>

#include <climits>

#include "gdi_test_support.h"

using gdi_test::Canvas;

namespace {
constexpr std::uint32_t kWhite = 0xFFFFFF, kBlack = 0x000000;

void Line(CDC& dc, int x0, int y0, int x1, int y1)
{
    dc.MoveTo(x0, y0);
    dc.LineTo(x1, y1);
}
}  // namespace

TEST(DcLine, StraightLinesStopBeforeTheirEndPoint)
{
    Canvas c(12, 12);
    Line(c.dc, 2, 5, 8, 5);
    EXPECT_EQ(c.Count(kBlack, CRect(2, 5, 8, 6)), 6);
    EXPECT_EQ(c.At(8, 5), kWhite);
    Canvas back(12, 12);
    Line(back.dc, 8, 5, 2, 5);
    EXPECT_EQ(back.Count(kBlack, CRect(3, 5, 9, 6)), 6);
    EXPECT_EQ(back.At(2, 5), kWhite);
    Canvas up(12, 12);
    Line(up.dc, 4, 9, 4, 1);
    EXPECT_EQ(up.Count(kBlack, up.surface.Bounds()), 8);
    EXPECT_EQ(up.At(4, 1), kWhite);
    EXPECT_EQ(up.At(4, 9), kBlack);
}

TEST(DcLine, MoveToReturnsAndLineToUpdatesThePosition)
{
    Canvas c(10, 10);
    c.dc.MoveTo(3, 4);
    EXPECT_EQ(c.dc.MoveTo(1, 1), CPoint(3, 4));
    c.dc.LineTo(5, 1);
    c.dc.LineTo(5, 6);  // continues from (5, 1): the corner is drawn once
    EXPECT_EQ(c.dc.GetCurrentPosition(), CPoint(5, 6));
    EXPECT_EQ(c.Count(kBlack, c.surface.Bounds()), 4 + 5);
    EXPECT_EQ(c.At(5, 6), kWhite);
    c.dc.SelectStockObject(NULL_PEN);
    c.dc.LineTo(0, 0);
    EXPECT_EQ(c.Count(kBlack, c.surface.Bounds()), 4 + 5);
    EXPECT_EQ(c.dc.GetCurrentPosition(), CPoint(0, 0));
}

TEST(DcLine, SlopedLinesTakeOnePixelPerStepOfTheLongerAxis)
{
    for (const auto& [x1, y1] : std::vector<std::pair<int, int>>{{10, 3}, {3, 10}, {-9, 4}, {5, 5}, {-7, -7}}) {
        Canvas c(30, 30);
        const int x0 = 12, y0 = 12;
        Line(c.dc, x0, y0, x0 + x1, y0 + y1);
        const int steps = std::max(std::abs(x1), std::abs(y1));
        EXPECT_EQ(c.Count(kBlack, c.surface.Bounds()), steps) << x1 << "," << y1;
        EXPECT_EQ(c.At(x0, y0), kBlack);
        EXPECT_EQ(c.At(x0 + x1, y0 + y1), kWhite);
        // One pixel at each step along the longer axis.
        const bool xMajor = std::abs(x1) >= std::abs(y1);
        for (int i = 0; i < steps; ++i) {
            const CRect slice = xMajor ? CRect(x0 + (x1 < 0 ? -i : i), 0, x0 + (x1 < 0 ? -i : i) + 1, 30)
                                       : CRect(0, y0 + (y1 < 0 ? -i : i), 30, y0 + (y1 < 0 ? -i : i) + 1);
            EXPECT_EQ(c.Count(kBlack, slice), 1) << "step " << i;
        }
    }
}

TEST(DcLine, DottedPenDrawsEveryOtherPixel)
{
    Canvas c(12, 3);
    CPen dot(PS_DOT, 1, RGB(0, 0, 0));
    c.dc.SelectObject(&dot);
    c.dc.SetBkMode(TRANSPARENT);
    Line(c.dc, 0, 1, 10, 1);
    for (int x = 0; x < 10; ++x) EXPECT_EQ(c.At(x, 1), x % 2 == 0 ? kBlack : kWhite) << x;
    // In OPAQUE mode the gaps take the background colour.
    c.dc.SetBkMode(OPAQUE);
    c.dc.SetBkColor(RGB(255, 0, 0));
    Line(c.dc, 0, 2, 10, 2);
    for (int x = 0; x < 10; ++x) EXPECT_EQ(c.At(x, 2), x % 2 == 0 ? kBlack : 0xFF0000u) << x;
    EXPECT_EQ(c.At(10, 2), kWhite);
}

TEST(DcLine, DotsKeepTheirPhaseWhenTheStartIsClippedAway)
{
    Canvas c(10, 1);
    CPen dot(PS_DOT, 1, RGB(0, 0, 0));
    c.dc.SelectObject(&dot);
    c.dc.SetBkMode(TRANSPARENT);
    Line(c.dc, -3, 0, 10, 0);
    for (int x = 0; x < 10; ++x) EXPECT_EQ(c.At(x, 0), (x + 3) % 2 == 0 ? kBlack : kWhite) << x;
}

TEST(DcLine, WidePenPaintsASquareAroundEachPoint)
{
    Canvas c(12, 12);
    CPen wide(PS_SOLID, 3, RGB(0, 0, 0));
    c.dc.SelectObject(&wide);
    Line(c.dc, 2, 5, 8, 5);
    EXPECT_EQ(c.Count(kBlack, c.surface.Bounds()), 8 * 3);
    EXPECT_EQ(c.Count(kBlack, CRect(1, 4, 9, 7)), 24);
}

TEST(DcLine, FarEndPointsAreClippedQuickly)
{
    Canvas c(20, 20);
    Line(c.dc, -1000000, 5, 1000000, 5);
    EXPECT_EQ(c.Count(kBlack, CRect(0, 5, 20, 6)), 20);
    Line(c.dc, INT_MIN, INT_MIN, INT_MAX, INT_MAX);  // passes through the surface's diagonal
    EXPECT_EQ(c.Count(kBlack, c.surface.Bounds()), 20 + 19);
    CPen dot(PS_DOT, 1, RGB(0, 0, 0));
    c.dc.SelectObject(&dot);
    Line(c.dc, INT_MAX, INT_MIN, INT_MIN, INT_MAX);
    Line(c.dc, 0, INT_MIN, 0, INT_MAX);
}

TEST(DcLine, BadPenStylesMakeNoPenAndTheDcKeepsItsPen)
{
    constexpr int kUserStyle = 7, kAlternate = 8, kGeometric = 0x10000, kEndCapFlat = 0x200;
    for (const int style : {-1, kUserStyle, kAlternate, kGeometric, PS_SOLID | kEndCapFlat, INT_MIN, INT_MAX}) {
        CPen bad;
        EXPECT_FALSE(bad.CreatePen(style, 1, RGB(255, 0, 0))) << style;
        EXPECT_EQ(bad.GetSafeHandle(), nullptr);
        int got = 0;
        EXPECT_FALSE(bad.GetPenInfo(&got, nullptr, nullptr));
        const CPen constructed(style, 1, RGB(255, 0, 0));
        EXPECT_EQ(constructed.GetSafeHandle(), nullptr) << style;

        Canvas c(10, 3);
        CPen blue(PS_SOLID, 1, RGB(0, 0, 255));
        c.dc.SelectObject(&blue);
        EXPECT_EQ(c.dc.SelectObject(&bad), nullptr);
        Line(c.dc, 1, 1, 7, 1);
        EXPECT_EQ(c.Count(0x0000FF, c.surface.Bounds()), 6) << style;
    }
    // A pen made once is not made again.
    CPen pen(PS_SOLID, 1, RGB(255, 0, 0));
    EXPECT_FALSE(pen.CreatePen(PS_DOT, 1, RGB(0, 0, 255)));
    int style = -1, width = 0;
    COLORREF color = 0;
    ASSERT_TRUE(pen.GetPenInfo(&style, &width, &color));
    EXPECT_EQ(style, PS_SOLID);
    EXPECT_EQ(color, RGB(255, 0, 0));
}

TEST(DcLine, PenWidthsOutsideTheRangeAreBroughtIntoIt)
{
    for (const auto& [asked, kept] : {std::pair{-5, 1}, {0, 1}, {INT_MIN, 1}, {INT_MAX, 256}, {300, 256}}) {
        CPen pen(PS_SOLID, asked, RGB(0, 0, 0));
        int width = 0;
        ASSERT_TRUE(pen.GetPenInfo(nullptr, &width, nullptr)) << asked;
        EXPECT_EQ(width, kept) << asked;
        Canvas c(12, 12);
        c.dc.SelectObject(&pen);
        Line(c.dc, 2, 6, 9, 6);
        // One pixel high, or wide enough to cover the whole canvas.
        EXPECT_EQ(c.Count(kBlack, c.surface.Bounds()), kept == 1 ? 7 : 144) << asked;
    }
}
