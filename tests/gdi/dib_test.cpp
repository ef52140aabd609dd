#include <gtest/gtest.h>

#include "gdi_test_support.h"
#include "platform/gdi/dib.h"

using gdi_test::Bytes;
using gdi_test::MakeDib;

namespace {

std::vector<std::uint32_t> Decoded(const Bytes& bytes)
{
    gdi::DibImage image;
    EXPECT_TRUE(gdi::DecodeDib(bytes.data(), bytes.size(), image));
    for (std::uint32_t& p : image.argb) p &= 0xFFFFFF;
    return image.argb;
}

bool Rejected(const Bytes& bytes)
{
    gdi::DibImage image;
    return !gdi::DecodeDib(bytes.data(), bytes.size(), image);
}

void Poke(Bytes& b, size_t at, std::uint32_t v, int bytes)
{
    for (int i = 0; i < bytes; ++i) b[at + static_cast<size_t>(i)] = static_cast<unsigned char>(v >> (8 * i));
}
void Poke32(Bytes& b, size_t at, std::uint32_t v) { Poke(b, at, v, 4); }

const std::vector<std::uint32_t> kPalette = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF};

}  // namespace

TEST(Dib, PalettedDepthsBottomUpWithRowPadding)
{
    // 3 x 2 pixels: rows need padding at every depth.
    const std::vector<std::uint32_t> indices = {1, 2, 3, 3, 0, 1};
    const std::vector<std::uint32_t> colors = {0xFF0000, 0x00FF00, 0x0000FF, 0x0000FF, 0x000000, 0xFF0000};
    EXPECT_EQ(Decoded(MakeDib(3, 2, 4, kPalette, indices)), colors);
    EXPECT_EQ(Decoded(MakeDib(3, 2, 8, kPalette, indices)), colors);
    const std::vector<std::uint32_t> bits = {1, 0, 1, 0, 0, 1};
    const std::vector<std::uint32_t> mono = {0xFF0000, 0x000000, 0xFF0000, 0x000000, 0x000000, 0xFF0000};
    EXPECT_EQ(Decoded(MakeDib(3, 2, 1, kPalette, bits)), mono);

    // Both row orders; the palette comes back as the file has it.
    gdi::DibImage image;
    for (const bool topDown : {false, true}) {
        const Bytes b = MakeDib(3, 2, 4, kPalette, indices, topDown);
        ASSERT_TRUE(gdi::DecodeDib(b.data(), b.size(), image)) << topDown;
        EXPECT_EQ(image.bitsPixel, 4);
        EXPECT_EQ(image.palette, kPalette);
        EXPECT_EQ(image.At(0, 0), 0xFFFF0000u) << topDown;
        EXPECT_EQ(image.At(2, 1), 0xFFFF0000u) << topDown;
        EXPECT_EQ(image.At(1, 1), 0xFF000000u) << topDown;
        EXPECT_EQ(image.At(3, 0), 0u) << "outside";
        EXPECT_EQ(image.At(0, -1), 0u) << "outside";
        EXPECT_FALSE(image.IsTransparent(0, 0)) << "a bitmap has no mask";
    }

    // 9 wide at 1 bit: the ninth pixel is the top bit of the second byte.
    const std::vector<std::uint32_t> nine = {1, 0, 0, 0, 0, 0, 0, 1, 1};
    const std::vector<std::uint32_t> nineColors = {0x000000, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF,
                                                   0xFFFFFF, 0xFFFFFF, 0x000000, 0x000000};
    EXPECT_EQ(Decoded(MakeDib(9, 1, 1, {0xFFFFFF, 0x000000}, nine)), nineColors);

    // A file header is skipped; an index past the palette is black.
    const Bytes dib = MakeDib(2, 1, 8, {0xFF0000}, {0, 7});
    Bytes file;
    file.U16('B' | ('M' << 8));
    file.resize(14);
    file.insert(file.end(), dib.begin(), dib.end());
    EXPECT_EQ(Decoded(file), (std::vector<std::uint32_t>{0xFF0000, 0x000000}));
}

TEST(Dib, TrueColourDepthsAndTopDown)
{
    const std::vector<std::uint32_t> pixels = {0x123456, 0xABCDEF, 0x010203, 0xFFFFFF, 0x000000, 0x808080};
    EXPECT_EQ(Decoded(MakeDib(3, 2, 24, {}, pixels)), pixels);
    EXPECT_EQ(Decoded(MakeDib(3, 2, 32, {}, pixels)), pixels);
    EXPECT_EQ(Decoded(MakeDib(3, 2, 24, {}, pixels, true)), pixels);
}

