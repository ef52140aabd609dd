#include <gtest/gtest.h>

#include "platform/gdi/surface.h"

TEST(Surface, PixelAccessOutsideIsIgnored)
{
    Surface s(4, 3, 0x112233);
    for (const auto& [x, y] : {std::pair{-1, 0}, {4, 0}, {0, 3}, {0, -1}}) {
        s.SetPixel(x, y, 0xFFFFFF);
        EXPECT_EQ(s.GetPixel(x, y), 0u);
    }
    for (std::uint32_t p : s.Pixels()) EXPECT_EQ(p, 0x112233u);
    s.SetPixel(3, 2, 0xFFABCDEF);  // the top byte is never stored
    EXPECT_EQ(s.GetPixel(3, 2), 0xABCDEFu);
}

TEST(Surface, RefusesSizesThatWouldBeHuge)
{
    EXPECT_TRUE(Surface(-5, 10).IsEmpty());
    EXPECT_TRUE(Surface(10, 0).IsEmpty());
    EXPECT_TRUE(Surface(Surface::kMaxSide + 1, 1).IsEmpty());
    EXPECT_TRUE(Surface(10000, 10000).IsEmpty());
    EXPECT_EQ(Surface(Surface::kMaxSide, 2).Pixels().size(), static_cast<size_t>(Surface::kMaxSide) * 2);
}

TEST(Surface, CopyIsCutToTheSurface)
{
    Surface s(5, 5);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 5; ++x) s.SetPixel(x, y, static_cast<std::uint32_t>(y * 10 + x));
    const Surface part = s.Copy(CRect(3, -2, 9, 2));
    EXPECT_EQ(part.Pixels(), (std::vector<std::uint32_t>{3, 4, 13, 14}));
    EXPECT_EQ(part.Width(), 2);
    EXPECT_TRUE(s.Copy(CRect(6, 6, 9, 9)).IsEmpty());
}
