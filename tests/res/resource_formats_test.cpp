// The readers of resource byte layouts, fed hand-built blobs: well-formed ones
// must read back exactly, damaged ones must be refused without reading past
// the end (the sanitizer build checks the latter).
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/core/resource_formats.h"

namespace {

struct Blob {
    std::vector<unsigned char> bytes;

    Blob& Word(unsigned value)
    {
        bytes.push_back(static_cast<unsigned char>(value & 0xFF));
        bytes.push_back(static_cast<unsigned char>((value >> 8) & 0xFF));
        return *this;
    }
    Blob& Dword(std::uint32_t value) { return Word(value & 0xFFFF).Word(value >> 16); }
    Blob& Byte(unsigned value)
    {
        bytes.push_back(static_cast<unsigned char>(value));
        return *this;
    }
    Blob& Text(std::string_view text)
    {
        bytes.insert(bytes.end(), text.begin(), text.end());
        bytes.push_back(0);
        return *this;
    }
    Blob& Append(const std::vector<unsigned char>& more)
    {
        bytes.insert(bytes.end(), more.begin(), more.end());
        return *this;
    }
    const unsigned char* data() const { return bytes.data(); }
    size_t size() const { return bytes.size(); }
};

// A context menu: popup "Edit" with Copy, a separator, a nested popup "View"
// (Zoom grayed, Wrap checked) and Quit marked disabled.
Blob SampleMenu()
{
    Blob b;
    b.Word(0).Word(0);
    b.Word(MF_POPUP | MF_END).Text("Edit");
    b.Word(0).Word(100).Text("&Copy\tCtrl+C");
    b.Word(0).Word(0).Text("");
    b.Word(MF_POPUP).Text("View");
    b.Word(MF_GRAYED).Word(201).Text("Zoom");
    b.Word(MF_CHECKED | MF_END).Word(202).Text("Wrap");
    b.Word(MF_DISABLED | MF_END).Word(300).Text("Quit");
    return b;
}

// Popups nested `popups` deep around one command item.
Blob NestedMenu(int popups)
{
    Blob b;
    b.Word(0).Word(0);
    for (int i = 0; i < popups; ++i) b.Word(MF_POPUP | MF_END).Text("p");
    b.Word(MF_END).Word(1).Text("leaf");
    return b;
}

TEST(MenuTemplate, ReadsNestedItemsWithFlagsAndText)
{
    const Blob b = SampleMenu();
    const auto menu = ParseMenuTemplate(b.data(), b.size());
    ASSERT_TRUE(menu);
    ASSERT_EQ(menu->size(), 1u);
    const MenuTemplateItem& edit = (*menu)[0];
    EXPECT_TRUE(edit.IsPopup());
    EXPECT_EQ(edit.flags, MF_POPUP);  // MF_END is structure, not a property of the item
    EXPECT_EQ(edit.text, "Edit");
    ASSERT_EQ(edit.children.size(), 4u);

    EXPECT_EQ(edit.children[0].id, 100u);
    EXPECT_EQ(edit.children[0].text, "&Copy\tCtrl+C");
    EXPECT_FALSE(edit.children[0].IsSeparator());

    EXPECT_TRUE(edit.children[1].IsSeparator());
    EXPECT_EQ(edit.children[1].flags, MF_SEPARATOR);

    const MenuTemplateItem& view = edit.children[2];
    ASSERT_TRUE(view.IsPopup());
    ASSERT_EQ(view.children.size(), 2u);
    EXPECT_EQ(view.children[0].flags, MF_GRAYED);
    EXPECT_EQ(view.children[0].id, 201u);
    EXPECT_EQ(view.children[1].flags, MF_CHECKED);
    EXPECT_EQ(view.children[1].text, "Wrap");

    EXPECT_EQ(edit.children[3].flags, MF_DISABLED);
    EXPECT_EQ(edit.children[3].id, 300u);
    EXPECT_TRUE(edit.children[3].children.empty());
}

TEST(MenuTemplate, SeveralTopLevelItemsAndHeaderSkip)
{
    Blob b;
    b.Word(0).Word(2).Word(0xBEEF);  // header of 2 bytes, skipped
    b.Word(0).Word(7).Text("One");
    b.Word(MF_END).Word(8).Text("Two");
    const auto menu = ParseMenuTemplate(b.data(), b.size());
    ASSERT_TRUE(menu);
    ASSERT_EQ(menu->size(), 2u);
    EXPECT_EQ((*menu)[0].id, 7u);
    EXPECT_EQ((*menu)[1].text, "Two");
}

TEST(MenuTemplate, EveryTruncationIsRejected)
{
    const Blob b = SampleMenu();
    for (size_t length = 0; length < b.size(); ++length) {
        // A copy of exactly `length` bytes, so any read past it is a sanitizer error.
        const std::vector<unsigned char> cut(b.bytes.begin(), b.bytes.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(ParseMenuTemplate(cut.data(), cut.size())) << "length " << length;
    }
}

TEST(MenuTemplate, RejectsMalformedData)
{
    EXPECT_FALSE(ParseMenuTemplate(nullptr, 0));

    Blob trailing = SampleMenu();
    trailing.Byte(0);
    EXPECT_FALSE(ParseMenuTemplate(trailing.data(), trailing.size()));

    Blob version;
    version.Word(1).Word(0).Word(MF_END).Word(1).Text("x");
    EXPECT_FALSE(ParseMenuTemplate(version.data(), version.size()));

    Blob headerPastEnd;
    headerPastEnd.Word(0).Word(40).Word(MF_END).Word(1).Text("x");
    EXPECT_FALSE(ParseMenuTemplate(headerPastEnd.data(), headerPastEnd.size()));

    Blob unknownFlag;  // owner-draw is not something a template of ours carries
    unknownFlag.Word(0).Word(0).Word(MF_END | 0x0100).Word(1).Text("x");
    EXPECT_FALSE(ParseMenuTemplate(unknownFlag.data(), unknownFlag.size()));

    Blob separatorPopup;
    separatorPopup.Word(0).Word(0).Word(MF_POPUP | MF_SEPARATOR | MF_END).Text("p").Word(MF_END).Word(1).Text("x");
    EXPECT_FALSE(ParseMenuTemplate(separatorPopup.data(), separatorPopup.size()));

    Blob separatorWithText;
    separatorWithText.Word(0).Word(0).Word(MF_SEPARATOR | MF_END).Word(0).Text("x");
    EXPECT_FALSE(ParseMenuTemplate(separatorWithText.data(), separatorWithText.size()));

    Blob noEnd;  // complete items but no MF_END: the level never closes
    noEnd.Word(0).Word(0).Word(0).Word(1).Text("a").Word(0).Word(2).Text("b");
    EXPECT_FALSE(ParseMenuTemplate(noEnd.data(), noEnd.size()));
}

TEST(MenuTemplate, NestingDepthIsLimited)
{
    const Blob deepest = NestedMenu(kMaxMenuTemplateDepth - 1);
    const auto menu = ParseMenuTemplate(deepest.data(), deepest.size());
    ASSERT_TRUE(menu);
    const MenuTemplateItem* item = &(*menu)[0];
    for (int i = 1; i < kMaxMenuTemplateDepth - 1; ++i) {
        ASSERT_EQ(item->children.size(), 1u);
        item = &item->children[0];
    }
    ASSERT_EQ(item->children.size(), 1u);
    EXPECT_EQ(item->children[0].text, "leaf");

    const Blob tooDeep = NestedMenu(kMaxMenuTemplateDepth);
    EXPECT_FALSE(ParseMenuTemplate(tooDeep.data(), tooDeep.size()));
    // Far deeper data is refused at the limit, not recursed into.
    const Blob hostile = NestedMenu(100000);
    EXPECT_FALSE(ParseMenuTemplate(hostile.data(), hostile.size()));
}

TEST(Toolbar, ReadsIdsAndRejectsInconsistentSizes)
{
    Blob b;
    b.Word(1).Word(16).Word(15).Word(3).Word(40001).Word(0).Word(40002);
    const auto toolbar = ParseToolbar(b.data(), b.size());
    ASSERT_TRUE(toolbar);
    EXPECT_EQ(toolbar->width, 16);
    EXPECT_EQ(toolbar->height, 15);
    EXPECT_EQ(toolbar->ids, (std::vector<UINT>{40001, 0, 40002}));

    for (size_t length = 0; length < b.size(); ++length) {
        const std::vector<unsigned char> cut(b.bytes.begin(), b.bytes.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(ParseToolbar(cut.data(), cut.size())) << "length " << length;
    }
    Blob extra = b;
    extra.Word(5);
    EXPECT_FALSE(ParseToolbar(extra.data(), extra.size()));

    Blob version;
    version.Word(2).Word(16).Word(15).Word(0);
    EXPECT_FALSE(ParseToolbar(version.data(), version.size()));
    Blob zeroWidth;
    zeroWidth.Word(1).Word(0).Word(15).Word(0);
    EXPECT_FALSE(ParseToolbar(zeroWidth.data(), zeroWidth.size()));
    Blob empty;
    empty.Word(1).Word(16).Word(15).Word(0);
    ASSERT_TRUE(ParseToolbar(empty.data(), empty.size()));
    EXPECT_TRUE(ParseToolbar(empty.data(), empty.size())->ids.empty());
    EXPECT_FALSE(ParseToolbar(nullptr, 0));
}

TEST(StringBlob, AcceptsGbkAndRejectsDamagedText)
{
    const unsigned char gbk[] = {0xB6, 0xA8, 'a', 0xCE, 0xBB};  // 定 a 位
    EXPECT_EQ(StringFromBlob(gbk, sizeof gbk), std::string(reinterpret_cast<const char*>(gbk), sizeof gbk));
    EXPECT_EQ(StringFromBlob(gbk, 0), std::string());
    EXPECT_FALSE(StringFromBlob(nullptr, 0));
    EXPECT_FALSE(StringFromBlob(gbk, 4)) << "second byte of a character cut off";

    const unsigned char nul[] = {'a', 0, 'b'};
    EXPECT_FALSE(StringFromBlob(nul, sizeof nul));
    const unsigned char badTrail[] = {0xB6, 0x7F};
    EXPECT_FALSE(StringFromBlob(badTrail, sizeof badTrail));
    const unsigned char lowTrail[] = {0xB6, 0x30};
    EXPECT_FALSE(StringFromBlob(lowTrail, sizeof lowTrail));

    ResourceBlob blob;
    EXPECT_FALSE(StringFromBlob(blob));
    blob.data = gbk;
    blob.size = 2;
    EXPECT_EQ(StringFromBlob(blob), std::string("\xB6\xA8"));
}

// BITMAPINFOHEADER for the tests' images.
Blob InfoHeader(int width, int height, int bitCount, std::uint32_t colorsUsed, std::uint32_t compression = 0)
{
    Blob b;
    b.Dword(40).Dword(static_cast<std::uint32_t>(width)).Dword(static_cast<std::uint32_t>(height));
    b.Word(1).Word(static_cast<unsigned>(bitCount)).Dword(compression).Dword(0).Dword(0).Dword(0).Dword(colorsUsed).Dword(0);
    return b;
}

// 3 x 2 at 4 bpp with a 4-colour palette; the pixel at (x, y) from the top
// has index y * 3 + x, clamped to the palette's last entry.
Blob SmallDib(bool topDown)
{
    Blob b = InfoHeader(3, topDown ? -2 : 2, 4, 4);
    b.Dword(0x000000).Dword(0x0000FF).Dword(0x00FF00).Dword(0xFF0000);  // black, blue, green, red as BGRX
    const std::vector<unsigned char> top = {0x01, 0x20, 0, 0};  // 0 1 2, padded to 4 bytes
    const std::vector<unsigned char> bottom = {0x33, 0x30, 0, 0};  // 3 3 3
    if (topDown) b.Append(top).Append(bottom);
    else b.Append(bottom).Append(top);
    return b;
}

TEST(Dib, ReadsPalettedPixelsTopDownInBothRowOrders)
{
    for (const bool topDown : {false, true}) {
        const Blob b = SmallDib(topDown);
        const auto dib = ParseDib(b.data(), b.size());
        ASSERT_TRUE(dib) << topDown;
        EXPECT_EQ(dib->width, 3);
        EXPECT_EQ(dib->height, 2);
        EXPECT_EQ(dib->bitCount, 4);
        EXPECT_EQ(dib->stride, 4u);
        EXPECT_EQ(dib->bottomUp, !topDown);
        ASSERT_EQ(dib->palette.size(), 4u);
        EXPECT_EQ(dib->palette[1], RGB(0, 0, 255));
        EXPECT_EQ(dib->PaletteIndex(0, 0), 0);
        EXPECT_EQ(dib->PaletteIndex(1, 0), 1);
        EXPECT_EQ(dib->PaletteIndex(2, 0), 2);
        EXPECT_EQ(dib->PaletteIndex(2, 1), 3);
        EXPECT_EQ(dib->PixelColor(1, 0), RGB(0, 0, 255));
        EXPECT_EQ(dib->PixelColor(2, 0), RGB(0, 255, 0));
        EXPECT_EQ(dib->PixelColor(0, 1), RGB(255, 0, 0));
        EXPECT_EQ(dib->PaletteIndex(3, 0), -1);
        EXPECT_EQ(dib->PaletteIndex(0, 2), -1);
        EXPECT_EQ(dib->PaletteIndex(-1, 0), -1);
        EXPECT_FALSE(dib->PixelColor(0, -1));
        EXPECT_FALSE(dib->IsTransparent(0, 0));
    }
}

TEST(Dib, ReadsOtherDepths)
{
    Blob mono = InfoHeader(9, 1, 1, 0);
    mono.Dword(0xFFFFFF).Dword(0x000000);  // index 0 white, 1 black
    mono.Byte(0x81).Byte(0x80).Byte(0).Byte(0);  // pixels 0, 7 and 8 set
    auto dib = ParseDib(mono.data(), mono.size());
    ASSERT_TRUE(dib);
    EXPECT_EQ(dib->palette.size(), 2u);
    EXPECT_EQ(dib->PaletteIndex(0, 0), 1);
    EXPECT_EQ(dib->PaletteIndex(1, 0), 0);
    EXPECT_EQ(dib->PaletteIndex(7, 0), 1);
    EXPECT_EQ(dib->PaletteIndex(8, 0), 1);
    EXPECT_EQ(dib->PixelColor(1, 0), RGB(255, 255, 255));

    Blob rgb = InfoHeader(2, 1, 24, 0);
    rgb.Byte(0x10).Byte(0x20).Byte(0x30).Byte(0x40).Byte(0x50).Byte(0x60).Byte(0).Byte(0);
    dib = ParseDib(rgb.data(), rgb.size());
    ASSERT_TRUE(dib);
    EXPECT_TRUE(dib->palette.empty());
    EXPECT_EQ(dib->PixelColor(0, 0), RGB(0x30, 0x20, 0x10));
    EXPECT_EQ(dib->PixelColor(1, 0), RGB(0x60, 0x50, 0x40));
    EXPECT_EQ(dib->PaletteIndex(0, 0), -1);

    // An index past a short palette has no colour rather than a stray one.
    Blob shortPalette = InfoHeader(1, 1, 4, 2);
    shortPalette.Dword(0).Dword(0xFFFFFF).Byte(0x50).Byte(0).Byte(0).Byte(0);
    dib = ParseDib(shortPalette.data(), shortPalette.size());
    ASSERT_TRUE(dib);
    EXPECT_EQ(dib->PaletteIndex(0, 0), 5);
    EXPECT_FALSE(dib->PixelColor(0, 0));
}

TEST(Dib, RejectsDamagedHeadersAndShortData)
{
    const Blob good = SmallDib(false);
    for (size_t length = 0; length < good.size(); ++length) {
        const std::vector<unsigned char> cut(good.bytes.begin(), good.bytes.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(ParseDib(cut.data(), cut.size())) << "length " << length;
    }
    auto variant = [](int width, int height, int bitCount, std::uint32_t colors, std::uint32_t compression) {
        Blob b = InfoHeader(width, height, bitCount, colors, compression);
        b.Append(std::vector<unsigned char>(4096, 0));
        return ParseDib(b.data(), b.size()).has_value();
    };
    EXPECT_TRUE(variant(3, 2, 4, 0, 0));
    EXPECT_FALSE(variant(3, 2, 4, 17, 0)) << "more colours than 4 bpp can index";
    EXPECT_FALSE(variant(3, 2, 4, 0, 2)) << "compressed";
    EXPECT_FALSE(variant(3, 2, 16, 0, 0)) << "16 bpp needs masks we do not read";
    EXPECT_FALSE(variant(0, 2, 4, 0, 0));
    EXPECT_FALSE(variant(-3, 2, 4, 0, 0));
    EXPECT_FALSE(variant(3, 0, 4, 0, 0));
    EXPECT_FALSE(variant(3, INT32_MIN, 4, 0, 0));
    EXPECT_FALSE(variant(0x7FFFFFFF, 1, 32, 0, 0));

    Blob planes = SmallDib(false);
    planes.bytes[12] = 2;
    EXPECT_FALSE(ParseDib(planes.data(), planes.size()));
    Blob headerSize = SmallDib(false);
    headerSize.bytes[0] = 12;  // the old core header is not a layout we carry
    EXPECT_FALSE(ParseDib(headerSize.data(), headerSize.size()));
    EXPECT_FALSE(ParseDib(nullptr, 0));
}

// One icon image: `width` x 2 at 4 bpp, colour index 9 everywhere, the AND
// mask setting the leftmost pixel of the top row.
std::vector<unsigned char> IconImage(int width)
{
    Blob b = InfoHeader(width, 4, 4, 16);
    for (int i = 0; i < 16; ++i) b.Dword(i == 9 ? 0xFF0000 : 0);  // index 9: red, as BGRX
    const size_t stride = (static_cast<size_t>(width) * 4 + 31) / 32 * 4;
    for (int row = 0; row < 2; ++row)
        for (size_t k = 0; k < stride; ++k) b.Byte(k < static_cast<size_t>(width + 1) / 2 ? 0x99 : 0);
    b.Dword(0);           // bottom row of the mask: opaque
    b.Dword(0x00000080);  // top row: first pixel transparent
    return b.bytes;
}

Blob IconFile(const std::vector<std::vector<unsigned char>>& images, const std::vector<int>& widths)
{
    Blob b;
    b.Word(0).Word(1).Word(static_cast<unsigned>(images.size()));
    std::uint32_t offset = static_cast<std::uint32_t>(6 + 16 * images.size());
    for (size_t i = 0; i < images.size(); ++i) {
        b.Byte(static_cast<unsigned>(widths[i])).Byte(2).Byte(16).Byte(0).Word(1).Word(4);
        b.Dword(static_cast<std::uint32_t>(images[i].size())).Dword(offset);
        offset += static_cast<std::uint32_t>(images[i].size());
    }
    for (const auto& image : images) b.Append(image);
    return b;
}

TEST(IconFile, ReadsImagesWithMasks)
{
    const Blob b = IconFile({IconImage(3), IconImage(2)}, {3, 2});
    const auto icon = ParseIconFile(b.data(), b.size());
    ASSERT_TRUE(icon);
    ASSERT_EQ(icon->size(), 2u);
    const DibView& first = (*icon)[0];
    EXPECT_EQ(first.width, 3);
    EXPECT_EQ(first.height, 2);
    EXPECT_TRUE(first.IsTransparent(0, 0));
    EXPECT_FALSE(first.IsTransparent(1, 0));
    EXPECT_FALSE(first.IsTransparent(0, 1));
    EXPECT_FALSE(first.IsTransparent(5, 0));
    EXPECT_EQ(first.PixelColor(2, 1), RGB(255, 0, 0));
    EXPECT_EQ((*icon)[1].width, 2);
    EXPECT_TRUE((*icon)[1].IsTransparent(0, 0));
}

TEST(IconFile, RejectsDamagedDirectoriesAndImages)
{
    const Blob good = IconFile({IconImage(3)}, {3});
    for (size_t length = 0; length < good.size(); ++length) {
        const std::vector<unsigned char> cut(good.bytes.begin(), good.bytes.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(ParseIconFile(cut.data(), cut.size())) << "length " << length;
    }
    auto patched = [&](size_t at, std::uint32_t value, int bytes) {
        Blob b = good;
        for (int k = 0; k < bytes; ++k) b.bytes[at + static_cast<size_t>(k)] = static_cast<unsigned char>(value >> (8 * k));
        return ParseIconFile(b.data(), b.size()).has_value();
    };
    EXPECT_FALSE(patched(2, 2, 2)) << "a cursor";
    EXPECT_FALSE(patched(4, 0, 2)) << "no images";
    EXPECT_FALSE(patched(4, 2, 2)) << "directory longer than the file";
    EXPECT_FALSE(patched(6, 4, 1)) << "directory width differs from the image";
    EXPECT_FALSE(patched(6 + 12, 0, 4)) << "image at the start of the file";
    EXPECT_FALSE(patched(6 + 12, 0xFFFFFFF0u, 4)) << "offset past the end";
    EXPECT_FALSE(patched(6 + 8, 0xFFFFFFFFu, 4)) << "size past the end";
    EXPECT_FALSE(patched(22 + 8, 5, 4)) << "odd height cannot hold colour and mask";
    EXPECT_FALSE(ParseIconFile(nullptr, 0));
}

}  // namespace
