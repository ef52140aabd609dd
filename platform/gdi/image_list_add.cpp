// Adding images to an image list from bitmap strips and icons.
#include "platform/gdi/bitmap.h"
#include "platform/gdi/icon.h"
#include "platform/gdi/image_list_data.h"
#include "platform/gdi/raster.h"
#include "platform/gdi/surface.h"

namespace {

// Cuts the strip into images; isTransparent(x, y) decides the mask.
template <class MaskTest>
int AddStrip(gdi::ImageListData& list, const Surface& strip, MaskTest isTransparent)
{
    const int count = strip.Width() / list.cx;
    if (count <= 0 || !list.Fits(count)) return -1;
    const int first = static_cast<int>(list.images.size());
    const int rows = std::min(strip.Height(), list.cy);
    for (int n = 0; n < count; ++n) {
        gdi::ListImage image;
        image.pixels.assign(static_cast<size_t>(list.cx) * static_cast<size_t>(list.cy), 0);
        image.mask.assign(image.pixels.size(), 0);
        for (int y = 0; y < rows; ++y) {
            const std::uint32_t* src = strip.Row(y) + n * list.cx;
            for (int x = 0; x < list.cx; ++x) {
                const size_t i = static_cast<size_t>(y) * static_cast<size_t>(list.cx) + static_cast<size_t>(x);
                image.pixels[i] = src[x];
                image.mask[i] = list.Masked() && isTransparent(n * list.cx + x, y) ? 1 : 0;
            }
        }
        list.images.push_back(std::move(image));
    }
    return first;
}

}  // namespace

int CImageList::Add(CBitmap* bitmap, COLORREF mask)
{
    gdi::ImageListData* list = gdi::FindImageList(m_hImageList);
    const Surface* strip = bitmap ? bitmap->GetSurface() : nullptr;
    if (!list || !strip) return -1;
    const std::uint32_t key = ColorRefToPixel(mask);
    const bool useKey = mask != CLR_NONE && mask != CLR_DEFAULT;
    return AddStrip(*list, *strip, [&](int x, int y) { return useKey && strip->Row(y)[x] == key; });
}

int CImageList::Add(CBitmap* bitmap, CBitmap* mask)
{
    gdi::ImageListData* list = gdi::FindImageList(m_hImageList);
    const Surface* strip = bitmap ? bitmap->GetSurface() : nullptr;
    if (!list || !strip) return -1;
    const Surface* maskPixels = mask ? mask->GetSurface() : nullptr;
    return AddStrip(*list, *strip, [&](int x, int y) {
        return maskPixels && maskPixels->Contains(x, y) && gdi::MonoPixel(maskPixels->Row(y)[x]) != 0;
    });
}

int CImageList::Add(HICON icon)
{
    gdi::ImageListData* list = gdi::FindImageList(m_hImageList);
    const gdi::IconImage* source = gdi::FindIcon(icon);
    if (!list || !source || !list->Fits(1)) return -1;
    // Draw the icon over white and over black: pixels that differ let the
    // background through.
    Surface onWhite(list->cx, list->cy, 0xFFFFFF), onBlack(list->cx, list->cy, 0);
    const CRect area(0, 0, list->cx, list->cy);
    gdi::Target t{&onWhite, area, CPoint(), false};
    gdi::DrawIconImage(t, *source, area, DI_NORMAL);
    t.surface = &onBlack;
    gdi::DrawIconImage(t, *source, area, DI_NORMAL);
    gdi::ListImage image;
    image.pixels = onBlack.Pixels();
    image.mask.assign(image.pixels.size(), 0);
    for (size_t i = 0; i < image.pixels.size(); ++i)
        if (onWhite.Pixels()[i] != onBlack.Pixels()[i]) image.mask[i] = list->Masked() ? 1 : 0;
    list->images.push_back(std::move(image));
    return static_cast<int>(list->images.size()) - 1;
}
