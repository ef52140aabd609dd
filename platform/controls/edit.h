// The edit control: one line of GBK text with a caret and a selection.
// Positions count bytes, and the caret and the selection's ends never fall
// inside a double-byte character. ES_MULTILINE is accepted but the text is
// still shown and edited as one line.
//
// As with the other controls, state and behaviour live in the control itself
// (DefWindowProc answers the EM_* and text messages, paints, handles typing,
// the mouse and the clipboard); the member functions are thin senders of
// those messages.
#pragma once

#include <memory>

#include "platform/core/wnd.h"

namespace edit {
class EditControl;
}

// Styles.
constexpr DWORD ES_LEFT = 0x0000;
constexpr DWORD ES_CENTER = 0x0001;
constexpr DWORD ES_RIGHT = 0x0002;
constexpr DWORD ES_MULTILINE = 0x0004;
constexpr DWORD ES_UPPERCASE = 0x0008;
constexpr DWORD ES_LOWERCASE = 0x0010;
constexpr DWORD ES_PASSWORD = 0x0020;
constexpr DWORD ES_AUTOVSCROLL = 0x0040;
constexpr DWORD ES_AUTOHSCROLL = 0x0080;
constexpr DWORD ES_NOHIDESEL = 0x0100;
constexpr DWORD ES_OEMCONVERT = 0x0400;
constexpr DWORD ES_READONLY = 0x0800;
constexpr DWORD ES_WANTRETURN = 0x1000;
constexpr DWORD ES_NUMBER = 0x2000;

// Messages.
constexpr UINT EM_GETSEL = 0x00B0;
constexpr UINT EM_SETSEL = 0x00B1;
constexpr UINT EM_GETRECT = 0x00B2;
constexpr UINT EM_SCROLLCARET = 0x00B7;
constexpr UINT EM_GETMODIFY = 0x00B8;
constexpr UINT EM_SETMODIFY = 0x00B9;
constexpr UINT EM_GETLINECOUNT = 0x00BA;
constexpr UINT EM_LINELENGTH = 0x00C1;
constexpr UINT EM_REPLACESEL = 0x00C2;
constexpr UINT EM_LIMITTEXT = 0x00C5;
constexpr UINT EM_SETLIMITTEXT = EM_LIMITTEXT;
constexpr UINT EM_CANUNDO = 0x00C6;
constexpr UINT EM_UNDO = 0x00C7;
constexpr UINT EM_SETPASSWORDCHAR = 0x00CC;
constexpr UINT EM_EMPTYUNDOBUFFER = 0x00CD;
constexpr UINT EM_SETREADONLY = 0x00CF;
constexpr UINT EM_GETPASSWORDCHAR = 0x00D2;
constexpr UINT EM_GETLIMITTEXT = 0x00D5;
constexpr UINT EM_POSFROMCHAR = 0x00D6;
constexpr UINT EM_CHARFROMPOS = 0x00D7;

// Notifications (WM_COMMAND to the parent, code in the high word).
constexpr UINT EN_SETFOCUS = 0x0100;
constexpr UINT EN_KILLFOCUS = 0x0200;
constexpr UINT EN_CHANGE = 0x0300;
constexpr UINT EN_UPDATE = 0x0400;
constexpr UINT EN_ERRSPACE = 0x0500;
constexpr UINT EN_MAXTEXT = 0x0501;
constexpr UINT EN_HSCROLL = 0x0601;

class AFX_EXT_CLASS CEdit : public CWnd {
public:
    CEdit();
    ~CEdit() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Selection: start is the anchor, end the caret; -1 as start removes
    // the selection, (0, -1) selects everything.
    DWORD GetSel() const;
    void GetSel(int& nStartChar, int& nEndChar) const;
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE);
    // Replaces the selection as typing would, within the text limit.
    void ReplaceSel(const char* lpszNewText, BOOL bCanUndo = FALSE);
    void Clear();
    void Copy();
    void Cut();
    void Paste();
    BOOL Undo();
    BOOL CanUndo() const;
    void EmptyUndoBuffer();

    // The most bytes the user can enter; 0 sets the largest limit.
    void SetLimitText(UINT nMax);
    void LimitText(int nChars = 0);
    UINT GetLimitText() const;

    BOOL GetModify() const;
    void SetModify(BOOL bModified = TRUE);
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    void SetPasswordChar(char ch);
    char GetPasswordChar() const;

    int GetLineCount() const;
    int LineLength(int nLine = -1) const;
    void GetRect(LPRECT lpRect) const;
    // Client position of the character at nChar (the end of the text for
    // the length), and the position nearest a client point.
    CPoint PosFromChar(UINT nChar) const;
    int CharFromPos(CPoint pt) const;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::unique_ptr<edit::EditControl> m_control;
};
