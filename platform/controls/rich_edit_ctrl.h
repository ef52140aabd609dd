// The rich edit control (ANSI): multi-line GBK text with a colour per run of
// characters, no word wrap (long lines scroll sideways), optionally
// read-only. Its state and behaviour live in the control itself
// (DefWindowProc answers the EM_* messages, paints, and handles the mouse,
// the keyboard and the clipboard); the member functions are thin senders of
// those messages.
//
// Positions count bytes: a double-byte character is two positions, and a
// position inside one is moved to the character's start. Lines are separated
// by a single "\r" and positions count it as one; text given to the control
// may end lines with "\r\n", "\n" or "\r", each stored as one "\r".
//   - WM_GETTEXT, WM_GETTEXTLENGTH (GetWindowText, GetTextLength) and the
//     clipboard give lines ending in "\r\n";
//   - EM_GETTEXTRANGE, EM_GETSELTEXT and EM_GETLINE give them as stored, with
//     "\r", so lengths there match the positions.
// A lead byte with no character byte after it on its line is stored as '?'.
#pragma once

#include <memory>

#include "platform/controls/edit.h"
#include "platform/core/wnd.h"
#include "platform/gdi/gdi_types.h"
#include "platform/text/cstring.h"

namespace richedit {
class RichEditControl;
}

// The edit control's styles and messages (ES_*, EM_*) apply here too; these
// are the ones only a multi-line control needs.
constexpr DWORD ES_SAVESEL = 0x8000;
constexpr UINT EM_LINESCROLL = 0x00B6;
constexpr UINT EM_LINEINDEX = 0x00BB;
constexpr UINT EM_GETLINE = 0x00C4;
constexpr UINT EM_LINEFROMCHAR = 0x00C9;
constexpr UINT EM_GETFIRSTVISIBLELINE = 0x00CE;

// Rich edit messages.
constexpr UINT EM_EXGETSEL = WM_USER + 52;
constexpr UINT EM_EXLINEFROMCHAR = WM_USER + 54;
constexpr UINT EM_EXSETSEL = WM_USER + 55;
constexpr UINT EM_FINDTEXT = WM_USER + 56;
constexpr UINT EM_GETCHARFORMAT = WM_USER + 58;
constexpr UINT EM_GETSELTEXT = WM_USER + 62;
constexpr UINT EM_HIDESELECTION = WM_USER + 63;
constexpr UINT EM_SETBKGNDCOLOR = WM_USER + 67;
constexpr UINT EM_SETCHARFORMAT = WM_USER + 68;
constexpr UINT EM_GETTEXTRANGE = WM_USER + 75;
constexpr UINT EM_FINDTEXTEX = WM_USER + 79;
constexpr UINT EM_GETTEXTLENGTHEX = WM_USER + 95;

// EM_SETCHARFORMAT / EM_GETCHARFORMAT targets.
constexpr WPARAM SCF_DEFAULT = 0x0000;
constexpr WPARAM SCF_SELECTION = 0x0001;
constexpr WPARAM SCF_WORD = 0x0002;  // with SCF_SELECTION: taken as SCF_SELECTION
constexpr WPARAM SCF_ALL = 0x0004;

// CHARFORMAT masks and effects. Only the colour is kept per run; the font
// (face, size, character set) is the control's and is reported for any text.
constexpr DWORD CFM_BOLD = 0x00000001;
constexpr DWORD CFM_ITALIC = 0x00000002;
constexpr DWORD CFM_UNDERLINE = 0x00000004;
constexpr DWORD CFM_STRIKEOUT = 0x00000008;
constexpr DWORD CFM_PROTECTED = 0x00000010;
constexpr DWORD CFM_CHARSET = 0x08000000;
constexpr DWORD CFM_OFFSET = 0x10000000;
constexpr DWORD CFM_FACE = 0x20000000;
constexpr DWORD CFM_COLOR = 0x40000000;
constexpr DWORD CFM_SIZE = 0x80000000;
constexpr DWORD CFE_BOLD = 0x00000001;
constexpr DWORD CFE_ITALIC = 0x00000002;
constexpr DWORD CFE_UNDERLINE = 0x00000004;
constexpr DWORD CFE_STRIKEOUT = 0x00000008;
constexpr DWORD CFE_AUTOCOLOR = 0x40000000;

