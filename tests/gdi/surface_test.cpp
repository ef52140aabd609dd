#include <gtest/gtest.h>

#include "platform/gdi/surface.h"

TEST(Surface, PixelAccessOutsideIsIgnored)
{
    Surface s(4, 3, 0x112233);
    s.SetPixel(-1, 0, 0xFFFFFF);
    s.SetPixel(4, 0, 0xFFFFFF);
    s.SetPixel(0, 3, 0xFFFFFF);
    for (std::uint32_t p : s.Pixels()) EXPECT_EQ(p, 0x112233u);
    EXPECT_EQ(s.GetPixel(-1, 0), 0u);
    EXPECT_EQ(s.GetPixel(0, 3), 0u);
    s.SetPixel(3, 2, 0xFFABCDEF);  // the top byte is never stored
    EXPECT_EQ(s.GetPixel(3, 2), 0xABCDEFu);
}

TEST(Surface, RefusesSizesThatWouldBeHuge)
{
    EXPECT_TRUE(Surface(-5, 10).IsEmpty());
    EXPECT_TRUE(Surface(10, 0).IsEmpty());
    EXPECT_TRUE(Surface(Surface::kMaxSide + 1, 1).IsEmpty());
    EXPECT_TRUE(Surface(10000, 10000).IsEmpty());
    const Surface ok(Surface::kMaxSide, 2);
    EXPECT_EQ(ok.Width(), Surface::kMaxSide);
    EXPECT_EQ(ok.Pixels().size(), static_cast<size_t>(Surface::kMaxSide) * 2);
}

TEST(Surface, CopyIsCutToTheSurface)
{
    Surface s(5, 5);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 5; ++x) s.SetPixel(x, y, static_cast<std::uint32_t>(y * 10 + x));
    const Surface part = s.Copy(CRect(3, -2, 9, 2));
    ASSERT_EQ(part.Width(), 2);
    ASSERT_EQ(part.Height(), 2);
    EXPECT_EQ(part.GetPixel(0, 0), 3u);
    EXPECT_EQ(part.GetPixel(1, 1), 14u);
    EXPECT_TRUE(s.Copy(CRect(6, 6, 9, 9)).IsEmpty());
}

TEST(Surface, ColorRefAndPixelSwapRedAndBlue)
{
    EXPECT_EQ(ColorRefToPixel(RGB(0x12, 0x34, 0x56)), 0x123456u);
    EXPECT_EQ(PixelToColorRef(0x123456), RGB(0x12, 0x34, 0x56));
    EXPECT_EQ(ColorRefToPixel(0xFF000000u | RGB(1, 2, 3)), 0x010203u);
}
