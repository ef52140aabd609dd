#include <gtest/gtest.h>

#include "gdi_test_support.h"
#include "platform/gdi/icon.h"

using gdi_test::Bytes;
using gdi_test::Canvas;
using gdi_test::IconEntry;
using gdi_test::MakeIco;
using gdi_test::MakeIconImage;

namespace {

constexpr std::uint32_t kGray = 0x808080;

// A 4-bit icon: a red square, transparent in its left half.
IconEntry HalfIcon(int size)
{
    const std::vector<std::uint32_t> palette = {0x000000, 0xFF0000};
    std::vector<std::uint32_t> pixels(static_cast<size_t>(size * size)), mask(pixels.size());
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            const bool through = x < size / 2;
            pixels[static_cast<size_t>(y * size + x)] = through ? 0 : 1;  // black under the mask: leaves the screen
            mask[static_cast<size_t>(y * size + x)] = through ? 1 : 0;
        }
    return {size, size, 4, MakeIconImage(size, size, 4, palette, pixels, mask)};
}

struct Icon {
    explicit Icon(HICON h) : handle(h) {}
    ~Icon() { DestroyIcon(handle); }
    HICON handle;
};

}  // namespace

TEST(Icon, MaskLetsTheScreenShowThrough)
{
    const Bytes file = MakeIco({HalfIcon(16)});
    Icon icon(CreateIconFromIcoBytes(file.data(), file.size(), 16, 16));
    ASSERT_NE(icon.handle, nullptr);
    EXPECT_EQ(GetIconSize(icon.handle), CSize(16, 16));
    Canvas c(20, 20, kGray);
    EXPECT_TRUE(c.dc.DrawIcon(2, 2, icon.handle));
    EXPECT_EQ(c.Count(kGray, CRect(2, 2, 10, 18)), 8 * 16);
    EXPECT_EQ(c.Count(0xFF0000, CRect(10, 2, 18, 18)), 8 * 16);
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 400 - 8 * 16);
}

TEST(Icon, MaskAloneAndImageAlone)
{
    const Bytes file = MakeIco({HalfIcon(16)});
    Icon icon(CreateIconFromIcoBytes(file.data(), file.size(), 16, 16));
    Canvas mask(16, 16, kGray), image(16, 16, kGray);
    mask.dc.DrawIconEx(0, 0, icon.handle, 0, 0, 0, nullptr, DI_MASK);
    image.dc.DrawIconEx(0, 0, icon.handle, 0, 0, 0, nullptr, DI_IMAGE);
    EXPECT_EQ(mask.At(0, 0), 0xFFFFFFu);
    EXPECT_EQ(mask.At(15, 0), 0x000000u);
    EXPECT_EQ(image.At(0, 0), 0x000000u);
    EXPECT_EQ(image.At(15, 0), 0xFF0000u);
    EXPECT_FALSE(image.dc.DrawIconEx(0, 0, icon.handle, 0, 0, 0, nullptr, 0));
}

TEST(Icon, NearestSizeIsChosen)
{
    const Bytes file = MakeIco({HalfIcon(16), HalfIcon(32)});
    const std::pair<int, int> cases[] = {{16, 16}, {0, 32}, {20, 16}, {48, 32}, {24, 16}};
    for (const auto& [asked, got] : cases) {
        Icon icon(CreateIconFromIcoBytes(file.data(), file.size(), asked, asked));
        EXPECT_EQ(GetIconSize(icon.handle), CSize(got, got)) << asked;
    }
}

