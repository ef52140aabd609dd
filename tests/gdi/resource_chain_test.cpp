#include <gtest/gtest.h>

#include "gdi_test_support.h"
#include "platform/core/module.h"
#include "platform/gdi/icon.h"
#include "platform/gdi/image_list.h"

using gdi_test::Bytes;
using gdi_test::Canvas;

namespace {

constexpr UINT kStripId = 7301, kIconId = 7302;

// A module holding a bitmap strip and an icon, made the host's resources for
// the length of a test.
class ResourceChain : public ::testing::Test {
protected:
    void SetUp() override
    {
        strip = gdi_test::MakeDib(8, 2, 8, {0xFF00FF, 0x00FF00}, {0, 1, 1, 1, 1, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 1});
        icon = gdi_test::MakeIco({{2, 2, 24, gdi_test::MakeIconImage(2, 2, 24, {}, {0xFF0000, 0, 0, 0}, {0, 1, 1, 1})}});
        entries[0] = {ResourceType::Bitmap, kStripId, strip.data(), strip.size()};
        entries[1] = {ResourceType::Icon, kIconId, icon.data(), icon.size()};
        table = {entries, 2};
        previous = AfxGetResourceHandle();
        module = AfxRegisterModule("gdi-test-resources", &table);
        AfxSetResourceHandle(module);
    }
    void TearDown() override
    {
        AfxSetResourceHandle(previous);
        AfxUnregisterModule(module);
    }

    Bytes strip, icon;
    ResourceEntry entries[2]{};
    ResourceTable table{};
    HINSTANCE previous = nullptr, module = nullptr;
};

}  // namespace

TEST_F(ResourceChain, BitmapsAndIconsLoadById)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadBitmap(kStripId));
    EXPECT_EQ(bitmap.GetSize(), CSize(8, 2));
    CBitmap missing;
    EXPECT_FALSE(missing.LoadBitmap(kStripId + 100));

    HICON handle = LoadIconFromChain(kIconId, 16, 16);
    ASSERT_NE(handle, nullptr);
    Canvas c(2, 2, 0x808080);
    c.dc.DrawIcon(0, 0, handle);
    EXPECT_EQ(c.surface.Pixels(), (std::vector<std::uint32_t>{0xFF0000, 0x808080, 0x808080, 0x808080}));
    DestroyIcon(handle);
    EXPECT_EQ(LoadIcon(kIconId + 100), nullptr);
}

TEST_F(ResourceChain, ImageListFromABitmapResource)
{
    CImageList list;
    ASSERT_TRUE(list.Create(kStripId, 4, 1, RGB(255, 0, 255)));
    EXPECT_EQ(list.GetImageCount(), 2);
    EXPECT_EQ(list.GetImageSize(), CSize(4, 2));
    Canvas c(4, 2, 0x808080);
    list.Draw(&c.dc, 1, CPoint(0, 0), ILD_TRANSPARENT);
    EXPECT_EQ(c.Count(0x00FF00, c.surface.Bounds()), 7);  // the strip's second magenta pixel shows through
    CImageList none;
    EXPECT_FALSE(none.Create(kStripId + 100, 4, 1, RGB(255, 0, 255)));
}
