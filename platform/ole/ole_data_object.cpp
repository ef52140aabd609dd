#include "platform/ole/ole_data_object.h"

void COleDataObject::Attach(const FormatBlocks* pData)
{
    m_data = pData;
}

const FormatBlocks* COleDataObject::Detach()
{
    const FormatBlocks* data = m_data;
    m_data = nullptr;
    return data;
}

BOOL COleDataObject::IsDataAvailable(CLIPFORMAT cfFormat) const
{
    return m_data && m_data->Find(cfFormat) ? TRUE : FALSE;
}

HGLOBAL COleDataObject::GetGlobalData(CLIPFORMAT cfFormat) const
{
    return m_data ? GlobalMemory::Copy(m_data->Find(cfFormat)) : nullptr;
}
