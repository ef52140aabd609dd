// The list view control in report view: lines of items under a header of
// columns. This platform's list view keeps no item texts: with LVS_OWNERDATA
// it holds only the number of items and their selection and focus, and its
// owner draws each line (LVS_OWNERDRAWFIXED: WM_DRAWITEM, reflected to
// DrawItem) or supplies texts on request (LVN_GETDISPINFO). Every view style
// is shown as report view.
//
// As with the other controls, state and behaviour live in the control itself
// (DefWindowProc answers the LVM_* messages, paints, scrolls, handles the
// mouse and the keyboard); the member functions are thin senders of those
// messages.
#pragma once

#include <memory>

#include "platform/controls/header_ctrl.h"

namespace listview {
class ListControl;
}

// Styles.
constexpr DWORD LVS_ICON = 0x0000;
constexpr DWORD LVS_REPORT = 0x0001;
constexpr DWORD LVS_SMALLICON = 0x0002;
constexpr DWORD LVS_LIST = 0x0003;
constexpr DWORD LVS_TYPEMASK = 0x0003;
constexpr DWORD LVS_SINGLESEL = 0x0004;
constexpr DWORD LVS_SHOWSELALWAYS = 0x0008;
constexpr DWORD LVS_SORTASCENDING = 0x0010;
constexpr DWORD LVS_SORTDESCENDING = 0x0020;
constexpr DWORD LVS_SHAREIMAGELISTS = 0x0040;
constexpr DWORD LVS_NOLABELWRAP = 0x0080;
constexpr DWORD LVS_AUTOARRANGE = 0x0100;
constexpr DWORD LVS_EDITLABELS = 0x0200;
constexpr DWORD LVS_OWNERDRAWFIXED = 0x0400;
constexpr DWORD LVS_ALIGNLEFT = 0x0800;
constexpr DWORD LVS_OWNERDATA = 0x1000;
constexpr DWORD LVS_NOSCROLL = 0x2000;
constexpr DWORD LVS_NOCOLUMNHEADER = 0x4000;
constexpr DWORD LVS_NOSORTHEADER = 0x8000;

// Extended styles (LVM_SETEXTENDEDLISTVIEWSTYLE).
constexpr DWORD LVS_EX_GRIDLINES = 0x0001;
constexpr DWORD LVS_EX_SUBITEMIMAGES = 0x0002;
constexpr DWORD LVS_EX_CHECKBOXES = 0x0004;
constexpr DWORD LVS_EX_TRACKSELECT = 0x0008;
constexpr DWORD LVS_EX_HEADERDRAGDROP = 0x0010;
constexpr DWORD LVS_EX_FULLROWSELECT = 0x0020;
constexpr DWORD LVS_EX_ONECLICKACTIVATE = 0x0040;
constexpr DWORD LVS_EX_TWOCLICKACTIVATE = 0x0080;
constexpr DWORD LVS_EX_FLATSB = 0x0100;
constexpr DWORD LVS_EX_DOUBLEBUFFER = 0x00010000;

// Messages.
constexpr UINT LVM_FIRST = 0x1000;
constexpr UINT LVM_GETBKCOLOR = LVM_FIRST + 0;
constexpr UINT LVM_SETBKCOLOR = LVM_FIRST + 1;
constexpr UINT LVM_GETITEMCOUNT = LVM_FIRST + 4;
constexpr UINT LVM_DELETEALLITEMS = LVM_FIRST + 9;
constexpr UINT LVM_GETNEXTITEM = LVM_FIRST + 12;
constexpr UINT LVM_GETITEMRECT = LVM_FIRST + 14;
constexpr UINT LVM_HITTEST = LVM_FIRST + 18;
constexpr UINT LVM_ENSUREVISIBLE = LVM_FIRST + 19;
constexpr UINT LVM_SCROLL = LVM_FIRST + 20;
constexpr UINT LVM_REDRAWITEMS = LVM_FIRST + 21;
constexpr UINT LVM_GETCOLUMN = LVM_FIRST + 25;
constexpr UINT LVM_SETCOLUMN = LVM_FIRST + 26;
constexpr UINT LVM_INSERTCOLUMN = LVM_FIRST + 27;
constexpr UINT LVM_DELETECOLUMN = LVM_FIRST + 28;
constexpr UINT LVM_GETCOLUMNWIDTH = LVM_FIRST + 29;
constexpr UINT LVM_SETCOLUMNWIDTH = LVM_FIRST + 30;
constexpr UINT LVM_GETHEADER = LVM_FIRST + 31;
constexpr UINT LVM_GETTOPINDEX = LVM_FIRST + 39;
constexpr UINT LVM_GETCOUNTPERPAGE = LVM_FIRST + 40;
constexpr UINT LVM_UPDATE = LVM_FIRST + 42;
constexpr UINT LVM_SETITEMSTATE = LVM_FIRST + 43;
constexpr UINT LVM_GETITEMSTATE = LVM_FIRST + 44;
constexpr UINT LVM_SETITEMCOUNT = LVM_FIRST + 47;
constexpr UINT LVM_GETSELECTEDCOUNT = LVM_FIRST + 50;
constexpr UINT LVM_SETEXTENDEDLISTVIEWSTYLE = LVM_FIRST + 54;
constexpr UINT LVM_GETEXTENDEDLISTVIEWSTYLE = LVM_FIRST + 55;
constexpr UINT LVM_GETSUBITEMRECT = LVM_FIRST + 56;
constexpr UINT LVM_SUBITEMHITTEST = LVM_FIRST + 57;
constexpr UINT LVM_GETSELECTIONMARK = LVM_FIRST + 66;
constexpr UINT LVM_SETSELECTIONMARK = LVM_FIRST + 67;

