// The tree view control. Its state and behaviour live in the control itself
// (DefWindowProc answers the TVM_* messages, paints, handles the mouse and the
// keyboard); the member functions are thin senders of those messages, so a
// message spy sees every change a view makes.
#pragma once

#include <memory>
#include <string_view>

#include "platform/core/wnd.h"

class CImageList;
namespace tree {
class TreeControl;
}

// Tree styles.
constexpr DWORD TVS_HASBUTTONS = 0x0001;
constexpr DWORD TVS_HASLINES = 0x0002;
constexpr DWORD TVS_LINESATROOT = 0x0004;
constexpr DWORD TVS_EDITLABELS = 0x0008;
constexpr DWORD TVS_DISABLEDRAGDROP = 0x0010;
constexpr DWORD TVS_SHOWSELALWAYS = 0x0020;
constexpr DWORD TVS_RTLREADING = 0x0040;
constexpr DWORD TVS_NOTOOLTIPS = 0x0080;
constexpr DWORD TVS_CHECKBOXES = 0x0100;
constexpr DWORD TVS_TRACKSELECT = 0x0200;
constexpr DWORD TVS_SINGLEEXPAND = 0x0400;
constexpr DWORD TVS_INFOTIP = 0x0800;
constexpr DWORD TVS_FULLROWSELECT = 0x1000;
constexpr DWORD TVS_NOSCROLL = 0x2000;
constexpr DWORD TVS_NOHSCROLL = 0x8000;

// Messages.
constexpr UINT TV_FIRST = 0x1100;
constexpr UINT TVM_INSERTITEM = TV_FIRST + 0;
constexpr UINT TVM_DELETEITEM = TV_FIRST + 1;
constexpr UINT TVM_EXPAND = TV_FIRST + 2;
constexpr UINT TVM_GETITEMRECT = TV_FIRST + 4;
constexpr UINT TVM_GETCOUNT = TV_FIRST + 5;
constexpr UINT TVM_GETINDENT = TV_FIRST + 6;
constexpr UINT TVM_GETIMAGELIST = TV_FIRST + 8;
constexpr UINT TVM_SETIMAGELIST = TV_FIRST + 9;
constexpr UINT TVM_GETNEXTITEM = TV_FIRST + 10;
constexpr UINT TVM_SELECTITEM = TV_FIRST + 11;
constexpr UINT TVM_GETITEM = TV_FIRST + 12;
constexpr UINT TVM_SETITEM = TV_FIRST + 13;
constexpr UINT TVM_GETVISIBLECOUNT = TV_FIRST + 16;
constexpr UINT TVM_HITTEST = TV_FIRST + 17;
constexpr UINT TVM_ENSUREVISIBLE = TV_FIRST + 20;
constexpr UINT TVM_GETITEMHEIGHT = TV_FIRST + 28;

// Image list kinds.
constexpr int TVSIL_NORMAL = 0;
constexpr int TVSIL_STATE = 2;

// TVM_GETNEXTITEM relations.
constexpr UINT TVGN_ROOT = 0x0000;
constexpr UINT TVGN_NEXT = 0x0001;
constexpr UINT TVGN_PREVIOUS = 0x0002;
constexpr UINT TVGN_PARENT = 0x0003;
constexpr UINT TVGN_CHILD = 0x0004;
constexpr UINT TVGN_FIRSTVISIBLE = 0x0005;
constexpr UINT TVGN_NEXTVISIBLE = 0x0006;
constexpr UINT TVGN_PREVIOUSVISIBLE = 0x0007;
constexpr UINT TVGN_DROPHILITE = 0x0008;
constexpr UINT TVGN_CARET = 0x0009;
constexpr UINT TVGN_LASTVISIBLE = 0x000A;

// TVM_EXPAND actions.
constexpr UINT TVE_COLLAPSE = 0x0001;
constexpr UINT TVE_EXPAND = 0x0002;
constexpr UINT TVE_TOGGLE = 0x0003;

// TVITEM mask and states.
constexpr UINT TVIF_TEXT = 0x0001;
constexpr UINT TVIF_IMAGE = 0x0002;
constexpr UINT TVIF_PARAM = 0x0004;
constexpr UINT TVIF_STATE = 0x0008;
constexpr UINT TVIF_HANDLE = 0x0010;
constexpr UINT TVIF_SELECTEDIMAGE = 0x0020;
constexpr UINT TVIF_CHILDREN = 0x0040;
constexpr UINT TVIS_SELECTED = 0x0002;
constexpr UINT TVIS_EXPANDED = 0x0020;

// Hit-test flags.
constexpr UINT TVHT_NOWHERE = 0x0001;
constexpr UINT TVHT_ONITEMICON = 0x0002;
constexpr UINT TVHT_ONITEMLABEL = 0x0004;
constexpr UINT TVHT_ONITEM = TVHT_ONITEMICON | TVHT_ONITEMLABEL | 0x0040;
constexpr UINT TVHT_ONITEMINDENT = 0x0008;
constexpr UINT TVHT_ONITEMBUTTON = 0x0010;
constexpr UINT TVHT_ONITEMRIGHT = 0x0020;
constexpr UINT TVHT_ONITEMSTATEICON = 0x0040;
constexpr UINT TVHT_ABOVE = 0x0100;
constexpr UINT TVHT_BELOW = 0x0200;
constexpr UINT TVHT_TORIGHT = 0x0400;
constexpr UINT TVHT_TOLEFT = 0x0800;

