#include <gtest/gtest.h>

#include "gdi_test_support.h"
#include "platform/gdi/icon.h"

using gdi_test::Bytes;
using gdi_test::Canvas;
using gdi_test::IconEntry;
using gdi_test::MakeIco;

namespace {

constexpr std::uint32_t kGray = 0x808080;

// A 4-bit icon: a red square, transparent in its left half.
IconEntry HalfIcon(int size)
{
    std::vector<std::uint32_t> pixels(static_cast<size_t>(size * size)), mask(pixels.size());
    for (size_t i = 0; i < pixels.size(); ++i) {
        mask[i] = static_cast<int>(i % size) < size / 2;
        pixels[i] = !mask[i];  // palette: black under the mask, red elsewhere
    }
    return {size, size, 4, gdi_test::MakeIconImage(size, size, 4, {0x000000, 0xFF0000}, pixels, mask)};
}

struct Icon {
    Icon(const Bytes& file, int size) : handle(CreateIconFromIcoBytes(file.data(), file.size(), size, size)) {}
    ~Icon() { DestroyIcon(handle); }
    HICON handle;
};

}  // namespace

TEST(Icon, MaskLetsTheScreenShowThrough)
{
    Icon icon(MakeIco({HalfIcon(16)}), 16);
    ASSERT_NE(icon.handle, nullptr);
    Canvas c(20, 20, kGray);
    EXPECT_TRUE(c.dc.DrawIcon(2, 2, icon.handle));
    EXPECT_EQ(c.Count(0xFF0000, CRect(10, 2, 18, 18)), 8 * 16);
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 400 - 8 * 16);
}

TEST(Icon, DrawIconExScalesAndDrawsMaskOrImageAlone)
{
    Icon icon(MakeIco({HalfIcon(16)}), 16);
    Canvas c(40, 40, kGray);
    EXPECT_TRUE(c.dc.DrawIconEx(0, 0, icon.handle, 32, 8, 0, nullptr, DI_NORMAL));
    EXPECT_EQ(c.Count(0xFF0000, CRect(16, 0, 32, 8)), 16 * 8);
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 1600 - 16 * 8);
    EXPECT_TRUE(DrawIconEx(c.dc.GetSafeHdc(), 0, 20, icon.handle, 0, 0, 0, nullptr, DI_MASK));
    EXPECT_EQ(c.At(0, 20), 0xFFFFFFu);
    EXPECT_EQ(c.At(15, 35), 0x000000u);
    EXPECT_TRUE(c.dc.DrawIconEx(20, 20, icon.handle, 0, 0, 0, nullptr, DI_IMAGE));
    EXPECT_EQ(c.At(20, 20), 0x000000u);
    EXPECT_FALSE(c.dc.DrawIconEx(0, 0, icon.handle, 0, 0, 0, nullptr, 0));
}

TEST(Icon, NearestSizeIsChosen)
{
    const Bytes file = MakeIco({HalfIcon(16), HalfIcon(32)});
    for (const auto& [asked, got] : {std::pair{16, 16}, {0, 32}, {20, 16}, {48, 32}, {24, 16}}) {
        Icon icon(file, asked);
        EXPECT_EQ(GetIconSize(icon.handle), CSize(got, got)) << asked;
    }
}

TEST(Icon, AlphaChannelBlends)
{
    const std::vector<std::uint32_t> pixels = {0x00FF0000, 0xFF00FF00, 0x800000FF, 0xFF000000};
    Icon icon(MakeIco({{2, 2, 32, gdi_test::MakeIconImage(2, 2, 32, {}, pixels, {0, 0, 0, 0})}}), 2);
    ASSERT_NE(icon.handle, nullptr);
    Canvas c(2, 2, 0xFFFFFF);
    c.dc.DrawIcon(0, 0, icon.handle);
    EXPECT_EQ(c.surface.Pixels(), (std::vector<std::uint32_t>{0xFFFFFF, 0x00FF00, 0x7F7FFF, 0x000000}));
}

