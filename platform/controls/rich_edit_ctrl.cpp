// CRichEditCtrl: each member sends its message; the control's behaviour is
// in RichEditControl, reached from DefWindowProc.
#include "platform/controls/rich_edit_ctrl.h"

#include <cstring>

#include "platform/controls/rich_edit_control.h"

CRichEditCtrl::CRichEditCtrl() : m_control(std::make_unique<richedit::RichEditControl>(this)) {}

CRichEditCtrl::~CRichEditCtrl()
{
    // Destroy while this class's DefWindowProc can still hear the window go.
    if (m_hWnd) DestroyWindow();
}

BOOL CRichEditCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("RichEdit20A", nullptr, dwStyle, rect, pParentWnd, nID);
}

LRESULT CRichEditCtrl::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (m_control->Handle(message, wParam, lParam, &result)) return result;
    return CWnd::DefWindowProc(message, wParam, lParam);
}

// ---------------------------------------------------------------- selection

void CRichEditCtrl::SetSel(long nStartChar, long nEndChar)
{
    SendMessage(EM_SETSEL, static_cast<WPARAM>(nStartChar), static_cast<LPARAM>(nEndChar));
}

void CRichEditCtrl::SetSel(CHARRANGE& cr)
{
    SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&cr));
}

void CRichEditCtrl::GetSel(CHARRANGE& cr) const
{
    SendMessage(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&cr));
}

void CRichEditCtrl::GetSel(long& nStartChar, long& nEndChar) const
{
    CHARRANGE range;
    GetSel(range);
    nStartChar = range.cpMin;
    nEndChar = range.cpMax;
}

void CRichEditCtrl::ReplaceSel(LPCSTR lpszNewText, BOOL bCanUndo)
{
    SendMessage(EM_REPLACESEL, static_cast<WPARAM>(bCanUndo), reinterpret_cast<LPARAM>(lpszNewText));
}

long CRichEditCtrl::GetSelText(LPSTR lpBuf) const
{
    return static_cast<long>(SendMessage(EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(lpBuf)));
}

CString CRichEditCtrl::GetSelText() const
{
    CHARRANGE range;
    GetSel(range);
    CString text;
    char* buffer = text.GetBuffer(std::max(0, static_cast<int>(range.cpMax - range.cpMin)));
    buffer[0] = '\0';
    GetSelText(buffer);
    text.ReleaseBuffer();
    return text;
}

void CRichEditCtrl::HideSelection(BOOL bHide, BOOL bPerm)
{
    SendMessage(EM_HIDESELECTION, static_cast<WPARAM>(bHide), static_cast<LPARAM>(bPerm));
}

// ---------------------------------------------------------------- lines and text

int CRichEditCtrl::GetLineCount() const
{
    return static_cast<int>(SendMessage(EM_GETLINECOUNT));
}

int CRichEditCtrl::LineIndex(int nLine) const
{
    return static_cast<int>(SendMessage(EM_LINEINDEX, static_cast<WPARAM>(nLine)));
}

int CRichEditCtrl::LineLength(int nLine) const
{
    return static_cast<int>(SendMessage(EM_LINELENGTH, static_cast<WPARAM>(nLine)));
}

long CRichEditCtrl::LineFromChar(long nIndex) const
{
    return static_cast<long>(SendMessage(EM_EXLINEFROMCHAR, 0, static_cast<LPARAM>(nIndex)));
}

int CRichEditCtrl::GetLine(int nIndex, LPSTR lpszBuffer, int nMaxLength) const
{
    if (!lpszBuffer || nMaxLength <= 0) return 0;
    const WORD size = static_cast<WORD>(std::min(nMaxLength, 0xFFFF));
    if (nMaxLength >= static_cast<int>(sizeof(WORD))) {
        std::memcpy(lpszBuffer, &size, sizeof size);
        return GetLine(nIndex, lpszBuffer);
    }
    // Too small to carry its own size: go through a buffer that can.
    char local[sizeof(WORD)];
    std::memcpy(local, &size, sizeof size);
    const int n = GetLine(nIndex, local);
    std::memcpy(lpszBuffer, local, static_cast<size_t>(std::min(n < nMaxLength ? n + 1 : n, nMaxLength)));
    return n;
}

