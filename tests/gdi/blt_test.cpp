#include <gtest/gtest.h>

#include "gdi_test_support.h"

using gdi_test::Canvas;

namespace {
constexpr std::uint32_t kWhite = 0xFFFFFF, kBlack = 0x000000, kMagenta = 0xFF00FF;

// A colour bitmap selected into a memory DC, pixel (x, y) = x * 16 + y.
struct Source {
    explicit Source(CDC* like, int w = 6, int h = 6)
    {
        bitmap.CreateCompatibleBitmap(like, w, h);
        dc.CreateCompatibleDC(like);
        dc.SelectObject(&bitmap);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) bitmap.GetSurface()->SetPixel(x, y, static_cast<std::uint32_t>(x * 16 + y));
    }
    CBitmap bitmap;
    CDC dc;
};
}  // namespace

TEST(BitBlt, CopiesABlockFromAMemoryDc)
{
    Canvas c(12, 12);
    Source src(&c.dc);
    EXPECT_TRUE(c.dc.BitBlt(5, 5, 3, 2, &src.dc, 1, 2, SRCCOPY));
    EXPECT_EQ(c.At(5, 5), 0x12u);
    EXPECT_EQ(c.At(7, 6), 0x33u);
    EXPECT_EQ(c.Count(kWhite, c.surface.Bounds()), 144 - 6);
}

TEST(BitBlt, OnlyPixelsTheSourceHasAndTheClipAllowsAreCopied)
{
    Canvas c(12, 12);
    Source src(&c.dc, 4, 4);
    c.dc.BitBlt(0, 0, 10, 10, &src.dc, 2, -1, SRCCOPY);
    EXPECT_EQ(c.At(0, 1), 0x20u);
    EXPECT_EQ(c.At(1, 4), 0x33u);
    EXPECT_EQ(c.Count(kWhite, c.surface.Bounds()), 144 - 2 * 4);

    Canvas clipped(12, 12);
    clipped.dc.IntersectClipRect(2, 2, 4, 4);
    clipped.dc.BitBlt(0, 0, 6, 6, &src.dc, 0, 0, SRCCOPY);
    EXPECT_EQ(clipped.Count(kWhite, clipped.surface.Bounds()), 144 - 4);
    EXPECT_EQ(clipped.At(3, 3), 0x33u);
}

TEST(BitBlt, RasterOperationsCombineBits)
{
    const std::pair<DWORD, std::uint32_t> cases[] = {
        {SRCAND, 0x0F0F0F & 0x00FF33}, {SRCPAINT, 0x0F0F0F | 0x00FF33}, {SRCINVERT, 0x0F0F0F ^ 0x00FF33},
        {NOTSRCCOPY, ~0x00FF33u & 0xFFFFFF}, {SRCERASE, 0x00FF33 & ~0x0F0F0Fu & 0xFFFFFF}};
    for (const auto& [rop, expected] : cases) {
        Canvas c(2, 1, 0x0F0F0F);
        Canvas s(2, 1, 0x00FF33);
        EXPECT_TRUE(c.dc.BitBlt(0, 0, 1, 1, &s.dc, 0, 0, rop));
        EXPECT_EQ(c.At(0, 0), expected) << std::hex << rop;
        EXPECT_EQ(c.At(1, 0), 0x0F0F0Fu);
    }
}

TEST(BitBlt, OverlappingCopyWithinOneSurface)
{
    // Along a row and down a column, in both directions.
    for (const bool vertical : {false, true}) {
        Canvas c(vertical ? 1 : 8, vertical ? 8 : 1);
        for (int i = 0; i < 8; ++i) c.surface.SetPixel(vertical ? 0 : i, vertical ? i : 0, static_cast<std::uint32_t>(i));
        auto blt = [&](int to, int count, int from) {
            if (vertical) c.dc.BitBlt(0, to, 1, count, &c.dc, 0, from, SRCCOPY);
            else c.dc.BitBlt(to, 0, count, 1, &c.dc, from, 0, SRCCOPY);
        };
        blt(2, 5, 0);
        EXPECT_EQ(c.surface.Pixels(), (std::vector<std::uint32_t>{0, 1, 0, 1, 2, 3, 4, 7})) << vertical;
        blt(0, 5, 3);
        EXPECT_EQ(c.surface.Pixels(), (std::vector<std::uint32_t>{1, 2, 3, 4, 7, 3, 4, 7})) << vertical;
    }
}

