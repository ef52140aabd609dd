#include <gtest/gtest.h>

#include "gdi_test_support.h"
#include "platform/gdi/icon.h"
#include "platform/gdi/image_list.h"

using gdi_test::Bytes;
using gdi_test::Canvas;
using gdi_test::MakeDib;

namespace {

constexpr std::uint32_t kGray = 0x808080, kMagenta = 0xFF00FF, kRed = 0xFF0000, kBlue = 0x0000FF;

// A 4-bit strip of three 4 x 4 images on a magenta background: image n has
// a red square of side n + 1 in its top-left corner.
CBitmap* Strip(CBitmap& bitmap)
{
    const std::vector<std::uint32_t> palette = {kMagenta, kRed};
    std::vector<std::uint32_t> indices(12 * 4, 0);
    for (int n = 0; n < 3; ++n)
        for (int y = 0; y <= n; ++y)
            for (int x = 0; x <= n; ++x) indices[static_cast<size_t>(y * 12 + n * 4 + x)] = 1;
    const Bytes dib = MakeDib(12, 4, 4, palette, indices);
    EXPECT_TRUE(bitmap.LoadFromDib(dib.data(), dib.size()));
    return &bitmap;
}

struct List {
    explicit List(UINT flags = ILC_COLOR4 | ILC_MASK)
    {
        EXPECT_TRUE(images.Create(4, 4, flags, 0, 4));
        CBitmap strip;
        EXPECT_EQ(images.Add(Strip(strip), RGB(255, 0, 255)), 0);
    }
    CImageList images;
};

}  // namespace

TEST(ImageList, StripIsCutAndMaskColourIsTransparent)
{
    List list;
    EXPECT_EQ(list.images.GetImageCount(), 3);
    EXPECT_EQ(list.images.GetImageSize(), CSize(4, 4));
    Canvas c(10, 10, kGray);
    EXPECT_TRUE(list.images.Draw(&c.dc, 1, CPoint(2, 3), ILD_TRANSPARENT));
    EXPECT_EQ(c.Count(kRed, c.surface.Bounds()), 4);
    EXPECT_EQ(c.Count(kRed, CRect(2, 3, 4, 5)), 4);
    EXPECT_EQ(c.Count(kMagenta, c.surface.Bounds()), 0);
    IMAGEINFO info;
    ASSERT_TRUE(list.images.GetImageInfo(2, &info));
    EXPECT_EQ(CRect(info.rcImage), CRect(8, 0, 12, 4));
}

TEST(ImageList, WithoutMaskFlagEveryPixelIsDrawn)
{
    List list(ILC_COLOR24);
    Canvas c(4, 4, kGray);
    list.images.Draw(&c.dc, 0, CPoint(0, 0), ILD_TRANSPARENT);
    EXPECT_EQ(c.Count(kMagenta, c.surface.Bounds()), 15);
}

TEST(ImageList, NormalDrawUsesTheListBackgroundColour)
{
    List list;
    Canvas c(4, 4, kGray);
    list.images.Draw(&c.dc, 0, CPoint(0, 0), ILD_NORMAL);
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 15);  // no background colour: transparent
    EXPECT_EQ(list.images.SetBkColor(RGB(0, 0, 255)), CLR_NONE);
    list.images.Draw(&c.dc, 0, CPoint(0, 0), ILD_NORMAL);
    EXPECT_EQ(c.Count(kBlue, c.surface.Bounds()), 15);
    Canvas t(4, 4, kGray);
    list.images.Draw(&t.dc, 0, CPoint(0, 0), ILD_TRANSPARENT);
    EXPECT_EQ(t.Count(kGray, t.surface.Bounds()), 15);
}

TEST(ImageList, SelectedBlendsVisiblePixelsWithHighlight)
{
    List list;
    Canvas c(4, 4, kGray);
    list.images.Draw(&c.dc, 0, CPoint(0, 0), ILD_SELECTED | ILD_TRANSPARENT);
    // Half of red (255, 0, 0) and half of the highlight (10, 36, 106).
    EXPECT_EQ(c.At(0, 0), (132u << 16) | (18u << 8) | 53u);
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 15);
    Canvas m(4, 4, kGray);
    list.images.Draw(&m.dc, 0, CPoint(0, 0), ILD_MASK);
    EXPECT_EQ(m.At(0, 0), 0x000000u);
    EXPECT_EQ(m.At(1, 0), 0xFFFFFFu);
}

TEST(ImageList, InvalidIndexDrawsNothing)
{
    List list;
    Canvas c(8, 8, kGray);
    EXPECT_FALSE(list.images.Draw(&c.dc, 3, CPoint(0, 0), ILD_NORMAL));
    EXPECT_FALSE(list.images.Draw(&c.dc, -1, CPoint(0, 0), ILD_NORMAL));
    EXPECT_FALSE(list.images.Draw(nullptr, 0, CPoint(0, 0), ILD_NORMAL));
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 64);
    IMAGEINFO info;
    EXPECT_FALSE(list.images.GetImageInfo(3, &info));
    EXPECT_TRUE(list.images.Draw(&c.dc, 2, CPoint(-100, 6), ILD_NORMAL));  // off the surface: fine
}

