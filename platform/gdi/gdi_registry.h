// The objects behind pen, brush, font and bitmap handles. Drawing code looks
// handles up here on every call, so a deleted object is noticed at once and
// the DC falls back to its default instead of touching freed memory.
#pragma once

#include <variant>

#include "platform/gdi/gdi_types.h"
#include "platform/gdi/surface.h"

class CGdiObject;

namespace gdi {

struct PenData {
    int style = PS_SOLID;
    int width = 1;
    COLORREF color = 0;
};

struct BrushData {
    bool hollow = false;
    COLORREF color = 0;
};

struct FontData {
    LOGFONT logFont;
    int pixelHeight = 16;  // the height the whole text layout is based on
};

struct BitmapData {
    Surface surface;
    int bitsPixel = 32;  // 1 for monochrome bitmaps (pixels black or white), else 32
};

using ObjectData = std::variant<PenData, BrushData, FontData, BitmapData>;

// Registers an object. Permanent objects (stock objects, system brushes)
// ignore deletion.
AFX_API HGDIOBJ AddObject(ObjectData data, bool permanent = false);
AFX_API ObjectData* FindObject(HGDIOBJ handle);
template <class T>
T* Find(HGDIOBJ handle)
{
    ObjectData* data = FindObject(handle);
    return data ? std::get_if<T>(data) : nullptr;
}
AFX_API bool IsPermanent(HGDIOBJ handle);

// Deletes the object. False for a stale, null or permanent handle. The
// wrapper that FromHandle made for it goes too; if that wrapper is the
// caller itself it is kept alive until a later deletion.
AFX_API bool RemoveObject(HGDIOBJ handle, const CGdiObject* caller);

// A wrapper object of the right class (CPen, CBrush, CFont, CBitmap) for the
// handle, owned by the registry and valid as long as the object; null for a
// stale handle.
AFX_API CGdiObject* WrapperFor(HGDIOBJ handle);

// Number of live objects, permanent ones included (for leak checks).
AFX_API size_t ObjectCount();

}  // namespace gdi
