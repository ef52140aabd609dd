// What stands behind an HIMAGELIST.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/gdi/gdi_types.h"
#include "platform/gdi/image_list.h"
#include "platform/gdi/surface.h"

namespace gdi {

struct ListImage {
    std::vector<std::uint32_t> pixels;  // cx * cy, 0x00RRGGBB
    std::vector<std::uint8_t> mask;     // cx * cy, 1 where transparent
};

struct ImageListData {
    int cx = 0;
    int cy = 0;
    UINT flags = 0;
    COLORREF bkColor = CLR_NONE;
    std::vector<ListImage> images;
    std::unique_ptr<CImageList> wrapper;  // made by FromHandle

    bool Masked() const { return (flags & ILC_MASK) != 0; }
    // Whether `count` more images fit: all images together hold no more
    // pixels than one surface may, however small the bitmap they are cut from.
    bool Fits(std::int64_t count) const
    {
        const std::int64_t total = std::int64_t(images.size()) + count;
        return total <= Surface::kMaxArea / (std::int64_t(cx) * cy);
    }
};

ImageListData* FindImageList(HIMAGELIST handle);

}  // namespace gdi
