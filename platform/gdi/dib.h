// Decoding of device-independent bitmaps: a BITMAPINFOHEADER (or a larger
// header of the same family), a palette, then the rows. 1, 4, 8, 16, 24 and
// 32 bits per pixel, BI_RGB or BI_BITFIELDS, bottom-up or top-down. Anything
// malformed or truncated is rejected; nothing is read past the given size.
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
    // Top row first, 0xAARRGGBB. Alpha is 0xFF except in 32-bit images.
    std::vector<std::uint32_t> argb;
    // Whether a 32-bit image carries any non-zero alpha.
    bool hasAlpha = false;
    // Icons only: the AND mask, top row first, 1 where the screen shows
    // through. Empty when the image has none.
    std::vector<std::uint8_t> andMask;
};

// A bitmap resource; a leading BITMAPFILEHEADER ("BM") is skipped.
AFX_API bool DecodeDib(const unsigned char* data, size_t size, DibImage& out);
// One image of an icon file: the header gives twice the height, the colour
// rows are followed by the 1-bit AND mask (which 32-bit images may omit).
AFX_API bool DecodeIconDib(const unsigned char* data, size_t size, DibImage& out);

}  // namespace gdi
