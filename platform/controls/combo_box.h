// The combo box as a drop-down list (CBS_DROPDOWNLIST): the chosen item shown
// in a sunken box with a drop button, and a list of the items that drops
// down below it. Other combo styles are shown and driven the same way; no
// combo box here has an edit field or draws its items through its owner.
//
// As with the other controls, state and behaviour live in the control itself
// (DefWindowProc answers the CB_* messages, paints, handles the keyboard and
// the mouse, and runs the drop-down list); the member functions are thin
// senders of those messages.
#pragma once

#include <memory>

#include "platform/core/wnd.h"

namespace combo {
class ComboControl;
}

// Styles.
constexpr DWORD CBS_SIMPLE = 0x0001;
constexpr DWORD CBS_DROPDOWN = 0x0002;
constexpr DWORD CBS_DROPDOWNLIST = 0x0003;
constexpr DWORD CBS_OWNERDRAWFIXED = 0x0010;
constexpr DWORD CBS_OWNERDRAWVARIABLE = 0x0020;
constexpr DWORD CBS_AUTOHSCROLL = 0x0040;
constexpr DWORD CBS_OEMCONVERT = 0x0080;
constexpr DWORD CBS_SORT = 0x0100;
constexpr DWORD CBS_HASSTRINGS = 0x0200;
constexpr DWORD CBS_NOINTEGRALHEIGHT = 0x0400;
constexpr DWORD CBS_DISABLENOSCROLL = 0x0800;
constexpr DWORD CBS_UPPERCASE = 0x2000;
constexpr DWORD CBS_LOWERCASE = 0x4000;

// Messages.
constexpr UINT CB_ADDSTRING = 0x0143;
constexpr UINT CB_DELETESTRING = 0x0144;
constexpr UINT CB_GETCOUNT = 0x0146;
constexpr UINT CB_GETCURSEL = 0x0147;
constexpr UINT CB_GETLBTEXT = 0x0148;
constexpr UINT CB_GETLBTEXTLEN = 0x0149;
constexpr UINT CB_INSERTSTRING = 0x014A;
constexpr UINT CB_RESETCONTENT = 0x014B;
constexpr UINT CB_FINDSTRING = 0x014C;
constexpr UINT CB_SELECTSTRING = 0x014D;
constexpr UINT CB_SETCURSEL = 0x014E;
constexpr UINT CB_SHOWDROPDOWN = 0x014F;
constexpr UINT CB_GETITEMDATA = 0x0150;
constexpr UINT CB_SETITEMDATA = 0x0151;
constexpr UINT CB_GETDROPPEDCONTROLRECT = 0x0152;
constexpr UINT CB_GETITEMHEIGHT = 0x0154;
constexpr UINT CB_GETDROPPEDSTATE = 0x0157;
constexpr UINT CB_FINDSTRINGEXACT = 0x0158;
constexpr UINT CB_GETTOPINDEX = 0x015B;
constexpr UINT CB_SETTOPINDEX = 0x015C;
constexpr UINT CB_GETCOMBOBOXINFO = 0x0164;

// Results.
constexpr int CB_OKAY = 0;
constexpr int CB_ERR = -1;
constexpr int CB_ERRSPACE = -2;

// Notifications (WM_COMMAND to the parent, code in the high word).
constexpr UINT CBN_ERRSPACE = static_cast<UINT>(-1);
constexpr UINT CBN_SELCHANGE = 1;
constexpr UINT CBN_DBLCLK = 2;
constexpr UINT CBN_SETFOCUS = 3;
constexpr UINT CBN_KILLFOCUS = 4;
constexpr UINT CBN_EDITCHANGE = 5;
constexpr UINT CBN_EDITUPDATE = 6;
constexpr UINT CBN_DROPDOWN = 7;
constexpr UINT CBN_CLOSEUP = 8;
constexpr UINT CBN_SELENDOK = 9;
constexpr UINT CBN_SELENDCANCEL = 10;

// COMBOBOXINFO::stateButton.
constexpr DWORD STATE_SYSTEM_PRESSED = 0x00000008;

struct COMBOBOXINFO {
    DWORD cbSize = sizeof(COMBOBOXINFO);
    RECT rcItem{};    // the selected item's box, client coordinates
    RECT rcButton{};  // the drop button, client coordinates
    DWORD stateButton = 0;
    HWND hwndCombo = nullptr;
    HWND hwndItem = nullptr;  // the combo itself: a drop-down list has no edit field
    HWND hwndList = nullptr;  // the drop-down list window
};
using PCOMBOBOXINFO = COMBOBOXINFO*;

class AFX_EXT_CLASS CComboBox : public CWnd {
public:
    CComboBox();
    ~CComboBox() override;

    // rect's height is how far the box reaches with its list dropped; the
    // window itself is as high as one item's box.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetCount() const;
    int GetCurSel() const;
    // -1 or a bad index clears the selection and answers CB_ERR.
    int SetCurSel(int nSelect);
    // In order with CBS_SORT (ASCII letters compare without case), else at
    // the end. Returns the index, or CB_ERR.
    int AddString(const char* lpszString);
    // Before nIndex (-1: at the end), never sorted.
    int InsertString(int nIndex, const char* lpszString);
    // Returns the items left, or CB_ERR.
    int DeleteString(UINT nIndex);
    void ResetContent();
    // The buffer must hold GetLBTextLen(nIndex) + 1 bytes.
    int GetLBText(int nIndex, char* lpszText) const;
    void GetLBText(int nIndex, CString& rString) const;
    int GetLBTextLen(int nIndex) const;
    // Searches after nStartAfter (-1: from the start), wrapping round.
    int FindString(int nStartAfter, const char* lpszString) const;
    int FindStringExact(int nIndexStart, const char* lpszFind) const;
    int SelectString(int nStartAfter, const char* lpszString);
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    int GetItemHeight(int nIndex) const;
    int GetTopIndex() const;
    int SetTopIndex(int nIndex);

    void ShowDropDown(BOOL bShowIt = TRUE);
    BOOL GetDroppedState() const;
    // Screen rectangle of the drop-down list.
    void GetDroppedControlRect(LPRECT lprect) const;
    BOOL GetComboBoxInfo(PCOMBOBOXINFO pcbi) const;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::unique_ptr<combo::ComboControl> m_control;
};
