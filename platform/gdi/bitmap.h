// Bitmaps. A bitmap owns a Surface; select it into a memory DC to draw on it.
// Colour bitmaps hold 0x00RRGGBB pixels; monochrome ones (1 bit per pixel)
// hold only black and white, and BitBlt converts between the two kinds the
// way the platform does (see CDC::BitBlt).
#pragma once

#include <cstddef>

#include "platform/gdi/gdi_object.h"

class CDC;
class Surface;

class AFX_EXT_CLASS CBitmap : public CGdiObject {
public:
    // Black bitmap of the DC's kind: monochrome when the DC is a memory DC
    // that still holds its initial 1x1 monochrome bitmap (as on the
    // platform), else colour. A null DC means the screen (colour).
    BOOL CreateCompatibleBitmap(CDC* dc, int width, int height);
    // bitsPerPixel 1 (set bits are white), 24 (B,G,R) or 32 (B,G,R,x); rows
    // top-down, each padded to a multiple of 2 bytes. bits may be null (black).
    BOOL CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits);
    // A colour bitmap holding a copy of the pixels.
    BOOL CreateFromSurface(const Surface& pixels);
    // The bitmap resource with this id, found along the module chain.
    BOOL LoadBitmap(UINT id);
    // A device-independent bitmap (see dib.h); FALSE for malformed bytes.
    BOOL LoadFromDib(const unsigned char* data, size_t size);

    // Fills in size and format; returns sizeof(BITMAP), or 0 when empty.
    int GetBitmap(BITMAP* info) const;
    CSize GetSize() const;  // (0, 0) when empty
    // The pixels, or null when empty. Valid while the bitmap lives.
    Surface* GetSurface() const;

    static CBitmap* FromHandle(HBITMAP handle);
};

namespace gdi {
// The 1x1 monochrome bitmap a new memory DC starts with.
AFX_API HBITMAP DefaultMemoryBitmap();
}  // namespace gdi
