// Drawing into a monochrome bitmap: every colour a drawing call is given
// becomes black or white (light colours white), whatever path it takes
// (fills, pixels, lines, text, image lists, icons, blends), so the bitmap
// never holds anything else.
#include <gtest/gtest.h>

#include <algorithm>

#include "gdi_test_support.h"
#include "platform/gdi/icon.h"
#include "platform/gdi/image_list.h"

namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF, kBlack = 0x000000;

// A memory DC over a fresh monochrome bitmap (black), as a mask is made.
struct MonoCanvas {
    MonoCanvas(int width, int height)
    {
        dc.CreateCompatibleDC(nullptr);
        EXPECT_TRUE(bitmap.CreateCompatibleBitmap(&dc, width, height));
        dc.SelectObject(&bitmap);
    }
    const Surface& Pixels() const { return *bitmap.GetSurface(); }
    std::uint32_t At(int x, int y) const { return Pixels().GetPixel(x, y); }
    long Count(std::uint32_t pixel) const { return std::count(Pixels().Pixels().begin(), Pixels().Pixels().end(), pixel); }
    bool OnlyBlackAndWhite() const { return Count(kWhite) + Count(kBlack) == static_cast<long>(Pixels().Pixels().size()); }

    CDC dc;
    CBitmap bitmap;
};

}  // namespace

TEST(MonoBitmap, FillsPixelsAndShapesTakeTheNearerOfBlackAndWhite)
{
    MonoCanvas m(8, 4);
    EXPECT_EQ(m.dc.GetDeviceCaps(BITSPIXEL), 1);
    EXPECT_EQ(m.Count(kBlack), 32);

    m.dc.FillSolidRect(0, 0, 8, 4, RGB(200, 200, 200));  // light grey: white
    EXPECT_EQ(m.Count(kWhite), 32);
    m.dc.FillSolidRect(0, 0, 2, 2, RGB(255, 0, 0));  // red is dark: black
    EXPECT_EQ(m.At(1, 1), kBlack);
    EXPECT_EQ(m.At(2, 1), kWhite);
    EXPECT_EQ(m.Count(kBlack), 4);

    // SetPixel answers with the colour it really set.
    EXPECT_EQ(m.dc.SetPixel(4, 0, RGB(255, 255, 0)), RGB(255, 255, 255));  // yellow is light
    EXPECT_EQ(m.dc.SetPixel(5, 0, RGB(0, 0, 255)), RGB(0, 0, 0));          // blue is dark
    EXPECT_EQ(m.dc.SetPixel(6, 0, RGB(128, 128, 128)), RGB(255, 255, 255));
    EXPECT_EQ(m.dc.SetPixel(7, 0, RGB(127, 127, 127)), RGB(0, 0, 0));
    EXPECT_EQ(m.At(5, 0), kBlack);
    EXPECT_EQ(m.At(7, 0), kBlack);
    EXPECT_EQ(m.dc.GetPixel(4, 0), RGB(255, 255, 255));

    // A light brush inside a dark (default black) outline; a light pen line.
    CBrush cyan(RGB(0, 255, 255));
    m.dc.SelectObject(&cyan);
    m.dc.FillSolidRect(0, 0, 8, 4, RGB(0, 0, 0));
    m.dc.Rectangle(1, 0, 6, 4);
    EXPECT_EQ(m.Count(kWhite), 3 * 2);
    EXPECT_EQ(m.At(2, 1), kWhite);
    CPen green(PS_SOLID, 1, RGB(0, 255, 0));
    m.dc.SelectObject(&green);
    m.dc.MoveTo(6, 0);
    m.dc.LineTo(6, 4);
    EXPECT_EQ(m.Count(kWhite), 3 * 2 + 4);
    EXPECT_EQ(m.At(6, 3), kWhite);
    EXPECT_TRUE(m.OnlyBlackAndWhite());
}

TEST(MonoBitmap, TextInksAndFillsInBlackAndWhite)
{
    gdi_test::BoxGlyphs boxes;
    MonoCanvas m(40, 20);
    m.dc.FillSolidRect(0, 0, 40, 20, RGB(255, 255, 255));  // sets the background colour too
    m.dc.SetTextColor(RGB(255, 255, 0));  // light ink
    m.dc.SetBkColor(RGB(0, 0, 128));      // on a dark cell
    ASSERT_TRUE(m.dc.TextOut(2, 2, "Ab", 2));
    const CSize extent = m.dc.GetTextExtent("Ab", 2);
    int ink = 0, cell = 0;
    for (int y = 2; y < 2 + extent.cy; ++y)
        for (int x = 2; x < 2 + extent.cx; ++x) (m.At(x, y) == kWhite ? ink : cell)++;
    EXPECT_GT(ink, 0) << "the glyph boxes";
    EXPECT_GT(cell, 0) << "the opaque background of the cells";
    EXPECT_EQ(m.Count(kBlack), cell) << "nothing dark outside the text cells";
    EXPECT_TRUE(m.OnlyBlackAndWhite());
}

TEST(MonoBitmap, ImagesAndIconsBlendToBlackOrWhite)
{
    MonoCanvas m(12, 4);
    m.dc.FillSolidRect(0, 0, 12, 4, RGB(255, 255, 255));

    // An image list of one 4 x 4 image: light yellow with a dark red corner.
    CImageList list;
    ASSERT_TRUE(list.Create(4, 4, ILC_COLOR24, 0, 1));
    Surface strip(4, 4, 0xFFFF00);
    strip.SetPixel(0, 0, 0x800000);
    CBitmap image;
    ASSERT_TRUE(image.CreateFromSurface(strip));
    ASSERT_EQ(list.Add(&image, CLR_NONE), 0);
    EXPECT_TRUE(list.Draw(&m.dc, 0, CPoint(0, 0), ILD_NORMAL));
    EXPECT_EQ(m.At(0, 0), kBlack);
    EXPECT_EQ(m.At(1, 0), kWhite);
    // Blended with the highlight, yellow turns mid-grey: it must still be one of the two.
    EXPECT_TRUE(list.Draw(&m.dc, 0, CPoint(4, 0), ILD_BLEND50));
    EXPECT_TRUE(m.OnlyBlackAndWhite());

    // An icon with half-transparent pixels blends over the bitmap.
    gdi::IconImage icon;
    icon.width = icon.height = 2;
    icon.color = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};
    icon.alpha = {0x80, 0x80, 0x40, 0xFF};
    HICON handle = gdi::AddIcon(icon);
    ASSERT_NE(handle, nullptr);
    EXPECT_TRUE(m.dc.DrawIcon(8, 0, handle));
    EXPECT_TRUE(m.OnlyBlackAndWhite());
    EXPECT_EQ(m.At(9, 0), kWhite) << "half green over white is light";
    EXPECT_EQ(m.At(9, 1), kWhite);
    DestroyIcon(handle);
}
