#include "platform/gdi/brush.h"

#include "platform/gdi/gdi_registry.h"
#include "platform/gdi/sys_color.h"

BOOL CBrush::CreateSolidBrush(COLORREF color)
{
    if (m_hObject) return FALSE;
    return Attach(gdi::AddObject(gdi::BrushData{false, color & 0x00FFFFFF}));
}

BOOL CBrush::CreateSysColorBrush(int index)
{
    // A brush of its own, so that this object may delete it.
    return CreateSolidBrush(GetSysColor(index));
}

BOOL CBrush::GetColor(COLORREF* color) const
{
    const auto* brush = gdi::Find<gdi::BrushData>(m_hObject);
    if (!brush || brush->hollow) return FALSE;
    if (color) *color = brush->color;
    return TRUE;
}

CBrush* CBrush::FromHandle(HBRUSH handle)
{
    return gdi::Find<gdi::BrushData>(handle) ? static_cast<CBrush*>(gdi::WrapperFor(handle)) : nullptr;
}
