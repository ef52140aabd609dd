// CComboBox: each member sends its CB_* message; the behaviour is in
// ComboControl, reached from DefWindowProc.
#include "platform/controls/combo_box.h"

#include "platform/controls/combo_box_control.h"
#include "platform/controls/combo_box_dropdown.h"

CComboBox::CComboBox() : m_control(std::make_unique<combo::ComboControl>(this)) {}

CComboBox::~CComboBox()
{
    // Destroy while this class's DefWindowProc can still hear the window go.
    if (m_hWnd) DestroyWindow();
}

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("ComboBox", nullptr, dwStyle, rect, pParentWnd, nID);
}

LRESULT CComboBox::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (m_control->Handle(message, wParam, lParam, &result)) return result;
    return CWnd::DefWindowProc(message, wParam, lParam);
}

int CComboBox::GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT)); }
int CComboBox::GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
int CComboBox::SetCurSel(int nSelect) { return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(nSelect))); }

int CComboBox::AddString(const char* lpszString)
{
    return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszString)));
}

int CComboBox::InsertString(int nIndex, const char* lpszString)
{
    return static_cast<int>(SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszString)));
}

int CComboBox::DeleteString(UINT nIndex) { return static_cast<int>(SendMessage(CB_DELETESTRING, nIndex)); }
void CComboBox::ResetContent() { SendMessage(CB_RESETCONTENT); }

int CComboBox::GetLBText(int nIndex, char* lpszText) const
{
    return static_cast<int>(SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszText)));
}

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    const int length = GetLBTextLen(nIndex);
    if (length < 0) {
        rString.Empty();
        return;
    }
    char* buffer = rString.GetBuffer(length);
    GetLBText(nIndex, buffer);
    rString.ReleaseBuffer(length);
}

int CComboBox::GetLBTextLen(int nIndex) const
{
    return static_cast<int>(SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(nIndex)));
}

int CComboBox::FindString(int nStartAfter, const char* lpszString) const
{
    return static_cast<int>(SendMessage(CB_FINDSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszString)));
}

int CComboBox::FindStringExact(int nIndexStart, const char* lpszFind) const
{
    return static_cast<int>(SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(nIndexStart), reinterpret_cast<LPARAM>(lpszFind)));
}

int CComboBox::SelectString(int nStartAfter, const char* lpszString)
{
    return static_cast<int>(SendMessage(CB_SELECTSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszString)));
}

DWORD_PTR CComboBox::GetItemData(int nIndex) const
{
    return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(nIndex)));
}

int CComboBox::SetItemData(int nIndex, DWORD_PTR dwItemData)
{
    return static_cast<int>(SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(nIndex), static_cast<LPARAM>(dwItemData)));
}

int CComboBox::GetItemHeight(int nIndex) const { return static_cast<int>(SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(nIndex))); }
int CComboBox::GetTopIndex() const { return static_cast<int>(SendMessage(CB_GETTOPINDEX)); }
int CComboBox::SetTopIndex(int nIndex) { return static_cast<int>(SendMessage(CB_SETTOPINDEX, static_cast<WPARAM>(nIndex))); }

void CComboBox::ShowDropDown(BOOL bShowIt) { SendMessage(CB_SHOWDROPDOWN, static_cast<WPARAM>(bShowIt)); }
BOOL CComboBox::GetDroppedState() const { return static_cast<BOOL>(SendMessage(CB_GETDROPPEDSTATE)); }

void CComboBox::GetDroppedControlRect(LPRECT lprect) const
{
    SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(lprect));
}

BOOL CComboBox::GetComboBoxInfo(PCOMBOBOXINFO pcbi) const
{
    return static_cast<BOOL>(SendMessage(CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(pcbi)));
}