TEST(BitBlt, MonochromeConversionsMakeAMaskAndPaintThrough)
{
    // The classic transparent blit: a mask from the magenta background, then
    // SRCINVERT / SRCAND / SRCINVERT paints everything but magenta.
    Canvas screen(4, 1, 0x0000FF);
    Canvas image(4, 1, kMagenta);
    image.surface.SetPixel(1, 0, 0x00FF00);
    image.surface.SetPixel(2, 0, 0x123456);
    CDC maskDc;
    maskDc.CreateCompatibleDC(&screen.dc);
    CBitmap mask;
    ASSERT_TRUE(mask.CreateCompatibleBitmap(&maskDc, 4, 1));  // a fresh memory DC is monochrome
    BITMAP info;
    mask.GetBitmap(&info);
    EXPECT_EQ(info.bmBitsPixel, 1);
    EXPECT_EQ(maskDc.GetDeviceCaps(BITSPIXEL), 1);
    maskDc.SelectObject(&mask);
    EXPECT_EQ(maskDc.GetDeviceCaps(BITSPIXEL), 1);
    image.dc.SetBkColor(RGB(255, 0, 255));
    maskDc.BitBlt(0, 0, 4, 1, &image.dc, 0, 0, SRCCOPY);
    const std::vector<std::uint32_t> maskBits = {kWhite, kBlack, kBlack, kWhite};
    EXPECT_EQ(mask.GetSurface()->Pixels(), maskBits);

    screen.dc.SetTextColor(RGB(0, 0, 0));
    screen.dc.SetBkColor(RGB(255, 255, 255));
    screen.dc.BitBlt(0, 0, 4, 1, &image.dc, 0, 0, SRCINVERT);
    screen.dc.BitBlt(0, 0, 4, 1, &maskDc, 0, 0, SRCAND);
    screen.dc.BitBlt(0, 0, 4, 1, &image.dc, 0, 0, SRCINVERT);
    const std::vector<std::uint32_t> result = {0x0000FF, 0x00FF00, 0x123456, 0x0000FF};
    EXPECT_EQ(screen.surface.Pixels(), result);

    // Monochrome to colour: black takes the text colour, white the background.
    Canvas tinted(4, 1);
    tinted.dc.SetTextColor(RGB(255, 0, 0));
    tinted.dc.SetBkColor(RGB(0, 255, 0));
    tinted.dc.BitBlt(0, 0, 4, 1, &maskDc, 0, 0, SRCCOPY);
    const std::vector<std::uint32_t> tints = {0x00FF00, 0xFF0000, 0xFF0000, 0x00FF00};
    EXPECT_EQ(tinted.surface.Pixels(), tints);
}

TEST(BitBlt, BadArgumentsFailWithoutDrawing)
{
    Canvas c(4, 4);
    EXPECT_FALSE(c.dc.BitBlt(0, 0, 2, 2, nullptr, 0, 0, SRCCOPY));
    EXPECT_FALSE(c.dc.BitBlt(0, 0, -2, 2, &c.dc, 0, 0, SRCCOPY));
    EXPECT_FALSE(c.dc.BitBlt(0, 0, 2, 2, &c.dc, 0, 0, 0x00AA0029));
    EXPECT_TRUE(c.dc.BitBlt(0, 0, 2, 2, nullptr, 0, 0, BLACKNESS));  // needs no source
    EXPECT_EQ(c.Count(kBlack, c.surface.Bounds()), 4);
    CDC mem;
    mem.CreateCompatibleDC(&c.dc);
    {
        CBitmap gone;
        gone.CreateCompatibleBitmap(&c.dc, 4, 4);
        mem.SelectObject(&gone);
    }
    EXPECT_FALSE(c.dc.BitBlt(0, 0, 4, 4, &mem, 0, 0, SRCCOPY));
    EXPECT_EQ(mem.GetSurface(), nullptr);
}
