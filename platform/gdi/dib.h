// Decoding of device-independent bitmaps: a BITMAPINFOHEADER (or a larger
// header of the same family), a palette, then the rows. 1, 4, 8, 16, 24 and
// 32 bits per pixel, BI_RGB or BI_BITFIELDS, bottom-up or top-down, one
// plane. Anything malformed or truncated is rejected; nothing is read past
// the given size, and nothing is allocated that the data does not describe.
// Bitmaps and icons alike are read here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/core/win_types.h"

namespace gdi {

struct DibImage {
    int width = 0;
    int height = 0;
    int bitsPixel = 0;
    // The colour table of a paletted image (1, 4, 8 bits), 0x00RRGGBB, as
    // many entries as the header gives and the depth can index; else empty.
    std::vector<std::uint32_t> palette;
    // Top row first, 0xAARRGGBB. Alpha is 0xFF except in 32-bit images.
    std::vector<std::uint32_t> argb;
    // Whether a 32-bit image carries any non-zero alpha. One that does not is
    // opaque: its pixels get alpha 0xFF.
    bool hasAlpha = false;
    // Icons only: the AND mask, top row first, 1 where the screen shows
    // through. Empty when the image has none.
    std::vector<std::uint8_t> andMask;

    // The pixel at (x, y) counted from the top, 0xAARRGGBB; 0 outside.
    std::uint32_t At(int x, int y) const;
    // Whether the AND mask lets the screen through at (x, y); false outside
    // the image or when it has no mask.
    bool IsTransparent(int x, int y) const;
};

// A bitmap resource; a leading BITMAPFILEHEADER ("BM") is skipped.
AFX_API bool DecodeDib(const unsigned char* data, size_t size, DibImage& out);
// One image of an icon file: the header gives twice the height, the colour
// rows are followed by the 1-bit AND mask (which 32-bit images with alpha
// may omit). Rows are stored bottom-up.
AFX_API bool DecodeIconDib(const unsigned char* data, size_t size, DibImage& out);

}  // namespace gdi
