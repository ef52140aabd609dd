// CCmdTarget: an object that receives commands through its message map, and
// CCmdUI: the state object through which update handlers enable commands.
#pragma once

#include "platform/core/message_map.h"
#include "platform/core/object.h"
#include "platform/text/cstring.h"

class AFX_EXT_CLASS CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)

    CCmdTarget() = default;
    ~CCmdTarget() override = default;

    // Routes a command (nCode CN_COMMAND), an update request (CN_UPDATE_COMMAND_UI,
    // pExtra the CCmdUI) or a control notification to this object's map.
    // With pHandlerExists set, only reports whether a handler is there.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, bool* pHandlerExists = nullptr);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

    // The first entry of the map chain for (message, code, id), or null.
    const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT message, UINT code, UINT id) const;
};

class AFX_EXT_CLASS CCmdUI {
public:
    UINT m_nID = 0;
    UINT m_nIndex = 0;
    bool m_bEnableChanged = false;
    bool m_bContinueRouting = false;

    virtual ~CCmdUI() = default;
    virtual void Enable(BOOL bOn = TRUE);
    virtual void SetCheck(int nCheck = 1);
    virtual void SetText(const char* text);

    // Asks the target's update handler; with no update handler the command is
    // enabled when it has a command handler, and disabled when it has none
    // (bDisableIfNoHandler).
    void DoUpdate(CCmdTarget* target, BOOL bDisableIfNoHandler);

    bool IsEnabled() const { return m_enabled; }
    int GetCheck() const { return m_check; }
    const CString& GetText() const { return m_text; }
    bool IsTextChanged() const { return m_textChanged; }

private:
    bool m_enabled = true;
    int m_check = 0;
    CString m_text;
    bool m_textChanged = false;
};