int CRichEditCtrl::GetLine(int nIndex, LPSTR lpszBuffer) const
{
    return static_cast<int>(SendMessage(EM_GETLINE, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszBuffer)));
}

long CRichEditCtrl::GetTextRange(int nFirst, int nLast, CString& refString) const
{
    const long last = nLast < 0 ? GetTextLengthEx(GTL_DEFAULT) : nLast;
    if (nFirst < 0 || last <= nFirst) {
        refString.Empty();
        return 0;
    }
    TEXTRANGE range;
    range.chrg.cpMin = nFirst;
    range.chrg.cpMax = nLast;
    range.lpstrText = refString.GetBuffer(static_cast<int>(last - nFirst));
    range.lpstrText[0] = '\0';
    const long n = static_cast<long>(SendMessage(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range)));
    refString.ReleaseBuffer(static_cast<int>(n));
    return n;
}

long CRichEditCtrl::GetTextLength() const
{
    return static_cast<long>(SendMessage(WM_GETTEXTLENGTH));
}

long CRichEditCtrl::GetTextLengthEx(DWORD dwFlags, UINT uCodePage) const
{
    GETTEXTLENGTHEX how;
    how.flags = dwFlags;
    how.codepage = uCodePage;
    return static_cast<long>(SendMessage(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&how)));
}

long CRichEditCtrl::FindText(DWORD dwFlags, FINDTEXTEX* pFindText) const
{
    return static_cast<long>(SendMessage(EM_FINDTEXTEX, dwFlags, reinterpret_cast<LPARAM>(pFindText)));
}

// ---------------------------------------------------------------- scrolling and geometry

void CRichEditCtrl::LineScroll(int nLines, int nChars)
{
    SendMessage(EM_LINESCROLL, static_cast<WPARAM>(nChars), static_cast<LPARAM>(nLines));
}

int CRichEditCtrl::GetFirstVisibleLine() const
{
    return static_cast<int>(SendMessage(EM_GETFIRSTVISIBLELINE));
}

CPoint CRichEditCtrl::GetCharPos(long lChar) const
{
    CPoint point;
    SendMessage(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(static_cast<POINT*>(&point)), static_cast<LPARAM>(lChar));
    return point;
}

int CRichEditCtrl::CharFromPos(CPoint pt) const
{
    POINT point = pt;
    return static_cast<int>(SendMessage(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&point)));
}

void CRichEditCtrl::GetRect(LPRECT lpRect) const
{
    SendMessage(EM_GETRECT, 0, reinterpret_cast<LPARAM>(lpRect));
}

// ---------------------------------------------------------------- format and appearance

BOOL CRichEditCtrl::SetReadOnly(BOOL bReadOnly)
{
    return static_cast<BOOL>(SendMessage(EM_SETREADONLY, static_cast<WPARAM>(bReadOnly)));
}

BOOL CRichEditCtrl::SetSelectionCharFormat(CHARFORMAT& cf)
{
    return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&cf)));
}

BOOL CRichEditCtrl::SetDefaultCharFormat(CHARFORMAT& cf)
{
    return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&cf)));
}

DWORD CRichEditCtrl::GetSelectionCharFormat(CHARFORMAT& cf) const
{
    return static_cast<DWORD>(SendMessage(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&cf)));
}

DWORD CRichEditCtrl::GetDefaultCharFormat(CHARFORMAT& cf) const
{
    return static_cast<DWORD>(SendMessage(EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&cf)));
}

COLORREF CRichEditCtrl::SetBackgroundColor(BOOL bSysColor, COLORREF cr)
{
    return static_cast<COLORREF>(SendMessage(EM_SETBKGNDCOLOR, static_cast<WPARAM>(bSysColor), static_cast<LPARAM>(cr)));
}

// ---------------------------------------------------------------- clipboard

void CRichEditCtrl::Copy()
{
    SendMessage(WM_COPY);
}

void CRichEditCtrl::Cut()
{
    SendMessage(WM_CUT);
}

void CRichEditCtrl::Paste()
{
    SendMessage(WM_PASTE);
}

void CRichEditCtrl::Clear()
{
    SendMessage(WM_CLEAR);
}
