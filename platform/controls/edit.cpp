// CEdit: each member sends its message; the behaviour is in EditControl,
// reached from DefWindowProc.
#include "platform/controls/edit.h"

#include "platform/controls/edit_control.h"

CEdit::CEdit() : m_control(std::make_unique<edit::EditControl>(this)) {}

CEdit::~CEdit()
{
    // Destroy while this class's DefWindowProc can still hear the window go.
    if (m_hWnd) DestroyWindow();
}

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("Edit", nullptr, dwStyle, rect, pParentWnd, nID);
}

LRESULT CEdit::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (m_control->Handle(message, wParam, lParam, &result)) return result;
    return CWnd::DefWindowProc(message, wParam, lParam);
}

DWORD CEdit::GetSel() const
{
    return static_cast<DWORD>(SendMessage(EM_GETSEL));
}

void CEdit::GetSel(int& nStartChar, int& nEndChar) const
{
    DWORD start = 0, end = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    nStartChar = static_cast<int>(start);
    nEndChar = static_cast<int>(end);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll)
{
    SendMessage(EM_SETSEL, static_cast<WPARAM>(nStartChar), static_cast<LPARAM>(nEndChar));
    if (!bNoScroll) SendMessage(EM_SCROLLCARET);
}

void CEdit::SetSel(DWORD dwSelection, BOOL bNoScroll)
{
    SetSel(static_cast<short>(LOWORD(dwSelection)), static_cast<short>(HIWORD(dwSelection)), bNoScroll);
}

void CEdit::ReplaceSel(const char* lpszNewText, BOOL bCanUndo)
{
    SendMessage(EM_REPLACESEL, static_cast<WPARAM>(bCanUndo), reinterpret_cast<LPARAM>(lpszNewText));
}

void CEdit::Clear() { SendMessage(WM_CLEAR); }
void CEdit::Copy() { SendMessage(WM_COPY); }
void CEdit::Cut() { SendMessage(WM_CUT); }
void CEdit::Paste() { SendMessage(WM_PASTE); }
BOOL CEdit::Undo() { return static_cast<BOOL>(SendMessage(EM_UNDO)); }
BOOL CEdit::CanUndo() const { return static_cast<BOOL>(SendMessage(EM_CANUNDO)); }
void CEdit::EmptyUndoBuffer() { SendMessage(EM_EMPTYUNDOBUFFER); }

void CEdit::SetLimitText(UINT nMax) { SendMessage(EM_SETLIMITTEXT, nMax); }
void CEdit::LimitText(int nChars) { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(nChars)); }
UINT CEdit::GetLimitText() const { return static_cast<UINT>(SendMessage(EM_GETLIMITTEXT)); }

BOOL CEdit::GetModify() const { return static_cast<BOOL>(SendMessage(EM_GETMODIFY)); }
void CEdit::SetModify(BOOL bModified) { SendMessage(EM_SETMODIFY, static_cast<WPARAM>(bModified)); }
BOOL CEdit::SetReadOnly(BOOL bReadOnly) { return static_cast<BOOL>(SendMessage(EM_SETREADONLY, static_cast<WPARAM>(bReadOnly))); }
void CEdit::SetPasswordChar(char ch) { SendMessage(EM_SETPASSWORDCHAR, static_cast<unsigned char>(ch)); }
char CEdit::GetPasswordChar() const { return static_cast<char>(SendMessage(EM_GETPASSWORDCHAR)); }

int CEdit::GetLineCount() const { return static_cast<int>(SendMessage(EM_GETLINECOUNT)); }
int CEdit::LineLength(int nLine) const { return static_cast<int>(SendMessage(EM_LINELENGTH, static_cast<WPARAM>(nLine))); }
void CEdit::GetRect(LPRECT lpRect) const { SendMessage(EM_GETRECT, 0, reinterpret_cast<LPARAM>(lpRect)); }

CPoint CEdit::PosFromChar(UINT nChar) const
{
    const LRESULT packed = SendMessage(EM_POSFROMCHAR, nChar);
    return CPoint(static_cast<short>(LOWORD(static_cast<WPARAM>(packed))), static_cast<short>(HIWORD(static_cast<WPARAM>(packed))));
}

int CEdit::CharFromPos(CPoint pt) const
{
    return static_cast<int>(SendMessage(EM_CHARFROMPOS, 0, MAKELPARAM(pt.x, pt.y)));
}