// Item states and LVITEM::mask.
constexpr UINT LVIS_FOCUSED = 0x0001;
constexpr UINT LVIS_SELECTED = 0x0002;
constexpr UINT LVIS_CUT = 0x0004;
constexpr UINT LVIS_DROPHILITED = 0x0008;
constexpr UINT LVIF_TEXT = 0x0001;
constexpr UINT LVIF_IMAGE = 0x0002;
constexpr UINT LVIF_PARAM = 0x0004;
constexpr UINT LVIF_STATE = 0x0008;
constexpr UINT LVIF_INDENT = 0x0010;

// LVM_GETNEXTITEM flags.
constexpr UINT LVNI_ALL = 0x0000;
constexpr UINT LVNI_FOCUSED = 0x0001;
constexpr UINT LVNI_SELECTED = 0x0002;
constexpr UINT LVNI_ABOVE = 0x0100;
constexpr UINT LVNI_BELOW = 0x0200;

// LVM_GETITEMRECT / LVM_GETSUBITEMRECT parts.
constexpr int LVIR_BOUNDS = 0;
constexpr int LVIR_ICON = 1;
constexpr int LVIR_LABEL = 2;
constexpr int LVIR_SELECTBOUNDS = 3;

// Hit-test flags.
constexpr UINT LVHT_NOWHERE = 0x0001;
constexpr UINT LVHT_ONITEMICON = 0x0002;
constexpr UINT LVHT_ONITEMLABEL = 0x0004;
constexpr UINT LVHT_ONITEMSTATEICON = 0x0008;
constexpr UINT LVHT_ONITEM = LVHT_ONITEMICON | LVHT_ONITEMLABEL | LVHT_ONITEMSTATEICON;
constexpr UINT LVHT_ABOVE = 0x0008;
constexpr UINT LVHT_BELOW = 0x0010;
constexpr UINT LVHT_TORIGHT = 0x0020;
constexpr UINT LVHT_TOLEFT = 0x0040;

// LVM_SETITEMCOUNT flags.
constexpr DWORD LVSICF_NOINVALIDATEALL = 0x0001;
constexpr DWORD LVSICF_NOSCROLL = 0x0002;

// Columns.
constexpr UINT LVCF_FMT = 0x0001;
constexpr UINT LVCF_WIDTH = 0x0002;
constexpr UINT LVCF_TEXT = 0x0004;
constexpr UINT LVCF_SUBITEM = 0x0008;
constexpr UINT LVCF_IMAGE = 0x0010;
constexpr UINT LVCF_ORDER = 0x0020;
constexpr int LVCFMT_LEFT = 0x0000;
constexpr int LVCFMT_RIGHT = 0x0001;
constexpr int LVCFMT_CENTER = 0x0002;
constexpr int LVCFMT_JUSTIFYMASK = 0x0003;
// LVM_SETCOLUMNWIDTH widths: fit the contents, or fit the header text (and,
// for the last column, fill the rest of the client area).
constexpr int LVSCW_AUTOSIZE = -1;
constexpr int LVSCW_AUTOSIZE_USEHEADER = -2;

// Notifications (WM_NOTIFY to the parent), the platform's ANSI codes.
constexpr UINT LVN_FIRST = static_cast<UINT>(-100);
constexpr UINT LVN_ITEMCHANGING = LVN_FIRST - 0;
constexpr UINT LVN_ITEMCHANGED = LVN_FIRST - 1;
constexpr UINT LVN_COLUMNCLICK = LVN_FIRST - 8;
constexpr UINT LVN_BEGINDRAG = LVN_FIRST - 9;
constexpr UINT LVN_BEGINRDRAG = LVN_FIRST - 11;
constexpr UINT LVN_ITEMACTIVATE = LVN_FIRST - 14;
constexpr UINT LVN_ODSTATECHANGED = LVN_FIRST - 15;
constexpr UINT LVN_GETDISPINFO = LVN_FIRST - 50;
constexpr UINT LVN_KEYDOWN = LVN_FIRST - 55;

// NMITEMACTIVATE::uKeyFlags.
constexpr UINT LVKF_ALT = 0x0001;
constexpr UINT LVKF_CONTROL = 0x0002;
constexpr UINT LVKF_SHIFT = 0x0004;

