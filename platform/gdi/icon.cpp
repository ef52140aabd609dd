#include "platform/gdi/icon.h"

#include <algorithm>
#include <cstdlib>

#include "platform/core/resources.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/icon_file.h"

namespace {

constexpr int kDefaultIconSize = 32;
constexpr size_t kMaxEntriesTried = 64;  // bounds the work on a hostile file

gdi::HandleTable<gdi::IconImage>& Icons() { return gdi::PermanentTable<gdi::IconImage>(); }

}  // namespace

HICON CreateIconFromIcoBytes(const unsigned char* data, size_t size, int cx, int cy)
{
    if (cx <= 0) cx = kDefaultIconSize;
    if (cy <= 0) cy = kDefaultIconSize;
    std::vector<gdi::IconDirEntry> entries;
    if (!gdi::ReadIconDirectory(data, size, entries)) return nullptr;
    std::erase_if(entries, [](const gdi::IconDirEntry& e) { return !e.inFile; });
    const auto distance = [cx, cy](const gdi::IconDirEntry& e) { return std::abs(e.width - cx) + std::abs(e.height - cy); };
    std::stable_sort(entries.begin(), entries.end(), [&](const gdi::IconDirEntry& a, const gdi::IconDirEntry& b) {
        return distance(a) != distance(b) ? distance(a) < distance(b) : a.bitCount > b.bitCount;
    });
    if (entries.size() > kMaxEntriesTried) entries.resize(kMaxEntriesTried);
    for (const gdi::IconDirEntry& e : entries) {
        gdi::DibImage dib;
        if (!gdi::DecodeIconDib(data + e.offset, e.size, dib)) continue;
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
