#include "platform/gdi/sys_color.h"

#include <array>

#include "platform/gdi/gdi_registry.h"

namespace {

constexpr int kColorCount = 31;

constexpr std::array<COLORREF, kColorCount> kColors = {
    RGB(212, 208, 200),  // COLOR_SCROLLBAR
    RGB(58, 110, 165),   // COLOR_BACKGROUND
    RGB(10, 36, 106),    // COLOR_ACTIVECAPTION
    RGB(128, 128, 128),  // COLOR_INACTIVECAPTION
    RGB(212, 208, 200),  // COLOR_MENU
    RGB(255, 255, 255),  // COLOR_WINDOW
    RGB(0, 0, 0),        // COLOR_WINDOWFRAME
    RGB(0, 0, 0),        // COLOR_MENUTEXT
    RGB(0, 0, 0),        // COLOR_WINDOWTEXT
    RGB(255, 255, 255),  // COLOR_CAPTIONTEXT
    RGB(212, 208, 200),  // COLOR_ACTIVEBORDER
    RGB(212, 208, 200),  // COLOR_INACTIVEBORDER
    RGB(128, 128, 128),  // COLOR_APPWORKSPACE
    RGB(10, 36, 106),    // COLOR_HIGHLIGHT
    RGB(255, 255, 255),  // COLOR_HIGHLIGHTTEXT
    RGB(212, 208, 200),  // COLOR_BTNFACE
    RGB(128, 128, 128),  // COLOR_BTNSHADOW
    RGB(128, 128, 128),  // COLOR_GRAYTEXT
    RGB(0, 0, 0),        // COLOR_BTNTEXT
    RGB(212, 208, 200),  // COLOR_INACTIVECAPTIONTEXT
    RGB(255, 255, 255),  // COLOR_BTNHIGHLIGHT
    RGB(64, 64, 64),     // COLOR_3DDKSHADOW
    RGB(212, 208, 200),  // COLOR_3DLIGHT
    RGB(0, 0, 0),        // COLOR_INFOTEXT
    RGB(255, 255, 225),  // COLOR_INFOBK
    RGB(181, 181, 181),  // 25: unused slot
    RGB(0, 0, 128),      // COLOR_HOTLIGHT
    RGB(166, 202, 240),  // COLOR_GRADIENTACTIVECAPTION
    RGB(192, 192, 192),  // COLOR_GRADIENTINACTIVECAPTION
    RGB(10, 36, 106),    // COLOR_MENUHILIGHT
    RGB(212, 208, 200),  // COLOR_MENUBAR
};

bool Known(int index) { return index >= 0 && index < kColorCount; }

}  // namespace

COLORREF GetSysColor(int index)
{
    return Known(index) ? kColors[static_cast<size_t>(index)] : RGB(0, 0, 0);
}

HBRUSH GetSysColorBrush(int index)
{
    if (!Known(index)) return nullptr;
    static std::array<HBRUSH, kColorCount> brushes{};
    HBRUSH& brush = brushes[static_cast<size_t>(index)];
    if (!brush) brush = gdi::AddObject(gdi::BrushData{false, GetSysColor(index)}, true);
    return brush;
}
