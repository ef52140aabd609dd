// Selecting pens, brushes, fonts and bitmaps into a DC.
#include "platform/gdi/dc.h"
#include "platform/gdi/gdi_registry.h"

HGDIOBJ CDC::SelectObject(HGDIOBJ object)
{
    gdi::ObjectData* data = gdi::FindObject(object);
    if (!data) return nullptr;
    HGDIOBJ* slot = nullptr;
    if (std::holds_alternative<gdi::PenData>(*data)) slot = &m_state.pen;
    else if (std::holds_alternative<gdi::BrushData>(*data)) slot = &m_state.brush;
    else if (std::holds_alternative<gdi::FontData>(*data)) slot = &m_state.font;
    else if (m_memory) slot = &m_state.bitmap;  // bitmaps go into memory DCs only
    if (!slot) return nullptr;
    HGDIOBJ old = *slot;
    *slot = object;
    return old;
}

CPen* CDC::SelectObject(CPen* pen)
{
    if (!pen || !gdi::Find<gdi::PenData>(pen->m_hObject)) return nullptr;
    return CPen::FromHandle(SelectObject(pen->m_hObject));
}

CBrush* CDC::SelectObject(CBrush* brush)
{
    if (!brush || !gdi::Find<gdi::BrushData>(brush->m_hObject)) return nullptr;
    return CBrush::FromHandle(SelectObject(brush->m_hObject));
}

CFont* CDC::SelectObject(CFont* font)
{
    if (!font || !gdi::Find<gdi::FontData>(font->m_hObject)) return nullptr;
    return CFont::FromHandle(SelectObject(font->m_hObject));
}

CBitmap* CDC::SelectObject(CBitmap* bitmap)
{
    if (!bitmap || !gdi::Find<gdi::BitmapData>(bitmap->m_hObject)) return nullptr;
    return CBitmap::FromHandle(SelectObject(bitmap->m_hObject));
}

CGdiObject* CDC::SelectObject(CGdiObject* object)
{
    return object ? CGdiObject::FromHandle(SelectObject(object->m_hObject)) : nullptr;
}

CGdiObject* CDC::SelectStockObject(int index)
{
    return CGdiObject::FromHandle(SelectObject(GetStockObject(index)));
}

CPen* CDC::GetCurrentPen() const { return CPen::FromHandle(m_state.pen); }
CBrush* CDC::GetCurrentBrush() const { return CBrush::FromHandle(m_state.brush); }
CFont* CDC::GetCurrentFont() const { return CFont::FromHandle(m_state.font); }
CBitmap* CDC::GetCurrentBitmap() const { return m_memory ? CBitmap::FromHandle(m_state.bitmap) : nullptr; }

const gdi::PenData& CDC::CurrentPen() const
{
    if (const auto* pen = gdi::Find<gdi::PenData>(m_state.pen)) return *pen;
    return *gdi::Find<gdi::PenData>(GetStockObject(BLACK_PEN));
}

const gdi::BrushData& CDC::CurrentBrush() const
{
    if (const auto* brush = gdi::Find<gdi::BrushData>(m_state.brush)) return *brush;
    return *gdi::Find<gdi::BrushData>(GetStockObject(WHITE_BRUSH));
}

const gdi::FontData& CDC::CurrentFont() const
{
    if (const auto* font = gdi::Find<gdi::FontData>(m_state.font)) return *font;
    return *gdi::Find<gdi::FontData>(GetStockObject(SYSTEM_FONT));
}
