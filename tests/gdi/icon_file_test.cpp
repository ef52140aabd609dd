// Icon files read image by image: the directory, each image's colours and
// its mask, and refusal of damaged files without reading past their end.
#include <gtest/gtest.h>

#include "gdi_test_support.h"
#include "platform/gdi/icon_file.h"

using gdi_test::Bytes;
using gdi_test::IconEntry;
using gdi_test::MakeIco;

namespace {

constexpr std::uint32_t kRed = 0xFF0000;

// `width` x 2 at 4 bits, red everywhere; the mask clears only the top-left
// pixel.
IconEntry RedImage(int width)
{
    const std::vector<std::uint32_t> pixels(static_cast<size_t>(width) * 2, 9);
    std::vector<std::uint32_t> mask(pixels.size(), 0);
    mask[0] = 1;
    std::vector<std::uint32_t> palette(16, 0);
    palette[9] = kRed;
    return {width, 2, 4, gdi_test::MakeIconImage(width, 2, 4, palette, pixels, mask)};
}

void Poke(Bytes& b, size_t at, std::uint32_t v, int bytes)
{
    for (int i = 0; i < bytes; ++i) b[at + static_cast<size_t>(i)] = static_cast<unsigned char>(v >> (8 * i));
}

bool Decodes(const Bytes& b)
{
    std::vector<gdi::DibImage> images;
    return gdi::DecodeIconFile(b.data(), b.size(), images);
}

}  // namespace

TEST(IconFile, ImagesComeInDirectoryOrderWithTheirMasks)
{
    const Bytes file = MakeIco({RedImage(3), RedImage(2)});
    std::vector<gdi::IconDirEntry> entries;
    ASSERT_TRUE(gdi::ReadIconDirectory(file.data(), file.size(), entries));
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].width, 3);
    EXPECT_EQ(entries[1].width, 2);
    EXPECT_EQ(entries[0].bitCount, 4);
    EXPECT_TRUE(entries[0].inFile && entries[1].inFile);
    EXPECT_EQ(entries[1].offset, entries[0].offset + entries[0].size);

    std::vector<gdi::DibImage> images;
    ASSERT_TRUE(gdi::DecodeIconFile(file.data(), file.size(), images));
    ASSERT_EQ(images.size(), 2u);
    const gdi::DibImage& first = images[0];
    EXPECT_EQ(first.width, 3);
    EXPECT_EQ(first.height, 2);
    EXPECT_EQ(first.bitsPixel, 4);
    EXPECT_TRUE(first.IsTransparent(0, 0));
    EXPECT_FALSE(first.IsTransparent(1, 0));
    EXPECT_FALSE(first.IsTransparent(0, 1));
    EXPECT_FALSE(first.IsTransparent(5, 0)) << "outside";
    EXPECT_EQ(first.At(2, 1) & 0xFFFFFF, kRed);
    EXPECT_EQ(images[1].width, 2);
    EXPECT_TRUE(images[1].IsTransparent(0, 0));
    EXPECT_FALSE(images[1].IsTransparent(1, 1));
}

TEST(IconFile, DamagedDirectoriesAndImagesAreRefused)
{
    const Bytes good = MakeIco({RedImage(3)});
    ASSERT_TRUE(Decodes(good));
    auto patched = [&](size_t at, std::uint32_t value, int bytes) {
        Bytes b = good;
        Poke(b, at, value, bytes);
        return Decodes(b);
    };
    EXPECT_FALSE(patched(0, 1, 2)) << "reserved word";
    EXPECT_FALSE(patched(2, 3, 2)) << "neither icon nor cursor";
    EXPECT_FALSE(patched(4, 0, 2)) << "no images";
    EXPECT_FALSE(patched(4, 2, 2)) << "directory longer than the file";
    EXPECT_FALSE(patched(6, 4, 1)) << "directory width differs from the image";
    EXPECT_FALSE(patched(6 + 12, 0, 4)) << "image over the directory";
    EXPECT_FALSE(patched(6 + 12, 0xFFFFFFF0u, 4)) << "offset past the end";
    EXPECT_FALSE(patched(6 + 8, 0xFFFFFFFFu, 4)) << "size past the end";
    EXPECT_FALSE(patched(22 + 8, 5, 4)) << "odd height cannot hold colour and mask";
    EXPECT_FALSE(patched(22 + 12, 2, 2)) << "two planes";
    EXPECT_FALSE(Decodes(Bytes()));
    std::vector<gdi::DibImage> images;
    EXPECT_FALSE(gdi::DecodeIconFile(nullptr, 100, images));
    std::vector<gdi::IconDirEntry> entries;
    EXPECT_FALSE(gdi::ReadIconDirectory(nullptr, 100, entries));

    // The directory is read even where an image is not: the entry says so.
    Bytes outside = good;
    Poke(outside, 6 + 12, 0xFFFFFFF0u, 4);
    ASSERT_TRUE(gdi::ReadIconDirectory(outside.data(), outside.size(), entries));
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_FALSE(entries[0].inFile);
}

TEST(IconFile, EveryTruncationIsRefusedSafely)
{
    const Bytes good = MakeIco({RedImage(3), RedImage(2)});
    for (size_t n = 0; n < good.size(); ++n) {
        // Exact-size copies, so that the sanitizers see any read past the end.
        std::vector<unsigned char> cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(n));
        std::vector<gdi::DibImage> images;
        EXPECT_FALSE(gdi::DecodeIconFile(cut.data(), cut.size(), images)) << n;
    }
}

TEST(IconFile, EntriesSharingOneLargeImageAreBounded)
{
    // Entries may all point at the same bytes: 65 of them at one 256 x 256
    // image would decode to more pixels than 64 images of the largest size.
    const std::vector<std::uint32_t> pixels(256 * 256, 1), mask(256 * 256, 0);
    const Bytes image = gdi_test::MakeIconImage(256, 256, 1, {0, 0xFFFFFF}, pixels, mask);
    auto sharing = [&](std::uint32_t count) {
        Bytes file;
        file.U16(0);
        file.U16(1);
        file.U16(count);
        for (std::uint32_t i = 0; i < count; ++i) {
            file.U32(0);  // 256 x 256, no colour count, reserved
            file.U16(1);
            file.U16(1);
            file.U32(static_cast<std::uint32_t>(image.size()));
            file.U32(6 + 16 * count);
        }
        file.insert(file.end(), image.begin(), image.end());
        return file;
    };
    std::vector<gdi::DibImage> images;
    const Bytes many = sharing(65);
    EXPECT_FALSE(gdi::DecodeIconFile(many.data(), many.size(), images));
    EXPECT_TRUE(images.empty());
    const Bytes few = sharing(3);
    ASSERT_TRUE(gdi::DecodeIconFile(few.data(), few.size(), images));
    ASSERT_EQ(images.size(), 3u);
    EXPECT_EQ(images[2].At(255, 255) & 0xFFFFFF, 0xFFFFFFu);
}
