// CListCtrl: each member sends its LVM_* message; the behaviour is in
// ListControl, reached from DefWindowProc.
#include "platform/controls/list_ctrl.h"

#include "platform/controls/list_ctrl_control.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/sys_color.h"

IMPLEMENT_DYNCREATE(CListCtrl, CWnd)

CListCtrl::CListCtrl() : m_control(std::make_unique<listview::ListControl>(this)) {}

CListCtrl::~CListCtrl()
{
    // Destroy while this class's DefWindowProc can still hear the window go.
    if (m_hWnd) DestroyWindow();
}

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("SysListView32", nullptr, dwStyle, rect, pParentWnd, nID);
}

LRESULT CListCtrl::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (m_control->Handle(message, wParam, lParam, &result)) return result;
    return CWnd::DefWindowProc(message, wParam, lParam);
}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    // The parent answers TRUE for an owner-draw message its child took.
    if (message == WM_DRAWITEM && lParam) {
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return TRUE;
    }
    if (message == WM_MEASUREITEM && lParam) {
        // A reflected-message entry of a derived class comes first.
        if (CWnd::OnChildNotify(message, wParam, lParam, pResult)) return TRUE;
        MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        return TRUE;
    }
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

void CListCtrl::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    CDC* dc = lpDrawItemStruct ? CDC::FromHandle(lpDrawItemStruct->hDC) : nullptr;
    if (!dc) return;
    const CRect rect(lpDrawItemStruct->rcItem);
    if (lpDrawItemStruct->itemState & ODS_SELECTED) dc->FillSolidRect(&rect, GetSysColor(COLOR_HIGHLIGHT));
    if (lpDrawItemStruct->itemState & ODS_FOCUS) dc->DrawFocusRect(&rect);
}

void CListCtrl::MeasureItem(LPMEASUREITEMSTRUCT) {}

// ---------------------------------------------------------------- items

int CListCtrl::GetItemCount() const
{
    return static_cast<int>(SendMessage(LVM_GETITEMCOUNT));
}

BOOL CListCtrl::SetItemCount(int nItems)
{
    return static_cast<BOOL>(SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(nItems)));
}

BOOL CListCtrl::SetItemCountEx(int iCount, DWORD dwFlags)
{
    return static_cast<BOOL>(SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(iCount), static_cast<LPARAM>(dwFlags)));
}

BOOL CListCtrl::DeleteAllItems()
{
    return static_cast<BOOL>(SendMessage(LVM_DELETEALLITEMS));
}

UINT CListCtrl::GetItemState(int nItem, UINT nMask) const
{
    return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, static_cast<WPARAM>(nItem), static_cast<LPARAM>(nMask)));
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask)
{
    LVITEM item;
    item.state = nState;
    item.stateMask = nMask;
    return SetItemState(nItem, &item);
}

BOOL CListCtrl::SetItemState(int nItem, LVITEM* pItem)
{
    return static_cast<BOOL>(SendMessage(LVM_SETITEMSTATE, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(pItem)));
}

int CListCtrl::GetNextItem(int nItem, int nFlags) const
{
    return static_cast<int>(SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(nItem), MAKELPARAM(nFlags, 0)));
}

UINT CListCtrl::GetSelectedCount() const
{
    return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOUNT));
}

int CListCtrl::GetSelectionMark() const
{
    return static_cast<int>(SendMessage(LVM_GETSELECTIONMARK));
}

int CListCtrl::SetSelectionMark(int iIndex)
{
    return static_cast<int>(SendMessage(LVM_SETSELECTIONMARK, 0, static_cast<LPARAM>(iIndex)));
}

// ---------------------------------------------------------------- geometry

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const
{
    if (!lpRect) return FALSE;
    lpRect->left = static_cast<LONG>(nCode);
    return static_cast<BOOL>(SendMessage(LVM_GETITEMRECT, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(lpRect)));
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const
{
    ref.top = iSubItem;
    ref.left = nArea;
    return static_cast<BOOL>(SendMessage(LVM_GETSUBITEMRECT, static_cast<WPARAM>(iItem), reinterpret_cast<LPARAM>(&ref)));
}

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    LVHITTESTINFO info;
    info.pt = pt;
    const int item = HitTest(&info);
    if (pFlags) *pFlags = info.flags;
    return item;
}

