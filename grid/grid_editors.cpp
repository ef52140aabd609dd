#include "grid/grid_editors.h"

#include "host/host_messages.h"

namespace {

// Tells the window the editor came from that the focus went elsewhere.
void ReportFocusLoss(CWnd* previous, CWnd* next, BOOL& modified, WPARAM fromEditBox)
{
    if (!previous || next == previous) return;
    modified = TRUE;
    previous->SendMessage(UWM_EDITOR_KILLFOCUS, fromEditBox, 0);
}

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
    m_modified = TRUE;
    FocusBack(m_pPrevFocus);
}

void CGridEdit::CancelEdit()
{
    m_modified = FALSE;
    FocusBack(m_pPrevFocus);
}

BOOL CGridEdit::TestAndClearModified()
{
    const BOOL modified = m_modified;
    m_modified = FALSE;
    return modified;
}

void CGridEdit::OnSetFocus(CWnd* pOldWnd)
{
    Default();
    m_pPrevFocus = pOldWnd;
}

void CGridEdit::OnKillFocus(CWnd* pNewWnd)
{
    ReportFocusLoss(m_pPrevFocus, pNewWnd, m_modified, 1);
    Default();
}

void CGridEdit::OnChange()
{
    m_modified = TRUE;
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
    m_modified = TRUE;
    FocusBack(m_pPrevFocus);
}

void CGridComboBox::CancelEdit()
{
    m_modified = FALSE;
    FocusBack(m_pPrevFocus);
}

BOOL CGridComboBox::TestAndClearModified()
{
    const BOOL modified = m_modified;
    m_modified = FALSE;
    return modified;
}

void CGridComboBox::OnSetFocus(CWnd* pOldWnd)
{
    Default();
    m_pPrevFocus = pOldWnd;
}

void CGridComboBox::OnKillFocus(CWnd* pNewWnd)
{
    ReportFocusLoss(m_pPrevFocus, pNewWnd, m_modified, 0);
    Default();
}

void CGridComboBox::OnSelChange()
{
    AcceptEdit();
}
