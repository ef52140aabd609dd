#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "gdi_test_support.h"

using gdi_test::Canvas;

namespace {
constexpr std::uint32_t kWhite = 0xFFFFFF, kRed = 0xFF0000;

// 40 x 30 with the client corner at (10, 5), drawing only into (10, 5)-(30, 20).
struct WindowCanvas : Canvas {
    WindowCanvas() : Canvas(40, 30, kWhite, CPoint(10, 5), CRect(10, 5, 30, 20)) {}
};
}  // namespace

TEST(DcClip, WindowDcDrawsOnlyInsideItsClip)
{
    WindowCanvas w;
    w.dc.FillSolidRect(-50, -50, 200, 200, RGB(255, 0, 0));
    EXPECT_EQ(w.Count(kRed, CRect(10, 5, 30, 20)), 20 * 15);
    EXPECT_EQ(w.Count(kRed, w.surface.Bounds()), 20 * 15);
    CRect box;
    EXPECT_EQ(w.dc.GetClipBox(&box), SIMPLEREGION);
    EXPECT_EQ(box, CRect(0, 0, 20, 15));
    w.dc.SetPixel(0, 0, RGB(0, 0, 255));
    EXPECT_EQ(w.surface.GetPixel(10, 5), 0x0000FFu);

    // A clip box larger than the surface stops at its edge.
    Surface s(8, 8, 0);
    CDC dc;
    dc.AttachToSurface(&s, CPoint(-4, 6), CRect(-100, -100, 100, 100));
    dc.FillSolidRect(0, 0, 50, 50, RGB(255, 255, 255));
    EXPECT_EQ(std::count(s.Pixels().begin(), s.Pixels().end(), kWhite), 8 * 2);
    EXPECT_EQ(s.GetPixel(0, 6), kWhite);
}

TEST(DcClip, ViewportOriginMovesDrawingAndTheClipBox)
{
    WindowCanvas w;
    EXPECT_EQ(w.dc.SetViewportOrg(3, 2), CPoint(0, 0));
    w.dc.SetPixel(0, 0, RGB(255, 0, 0));
    EXPECT_EQ(w.surface.GetPixel(13, 7), kRed);
    CRect box;
    w.dc.GetClipBox(&box);
    EXPECT_EQ(box, CRect(-3, -2, 17, 13));
    EXPECT_EQ(w.dc.OffsetViewportOrg(-1, 1), CPoint(3, 2));
    EXPECT_EQ(w.dc.GetViewportOrg(), CPoint(2, 3));
    EXPECT_EQ(w.dc.GetDeviceOffset(), CPoint(12, 8));
}

TEST(DcClip, IntersectClipRectNarrowsInLogicalCoordinates)
{
    WindowCanvas w;
    w.dc.SetViewportOrg(3, 2);
    EXPECT_EQ(w.dc.IntersectClipRect(2, 2, 5, 5), SIMPLEREGION);
    w.dc.SetViewportOrg(0, 0);  // the clip stays where it was put
    w.dc.FillSolidRect(-50, -50, 200, 200, RGB(255, 0, 0));
    EXPECT_EQ(w.Count(kRed, CRect(15, 9, 18, 12)), 9);
    EXPECT_EQ(w.Count(kRed, w.surface.Bounds()), 9);
    EXPECT_TRUE(w.dc.PtVisible(5, 4));
    EXPECT_FALSE(w.dc.PtVisible(4, 4));
    EXPECT_EQ(w.dc.IntersectClipRect(100, 100, 120, 120), NULLREGION);
    const CRect anywhere(-50, -50, 50, 50);
    EXPECT_FALSE(w.dc.RectVisible(&anywhere));
    w.dc.ResetClip();
    EXPECT_TRUE(w.dc.RectVisible(&anywhere));
}

TEST(DcClip, SaveAndRestoreBringBackTheState)
{
    WindowCanvas w;
    CPen pen(PS_SOLID, 1, RGB(1, 1, 1));
    const int level = w.dc.SaveDC();
    EXPECT_EQ(level, 1);
    w.dc.SetTextColor(RGB(1, 2, 3));
    w.dc.SetBkMode(TRANSPARENT);
    w.dc.SelectObject(&pen);
    w.dc.SetViewportOrg(4, 4);
    w.dc.IntersectClipRect(0, 0, 1, 1);
    EXPECT_EQ(w.dc.SaveDC(), 2);
    w.dc.SetTextColor(RGB(9, 9, 9));
    EXPECT_TRUE(w.dc.RestoreDC(-1));
    EXPECT_EQ(w.dc.GetTextColor(), RGB(1, 2, 3));
    EXPECT_TRUE(w.dc.RestoreDC(1));
    EXPECT_EQ(w.dc.GetTextColor(), RGB(0, 0, 0));
    EXPECT_EQ(w.dc.GetBkMode(), OPAQUE);
    EXPECT_EQ(w.dc.GetViewportOrg(), CPoint(0, 0));
    EXPECT_EQ(w.dc.GetCurrentPen()->GetSafeHandle(), GetStockObject(BLACK_PEN));
    CRect box;
    w.dc.GetClipBox(&box);
    EXPECT_EQ(box, CRect(0, 0, 20, 15));
    EXPECT_FALSE(w.dc.RestoreDC(-1));  // nothing saved any more
    EXPECT_FALSE(w.dc.RestoreDC(0));
    w.dc.SaveDC();
    EXPECT_FALSE(w.dc.RestoreDC(2));
    EXPECT_FALSE(w.dc.RestoreDC(-2));
}