int CListCtrl::HitTest(LVHITTESTINFO* pHitTestInfo) const
{
    return static_cast<int>(SendMessage(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(pHitTestInfo)));
}

int CListCtrl::SubItemHitTest(LPLVHITTESTINFO pInfo)
{
    return static_cast<int>(SendMessage(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(pInfo)));
}

// ---------------------------------------------------------------- scrolling

BOOL CListCtrl::EnsureVisible(int nItem, BOOL bPartialOK)
{
    return static_cast<BOOL>(SendMessage(LVM_ENSUREVISIBLE, static_cast<WPARAM>(nItem), static_cast<LPARAM>(bPartialOK)));
}

int CListCtrl::GetTopIndex() const
{
    return static_cast<int>(SendMessage(LVM_GETTOPINDEX));
}

int CListCtrl::GetCountPerPage() const
{
    return static_cast<int>(SendMessage(LVM_GETCOUNTPERPAGE));
}

BOOL CListCtrl::Scroll(CSize size)
{
    return static_cast<BOOL>(SendMessage(LVM_SCROLL, static_cast<WPARAM>(static_cast<INT_PTR>(size.cx)), static_cast<LPARAM>(size.cy)));
}

BOOL CListCtrl::RedrawItems(int nFirst, int nLast)
{
    return static_cast<BOOL>(SendMessage(LVM_REDRAWITEMS, static_cast<WPARAM>(nFirst), static_cast<LPARAM>(nLast)));
}

BOOL CListCtrl::Update(int nItem)
{
    return static_cast<BOOL>(SendMessage(LVM_UPDATE, static_cast<WPARAM>(nItem)));
}

// ---------------------------------------------------------------- columns

int CListCtrl::InsertColumn(int nCol, const LVCOLUMN* pColumn)
{
    return static_cast<int>(SendMessage(LVM_INSERTCOLUMN, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(pColumn)));
}

int CListCtrl::InsertColumn(int nCol, const char* lpszColumnHeading, int nFormat, int nWidth, int nSubItem)
{
    LVCOLUMN column;
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = const_cast<char*>(lpszColumnHeading ? lpszColumnHeading : "");
    column.fmt = nFormat;
    if (nWidth != -1) {
        column.mask |= LVCF_WIDTH;
        column.cx = nWidth;
    }
    if (nSubItem != -1) {
        column.mask |= LVCF_SUBITEM;
        column.iSubItem = nSubItem;
    }
    return InsertColumn(nCol, &column);
}

BOOL CListCtrl::DeleteColumn(int nCol)
{
    return static_cast<BOOL>(SendMessage(LVM_DELETECOLUMN, static_cast<WPARAM>(nCol)));
}

BOOL CListCtrl::GetColumn(int nCol, LVCOLUMN* pColumn) const
{
    return static_cast<BOOL>(SendMessage(LVM_GETCOLUMN, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(pColumn)));
}

BOOL CListCtrl::SetColumn(int nCol, const LVCOLUMN* pColumn)
{
    return static_cast<BOOL>(SendMessage(LVM_SETCOLUMN, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(pColumn)));
}

int CListCtrl::GetColumnWidth(int nCol) const
{
    return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(nCol)));
}

BOOL CListCtrl::SetColumnWidth(int nCol, int cx)
{
    return static_cast<BOOL>(SendMessage(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(nCol), MAKELPARAM(cx, 0)));
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() const
{
    return dynamic_cast<CHeaderCtrl*>(CWnd::FromHandle(reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER))));
}

// ---------------------------------------------------------------- appearance

DWORD CListCtrl::GetExtendedStyle() const
{
    return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE));
}

DWORD CListCtrl::SetExtendedStyle(DWORD dwNewStyle)
{
    return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(dwNewStyle)));
}

COLORREF CListCtrl::GetBkColor() const
{
    return static_cast<COLORREF>(SendMessage(LVM_GETBKCOLOR));
}

BOOL CListCtrl::SetBkColor(COLORREF cr)
{
    return static_cast<BOOL>(SendMessage(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(cr)));
}
