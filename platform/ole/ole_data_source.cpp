#include "platform/ole/ole_data_source.h"

#include "platform/ole/ole_drag.h"

IMPLEMENT_DYNAMIC(COleDataSource, CCmdTarget)

void COleDataSource::CacheGlobalData(CLIPFORMAT cfFormat, HGLOBAL hGlobal)
{
    m_blocks.Set(cfFormat, hGlobal);
}

void COleDataSource::Empty()
{
    m_blocks.Empty();
}

DROPEFFECT COleDataSource::DoDragDrop(DWORD dwEffects, LPCRECT lpRectStartDrag)
{
    return OleDrag::Run(m_blocks, dwEffects, lpRectStartDrag);
}
