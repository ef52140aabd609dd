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

}  // namespace