struct LVITEM {
    UINT mask = 0;
    int iItem = 0;
    int iSubItem = 0;
    UINT state = 0;
    UINT stateMask = 0;
    char* pszText = nullptr;  // GBK
    int cchTextMax = 0;
    int iImage = 0;
    LPARAM lParam = 0;
    int iIndent = 0;
};
using LPLVITEM = LVITEM*;

struct LVCOLUMN {
    UINT mask = 0;
    int fmt = LVCFMT_LEFT;
    int cx = 0;
    char* pszText = nullptr;  // GBK; on LVM_GETCOLUMN a buffer of cchTextMax bytes
    int cchTextMax = 0;
    int iSubItem = 0;
    int iImage = 0;
    int iOrder = 0;
};
using LPLVCOLUMN = LVCOLUMN*;

struct LVHITTESTINFO {
    POINT pt{};
    UINT flags = 0;
    int iItem = -1;
    int iSubItem = 0;
};
using LPLVHITTESTINFO = LVHITTESTINFO*;

struct NMLISTVIEW {
    NMHDR hdr;
    int iItem = -1;
    int iSubItem = 0;
    UINT uNewState = 0;
    UINT uOldState = 0;
    UINT uChanged = 0;
    POINT ptAction{};
    LPARAM lParam = 0;
};
using LPNMLISTVIEW = NMLISTVIEW*;

struct NMITEMACTIVATE {
    NMHDR hdr;
    int iItem = -1;
    int iSubItem = 0;
    UINT uNewState = 0;
    UINT uOldState = 0;
    UINT uChanged = 0;
    POINT ptAction{};
    LPARAM lParam = 0;
    UINT uKeyFlags = 0;
};
using LPNMITEMACTIVATE = NMITEMACTIVATE*;

// A run of owner-data items changed state together (LVN_ODSTATECHANGED).
struct NMLVODSTATECHANGE {
    NMHDR hdr;
    int iFrom = 0;
    int iTo = 0;  // inclusive
    UINT uNewState = 0;
    UINT uOldState = 0;
};

struct NMLVKEYDOWN {
    NMHDR hdr;
    WORD wVKey = 0;
    UINT flags = 0;
};

struct NMLVDISPINFO {
    NMHDR hdr;
    LVITEM item;
};

class AFX_EXT_CLASS CListCtrl : public CWnd {
    DECLARE_DYNCREATE(CListCtrl)

    CListCtrl();
    ~CListCtrl() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Items (owner data: a count, with selection and focus per item).
    int GetItemCount() const;
    BOOL SetItemCount(int nItems);
    BOOL SetItemCountEx(int iCount, DWORD dwFlags = LVSICF_NOINVALIDATEALL);
    BOOL DeleteAllItems();
    UINT GetItemState(int nItem, UINT nMask) const;
    // nItem -1 changes every item.
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    BOOL SetItemState(int nItem, LVITEM* pItem);
    int GetNextItem(int nItem, int nFlags) const;
    UINT GetSelectedCount() const;
    int GetSelectionMark() const;
    int SetSelectionMark(int iIndex);

    // Geometry, in client coordinates.
    BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
    BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const;
    int HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    int HitTest(LVHITTESTINFO* pHitTestInfo) const;
    int SubItemHitTest(LPLVHITTESTINFO pInfo);

    // Scrolling.
    BOOL EnsureVisible(int nItem, BOOL bPartialOK);
    int GetTopIndex() const;
    int GetCountPerPage() const;
    // In pixels; vertical amounts are rounded to whole lines.
    BOOL Scroll(CSize size);
    BOOL RedrawItems(int nFirst, int nLast);
    BOOL Update(int nItem);

    // Columns.
    int InsertColumn(int nCol, const LVCOLUMN* pColumn);
    int InsertColumn(int nCol, const char* lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1, int nSubItem = -1);
    BOOL DeleteColumn(int nCol);
    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const;
    BOOL SetColumn(int nCol, const LVCOLUMN* pColumn);
    int GetColumnWidth(int nCol) const;
    BOOL SetColumnWidth(int nCol, int cx);
    CHeaderCtrl* GetHeaderCtrl() const;

    // Appearance.
    DWORD GetExtendedStyle() const;
    DWORD SetExtendedStyle(DWORD dwNewStyle);
    COLORREF GetBkColor() const;
    BOOL SetBkColor(COLORREF cr);

    // Owner drawing: the framework calls these for the WM_DRAWITEM and
    // WM_MEASUREITEM the control sends its parent when the parent leaves them
    // unhandled. The default DrawItem shows the selection only.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);

protected:
    // The control's own behaviour: answers LVM_* and paints, and handles the
    // mouse, keys, focus, scrolling and the header's notifications.
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

private:
    // State and behaviour of the control, created with its window.
    std::unique_ptr<listview::ListControl> m_control;
};