TEST(Icon, ThirtyTwoBitsWithoutAlphaDrawThroughTheirMask)
{
    // Alpha bytes all zero: the mask decides, and unmasked pixels are opaque.
    const std::vector<std::uint32_t> pixels = {0x00FF0000, 0x0000FF00, 0x00000000, 0x000000FF};
    const std::vector<std::uint32_t> mask = {0, 0, 1, 0};
    Icon icon(MakeIco({{2, 2, 32, gdi_test::MakeIconImage(2, 2, 32, {}, pixels, mask)}}), 2);
    ASSERT_NE(icon.handle, nullptr);
    Canvas c(2, 2, kGray);
    EXPECT_TRUE(c.dc.DrawIcon(0, 0, icon.handle));
    EXPECT_EQ(c.surface.Pixels(), (std::vector<std::uint32_t>{0xFF0000, 0x00FF00, kGray, 0x0000FF}));

    // Without a mask as well, nothing says what is transparent: no icon.
    Bytes bare;
    gdi_test::Header(bare, 2, 4, 32, 0, 0);
    for (std::uint32_t p : pixels) bare.U32(p);
    Icon none(MakeIco({{2, 2, 32, bare}}), 2);
    EXPECT_EQ(none.handle, nullptr);
    // With alpha and no mask, alpha decides.
    Bytes alpha;
    gdi_test::Header(alpha, 2, 4, 32, 0, 0);
    for (std::uint32_t p : {0xFFFF0000u, 0x0000FF00u, 0xFF000000u, 0xFF0000FFu}) alpha.U32(p);
    Icon blended(MakeIco({{2, 2, 32, alpha}}), 2);
    ASSERT_NE(blended.handle, nullptr);
    Canvas d(2, 2, kGray);
    EXPECT_TRUE(d.dc.DrawIcon(0, 0, blended.handle));
    EXPECT_EQ(d.surface.Pixels(), (std::vector<std::uint32_t>{0x000000, 0x0000FF, 0xFF0000, kGray}));
}

TEST(Icon, DestroyedIconsAreGone)
{
    const Bytes file = MakeIco({HalfIcon(16)});
    HICON icon = CreateIconFromIcoBytes(file.data(), file.size(), 16, 16);
    EXPECT_TRUE(DestroyIcon(icon));
    EXPECT_FALSE(DestroyIcon(icon));
    Canvas c(16, 16, kGray);
    EXPECT_FALSE(c.dc.DrawIcon(0, 0, icon));
    EXPECT_EQ(GetIconSize(icon), CSize(0, 0));
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 256);
}

TEST(Icon, MalformedFilesGiveNoIcon)
{
    const Bytes good = MakeIco({HalfIcon(16)});
    auto none = [&](size_t at, unsigned char v) {
        Bytes b = good;
        b[at] = v;
        Icon icon(b, 16);
        return icon.handle == nullptr;
    };
    ASSERT_FALSE(Icon(good, 16).handle == nullptr);
    EXPECT_TRUE(none(0, 1));           // reserved word
    EXPECT_TRUE(none(2, 3));           // not an icon or cursor
    EXPECT_TRUE(none(4, 0));           // no images
    EXPECT_TRUE(none(4, 0xFF));        // directory longer than the file
    EXPECT_TRUE(none(21, 0x7F));       // image offset far past the end
    EXPECT_TRUE(none(6 + 16 + 14, 3)); // image depth that does not exist
    EXPECT_EQ(CreateIconFromIcoBytes(nullptr, 50, 16, 16), nullptr);
    for (size_t n = 0; n < good.size(); ++n) {
        // Exact-size copies, so that the sanitizers see any read past the end.
        std::vector<unsigned char> cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(n));
        EXPECT_EQ(CreateIconFromIcoBytes(cut.data(), cut.size(), 16, 16), nullptr) << n;
    }
}