// EM_FINDTEXT flags.
constexpr WPARAM FR_DOWN = 0x00000001;
constexpr WPARAM FR_WHOLEWORD = 0x00000002;
constexpr WPARAM FR_MATCHCASE = 0x00000004;

// EM_GETTEXTLENGTHEX flags.
constexpr DWORD GTL_DEFAULT = 0;
constexpr DWORD GTL_USECRLF = 1;
constexpr DWORD GTL_PRECISE = 2;
constexpr DWORD GTL_CLOSE = 4;
constexpr DWORD GTL_NUMCHARS = 8;
constexpr DWORD GTL_NUMBYTES = 16;

struct CHARRANGE {
    LONG cpMin = 0;
    LONG cpMax = 0;
};

struct TEXTRANGE {
    CHARRANGE chrg;
    LPSTR lpstrText = nullptr;  // room for the range and a zero byte
};

struct FINDTEXT {
    CHARRANGE chrg;
    LPCSTR lpstrText = nullptr;
};

struct FINDTEXTEX {
    CHARRANGE chrg;
    LPCSTR lpstrText = nullptr;
    CHARRANGE chrgText;  // the match found, or -1, -1
};

struct GETTEXTLENGTHEX {
    DWORD flags = GTL_DEFAULT;
    UINT codepage = 0;
};

struct CHARFORMAT {
    UINT cbSize = 0;  // sizeof(CHARFORMAT): messages refuse anything smaller
    DWORD dwMask = 0;
    DWORD dwEffects = 0;
    LONG yHeight = 0;  // twips
    LONG yOffset = 0;
    COLORREF crTextColor = 0;
    BYTE bCharSet = 0;
    BYTE bPitchAndFamily = 0;
    char szFaceName[LF_FACESIZE] = {};
};

// Message details (wParam, lParam), where they differ from the edit control:
//   EM_SETSEL (start, end), EM_EXSETSEL (0, CHARRANGE*): the anchor is the
//     start and the caret the end, so start > end selects backwards. A
//     negative end means the end of the text. A negative start with a
//     negative end puts the caret at the end of the text; with an end >= 0
//     it removes the selection, leaving the caret at the selection's end.
//     EM_EXSETSEL returns the selection's end.
//   EM_LINEINDEX (line or -1 for the caret's line): -1 past the last line.
//   EM_LINELENGTH (position): length of its line without the "\r"; -1 gives
//     the unselected characters on the lines the selection touches.
//   EM_LINEFROMCHAR (position, 0), EM_EXLINEFROMCHAR (0, position): a
//     negative position means the selection's start (the caret's line when
//     nothing is selected); past the end, the last line.
//   EM_GETLINE (line, buffer): the buffer's first WORD gives its size in
//     bytes. Copies the line with its "\r" (whole characters only, up to the
//     size), adds a zero byte when there is room, returns the bytes copied.
//   EM_GETTEXTRANGE (0, TEXTRANGE*): whole characters inside the range (a
//     negative cpMax is the end), zero-terminated; never more than
//     cpMax - cpMin bytes and the zero byte.
//   EM_GETSELTEXT (0, buffer): the selection, zero-terminated.
//   EM_REPLACESEL (canUndo, text): also in a read-only control; the caret
//     ends after the new text, which takes the format at the insertion point.
//   EM_SETCHARFORMAT (SCF_*, CHARFORMAT*): SCF_SELECTION with nothing
//     selected sets the format the next insertion at the caret takes.
//     SCF_DEFAULT sets the format that WM_SETTEXT text (and an empty
//     control's text) takes. Returns FALSE for a bad CHARFORMAT.
//   EM_GETCHARFORMAT (SCF_DEFAULT or SCF_SELECTION, CHARFORMAT*): returns the
//     mask of what is the same throughout the selection.
//   EM_HIDESELECTION (hide, permanent): permanent also changes ES_NOHIDESEL.
//     The selection shows while the control has the focus, and otherwise
//     only with ES_NOHIDESEL or after EM_HIDESELECTION(FALSE).
//   EM_SETBKGNDCOLOR (useSystemColour, colour): returns the previous colour.
//   EM_LINESCROLL (characters, lines).
//   EM_POSFROMCHAR (POINT*, position): top-left of the character's cell.
//   EM_CHARFROMPOS (0, POINT*): the position nearest the point.
//   EM_FINDTEXT (FR_*, FINDTEXT*), EM_FINDTEXTEX (FR_*, FINDTEXTEX*): the
//     match inside the range (its ends in either order, -1 for the end of
//     the text) nearest its start with FR_DOWN, nearest its end without;
//     returns its start, or -1 when there is none. Letters compare without
//     case unless FR_MATCHCASE; FR_WHOLEWORD wants no word character on
//     either side.
// Setting the selection or replacing it scrolls the caret into view while
// the selection shows; EM_SCROLLCARET always does.

