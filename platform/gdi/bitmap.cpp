#include "platform/gdi/bitmap.h"

#include "platform/core/resources.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/dib.h"
#include "platform/gdi/gdi_registry.h"

namespace {

bool ValidSize(int width, int height)
{
    return width > 0 && height > 0 && width <= Surface::kMaxSide && height <= Surface::kMaxSide &&
           std::int64_t(width) * height <= Surface::kMaxArea;
}

std::uint32_t ReadPixel(const unsigned char* row, int x, UINT bpp)
{
    switch (bpp) {
    case 1: return (row[x / 8] >> (7 - x % 8)) & 1 ? 0xFFFFFFu : 0;
    case 24: return (std::uint32_t(row[x * 3 + 2]) << 16) | (std::uint32_t(row[x * 3 + 1]) << 8) | row[x * 3];
    default: return (std::uint32_t(row[x * 4 + 2]) << 16) | (std::uint32_t(row[x * 4 + 1]) << 8) | row[x * 4];
    }
}

}  // namespace

BOOL CBitmap::CreateCompatibleBitmap(CDC* dc, int width, int height)
{
    if (m_hObject || !ValidSize(width, height)) return FALSE;
    const int bpp = dc && dc->GetDeviceCaps(BITSPIXEL) == 1 ? 1 : 32;
    return Attach(gdi::AddObject(gdi::BitmapData{Surface(width, height), bpp}));
}

BOOL CBitmap::CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
{
    if (m_hObject || !ValidSize(width, height) || planes != 1) return FALSE;
    if (bitsPerPixel != 1 && bitsPerPixel != 24 && bitsPerPixel != 32) return FALSE;
    gdi::BitmapData data{Surface(width, height), bitsPerPixel == 1 ? 1 : 32};
    if (bits) {
        const auto* bytes = static_cast<const unsigned char*>(bits);
        const size_t stride = ((size_t(width) * bitsPerPixel + 15) / 16) * 2;
        for (int y = 0; y < height; ++y) {
            std::uint32_t* out = data.surface.Row(y);
            for (int x = 0; x < width; ++x) out[x] = ReadPixel(bytes + stride * size_t(y), x, bitsPerPixel);
        }
    }
    return Attach(gdi::AddObject(std::move(data)));
}

BOOL CBitmap::CreateFromSurface(const Surface& pixels)
{
    if (m_hObject || pixels.IsEmpty()) return FALSE;
    return Attach(gdi::AddObject(gdi::BitmapData{pixels, 32}));
}

BOOL CBitmap::LoadBitmap(UINT id)
{
    const ResourceBlob blob = AfxFindResourceData(ResourceType::Bitmap, id);
    return blob ? LoadFromDib(blob.data, blob.size) : FALSE;
}

BOOL CBitmap::LoadFromDib(const unsigned char* data, size_t size)
{
    gdi::DibImage image;
    if (m_hObject || !gdi::DecodeDib(data, size, image)) return FALSE;
    gdi::BitmapData bitmap{Surface(image.width, image.height), 32};
    for (int y = 0; y < image.height; ++y) {
        std::uint32_t* out = bitmap.surface.Row(y);
        const std::uint32_t* in = image.argb.data() + size_t(y) * size_t(image.width);
        for (int x = 0; x < image.width; ++x) out[x] = in[x] & 0x00FFFFFFu;
    }
    return Attach(gdi::AddObject(std::move(bitmap)));
}

int CBitmap::GetBitmap(BITMAP* info) const
{
    const auto* bitmap = gdi::Find<gdi::BitmapData>(m_hObject);
    if (!bitmap || !info) return 0;
    *info = BITMAP{};
    info->bmWidth = bitmap->surface.Width();
    info->bmHeight = bitmap->surface.Height();
    info->bmWidthBytes = bitmap->bitsPixel == 1 ? ((info->bmWidth + 15) / 16) * 2 : info->bmWidth * 4;
    info->bmPlanes = 1;
    info->bmBitsPixel = static_cast<WORD>(bitmap->bitsPixel);
    return static_cast<int>(sizeof(BITMAP));
}

CSize CBitmap::GetSize() const
{
    const auto* bitmap = gdi::Find<gdi::BitmapData>(m_hObject);
    return bitmap ? CSize(bitmap->surface.Width(), bitmap->surface.Height()) : CSize();
}

Surface* CBitmap::GetSurface() const
{
    auto* bitmap = gdi::Find<gdi::BitmapData>(m_hObject);
    return bitmap ? &bitmap->surface : nullptr;
}

CBitmap* CBitmap::FromHandle(HBITMAP handle)
{
    return gdi::Find<gdi::BitmapData>(handle) ? static_cast<CBitmap*>(gdi::WrapperFor(handle)) : nullptr;
}

namespace gdi {

HBITMAP DefaultMemoryBitmap()
{
    static HBITMAP bitmap = AddObject(BitmapData{Surface(1, 1), 1}, true);
    return bitmap;
}

}  // namespace gdi
