#include "platform/gdi/pen.h"

#include <algorithm>

#include "platform/gdi/gdi_registry.h"

BOOL CPen::CreatePen(int style, int width, COLORREF color)
{
    if (m_hObject || style < PS_SOLID || style > PS_INSIDEFRAME) return FALSE;
    // Width 0 means one pixel; huge widths are capped so a line stays cheap.
    width = std::clamp(width, 1, 256);
    return Attach(gdi::AddObject(gdi::PenData{style, width, color & 0x00FFFFFF}));
}

BOOL CPen::GetPenInfo(int* style, int* width, COLORREF* color) const
{
    const auto* pen = gdi::Find<gdi::PenData>(m_hObject);
    if (!pen) return FALSE;
    if (style) *style = pen->style;
    if (width) *width = pen->width;
    if (color) *color = pen->color;
    return TRUE;
}

CPen* CPen::FromHandle(HPEN handle)
{
    return gdi::Find<gdi::PenData>(handle) ? static_cast<CPen*>(gdi::WrapperFor(handle)) : nullptr;
}