TEST(DcClip, DcWithoutSurfaceDrawsNothingAndHandlesGoWithIt)
{
    HDC hdc;
    {
        CDC dc;
        hdc = dc.GetSafeHdc();
        EXPECT_EQ(CDC::FromHandle(hdc), &dc);
        dc.FillSolidRect(0, 0, 10, 10, 0);
        dc.TextOut(0, 0, "x", 1);
        dc.LineTo(5, 5);
        EXPECT_EQ(dc.GetPixel(0, 0), CLR_INVALID);
        CRect box(1, 1, 2, 2);
        EXPECT_EQ(dc.GetClipBox(&box), NULLREGION);
        EXPECT_TRUE(box.IsRectEmpty());
    }
    EXPECT_EQ(CDC::FromHandle(hdc), nullptr);
    Canvas c(4, 4);
    EXPECT_TRUE(c.dc.DeleteDC());
    c.dc.FillSolidRect(0, 0, 4, 4, 0);
    EXPECT_EQ(c.Count(kWhite, c.surface.Bounds()), 16);
}

TEST(DcClip, ExtremeCoordinatesStayDefined)
{
    Canvas c(10, 10);
    c.dc.SetViewportOrg(INT_MAX, INT_MIN);
    c.dc.FillSolidRect(INT_MIN, INT_MAX, INT_MAX, INT_MAX, 0);
    c.dc.SetViewportOrg(0, 0);
    c.dc.FillSolidRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX, RGB(255, 0, 0));
    c.dc.Rectangle(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    c.dc.Draw3dRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX, 0, 0);
    c.dc.PatBlt(INT_MAX, INT_MAX, INT_MAX, INT_MAX, PATCOPY);
    c.dc.TextOut(INT_MAX - 1, INT_MAX - 1, "abc", 3);
    CRect huge(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    c.dc.DrawText("a\nb", -1, &huge, DT_CENTER);
    c.dc.DrawText("a", -1, &huge, DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    c.dc.IntersectClipRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    c.dc.DrawFocusRect(&huge);
    EXPECT_EQ(c.At(5, 5), 0xFFFFFFu);  // the white stock brush filled the inside
}

TEST(DcClip, SetPixelWritesOnlyInsideTheClipAndTheSurface)
{
    WindowCanvas w;
    // Inside: the colour set comes back and lands at the client corner's offset.
    EXPECT_EQ(w.dc.SetPixel(19, 14, RGB(255, 0, 0)), RGB(255, 0, 0));
    EXPECT_EQ(w.surface.GetPixel(29, 19), kRed);
    EXPECT_EQ(w.dc.GetPixel(19, 14), RGB(255, 0, 0));
    // Just outside each edge of the clip, and far outside: refused, nothing written.
    for (const CPoint p : {CPoint(-1, 0), CPoint(0, -1), CPoint(20, 0), CPoint(0, 15), CPoint(-10, -5), CPoint(25, 20),
                           CPoint(INT_MIN, INT_MIN), CPoint(INT_MAX, INT_MAX)}) {
        EXPECT_EQ(w.dc.SetPixel(p, RGB(0, 0, 255)), CLR_INVALID) << testing::PrintToString(p);
        EXPECT_EQ(w.dc.GetPixel(p), CLR_INVALID) << testing::PrintToString(p);
    }
    EXPECT_EQ(w.Count(kWhite, w.surface.Bounds()), 40 * 30 - 1);

    // A narrowed clip refuses what the window clip allows.
    w.dc.IntersectClipRect(2, 2, 4, 4);
    EXPECT_EQ(w.dc.SetPixel(1, 2, RGB(0, 0, 255)), CLR_INVALID);
    EXPECT_EQ(w.dc.SetPixel(4, 3, RGB(0, 0, 255)), CLR_INVALID);
    EXPECT_EQ(w.dc.SetPixel(3, 3, RGB(0, 0, 255)), RGB(0, 0, 255));
    EXPECT_EQ(w.surface.GetPixel(13, 8), 0x0000FFu);
    EXPECT_EQ(w.Count(kWhite, w.surface.Bounds()), 40 * 30 - 2);

    // A clip box reaching past the surface still stops at its edge.
    Canvas c(4, 4, kWhite, CPoint(0, 0), CRect(-10, -10, 10, 10));
    for (const CPoint p : {CPoint(-1, 0), CPoint(4, 0), CPoint(0, 4), CPoint(3, -1)})
        EXPECT_EQ(c.dc.SetPixel(p, RGB(255, 0, 0)), CLR_INVALID) << testing::PrintToString(p);
    EXPECT_EQ(c.Count(kWhite, c.surface.Bounds()), 16);

    // A memory DC draws only into its bitmap.
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&c.dc, 3, 2));
    CDC mem;
    mem.CreateCompatibleDC(&c.dc);
    mem.SelectObject(&bitmap);
    EXPECT_EQ(mem.SetPixel(2, 1, RGB(255, 0, 0)), RGB(255, 0, 0));
    EXPECT_EQ(mem.SetPixel(3, 1, RGB(255, 0, 0)), CLR_INVALID);
    EXPECT_EQ(mem.SetPixel(2, 2, RGB(255, 0, 0)), CLR_INVALID);
    EXPECT_EQ(bitmap.GetSurface()->Pixels(), (std::vector<std::uint32_t>{0, 0, 0, 0, 0, kRed}));
}
