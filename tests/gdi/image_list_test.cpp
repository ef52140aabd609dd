#include <gtest/gtest.h>

#include <climits>

#include "gdi_test_support.h"
#include "platform/gdi/icon.h"
#include "platform/gdi/image_list.h"

using gdi_test::Canvas;

namespace {

constexpr std::uint32_t kGray = 0x808080, kMagenta = 0xFF00FF, kRed = 0xFF0000, kBlue = 0x0000FF;

// Three 4 x 4 images cut from a 4-bit strip on a magenta background: image n
// has a red square of side n + 1 in its top-left corner.
struct List {
    explicit List(UINT flags = ILC_COLOR4 | ILC_MASK)
    {
        std::vector<std::uint32_t> indices(12 * 4, 0);
        for (int n = 0; n < 3; ++n)
            for (int y = 0; y <= n; ++y)
                for (int x = 0; x <= n; ++x) indices[static_cast<size_t>(y * 12 + n * 4 + x)] = 1;
        const gdi_test::Bytes dib = gdi_test::MakeDib(12, 4, 4, {kMagenta, kRed}, indices);
        CBitmap strip;
        EXPECT_TRUE(strip.LoadFromDib(dib.data(), dib.size()));
        EXPECT_TRUE(images.Create(4, 4, flags, 0, 4));
        EXPECT_EQ(images.Add(&strip, RGB(255, 0, 255)), 0);
    }
    CImageList images;
};

}  // namespace

TEST(ImageList, StripIsCutAndMaskColourIsTransparent)
{
    List list;
    EXPECT_EQ(list.images.GetImageCount(), 3);
    Canvas c(10, 10, kGray);
    EXPECT_TRUE(list.images.Draw(&c.dc, 1, CPoint(2, 3), ILD_TRANSPARENT));
    EXPECT_EQ(c.Count(kRed, CRect(2, 3, 4, 5)), 4);
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 100 - 4);
    IMAGEINFO info;
    ASSERT_TRUE(list.images.GetImageInfo(2, &info));
    EXPECT_EQ(CRect(info.rcImage), CRect(8, 0, 12, 4));

    List opaque(ILC_COLOR24);  // without ILC_MASK the mask colour is just a colour
    Canvas o(4, 4, kGray);
    opaque.images.Draw(&o.dc, 0, CPoint(0, 0), ILD_TRANSPARENT);
    EXPECT_EQ(o.Count(kMagenta, o.surface.Bounds()), 15);
}

TEST(ImageList, DrawStyles)
{
    List list;
    Canvas n(4, 4, kGray);
    list.images.Draw(&n.dc, 0, CPoint(0, 0), ILD_NORMAL);
    EXPECT_EQ(n.Count(kGray, n.surface.Bounds()), 15);  // no background colour: transparent
    EXPECT_EQ(list.images.SetBkColor(RGB(0, 0, 255)), CLR_NONE);
    list.images.Draw(&n.dc, 0, CPoint(0, 0), ILD_NORMAL);
    EXPECT_EQ(n.Count(kBlue, n.surface.Bounds()), 15);

    Canvas s(4, 4, kGray);
    list.images.Draw(&s.dc, 0, CPoint(0, 0), ILD_SELECTED | ILD_TRANSPARENT);
    // Half of red (255, 0, 0) and half of the highlight (10, 36, 106).
    EXPECT_EQ(s.At(0, 0), (132u << 16) | (18u << 8) | 53u);
    EXPECT_EQ(s.Count(kGray, s.surface.Bounds()), 15);

    Canvas m(4, 4, kGray);
    list.images.Draw(&m.dc, 0, CPoint(0, 0), ILD_MASK);
    EXPECT_EQ(m.At(0, 0), 0x000000u);
    EXPECT_EQ(m.Count(0xFFFFFF, m.surface.Bounds()), 15);
}

TEST(ImageList, InvalidIndexDrawsNothing)
{
    List list;
    Canvas c(8, 8, kGray);
    EXPECT_FALSE(list.images.Draw(&c.dc, 3, CPoint(0, 0), ILD_NORMAL));
    EXPECT_FALSE(list.images.Draw(&c.dc, -1, CPoint(0, 0), ILD_NORMAL));
    EXPECT_FALSE(list.images.Draw(nullptr, 0, CPoint(0, 0), ILD_NORMAL));
    EXPECT_TRUE(list.images.Draw(&c.dc, 2, CPoint(-100, 6), ILD_NORMAL));  // off the surface: fine
    EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 64);
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
        Canvas c(4, 4, kGray);
        EXPECT_TRUE(ImageList_Draw(handle, 0, c.dc.GetSafeHdc(), 0, 0, ILD_TRANSPARENT));
        EXPECT_EQ(c.At(0, 0), kRed);
    }
    EXPECT_EQ(CImageList::FromHandle(handle), nullptr);
    EXPECT_EQ(ImageList_GetImageCount(handle), 0);

    // Deleting through the platform's wrapper leaves the owner harmless.
    CImageList owner;
    ASSERT_TRUE(owner.Create(2, 2, ILC_COLOR24, 0, 1));
    EXPECT_TRUE(CImageList::FromHandle(owner)->DeleteImageList());
    EXPECT_EQ(CImageList::FromHandle(owner), nullptr);
    EXPECT_FALSE(owner.DeleteImageList());
}

