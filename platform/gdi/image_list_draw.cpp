// Drawing images of an image list.
#include "platform/gdi/dc.h"
#include "platform/gdi/image_list_data.h"
#include "platform/gdi/raster.h"
#include "platform/gdi/sys_color.h"

namespace {

std::uint32_t HalfAndHalf(std::uint32_t a, std::uint32_t b)
{
    return (((a & 0xFEFEFEu) >> 1) + ((b & 0xFEFEFEu) >> 1)) & 0xFFFFFFu;
}

}  // namespace

BOOL CImageList::Draw(CDC* dc, int index, POINT point, UINT style)
{
    const gdi::ImageListData* list = gdi::FindImageList(m_hImageList);
    if (!dc || !list || index < 0 || index >= static_cast<int>(list->images.size())) return FALSE;
    const gdi::ListImage& image = list->images[static_cast<size_t>(index)];
    const gdi::Target t = dc->GetTarget();
    const CPoint at = t.ToDevice(point.x, point.y);
    CRect area;
    if (!t.surface || !area.IntersectRect(CRect(at.x, at.y, at.x + list->cx, at.y + list->cy), t.clip)) return TRUE;

    const bool maskOnly = style & ILD_MASK;
    const bool blend = style & (ILD_BLEND25 | ILD_BLEND50);
    const bool keepBehind = (style & ILD_TRANSPARENT) || list->bkColor == CLR_NONE;
    const std::uint32_t highlight = ColorRefToPixel(GetSysColor(COLOR_HIGHLIGHT));
    const std::uint32_t background = ColorRefToPixel(list->bkColor);
    for (int y = area.top; y < area.bottom; ++y) {
        std::uint32_t* row = t.surface->Row(y);
        const size_t base = static_cast<size_t>(y - at.y) * static_cast<size_t>(list->cx);
        for (int x = area.left; x < area.right; ++x) {
            const size_t i = base + static_cast<size_t>(x - at.x);
            const bool transparent = image.mask[i] != 0;
            std::uint32_t out;
            if (maskOnly) out = transparent ? 0xFFFFFFu : 0u;
            else if (transparent && keepBehind) continue;
            else if (transparent) out = background;
            else out = blend ? HalfAndHalf(image.pixels[i], highlight) : image.pixels[i];
            row[x] = t.mono ? gdi::MonoPixel(out) : out;
        }
    }
    return TRUE;
}

BOOL ImageList_Draw(HIMAGELIST list, int index, HDC hdc, int x, int y, UINT style)
{
    CImageList* images = CImageList::FromHandle(list);
    return images ? images->Draw(CDC::FromHandle(hdc), index, CPoint(x, y), style) : FALSE;
}
