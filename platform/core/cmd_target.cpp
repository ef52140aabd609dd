#include "platform/core/cmd_target.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindMessageEntry(UINT message, UINT code, UINT id) const
{
    for (const AFX_MSGMAP* map = GetMessageMap(); map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn; ++entry) {
            if (entry->nMessage == message && entry->nCode == code && id >= entry->nID && id <= entry->nLastID) return entry;
        }
    }
    return nullptr;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, bool* pHandlerExists)
{
    const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(WM_COMMAND, static_cast<UINT>(nCode), nID);
    if (!entry) return FALSE;
    if (pHandlerExists) {
        *pHandlerExists = true;
        return TRUE;
    }
    LRESULT result = 0;
    return entry->pfn(this, nID, 0, pExtra, &result) ? TRUE : FALSE;
}

void CCmdUI::Enable(BOOL bOn)
{
    m_enabled = bOn != FALSE;
    m_bEnableChanged = true;
}

void CCmdUI::SetCheck(int nCheck)
{
    m_check = nCheck;
}

void CCmdUI::SetText(const char* text)
{
    m_text = text;
    m_textChanged = true;
}

void CCmdUI::DoUpdate(CCmdTarget* target, BOOL bDisableIfNoHandler)
{
    m_bEnableChanged = false;
    if (!target) return;
    if (target->OnCmdMsg(m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), this)) return;
    if (bDisableIfNoHandler && !m_bEnableChanged) {
        bool hasHandler = false;
        target->OnCmdMsg(m_nID, static_cast<int>(CN_COMMAND), this, &hasHandler);
        Enable(hasHandler ? TRUE : FALSE);
    }
}
