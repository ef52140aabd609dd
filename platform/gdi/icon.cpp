#include "platform/gdi/icon.h"

#include <algorithm>
#include <cstdlib>

#include "platform/core/resources.h"
#include "platform/gdi/byte_reader.h"
#include "platform/gdi/dib.h"
#include "platform/gdi/handle_table.h"

namespace {

constexpr int kDefaultIconSize = 32;
constexpr size_t kMaxEntriesTried = 64;  // bounds the work on a hostile file

struct Entry {
    int width = 0;
    int height = 0;
    int bitCount = 0;
    size_t offset = 0;
    size_t size = 0;
};

gdi::HandleTable<gdi::IconImage>& Icons() { return gdi::PermanentTable<gdi::IconImage>(); }

std::vector<Entry> ReadEntries(const gdi::ByteReader& in)
{
    std::vector<Entry> entries;
    std::uint32_t reserved = 1, type = 0, count = 0;
    if (!in.U16(0, reserved) || !in.U16(2, type) || !in.U16(4, count)) return entries;
    if (reserved != 0 || (type != 1 && type != 2) || count == 0) return entries;
    if (!in.Has(6, size_t(count) * 16)) return entries;  // the directory itself is cut off
    for (std::uint32_t i = 0; i < count; ++i) {
        const size_t at = 6 + size_t(i) * 16;
        std::uint32_t w = 0, h = 0, bits = 0, bytes = 0, offset = 0;
        in.U8(at, w);
        in.U8(at + 1, h);
        in.U16(at + 6, bits);
        in.U32(at + 8, bytes);
        in.U32(at + 12, offset);
        if (!in.Has(offset, bytes)) continue;
        entries.push_back({w ? int(w) : 256, h ? int(h) : 256, int(bits), offset, bytes});
    }
    return entries;
}

}  // namespace

HICON CreateIconFromIcoBytes(const unsigned char* data, size_t size, int cx, int cy)
{
    if (cx <= 0) cx = kDefaultIconSize;
    if (cy <= 0) cy = kDefaultIconSize;
    const gdi::ByteReader in(data, size);
    std::vector<Entry> entries = ReadEntries(in);
    const auto distance = [cx, cy](const Entry& e) { return std::abs(e.width - cx) + std::abs(e.height - cy); };
    std::stable_sort(entries.begin(), entries.end(), [&](const Entry& a, const Entry& b) {
        return distance(a) != distance(b) ? distance(a) < distance(b) : a.bitCount > b.bitCount;
    });
    if (entries.size() > kMaxEntriesTried) entries.resize(kMaxEntriesTried);
    for (const Entry& e : entries) {
        gdi::DibImage dib;
        if (!gdi::DecodeIconDib(in.At(e.offset), e.size, dib)) continue;
        gdi::IconImage image;
        image.width = dib.width;
        image.height = dib.height;
        image.color.resize(dib.argb.size());
        for (size_t i = 0; i < dib.argb.size(); ++i) image.color[i] = dib.argb[i] & 0x00FFFFFFu;
        if (dib.hasAlpha) {
            image.alpha.resize(dib.argb.size());
            for (size_t i = 0; i < dib.argb.size(); ++i) image.alpha[i] = static_cast<std::uint8_t>(dib.argb[i] >> 24);
        }
        image.andMask = std::move(dib.andMask);
        return gdi::AddIcon(std::move(image));
    }
    return nullptr;
}

HICON LoadIcon(UINT id)
{
    return LoadIconFromChain(id, kDefaultIconSize, kDefaultIconSize);
}

HICON LoadIconFromChain(UINT id, int cx, int cy)
{
    const ResourceBlob blob = AfxFindResourceData(ResourceType::Icon, id);
    return blob ? CreateIconFromIcoBytes(blob.data, blob.size, cx, cy) : nullptr;
}

BOOL DestroyIcon(HICON icon)
{
    return Icons().Remove(gdi::HandleValue(icon)) ? TRUE : FALSE;
}

CSize GetIconSize(HICON icon)
{
    const gdi::IconImage* image = gdi::FindIcon(icon);
    return image ? CSize(image->width, image->height) : CSize();
}

namespace gdi {

HICON AddIcon(IconImage image)
{
    const size_t pixels = size_t(std::max(image.width, 0)) * size_t(std::max(image.height, 0));
    if (pixels == 0 || image.color.size() != pixels || (!image.alpha.empty() && image.alpha.size() != pixels) ||
        (!image.andMask.empty() && image.andMask.size() != pixels))
        return nullptr;
    return MakeHandle<HICON>(Icons().Add(std::make_unique<IconImage>(std::move(image))));
}

const IconImage* FindIcon(HICON icon)
{
    return Icons().Find(HandleValue(icon));
}

}  // namespace gdi
