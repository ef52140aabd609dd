#include "platform/gdi/gdi_object.h"

#include "platform/gdi/gdi_registry.h"

CGdiObject::~CGdiObject()
{
    DeleteObject();
}

BOOL CGdiObject::Attach(HGDIOBJ handle)
{
    if (m_hObject || !handle) return FALSE;
    m_hObject = handle;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    HGDIOBJ handle = m_hObject;
    m_hObject = nullptr;
    return handle;
}

BOOL CGdiObject::DeleteObject()
{
    if (!m_hObject) return FALSE;
    HGDIOBJ handle = Detach();
    return gdi::RemoveObject(handle, this) ? TRUE : FALSE;
}

BOOL CGdiObject::CreateStockObject(int index)
{
    return Attach(::GetStockObject(index));
}

CGdiObject* CGdiObject::FromHandle(HGDIOBJ handle)
{
    return gdi::WrapperFor(handle);
}

BOOL DeleteObject(HGDIOBJ handle)
{
    return gdi::RemoveObject(handle, nullptr) ? TRUE : FALSE;
}
