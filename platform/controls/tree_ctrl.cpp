// CTreeCtrl: each member sends its TVM_* message; the control's behaviour is
// in TreeControl, reached from DefWindowProc.
#include "platform/controls/tree_ctrl.h"

#include <cstring>

#include "platform/controls/tree_control.h"
#include "platform/gdi/image_list.h"

CTreeCtrl::CTreeCtrl() : m_control(std::make_unique<tree::TreeControl>(this)) {}

CTreeCtrl::~CTreeCtrl()
{
    // Destroy while this class's DefWindowProc can still hear the window go.
    if (m_hWnd) DestroyWindow();
}

BOOL CTreeCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("SysTreeView32", nullptr, dwStyle, rect, pParentWnd, nID);
}

LRESULT CTreeCtrl::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (m_control->Handle(message, wParam, lParam, &result)) return result;
    return CWnd::DefWindowProc(message, wParam, lParam);
}

// ---------------------------------------------------------------- image lists

CImageList* CTreeCtrl::SetImageList(CImageList* pImageList, int nImageList)
{
    const LRESULT old = SendMessage(TVM_SETIMAGELIST, static_cast<WPARAM>(nImageList),
                                    reinterpret_cast<LPARAM>(pImageList ? pImageList->GetSafeHandle() : nullptr));
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(old));
}

CImageList* CTreeCtrl::GetImageList(int nImageList) const
{
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(TVM_GETIMAGELIST, static_cast<WPARAM>(nImageList))));
}

// ---------------------------------------------------------------- items

HTREEITEM CTreeCtrl::InsertItem(const TVINSERTSTRUCT* pInsert)
{
    return reinterpret_cast<HTREEITEM>(SendMessage(TVM_INSERTITEM, 0, reinterpret_cast<LPARAM>(pInsert)));
}

HTREEITEM CTreeCtrl::InsertItem(UINT nMask, const char* text, int nImage, int nSelectedImage, UINT nState, UINT nStateMask,
                                LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter)
{
    TVINSERTSTRUCT insert;
    insert.hParent = hParent;
    insert.hInsertAfter = hInsertAfter;
    insert.item.mask = nMask;
    insert.item.pszText = const_cast<char*>(text);
    insert.item.iImage = nImage;
    insert.item.iSelectedImage = nSelectedImage;
    insert.item.state = nState;
    insert.item.stateMask = nStateMask;
    insert.item.lParam = lParam;
    return InsertItem(&insert);
}

HTREEITEM CTreeCtrl::InsertItem(const char* text, int nImage, int nSelectedImage, HTREEITEM hParent, HTREEITEM hInsertAfter)
{
    return InsertItem(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE, text, nImage, nSelectedImage, 0, 0, 0, hParent, hInsertAfter);
}

HTREEITEM CTreeCtrl::InsertItem(const char* text, HTREEITEM hParent, HTREEITEM hInsertAfter)
{
    return InsertItem(TVIF_TEXT, text, 0, 0, 0, 0, 0, hParent, hInsertAfter);
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM hItem)
{
    // Null would mean "everything" to the message; as an item it is no item.
    if (!hItem) return FALSE;
    return static_cast<BOOL>(SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(hItem)));
}

BOOL CTreeCtrl::DeleteAllItems()
{
    return static_cast<BOOL>(SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT)));
}

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM hItem, UINT nCode) const
{
    return reinterpret_cast<HTREEITEM>(SendMessage(TVM_GETNEXTITEM, nCode, reinterpret_cast<LPARAM>(hItem)));
}

BOOL CTreeCtrl::SelectItem(HTREEITEM hItem)
{
    return Select(hItem, TVGN_CARET);
}

BOOL CTreeCtrl::Select(HTREEITEM hItem, UINT nCode)
{
    return static_cast<BOOL>(SendMessage(TVM_SELECTITEM, nCode, reinterpret_cast<LPARAM>(hItem)));
}

BOOL CTreeCtrl::Expand(HTREEITEM hItem, UINT nCode)
{
    return static_cast<BOOL>(SendMessage(TVM_EXPAND, nCode, reinterpret_cast<LPARAM>(hItem)));
}