TEST(Icon, AlphaChannelBlends)
{
    const std::vector<std::uint32_t> pixels = {0x00FF0000, 0xFF00FF00, 0x800000FF, 0xFF000000};
    const IconEntry entry{2, 2, 32, MakeIconImage(2, 2, 32, {}, pixels, {0, 0, 0, 0})};
    const Bytes file = MakeIco({entry});
    Icon icon(CreateIconFromIcoBytes(file.data(), file.size(), 2, 2));
    ASSERT_NE(icon.handle, nullptr);
    Canvas c(2, 2, 0xFFFFFF);
    c.dc.DrawIcon(0, 0, icon.handle);
    EXPECT_EQ(c.At(0, 0), 0xFFFFFFu);  // alpha 0
    EXPECT_EQ(c.At(1, 0), 0x00FF00u);  // alpha 255
    EXPECT_EQ(c.At(0, 1), 0x7F7FFFu);  // half way from white to blue
    EXPECT_EQ(c.At(1, 1), 0x000000u);
}

TEST(Icon, DrawIconExScales)
{
    const Bytes file = MakeIco({HalfIcon(16)});
    Icon icon(CreateIconFromIcoBytes(file.data(), file.size(), 16, 16));
    Canvas c(40, 40, kGray);
    EXPECT_TRUE(c.dc.DrawIconEx(0, 0, icon.handle, 32, 8, 0, nullptr, DI_NORMAL));
    EXPECT_EQ(c.Count(kGray, CRect(0, 0, 16, 8)), 16 * 8);
    EXPECT_EQ(c.Count(0xFF0000, CRect(16, 0, 32, 8)), 16 * 8);
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 1600 - 16 * 8);
    HDC hdc = c.dc.GetSafeHdc();
    EXPECT_TRUE(DrawIconEx(hdc, 0, 20, icon.handle, 0, 0, 0, nullptr, DI_NORMAL));
    EXPECT_EQ(c.At(15, 35), 0xFF0000u);
}

TEST(Icon, DestroyedIconsAreGone)
{
    const Bytes file = MakeIco({HalfIcon(16)});
    HICON icon = CreateIconFromIcoBytes(file.data(), file.size(), 16, 16);
    EXPECT_TRUE(DestroyIcon(icon));
    EXPECT_FALSE(DestroyIcon(icon));
    EXPECT_FALSE(DestroyIcon(nullptr));
    Canvas c(16, 16, kGray);
    EXPECT_FALSE(c.dc.DrawIcon(0, 0, icon));
    EXPECT_EQ(GetIconSize(icon), CSize(0, 0));
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 256);
}

TEST(Icon, MalformedFilesGiveNoIcon)
{
    const Bytes good = MakeIco({HalfIcon(16)});
    auto with = [&](size_t at, unsigned char v) {
        Bytes b = good;
        b[at] = v;
        return b;
    };
    auto none = [](const Bytes& b) {
        HICON icon = CreateIconFromIcoBytes(b.data(), b.size(), 16, 16);
        DestroyIcon(icon);
        return icon == nullptr;
    };
    ASSERT_FALSE(none(good));
    EXPECT_TRUE(none(with(0, 1)));     // reserved word
    EXPECT_TRUE(none(with(2, 3)));     // not an icon or cursor
    EXPECT_TRUE(none(with(4, 0)));     // no images
    EXPECT_TRUE(none(with(4, 0xFF)));  // directory longer than the file
    EXPECT_TRUE(none(with(21, 0x7F))); // image offset far past the end
    EXPECT_TRUE(none(with(6 + 16 + 14, 3)));  // image depth that does not exist
    EXPECT_EQ(CreateIconFromIcoBytes(nullptr, 50, 16, 16), nullptr);
    for (size_t n = 0; n < good.size(); ++n) {
        std::vector<unsigned char> cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(n));
        EXPECT_EQ(CreateIconFromIcoBytes(cut.data(), cut.size(), 16, 16), nullptr) << n;
    }
}

TEST(Icon, AddIconChecksItsVectors)
{
    gdi::IconImage bad;
    bad.width = 2;
    bad.height = 2;
    bad.color.resize(3);
    EXPECT_EQ(gdi::AddIcon(bad), nullptr);
    bad.color.resize(4);
    bad.andMask.resize(1);
    EXPECT_EQ(gdi::AddIcon(bad), nullptr);
}