TEST(Dib, SixteenBitPixelsAndBitFields)
{
    // 5-5-5: full red, full green; scaled so that 31 becomes 255.
    EXPECT_EQ(Decoded(MakeDib(2, 1, 16, {}, {0x7C00, 0x03E0})), (std::vector<std::uint32_t>{0xFF0000, 0x00FF00}));
    Bytes b;
    gdi_test::Header(b, 1, 1, 16, BI_BITFIELDS, 0);
    b.U32(0xF800);
    b.U32(0x07E0);
    b.U32(0x001F);
    b.U32(0x07E0 | 0x001F);  // one pixel, green and blue full
    EXPECT_EQ(Decoded(b), (std::vector<std::uint32_t>{0x00FFFF}));
}

TEST(Dib, ThirtyTwoBitAlphaCountsOnlyWhenSomePixelHasIt)
{
    // Every alpha byte zero: an ordinary 32-bit bitmap, which is opaque.
    const Bytes plain = MakeDib(2, 1, 32, {}, {0x00123456, 0x00ABCDEF});
    gdi::DibImage image;
    ASSERT_TRUE(gdi::DecodeDib(plain.data(), plain.size(), image));
    EXPECT_FALSE(image.hasAlpha);
    EXPECT_EQ(image.argb, (std::vector<std::uint32_t>{0xFF123456, 0xFFABCDEF}));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadFromDib(plain.data(), plain.size()));
    EXPECT_EQ(bitmap.GetSurface()->Pixels(), (std::vector<std::uint32_t>{0x123456, 0xABCDEF})) << "colours, not black";

    // One pixel with alpha: every pixel keeps its own, zero included.
    const Bytes blended = MakeDib(2, 1, 32, {}, {0x00123456, 0x80ABCDEF});
    ASSERT_TRUE(gdi::DecodeDib(blended.data(), blended.size(), image));
    EXPECT_TRUE(image.hasAlpha);
    EXPECT_EQ(image.argb, (std::vector<std::uint32_t>{0x00123456, 0x80ABCDEF}));

    // Bit fields: alpha comes from the alpha mask of a larger header; with
    // the plain header there is none, and the top byte is not alpha.
    Bytes fields;
    gdi_test::Header(fields, 1, 1, 32, BI_BITFIELDS, 0);
    fields.U32(0x00FF0000);
    fields.U32(0x0000FF00);
    fields.U32(0x000000FF);
    fields.U32(0x7F102030);
    ASSERT_TRUE(gdi::DecodeDib(fields.data(), fields.size(), image));
    EXPECT_FALSE(image.hasAlpha);
    EXPECT_EQ(image.argb, (std::vector<std::uint32_t>{0xFF102030}));
    Bytes withAlphaMask;
    gdi_test::Header(withAlphaMask, 1, 1, 32, BI_BITFIELDS, 0);
    withAlphaMask[0] = 56;  // the header carries the three masks and an alpha mask
    withAlphaMask.U32(0x00FF0000);
    withAlphaMask.U32(0x0000FF00);
    withAlphaMask.U32(0x000000FF);
    withAlphaMask.U32(0xFF000000);
    withAlphaMask.U32(0x7F102030);
    ASSERT_TRUE(gdi::DecodeDib(withAlphaMask.data(), withAlphaMask.size(), image));
    EXPECT_TRUE(image.hasAlpha);
    EXPECT_EQ(image.argb, (std::vector<std::uint32_t>{0x7F102030}));
}

