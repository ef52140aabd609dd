// The header control: a row of column buttons whose dividers the user drags
// to resize columns. Its state and behaviour live in the control itself
// (DefWindowProc answers the HDM_* messages, paints and tracks the mouse);
// the member functions are thin senders of those messages.
#pragma once

#include <memory>

#include "platform/core/wnd.h"

namespace header {
class HeaderControl;
}

// Styles.
constexpr DWORD HDS_HORZ = 0x0000;
constexpr DWORD HDS_BUTTONS = 0x0002;
constexpr DWORD HDS_HOTTRACK = 0x0004;
constexpr DWORD HDS_HIDDEN = 0x0008;
constexpr DWORD HDS_DRAGDROP = 0x0040;
constexpr DWORD HDS_FULLDRAG = 0x0080;

// Messages.
constexpr UINT HDM_FIRST = 0x1200;
constexpr UINT HDM_GETITEMCOUNT = HDM_FIRST + 0;
constexpr UINT HDM_INSERTITEM = HDM_FIRST + 1;
constexpr UINT HDM_DELETEITEM = HDM_FIRST + 2;
constexpr UINT HDM_GETITEM = HDM_FIRST + 3;
constexpr UINT HDM_SETITEM = HDM_FIRST + 4;
constexpr UINT HDM_HITTEST = HDM_FIRST + 6;
constexpr UINT HDM_GETITEMRECT = HDM_FIRST + 7;

// HDITEM::mask.
constexpr UINT HDI_WIDTH = 0x0001;
constexpr UINT HDI_HEIGHT = HDI_WIDTH;
constexpr UINT HDI_TEXT = 0x0002;
constexpr UINT HDI_FORMAT = 0x0004;
constexpr UINT HDI_LPARAM = 0x0008;
constexpr UINT HDI_IMAGE = 0x0020;
constexpr UINT HDI_ORDER = 0x0080;

// HDITEM::fmt.
constexpr int HDF_LEFT = 0x0000;
constexpr int HDF_RIGHT = 0x0001;
constexpr int HDF_CENTER = 0x0002;
constexpr int HDF_JUSTIFYMASK = 0x0003;
constexpr int HDF_SORTDOWN = 0x0200;
constexpr int HDF_SORTUP = 0x0400;
constexpr int HDF_STRING = 0x4000;
constexpr int HDF_OWNERDRAW = 0x8000;

// Hit-test flags.
constexpr UINT HHT_NOWHERE = 0x0001;
constexpr UINT HHT_ONHEADER = 0x0002;
constexpr UINT HHT_ONDIVIDER = 0x0004;
constexpr UINT HHT_ONDIVOPEN = 0x0008;
constexpr UINT HHT_ABOVE = 0x0100;
constexpr UINT HHT_BELOW = 0x0200;
constexpr UINT HHT_TORIGHT = 0x0400;
constexpr UINT HHT_TOLEFT = 0x0800;

// Notifications (WM_NOTIFY to the parent), the platform's ANSI codes.
constexpr UINT HDN_FIRST = static_cast<UINT>(-300);
constexpr UINT HDN_ITEMCHANGING = HDN_FIRST - 0;
constexpr UINT HDN_ITEMCHANGED = HDN_FIRST - 1;
constexpr UINT HDN_ITEMCLICK = HDN_FIRST - 2;
constexpr UINT HDN_ITEMDBLCLICK = HDN_FIRST - 3;
constexpr UINT HDN_DIVIDERDBLCLICK = HDN_FIRST - 5;
constexpr UINT HDN_BEGINTRACK = HDN_FIRST - 6;
constexpr UINT HDN_ENDTRACK = HDN_FIRST - 7;
constexpr UINT HDN_TRACK = HDN_FIRST - 8;

struct HDITEM {
    UINT mask = 0;
    int cxy = 0;
    char* pszText = nullptr;  // GBK; on HDM_GETITEM a buffer of cchTextMax bytes
    HBITMAP hbm = nullptr;
    int cchTextMax = 0;
    int fmt = 0;
    LPARAM lParam = 0;
    int iImage = 0;
    int iOrder = 0;
};
using LPHDITEM = HDITEM*;

struct NMHEADER {
    NMHDR hdr;
    int iItem = -1;
    int iButton = 0;  // 0 left, 1 right, 2 middle
    HDITEM* pitem = nullptr;
};
using LPNMHEADER = NMHEADER*;

struct HDHITTESTINFO {
    POINT pt{};
    UINT flags = 0;
    int iItem = -1;
};
using LPHDHITTESTINFO = HDHITTESTINFO*;

class AFX_EXT_CLASS CHeaderCtrl : public CWnd {
public:
    CHeaderCtrl();
    ~CHeaderCtrl() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetItemCount() const;
    // Inserts before nPos (past the end appends); returns the new index or -1.
    int InsertItem(int nPos, HDITEM* phdi);
    BOOL DeleteItem(int nPos);
    BOOL GetItem(int nPos, HDITEM* pHeaderItem) const;
    // Asks the parent first (HDN_ITEMCHANGING); FALSE when it refuses.
    BOOL SetItem(int nPos, HDITEM* pHeaderItem);
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const;
    int HitTest(LPHDHITTESTINFO pHeaderHitTestInfo) const;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::unique_ptr<header::HeaderControl> m_control;
};
