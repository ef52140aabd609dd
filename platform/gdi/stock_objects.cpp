#include <array>

#include "platform/gdi/font.h"
#include "platform/gdi/font_model.h"
#include "platform/gdi/gdi_object.h"
#include "platform/gdi/gdi_registry.h"

namespace {

constexpr int kStockCount = DEFAULT_GUI_FONT + 1;

HGDIOBJ StockFont(int height, LPCSTR face)
{
    LOGFONT lf;
    lf.lfHeight = height;
    lf.lfWeight = FW_NORMAL;
    SetFaceName(lf, face);
    return gdi::AddObject(gdi::MakeFontData(lf), true);
}

HGDIOBJ MakeStock(int index)
{
    using gdi::BrushData;
    using gdi::PenData;
    switch (index) {
    case WHITE_BRUSH: return gdi::AddObject(BrushData{false, RGB(255, 255, 255)}, true);
    case LTGRAY_BRUSH: return gdi::AddObject(BrushData{false, RGB(192, 192, 192)}, true);
    case GRAY_BRUSH: return gdi::AddObject(BrushData{false, RGB(128, 128, 128)}, true);
    case DKGRAY_BRUSH: return gdi::AddObject(BrushData{false, RGB(64, 64, 64)}, true);
    case BLACK_BRUSH: return gdi::AddObject(BrushData{false, RGB(0, 0, 0)}, true);
    case NULL_BRUSH: return gdi::AddObject(BrushData{true, 0}, true);
    case WHITE_PEN: return gdi::AddObject(PenData{PS_SOLID, 1, RGB(255, 255, 255)}, true);
    case BLACK_PEN: return gdi::AddObject(PenData{PS_SOLID, 1, RGB(0, 0, 0)}, true);
    case NULL_PEN: return gdi::AddObject(PenData{PS_NULL, 1, 0}, true);
    // The system font and the fixed fonts: 16 px, 8 px per byte.
    case OEM_FIXED_FONT: return StockFont(16, "Terminal");
    case ANSI_FIXED_FONT: return StockFont(16, "Courier");
    case SYSTEM_FONT: return StockFont(16, "System");
    case DEVICE_DEFAULT_FONT: return StockFont(16, "System");
    case SYSTEM_FIXED_FONT: return StockFont(16, "Fixedsys");
    case ANSI_VAR_FONT: return StockFont(12, "MS Sans Serif");
    // 9 pt SimSun, named in GBK.
    case DEFAULT_GUI_FONT: return StockFont(-12, "\xCB\xCE\xCC\xE5");
    default: return nullptr;
    }
}

}  // namespace

HGDIOBJ GetStockObject(int index)
{
    if (index < 0 || index >= kStockCount) return nullptr;
    static std::array<HGDIOBJ, kStockCount> stock{};
    HGDIOBJ& object = stock[static_cast<size_t>(index)];
    if (!object) object = MakeStock(index);
    return object;
}