TEST(ImageList, MaskBitmapPartialStripsAndRemoval)
{
    CImageList list;
    ASSERT_TRUE(list.Create(4, 2, ILC_COLOR24 | ILC_MASK, 0, 1));
    CBitmap image;
    image.CreateFromSurface(Surface(10, 2, 0x00FF00));  // 10 wide: two whole images
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
    EXPECT_TRUE(list.Remove(0));
    EXPECT_FALSE(list.Remove(5));
    EXPECT_EQ(list.GetImageCount(), 1);
    EXPECT_TRUE(list.Remove(-1));
    EXPECT_EQ(list.GetImageCount(), 0);
}

TEST(ImageList, IconsKeepTheirTransparency)
{
    gdi::IconImage icon;
    icon.width = icon.height = 2;
    icon.color = {0x000000, 0x0000FF, 0x0000FF, 0x000000};
    icon.andMask = {1, 0, 0, 1};
    HICON handle = gdi::AddIcon(icon);
    CImageList list;
    ASSERT_TRUE(list.Create(4, 4, ILC_COLOR32 | ILC_MASK, 0, 1));
    EXPECT_EQ(list.Add(handle), 0);
    DestroyIcon(handle);
    EXPECT_EQ(list.Add(handle), -1);
    Canvas c(4, 4, kGray);
    list.Draw(&c.dc, 0, CPoint(0, 0), ILD_TRANSPARENT);
    EXPECT_EQ(c.Count(kBlue, CRect(2, 0, 4, 2)), 4);  // scaled 2x
    EXPECT_EQ(c.Count(kGray, CRect(0, 0, 2, 2)), 4);
}

TEST(ImageList, BadSizesMakeNoList)
{
    CBitmap strip;
    ASSERT_TRUE(strip.CreateFromSurface(Surface(16, 16, 0xFF0000)));
    for (const auto& [cx, cy] : {std::pair{0, 16}, {16, 0}, {-1, 16}, {16, -1}, {4097, 16}, {16, 4097}, {INT_MAX, INT_MAX},
                                 {INT_MIN, INT_MIN}}) {
        CImageList list;
        EXPECT_FALSE(list.Create(cx, cy, ILC_COLOR24 | ILC_MASK, 0, 1)) << cx << " x " << cy;
        EXPECT_EQ(list.GetSafeHandle(), nullptr);
        EXPECT_EQ(list.GetImageSize(), CSize(0, 0));
        EXPECT_EQ(list.Add(&strip, CLR_NONE), -1);
        EXPECT_EQ(list.GetImageCount(), 0);
        Canvas c(4, 4, kGray);
        EXPECT_FALSE(list.Draw(&c.dc, 0, CPoint(0, 0), ILD_NORMAL));
        EXPECT_EQ(c.Count(kGray, c.surface.Bounds()), 16);
    }
    // The largest side is accepted, and the capacity hints reserve nothing.
    for (const auto& [cx, cy] : {std::pair{4096, 1}, {1, 4096}}) {
        CImageList list;
        EXPECT_TRUE(list.Create(cx, cy, ILC_COLOR24, -1, INT_MAX)) << cx << " x " << cy;
        EXPECT_EQ(list.GetImageSize(), CSize(cx, cy));
        EXPECT_EQ(list.GetImageCount(), 0);
    }
}

TEST(ImageList, StripsThatWouldMakeAHugeListAreRefused)
{
    // A strip one pixel high cut into images one pixel wide and 4096 high:
    // a small bitmap, but 32768 images of 4096 pixels each.
    CImageList list;
    ASSERT_TRUE(list.Create(1, 4096, ILC_COLOR24 | ILC_MASK, 0, 1));
    CBitmap wide;
    ASSERT_TRUE(wide.CreateFromSurface(Surface(32768, 1, 0xFF0000)));
    EXPECT_EQ(list.Add(&wide, CLR_NONE), -1);
    EXPECT_EQ(list.GetImageCount(), 0);
    // An ordinary strip still goes in, the missing rows left empty.
    CBitmap small;
    ASSERT_TRUE(small.CreateFromSurface(Surface(3, 1, 0xFF0000)));
    EXPECT_EQ(list.Add(&small, CLR_NONE), 0);
    EXPECT_EQ(list.GetImageCount(), 3);
    Canvas c(3, 2, kGray);
    EXPECT_TRUE(list.Draw(&c.dc, 2, CPoint(2, 0), ILD_NORMAL));
    EXPECT_EQ(c.At(2, 0), kRed);
    EXPECT_EQ(c.At(2, 1), 0x000000u);
}