TEST(ImageList, HandlesLeadBackToTheList)
{
    HIMAGELIST handle;
    {
        List list;
        handle = list.images.GetSafeHandle();
        CImageList* found = CImageList::FromHandle(handle);
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(CImageList::FromHandle(handle), found);
        EXPECT_EQ(found->GetImageCount(), 3);
        EXPECT_EQ(ImageList_GetImageCount(handle), 3);
        int cx = 0, cy = 0;
        EXPECT_TRUE(ImageList_GetIconSize(handle, &cx, &cy));
        EXPECT_EQ(cx, 4);
        Canvas c(4, 4, kGray);
        EXPECT_TRUE(ImageList_Draw(handle, 0, c.dc.GetSafeHdc(), 0, 0, ILD_TRANSPARENT));
        EXPECT_EQ(c.At(0, 0), kRed);
    }
    EXPECT_EQ(CImageList::FromHandle(handle), nullptr);
    EXPECT_EQ(ImageList_GetImageCount(handle), 0);
    Canvas c(4, 4, kGray);
    EXPECT_FALSE(ImageList_Draw(handle, 0, c.dc.GetSafeHdc(), 0, 0, ILD_NORMAL));
}

TEST(ImageList, DeletingThroughTheWrapperIsSafe)
{
    CImageList owner;
    ASSERT_TRUE(owner.Create(2, 2, ILC_COLOR24, 0, 1));
    EXPECT_TRUE(CImageList::FromHandle(owner)->DeleteImageList());
    EXPECT_EQ(CImageList::FromHandle(owner), nullptr);
    EXPECT_FALSE(owner.DeleteImageList());
    EXPECT_EQ(owner.GetImageCount(), 0);
}

TEST(ImageList, MaskBitmapAndPartialStrips)
{
    CImageList list;
    ASSERT_TRUE(list.Create(4, 2, ILC_COLOR24 | ILC_MASK, 0, 1));
    Surface pixels(10, 2, 0x00FF00);  // 10 wide: two whole images, the rest ignored
    CBitmap image;
    image.CreateFromSurface(pixels);
    const unsigned char maskBits[] = {0x80, 0x00, 0x00, 0x00};  // only (0, 0) is white
    CBitmap mask;
    mask.CreateBitmap(10, 2, 1, 1, maskBits);
    EXPECT_EQ(list.Add(&image, &mask), 0);
    EXPECT_EQ(list.GetImageCount(), 2);
    Canvas c(4, 2, kGray);
    list.Draw(&c.dc, 0, CPoint(0, 0), ILD_TRANSPARENT);
    EXPECT_EQ(c.At(0, 0), kGray);
    EXPECT_EQ(c.Count(0x00FF00, c.surface.Bounds()), 7);
    CBitmap narrow;
    narrow.CreateFromSurface(Surface(3, 2));
    EXPECT_EQ(list.Add(&narrow, RGB(0, 0, 0)), -1);
    EXPECT_EQ(list.Add(static_cast<CBitmap*>(nullptr), RGB(0, 0, 0)), -1);
    EXPECT_TRUE(list.Remove(0));
    EXPECT_EQ(list.GetImageCount(), 1);
    EXPECT_FALSE(list.Remove(5));
    EXPECT_TRUE(list.Remove(-1));
    EXPECT_EQ(list.GetImageCount(), 0);
}

TEST(ImageList, IconsKeepTheirTransparency)
{
    gdi::IconImage icon;
    icon.width = 2;
    icon.height = 2;
    icon.color = {0x000000, 0x0000FF, 0x0000FF, 0x000000};
    icon.andMask = {1, 0, 0, 1};
    HICON handle = gdi::AddIcon(icon);
    CImageList list;
    ASSERT_TRUE(list.Create(4, 4, ILC_COLOR32 | ILC_MASK, 0, 1));
    EXPECT_EQ(list.Add(handle), 0);
    DestroyIcon(handle);
    Canvas c(4, 4, kGray);
    list.Draw(&c.dc, 0, CPoint(0, 0), ILD_TRANSPARENT);
    EXPECT_EQ(c.Count(kBlue, c.surface.Bounds()), 8);  // scaled 2x: two blue quarters
    EXPECT_EQ(c.At(0, 0), kGray);
    EXPECT_EQ(c.At(3, 0), kBlue);
    EXPECT_EQ(list.Add(handle), -1);  // destroyed
}

TEST(ImageList, CreateRejectsBadSizes)
{
    CImageList list;
    EXPECT_FALSE(list.Create(0, 16, ILC_COLOR24, 0, 1));
    EXPECT_FALSE(list.Create(16, -1, ILC_COLOR24, 0, 1));
    EXPECT_FALSE(list.Create(100000, 16, ILC_COLOR24, 0, 1));
    EXPECT_TRUE(list.Create(16, 16, ILC_COLOR24, 0, 1));
    EXPECT_FALSE(list.Create(16, 16, ILC_COLOR24, 0, 1));  // already created
}
