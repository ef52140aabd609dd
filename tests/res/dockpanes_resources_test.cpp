// The library's compiled resources (res/dockpanes.rc), read through the same
// readers the platform uses: menus, texts, images and the toolbar must be
// exactly what the panes expect.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/core/resource_formats.h"
#include "platform/gdi/dib.h"
#include "platform/gdi/icon_file.h"
#include "platform/gdi/surface.h"
#include "platform/text/gbk.h"

// The same table the panes module exports as AfxModuleResources.
extern "C" const ResourceTable* TestDockpanesResources();

namespace {

const ResourceEntry* Find(ResourceType type, UINT id)
{
    const ResourceTable* table = TestDockpanesResources();
    for (size_t i = 0; i < table->count; ++i)
        if (table->entries[i].type == type && table->entries[i].id == id) return &table->entries[i];
    return nullptr;
}

// Expected menu items: text in UTF-8; id 0 with no text and no children is a
// separator, children make a popup.
struct Item {
    const char* text;
    UINT id;
    std::vector<Item> children;
};
const Item kSeparator{"", 0, {}};

void ExpectItems(const std::vector<MenuTemplateItem>& actual, const std::vector<Item>& expected, const std::string& where)
{
    ASSERT_EQ(actual.size(), expected.size()) << where;
    for (size_t i = 0; i < expected.size(); ++i) {
        const std::string at = where + " / item " + std::to_string(i) + " '" + expected[i].text + "'";
        const bool separator = expected[i].id == 0 && expected[i].children.empty();
        const bool popup = !expected[i].children.empty();
        EXPECT_EQ(actual[i].IsSeparator(), separator) << at;
        EXPECT_EQ(actual[i].IsPopup(), popup) << at;
        EXPECT_EQ(actual[i].flags & ~(MF_POPUP | MF_SEPARATOR), 0u) << at << ": no grayed, disabled or checked items";
        EXPECT_EQ(actual[i].id, expected[i].id) << at;
        EXPECT_EQ(actual[i].text, GBK(expected[i].text)) << at;
        if (popup) ExpectItems(actual[i].children, expected[i].children, at);
    }
}

std::vector<MenuTemplateItem> Menu(UINT id)
{
    const ResourceEntry* entry = Find(ResourceType::Menu, id);
    if (!entry) {
        ADD_FAILURE() << "no menu " << id;
        return {};
    }
    auto items = ParseMenuTemplate(entry->data, entry->size);
    if (!items) {
        ADD_FAILURE() << "menu " << id << " does not parse";
        return {};
    }
    return *items;
}

TEST(DockpanesResources, TableHoldsEachResourceOnce)
{
    const ResourceTable* table = TestDockpanesResources();
    ASSERT_NE(table, nullptr);
    std::set<std::pair<ResourceType, UINT>> seen;
    for (size_t i = 0; i < table->count; ++i) {
        const ResourceEntry& entry = table->entries[i];
        EXPECT_TRUE(seen.insert({entry.type, entry.id}).second) << "duplicate " << static_cast<int>(entry.type) << "/" << entry.id;
        EXPECT_NE(entry.data, nullptr);
        EXPECT_GT(entry.size, 0u);
    }
    // 5 menus, 22 strings, 1 bitmap, 3 icons, 1 toolbar.
    EXPECT_EQ(table->count, 32u);
}

TEST(DockpanesResources, MarksAndFunctionListMenus)
{
    ExpectItems(Menu(20001), {{"书签菜单", 0, {{"定位到", 32056, {}}, {"清除所有书签(&K)", 32014, {}}}}}, "menu 20001");
    ExpectItems(Menu(20002), {{"断点菜单", 0, {{"定位到", 32057, {}}, {"清除所有断点", 32032, {}}}}}, "menu 20002");
    ExpectItems(Menu(20004), {{"函数列表菜单", 0, {{"定位到", 32058, {}}}}}, "menu 20004");
}

TEST(DockpanesResources, MessageWindowMenuHasTwoSeparators)
{
    ExpectItems(Menu(20005),
                {{"消息窗口", 0, {{"拷贝", 32061, {}}, kSeparator, {"清除", 32060, {}}, kSeparator, {"定位到", 32062, {}}, {"停止", 32063, {}}}}},
                "menu 20005");
}

TEST(DockpanesResources, WatchMenuWithFormatSubmenuAndShortcuts)
{
    // A shortcut follows one tab character, which the menu uses to split label
    // and accelerator.
    ExpectItems(Menu(20009),
                {{"观察菜单",
                  0,
                  {{"进入编辑", 32993, {}},
                   {"删除", 32982, {}},
                   {"清空", 32983, {}},
                   kSeparator,
                   {"同一显示格式", 0, {{"二进制", 32990, {}}, {"十进制", 32991, {}}, {"十六进制", 32992, {}}}},
                   {"转入内存窗口\tCtrl+M", 32994, {}},
                   {"上移\tshift+up", 32996, {}},
                   {"下移\tshift+down", 32995, {}}}}},
                "menu 20009");
}

TEST(DockpanesResources, StringTable)
{
    const std::map<UINT, std::string> expected = {
        {32014, "清除所有书签"},
        {32032, "清除所有断点"},
        {32056, "定位到"},
        {32057, "定位到"},
        {32058, "定位到"},
        {32060, "清除消息窗口内容"},
        {32061, "拷贝选择区域到剪贴板"},
        {32062, "\"点击输入表达式\""},
        {32063, "错误的表达式"},
        {52060, "表达式格式错误"},
        {52061, "存在非法字符"},
        {52062, "数值类型错误"},
        {52063, "括号配对错误，缺少\"[\"或\"(\""},
        {52064, "括号配对错误，缺少\"]\"或\")\""},
        {52065, "除数为零"},
        {52066, "变量未定义"},
        {52067, "字符串太长"},
        {52068, "引号配对错误"},
        {52069, "地址不可位寻址"},
        {52070, "无法定位存储器空间"},
        {52071, "读数据出错"},
        {52072, "无效的指针"},
    };
    const ResourceTable* table = TestDockpanesResources();
    size_t strings = 0;
    for (size_t i = 0; i < table->count; ++i) {
        if (table->entries[i].type != ResourceType::String) continue;
        ++strings;
        EXPECT_EQ(expected.count(table->entries[i].id), 1u) << "unexpected string " << table->entries[i].id;
    }
    EXPECT_EQ(strings, expected.size());
    for (const auto& [id, utf8] : expected) {
        const ResourceEntry* entry = Find(ResourceType::String, id);
        ASSERT_NE(entry, nullptr) << id;
        const auto text = StringFromBlob(entry->data, entry->size);
        ASSERT_TRUE(text) << id;
        EXPECT_EQ(*text, GBK(utf8)) << id;
    }
}

TEST(DockpanesResources, QuotesInsideStringsAreText)
{
    const auto text = [](UINT id) {
        const ResourceEntry* entry = Find(ResourceType::String, id);
        return entry ? StringFromBlob(entry->data, entry->size).value_or("") : std::string();
    };
    const std::string prompt = text(32062);
    ASSERT_GE(prompt.size(), 2u);
    EXPECT_EQ(prompt.front(), '"');
    EXPECT_EQ(prompt.back(), '"');
    EXPECT_EQ(prompt.substr(1, prompt.size() - 2), GBK("点击输入表达式"));

    const std::string open = text(52063);
    EXPECT_NE(open.find("\"[\""), std::string::npos);
    EXPECT_NE(open.find("\"(\""), std::string::npos);
    EXPECT_NE(open.find("\xA3\xAC"), std::string::npos) << "full-width comma in GBK";
    const std::string close = text(52064);
    EXPECT_NE(close.find("\"]\""), std::string::npos);
    EXPECT_NE(close.find("\")\""), std::string::npos);
    EXPECT_EQ(std::count(close.begin(), close.end(), '"'), 4);
}

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr int kCell = 18;

TEST(DockpanesResources, PaneImageStrip)
{
    const ResourceEntry* entry = Find(ResourceType::Bitmap, 599);
    ASSERT_NE(entry, nullptr);
    gdi::DibImage dib;
    ASSERT_TRUE(gdi::DecodeDib(entry->data, entry->size, dib));
    EXPECT_EQ(dib.width, 162);
    EXPECT_EQ(dib.height, 17);
    EXPECT_EQ(dib.bitsPixel, 4);
    const std::vector<COLORREF> vga = {
        RGB(0, 0, 0), RGB(128, 0, 0), RGB(0, 128, 0), RGB(128, 128, 0), RGB(0, 0, 128), RGB(128, 0, 128),
        RGB(0, 128, 128), RGB(192, 192, 192), RGB(128, 128, 128), RGB(255, 0, 0), RGB(0, 255, 0), RGB(255, 255, 0),
        RGB(0, 0, 255), RGB(255, 0, 255), RGB(0, 255, 255), RGB(255, 255, 255)};
    std::vector<COLORREF> palette;
    for (std::uint32_t entry : dib.palette) palette.push_back(PixelToColorRef(entry));
    EXPECT_EQ(palette, vga);

    const auto at = [&](int image, int x, int y) { return PixelToColorRef(dib.At(image * kCell + x, y)); };
    for (int image = 0; image < 9; ++image) {
        // Background corners, and a drawing in every cell.
        EXPECT_EQ(at(image, 0, 0), kWhite) << image;
        EXPECT_EQ(at(image, kCell - 1, 0), kWhite) << image;
        EXPECT_EQ(at(image, 0, 16), kWhite) << image;
        EXPECT_EQ(at(image, kCell - 1, 16), kWhite) << image;
        int drawn = 0;
        for (int y = 0; y < 17; ++y)
            for (int x = 0; x < kCell; ++x) drawn += at(image, x, y) != kWhite;
        EXPECT_GT(drawn, 30) << image;
    }

    const COLORREF magenta = RGB(255, 0, 255), cyan = RGB(0, 255, 255), yellow = RGB(255, 255, 0);
    // Function: a magenta diamond with a black outline.
    EXPECT_EQ(at(1, 8, 8), magenta);
    EXPECT_EQ(at(1, 9, 8), magenta);
    EXPECT_EQ(at(1, 8, 1), kBlack);
    EXPECT_EQ(at(1, 1, 8), kBlack);
    EXPECT_EQ(at(1, 2, 2), kWhite);
    // Bookmark: a cyan disc with a black outline and a black mark inside.
    int cyanNearCentre = 0, blackNearCentre = 0;
    for (int y = 5; y <= 11; ++y)
        for (int x = 6; x <= 11; ++x) {
            cyanNearCentre += at(4, x, y) == cyan;
            blackNearCentre += at(4, x, y) == kBlack;
        }
    EXPECT_GT(cyanNearCentre, 10);
    EXPECT_GT(blackNearCentre, 5);
    EXPECT_EQ(cyanNearCentre + blackNearCentre, 42) << "nothing but cyan and black near the centre";
    EXPECT_EQ(at(4, 1, 8), kBlack);
    EXPECT_EQ(at(4, 13, 12), cyan);
    // Warning: filled yellow triangle, black outline and exclamation mark.
    EXPECT_EQ(at(6, 6, 13), yellow);
    EXPECT_EQ(at(6, 11, 9), yellow);
    EXPECT_EQ(at(6, 8, 7), kBlack);
    EXPECT_EQ(at(6, 9, 13), kBlack);
    EXPECT_EQ(at(6, 8, 11), yellow) << "gap between bar and dot";
    EXPECT_EQ(at(6, 1, 15), kBlack);
    // The outline variant: same shape, white inside.
    for (int y = 0; y < 17; ++y)
        for (int x = 0; x < kCell; ++x) {
            const auto filled = at(6, x, y);
            EXPECT_EQ(at(7, x, y), filled == yellow ? kWhite : filled) << x << "," << y;
        }
    EXPECT_EQ(at(7, 6, 13), kWhite);
    EXPECT_EQ(at(7, 8, 7), kBlack);
    // Stop: red.
    EXPECT_EQ(at(8, 4, 8), RGB(255, 0, 0));
}

TEST(DockpanesResources, MarkerIconsCarryACircledLetter)
{
    struct Expected {
        UINT id;
        bool topBar;     // stroke across the top of the letter (B, D; not H)
        bool middleBar;  // stroke across the middle (H, B; not D)
    };
    for (const Expected& e : {Expected{20006, false, true}, Expected{20007, true, true}, Expected{20008, true, false}}) {
        const ResourceEntry* entry = Find(ResourceType::Icon, e.id);
        ASSERT_NE(entry, nullptr) << e.id;
        std::vector<gdi::DibImage> icon;
        ASSERT_TRUE(gdi::DecodeIconFile(entry->data, entry->size, icon)) << e.id;
        ASSERT_EQ(icon.size(), 2u) << e.id;
        const gdi::DibImage& large = icon[0];
        const gdi::DibImage& small = icon[1];
        ASSERT_EQ(large.width, 32);
        ASSERT_EQ(large.height, 32);
        EXPECT_EQ(large.bitsPixel, 4);
        ASSERT_EQ(small.width, 16);
        ASSERT_EQ(small.height, 16);
        EXPECT_EQ(small.bitsPixel, 4);

        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x) EXPECT_TRUE(small.IsTransparent(x, y)) << e.id << " small " << x << "," << y;

        int opaque = 0;
        for (int y = 0; y < 32; ++y)
            for (int x = 0; x < 32; ++x) {
                if (large.IsTransparent(x, y)) continue;
                EXPECT_TRUE(x < 16 && y < 16) << e.id << ": opaque outside the top-left quarter at " << x << "," << y;
                const COLORREF colour = PixelToColorRef(large.At(x, y));
                EXPECT_TRUE(colour == kBlack || colour == RGB(0, 0, 128)) << e.id << " at " << x << "," << y;
                ++opaque;
            }
        EXPECT_GT(opaque, 40) << e.id;
        // The ring: left and right edges opaque, corners and centre of the gap clear.
        EXPECT_FALSE(large.IsTransparent(1, 8)) << e.id;
        EXPECT_FALSE(large.IsTransparent(14, 8)) << e.id;
        EXPECT_FALSE(large.IsTransparent(7, 1)) << e.id;
        EXPECT_TRUE(large.IsTransparent(0, 0)) << e.id;
        EXPECT_TRUE(large.IsTransparent(3, 8)) << e.id;
        // The letter.
        EXPECT_FALSE(large.IsTransparent(5, 4)) << e.id;
        EXPECT_FALSE(large.IsTransparent(5, 11)) << e.id;
        EXPECT_EQ(!large.IsTransparent(7, 4), e.topBar) << e.id;
        EXPECT_EQ(!large.IsTransparent(7, 7), e.middleBar) << e.id;
    }
}

TEST(DockpanesResources, ToolbarMatchesItsImageStrip)
{
    const ResourceEntry* entry = Find(ResourceType::Toolbar, 599);
    ASSERT_NE(entry, nullptr);
    const auto toolbar = ParseToolbar(entry->data, entry->size);
    ASSERT_TRUE(toolbar);
    EXPECT_EQ(toolbar->width, 18);
    EXPECT_EQ(toolbar->height, 17);
    EXPECT_EQ(toolbar->ids, (std::vector<UINT>{33296, 0, 33297, 33298, 33299, 33292, 33293, 33294, 33295, 32772}));

    const ResourceEntry* bitmap = Find(ResourceType::Bitmap, 599);
    ASSERT_NE(bitmap, nullptr);
    gdi::DibImage dib;
    ASSERT_TRUE(gdi::DecodeDib(bitmap->data, bitmap->size, dib));
    const auto buttons = std::count_if(toolbar->ids.begin(), toolbar->ids.end(), [](UINT id) { return id != 0; });
    EXPECT_EQ(dib.width, buttons * toolbar->width);
    EXPECT_EQ(dib.height, toolbar->height);
}

}  // namespace