#define TVI_ROOT (reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0x10000)))
#define TVI_FIRST (reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0x0FFFF)))
#define TVI_LAST (reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0x0FFFE)))

// Notifications (WM_NOTIFY to the parent).
constexpr UINT TVN_FIRST = static_cast<UINT>(-400);
constexpr UINT TVN_SELCHANGING = TVN_FIRST - 1;
constexpr UINT TVN_SELCHANGED = TVN_FIRST - 2;
constexpr UINT TVN_ITEMEXPANDING = TVN_FIRST - 5;
constexpr UINT TVN_ITEMEXPANDED = TVN_FIRST - 6;
constexpr UINT TVN_KEYDOWN = TVN_FIRST - 12;

// How the selection changed (NMTREEVIEW::action).
constexpr UINT TVC_UNKNOWN = 0x0000;
constexpr UINT TVC_BYMOUSE = 0x0001;
constexpr UINT TVC_BYKEYBOARD = 0x0002;

struct TVITEM {
    UINT mask = 0;
    HTREEITEM hItem = nullptr;
    UINT state = 0;
    UINT stateMask = 0;
    char* pszText = nullptr;  // GBK; on TVM_GETITEM a buffer of cchTextMax bytes
    int cchTextMax = 0;
    int iImage = 0;
    int iSelectedImage = 0;
    int cChildren = 0;
    LPARAM lParam = 0;
};

struct TVINSERTSTRUCT {
    HTREEITEM hParent = nullptr;
    HTREEITEM hInsertAfter = nullptr;
    TVITEM item;
};

struct TVHITTESTINFO {
    POINT pt{};
    UINT flags = 0;
    HTREEITEM hItem = nullptr;
};

struct NMTREEVIEW {
    NMHDR hdr;
    UINT action = 0;
    TVITEM itemOld;
    TVITEM itemNew;
    POINT ptDrag{};
};

struct NMTVKEYDOWN {
    NMHDR hdr;
    WORD wVKey = 0;
    UINT flags = 0;
};

// An item as the control holds it, read without a message or a copy: for
// views that walk their nodes comparing them with what they would show. The
// text stays valid until the item or the tree next changes.
struct TreeItemPeek {
    std::string_view text;
    LPARAM data = 0;
    int image = 0;
    int selectedImage = 0;
    HTREEITEM nextSibling = nullptr;
};

class AFX_EXT_CLASS CTreeCtrl : public CWnd {
public:
    CTreeCtrl();
    ~CTreeCtrl() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    CImageList* SetImageList(CImageList* pImageList, int nImageList);
    CImageList* GetImageList(int nImageList) const;

    HTREEITEM InsertItem(const TVINSERTSTRUCT* pInsert);
    HTREEITEM InsertItem(UINT nMask, const char* text, int nImage, int nSelectedImage, UINT nState, UINT nStateMask,
                         LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter);
    HTREEITEM InsertItem(const char* text, int nImage, int nSelectedImage, HTREEITEM hParent = TVI_ROOT,
                         HTREEITEM hInsertAfter = TVI_LAST);
    HTREEITEM InsertItem(const char* text, HTREEITEM hParent = TVI_ROOT, HTREEITEM hInsertAfter = TVI_LAST);
    BOOL DeleteItem(HTREEITEM hItem);
    BOOL DeleteAllItems();

    HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const;
    HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
    HTREEITEM GetNextSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXT); }
    HTREEITEM GetPrevSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUS); }
    HTREEITEM GetChildItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_CHILD); }
    HTREEITEM GetParentItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PARENT); }
    HTREEITEM GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }
    HTREEITEM GetFirstVisibleItem() const { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }
    HTREEITEM GetNextVisibleItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXTVISIBLE); }
    HTREEITEM GetPrevVisibleItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUSVISIBLE); }
    BOOL ItemHasChildren(HTREEITEM hItem) const { return GetChildItem(hItem) != nullptr; }

    // Selects the item as the caret (null: no selection).
    BOOL SelectItem(HTREEITEM hItem);
    BOOL Select(HTREEITEM hItem, UINT nCode);
    BOOL Expand(HTREEITEM hItem, UINT nCode);
    BOOL EnsureVisible(HTREEITEM hItem);

    BOOL GetItem(TVITEM* pItem) const;
    BOOL SetItem(TVITEM* pItem);
    CString GetItemText(HTREEITEM hItem) const;
    BOOL SetItemText(HTREEITEM hItem, const char* text);
    DWORD_PTR GetItemData(HTREEITEM hItem) const;
    BOOL SetItemData(HTREEITEM hItem, DWORD_PTR data);
    BOOL GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const;
    BOOL SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage);
    UINT GetItemState(HTREEITEM hItem, UINT nStateMask) const;
    // Reads an item straight from the control; a read changes nothing, so no
    // message is sent. False, leaving peek alone, for anything that is not
    // an item of this tree.
    bool PeekItem(HTREEITEM hItem, TreeItemPeek& peek) const;
    BOOL GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const;

    UINT GetCount() const;
    UINT GetVisibleCount() const;
    UINT GetIndent() const;
    int GetItemHeight() const;

    HTREEITEM HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    HTREEITEM HitTest(TVHITTESTINFO* pHitTestInfo) const;

protected:
    // The control's own behaviour: answers TVM_* and paints, and handles the
    // mouse, keys, focus and scrolling.
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    // State and behaviour of the control, created with its window.
    std::unique_ptr<tree::TreeControl> m_control;
};