TEST(Dib, MalformedHeadersAreRejected)
{
    const Bytes good = MakeDib(3, 2, 8, kPalette, {1, 2, 3, 3, 0, 1});
    ASSERT_FALSE(Rejected(good));
    auto with = [&](size_t at, std::uint32_t v) {
        Bytes b = good;
        Poke32(b, at, v);
        return b;
    };
    EXPECT_TRUE(Rejected(with(0, 12)));             // header too small
    EXPECT_TRUE(Rejected(with(0, 4000)));           // header past the end
    EXPECT_TRUE(Rejected(with(4, 0)));              // no width
    EXPECT_TRUE(Rejected(with(4, 0xFFFFFFFD)));     // negative width
    EXPECT_TRUE(Rejected(with(4, 1u << 20)));       // wider than any surface
    EXPECT_TRUE(Rejected(with(8, 0)));              // no height
    EXPECT_TRUE(Rejected(with(8, 0x80000000u)));    // the most negative height
    EXPECT_TRUE(Rejected(with(14, 7)));             // no such depth
    EXPECT_TRUE(Rejected(with(16, 1)));             // run-length compressed
    EXPECT_TRUE(Rejected(with(16, BI_BITFIELDS)));  // bit fields at 8 bits
    EXPECT_TRUE(Rejected(with(32, 300)));           // palette larger than the depth allows
    Bytes planes = good;
    Poke(planes, 12, 2, 2);
    EXPECT_TRUE(Rejected(planes));
    EXPECT_TRUE(Rejected(with(8, 3)));              // more rows than bytes
    EXPECT_TRUE(Rejected(Bytes()));
    gdi::DibImage image;
    EXPECT_FALSE(gdi::DecodeDib(nullptr, 100, image));
}

TEST(Dib, ColourTableLongerThanTheDepthIndexesIsSkipped)
{
    // 4 bits index 16 colours; the header lists 17. The rows start after all
    // 17 entries, and only the first 16 are colours of the image.
    std::vector<std::uint32_t> palette(17, 0x000000);
    palette[1] = 0x00FF00;
    palette[16] = 0xABCDEF;
    Bytes b = MakeDib(2, 1, 4, palette, {1, 0});
    gdi::DibImage image;
    ASSERT_TRUE(gdi::DecodeDib(b.data(), b.size(), image));
    EXPECT_EQ(image.palette.size(), 16u);
    EXPECT_EQ(image.At(0, 0), 0xFF00FF00u);
    EXPECT_EQ(image.At(1, 0), 0xFF000000u);
    b.pop_back();  // the row is 4 bytes; without its last one it is cut short
    EXPECT_FALSE(gdi::DecodeDib(b.data(), b.size(), image));
}

TEST(Dib, EveryTruncationIsRejectedSafely)
{
    for (int bpp : {1, 4, 8, 24, 32}) {
        const Bytes good = MakeDib(5, 3, bpp, bpp <= 8 ? kPalette : std::vector<std::uint32_t>{},
                                   std::vector<std::uint32_t>(15, 1));
        for (size_t n = 0; n < good.size(); ++n) {
            // An exact-size buffer so that the sanitizers see any read past it.
            std::vector<unsigned char> cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(n));
            gdi::DibImage image;
            EXPECT_FALSE(gdi::DecodeDib(cut.data(), cut.size(), image)) << bpp << " bpp, " << n << " bytes";
        }
    }
}

TEST(Dib, BitmapFromDibReportsItsSize)
{
    const Bytes bytes = MakeDib(3, 2, 4, kPalette, {1, 2, 3, 3, 0, 1});
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadFromDib(bytes.data(), bytes.size()));
    EXPECT_EQ(bitmap.GetSize(), CSize(3, 2));
    BITMAP info;
    ASSERT_EQ(bitmap.GetBitmap(&info), static_cast<int>(sizeof(BITMAP)));
    EXPECT_EQ(info.bmWidth, 3);
    EXPECT_EQ(info.bmHeight, 2);
    EXPECT_EQ(bitmap.GetSurface()->GetPixel(2, 0), 0x0000FFu);
    CBitmap bad;
    EXPECT_FALSE(bad.LoadFromDib(bytes.data(), 30));
    EXPECT_EQ(bad.GetBitmap(&info), 0);
}

TEST(Dib, CreateBitmapReadsWordAlignedRows)
{
    // 1 bit per pixel, 3 wide: each row is padded to 2 bytes.
    const unsigned char mono[] = {0xA0, 0x00, 0x40, 0x00};
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(3, 2, 1, 1, mono));
    const std::vector<std::uint32_t> expected = {0xFFFFFF, 0, 0xFFFFFF, 0, 0xFFFFFF, 0};
    EXPECT_EQ(bitmap.GetSurface()->Pixels(), expected);
    const unsigned char bgr[] = {0x03, 0x02, 0x01, 0x06, 0x05, 0x04};  // 6 bytes: already word-aligned
    CBitmap color;
    ASSERT_TRUE(color.CreateBitmap(2, 1, 1, 24, bgr));
    EXPECT_EQ(color.GetSurface()->Pixels(), (std::vector<std::uint32_t>{0x010203, 0x040506}));
}
