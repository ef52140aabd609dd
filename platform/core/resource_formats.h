// Readers of the byte layouts that resources carry (see resources.h), apart
// from images, which gdi/dib.h and gdi/icon_file.h read. Each reader checks
// the whole blob and returns nothing for data that is cut short or malformed,
// so a damaged module cannot make the menu code read past the end of its
// resources.
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
