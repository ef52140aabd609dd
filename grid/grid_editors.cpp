#include "grid/grid_editors.h"

#include "host/host_messages.h"

namespace {

// Enter accepts, Escape cancels; both are consumed.
template <class Editor>
bool TakeEditorKey(Editor& editor, const MSG* pMsg)
{
    if (pMsg->message != WM_KEYDOWN) return false;
    if (pMsg->wParam == VK_RETURN) {
        editor.AcceptEdit();
        return true;
    }
    if (pMsg->wParam == VK_ESCAPE) {
        editor.CancelEdit();
        return true;
    }
    return false;
}

void FocusBack(CWnd* previous)
{
    if (previous && previous->GetSafeHwnd()) previous->SetFocus();
}

}  // namespace

void GridEditorState::Accept()
{
    modified = TRUE;
    FocusBack(previousFocus);
}

void GridEditorState::Cancel()
{
    modified = FALSE;
    FocusBack(previousFocus);
}

BOOL GridEditorState::TestAndClear()
{
    const BOOL was = modified;
    modified = FALSE;
    return was;
}

void GridEditorState::FocusLost(CWnd* next, WPARAM fromEditBox)
{
    if (!previousFocus || next == previousFocus) return;
    modified = TRUE;
    previousFocus->SendMessage(UWM_EDITOR_KILLFOCUS, fromEditBox, 0);
}

// ---------------------------------------------------------------- edit box

BEGIN_MESSAGE_MAP(CGridEdit, CEdit)
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_CONTROL_REFLECT(EN_CHANGE, &CGridEdit::OnChange)
END_MESSAGE_MAP()

CGridEdit::CGridEdit() = default;

CGridEdit::~CGridEdit() = default;

BOOL CGridEdit::PreTranslateMessage(MSG* pMsg)
{
    if (TakeEditorKey(*this, pMsg)) return TRUE;
    return CEdit::PreTranslateMessage(pMsg);
}

void CGridEdit::AcceptEdit()
{
    m_state.Accept();
}

void CGridEdit::CancelEdit()
{
    m_state.Cancel();
}

BOOL CGridEdit::TestAndClearModified()
{
    return m_state.TestAndClear();
}

void CGridEdit::Empty()
{
    SetWindowText("");
    // Setting the text reports a change; an emptied box has none.
    m_state.modified = FALSE;
}

void CGridEdit::OnSetFocus(CWnd* pOldWnd)
{
    Default();
    m_state.previousFocus = pOldWnd;
}

void CGridEdit::OnKillFocus(CWnd* pNewWnd)
{
    m_state.FocusLost(pNewWnd, 1);
    Default();
}

void CGridEdit::OnChange()
{
    m_state.modified = TRUE;
}

// ---------------------------------------------------------------- drop-down list

BEGIN_MESSAGE_MAP(CGridComboBox, CComboBox)
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_CONTROL_REFLECT(CBN_SELCHANGE, &CGridComboBox::OnSelChange)
END_MESSAGE_MAP()

CGridComboBox::CGridComboBox() = default;

CGridComboBox::~CGridComboBox() = default;

BOOL CGridComboBox::PreTranslateMessage(MSG* pMsg)
{
    if (TakeEditorKey(*this, pMsg)) return TRUE;
    return CComboBox::PreTranslateMessage(pMsg);
}

void CGridComboBox::AcceptEdit()
{
    m_state.Accept();
}

void CGridComboBox::CancelEdit()
{
    m_state.Cancel();
}

BOOL CGridComboBox::TestAndClearModified()
{
    return m_state.TestAndClear();
}

void CGridComboBox::OnSetFocus(CWnd* pOldWnd)
{
    Default();
    m_state.previousFocus = pOldWnd;
}

void CGridComboBox::OnKillFocus(CWnd* pNewWnd)
{
    m_state.FocusLost(pNewWnd, 0);
    Default();
}

void CGridComboBox::OnSelChange()
{
    AcceptEdit();
}