class AFX_EXT_CLASS CRichEditCtrl : public CWnd {
public:
    CRichEditCtrl();
    ~CRichEditCtrl() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Selection.
    void SetSel(long nStartChar, long nEndChar);
    void SetSel(CHARRANGE& cr);
    void GetSel(CHARRANGE& cr) const;
    void GetSel(long& nStartChar, long& nEndChar) const;
    void ReplaceSel(LPCSTR lpszNewText, BOOL bCanUndo = FALSE);
    long GetSelText(LPSTR lpBuf) const;
    CString GetSelText() const;
    void HideSelection(BOOL bHide, BOOL bPerm);

    // Lines.
    int GetLineCount() const;
    int LineIndex(int nLine = -1) const;
    // nLine is a position, as for the message.
    int LineLength(int nLine = -1) const;
    long LineFromChar(long nIndex) const;
    int GetLine(int nIndex, LPSTR lpszBuffer, int nMaxLength) const;
    // The buffer's first WORD already holds its size.
    int GetLine(int nIndex, LPSTR lpszBuffer) const;
    long GetTextRange(int nFirst, int nLast, CString& refString) const;
    long GetTextLength() const;
    long GetTextLengthEx(DWORD dwFlags, UINT uCodePage = static_cast<UINT>(-1)) const;
    long FindText(DWORD dwFlags, FINDTEXTEX* pFindText) const;

    // Scrolling and geometry.
    void LineScroll(int nLines, int nChars = 0);
    int GetFirstVisibleLine() const;
    CPoint GetCharPos(long lChar) const;
    int CharFromPos(CPoint pt) const;
    void GetRect(LPRECT lpRect) const;

    // Format and appearance.
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    BOOL SetSelectionCharFormat(CHARFORMAT& cf);
    BOOL SetDefaultCharFormat(CHARFORMAT& cf);
    DWORD GetSelectionCharFormat(CHARFORMAT& cf) const;
    DWORD GetDefaultCharFormat(CHARFORMAT& cf) const;
    COLORREF SetBackgroundColor(BOOL bSysColor, COLORREF cr);

    // Clipboard.
    void Copy();
    void Cut();
    void Paste();
    void Clear();

protected:
    // The control's own behaviour: answers EM_* and paints, and handles the
    // mouse, keys, focus, scrolling and the clipboard.
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    // State and behaviour of the control, created with its window.
    std::unique_ptr<richedit::RichEditControl> m_control;
};
