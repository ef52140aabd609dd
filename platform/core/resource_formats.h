// Readers of the byte layouts that resources carry (see resources.h). Each
// reader checks the whole blob and returns nothing for data that is cut short
// or malformed, so a damaged module cannot make the menu or image code read
// past the end of its resources.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/core/resources.h"
#include "platform/core/win_types.h"

// Menu item flags, as stored in menu templates and taken by the menu functions.
constexpr UINT MF_GRAYED = 0x0001;
constexpr UINT MF_DISABLED = 0x0002;
constexpr UINT MF_CHECKED = 0x0008;
constexpr UINT MF_POPUP = 0x0010;
constexpr UINT MF_END = 0x0080;  // last item of its level; template structure only
constexpr UINT MF_SEPARATOR = 0x0800;

// Deepest nesting of popups a menu template may have; deeper data is rejected
// rather than recursed into.
constexpr int kMaxMenuTemplateDepth = 16;

struct MenuTemplateItem {
    WORD flags = 0;    // MF_* of the item; MF_END is cleared, separators carry MF_SEPARATOR
    UINT id = 0;       // command id; 0 for popups and separators
    std::string text;  // GBK; '&' marks the access key
    std::vector<MenuTemplateItem> children;

    bool IsPopup() const { return (flags & MF_POPUP) != 0; }
    bool IsSeparator() const { return !IsPopup() && (flags & MF_SEPARATOR) != 0; }
};

// The top-level items of a menu template (for a context menu: one popup).
AFX_API std::optional<std::vector<MenuTemplateItem>> ParseMenuTemplate(const unsigned char* data, size_t size);

struct ToolbarTemplate {
    int width = 0;   // of one button image
    int height = 0;
    std::vector<UINT> ids;  // command of each button, 0 for a separator
};

AFX_API std::optional<ToolbarTemplate> ParseToolbar(const unsigned char* data, size_t size);

// The GBK text of a string resource. Rejects a missing blob, an embedded NUL
// and a double-byte character that is cut off or has an invalid second byte.
AFX_API std::optional<std::string> StringFromBlob(const unsigned char* data, size_t size);
inline std::optional<std::string> StringFromBlob(const ResourceBlob& blob) { return StringFromBlob(blob.data, blob.size); }

// A view of a device-independent bitmap held in a resource: the pointers point
// into the blob, which must outlive the view. Pixel coordinates run top-down
// whatever order the rows are stored in.
struct DibView {
    int width = 0;
    int height = 0;             // rows of colour pixels (an icon image's header says twice this)
    int bitCount = 0;           // 1, 4, 8 (palette) or 24, 32
    std::vector<COLORREF> palette;
    const unsigned char* bits = nullptr;
    size_t stride = 0;          // bytes per stored row, a multiple of 4
    bool bottomUp = true;
    const unsigned char* mask = nullptr;  // icon images: AND mask, 1 bpp, a set bit is transparent
    size_t maskStride = 0;

    // Palette index at (x, y); -1 outside the image or when there is no palette.
    int PaletteIndex(int x, int y) const;
    // Colour at (x, y), nothing outside the image.
    std::optional<COLORREF> PixelColor(int x, int y) const;
    // True where the AND mask lets the background through; false for plain bitmaps.
    bool IsTransparent(int x, int y) const;
};

// A packed DIB: BITMAPINFOHEADER (or a larger header), palette, bits; no
// compression.
AFX_API std::optional<DibView> ParseDib(const unsigned char* data, size_t size);

// The images of an icon file, in directory order, each with its AND mask.
AFX_API std::optional<std::vector<DibView>> ParseIconFile(const unsigned char* data, size_t size);
