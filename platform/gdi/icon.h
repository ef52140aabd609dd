// Icons (HICON): colour pixels plus an AND mask (or an alpha channel),
// made from icon-file bytes: ICONDIR, ICONDIRENTRY records, then one DIB per
// image (1, 4, 8, 16, 24 or 32 bits per pixel, followed by its AND mask).
// Malformed bytes give a null handle, never a read past the data.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/core/win_types.h"

class Surface;

// The image nearest cx x cy (0 means 32) of an icon file: smallest size
// difference, then most colours. Null when no image in it can be read.
AFX_API HICON CreateIconFromIcoBytes(const unsigned char* data, size_t size, int cx, int cy);
// The icon resource with this id, found along the module chain; LoadIcon
// takes the 32 x 32 image.
AFX_API HICON LoadIcon(UINT id);
AFX_API HICON LoadIconFromChain(UINT id, int cx, int cy);
// Frees an icon; FALSE for a null or stale handle.
AFX_API BOOL DestroyIcon(HICON icon);
// The icon's pixel size, (0, 0) for a stale handle.
AFX_API CSize GetIconSize(HICON icon);

namespace gdi {

struct IconImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> color;   // 0x00RRGGBB, top row first
    std::vector<std::uint8_t> alpha;    // per pixel, or empty: then the mask decides
    std::vector<std::uint8_t> andMask;  // 1 where the screen shows through, or empty
};

// Null when the vectors do not match the size.
AFX_API HICON AddIcon(IconImage image);
AFX_API const IconImage* FindIcon(HICON icon);
// Draws an icon into a target area (surface pixels), scaled to fit; flags
// as DrawIconEx.
struct Target;
void DrawIconImage(const Target& target, const IconImage& image, const CRect& area, unsigned flags);

}  // namespace gdi