BOOL CTreeCtrl::EnsureVisible(HTREEITEM hItem)
{
    return static_cast<BOOL>(SendMessage(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(hItem)));
}

// ---------------------------------------------------------------- item data

BOOL CTreeCtrl::GetItem(TVITEM* pItem) const
{
    return static_cast<BOOL>(SendMessage(TVM_GETITEM, 0, reinterpret_cast<LPARAM>(pItem)));
}

BOOL CTreeCtrl::SetItem(TVITEM* pItem)
{
    return static_cast<BOOL>(SendMessage(TVM_SETITEM, 0, reinterpret_cast<LPARAM>(pItem)));
}

CString CTreeCtrl::GetItemText(HTREEITEM hItem) const
{
    // The message copies at most a buffer's worth; grow until the text ends
    // short of the buffer's end (a double-byte character that did not fit
    // can leave one byte unused).
    for (int size = 256;; size *= 2) {
        CString text;
        TVITEM item;
        item.mask = TVIF_TEXT;
        item.hItem = hItem;
        item.pszText = text.GetBuffer(size);
        item.cchTextMax = size;
        item.pszText[0] = '\0';
        const BOOL ok = GetItem(&item);
        text.ReleaseBuffer();
        if (!ok) return CString();
        if (text.GetLength() < size - 2 || size > (1 << 29)) return text;
    }
}

BOOL CTreeCtrl::SetItemText(HTREEITEM hItem, const char* text)
{
    TVITEM item;
    item.mask = TVIF_TEXT;
    item.hItem = hItem;
    item.pszText = const_cast<char*>(text);
    return SetItem(&item);
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const
{
    TVITEM item;
    item.mask = TVIF_PARAM;
    item.hItem = hItem;
    return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM hItem, DWORD_PTR data)
{
    TVITEM item;
    item.mask = TVIF_PARAM;
    item.hItem = hItem;
    item.lParam = static_cast<LPARAM>(data);
    return SetItem(&item);
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const
{
    TVITEM item;
    item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = hItem;
    if (!GetItem(&item)) return FALSE;
    nImage = item.iImage;
    nSelectedImage = item.iSelectedImage;
    return TRUE;
}

BOOL CTreeCtrl::SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage)
{
    TVITEM item;
    item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = hItem;
    item.iImage = nImage;
    item.iSelectedImage = nSelectedImage;
    return SetItem(&item);
}

UINT CTreeCtrl::GetItemState(HTREEITEM hItem, UINT nStateMask) const
{
    TVITEM item;
    item.mask = TVIF_STATE;
    item.hItem = hItem;
    item.stateMask = nStateMask;
    return GetItem(&item) ? item.state & nStateMask : 0;
}

bool CTreeCtrl::PeekItem(HTREEITEM hItem, TreeItemPeek& peek) const
{
    return m_hWnd && m_control->Peek(hItem, peek);
}

BOOL CTreeCtrl::GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const
{
    if (!lpRect) return FALSE;
    // The message takes the item in the rectangle it fills.
    std::memcpy(static_cast<void*>(lpRect), &hItem, sizeof hItem);
    return static_cast<BOOL>(SendMessage(TVM_GETITEMRECT, static_cast<WPARAM>(bTextOnly), reinterpret_cast<LPARAM>(lpRect)));
}

// ---------------------------------------------------------------- control state

UINT CTreeCtrl::GetCount() const { return static_cast<UINT>(SendMessage(TVM_GETCOUNT)); }
UINT CTreeCtrl::GetVisibleCount() const { return static_cast<UINT>(SendMessage(TVM_GETVISIBLECOUNT)); }
UINT CTreeCtrl::GetIndent() const { return static_cast<UINT>(SendMessage(TVM_GETINDENT)); }
int CTreeCtrl::GetItemHeight() const { return static_cast<int>(SendMessage(TVM_GETITEMHEIGHT)); }

HTREEITEM CTreeCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    TVHITTESTINFO info;
    info.pt = pt;
    const HTREEITEM item = HitTest(&info);
    if (pFlags) *pFlags = info.flags;
    return item;
}

HTREEITEM CTreeCtrl::HitTest(TVHITTESTINFO* pHitTestInfo) const
{
    return reinterpret_cast<HTREEITEM>(SendMessage(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(pHitTestInfo)));
}
