// Message numbers, notification codes, window styles and key codes of the
// windowing platform, with the platform's own values so that numbers seen in a
// transcript read the same as on the classic platform.
#pragma once

#include "platform/core/win_types.h"

// Window messages.
constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_MOVE = 0x0003;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_ENABLE = 0x000A;
constexpr UINT WM_SETREDRAW = 0x000B;
constexpr UINT WM_SETTEXT = 0x000C;
constexpr UINT WM_GETTEXT = 0x000D;
constexpr UINT WM_GETTEXTLENGTH = 0x000E;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SHOWWINDOW = 0x0018;
constexpr UINT WM_SETCURSOR = 0x0020;
constexpr UINT WM_MOUSEACTIVATE = 0x0021;
constexpr UINT WM_DRAWITEM = 0x002B;
constexpr UINT WM_MEASUREITEM = 0x002C;
constexpr UINT WM_SETFONT = 0x0030;
constexpr UINT WM_GETFONT = 0x0031;
constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_CONTEXTMENU = 0x007B;
constexpr UINT WM_NCCREATE = 0x0081;
constexpr UINT WM_NCDESTROY = 0x0082;
constexpr UINT WM_NCHITTEST = 0x0084;
constexpr UINT WM_NCPAINT = 0x0085;
constexpr UINT WM_GETDLGCODE = 0x0087;
// Mouse messages over the non-client area (scroll bars, borders): wParam the
// hit code, lParam the screen point.
constexpr UINT WM_NCMOUSEMOVE = 0x00A0;
constexpr UINT WM_NCLBUTTONDOWN = 0x00A1;
constexpr UINT WM_NCLBUTTONUP = 0x00A2;
constexpr UINT WM_NCLBUTTONDBLCLK = 0x00A3;
constexpr UINT WM_NCRBUTTONDOWN = 0x00A4;
constexpr UINT WM_NCRBUTTONUP = 0x00A5;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_SYSKEYDOWN = 0x0104;
constexpr UINT WM_SYSKEYUP = 0x0105;
constexpr UINT WM_SYSCHAR = 0x0106;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_SYSCOMMAND = 0x0112;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_HSCROLL = 0x0114;
constexpr UINT WM_VSCROLL = 0x0115;
constexpr UINT WM_INITMENUPOPUP = 0x0117;
constexpr UINT WM_MENUSELECT = 0x011F;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
constexpr UINT WM_MOUSEWHEEL = 0x020A;
constexpr UINT WM_ENTERMENULOOP = 0x0211;
constexpr UINT WM_EXITMENULOOP = 0x0212;
constexpr UINT WM_CAPTURECHANGED = 0x0215;
constexpr UINT WM_MOUSELEAVE = 0x02A3;
constexpr UINT WM_CUT = 0x0300;
constexpr UINT WM_COPY = 0x0301;
constexpr UINT WM_PASTE = 0x0302;
constexpr UINT WM_CLEAR = 0x0303;
constexpr UINT WM_UNDO = 0x0304;
constexpr UINT WM_USER = 0x0400;

// Framework-internal: a child's notification offered back to the child.
constexpr UINT WM_REFLECT_BASE = 0xBC00;

// Mouse key-state flags carried in wParam of mouse messages.
constexpr UINT MK_LBUTTON = 0x0001;
constexpr UINT MK_RBUTTON = 0x0002;
constexpr UINT MK_SHIFT = 0x0004;
constexpr UINT MK_CONTROL = 0x0008;

// WM_SIZE types.
constexpr UINT SIZE_RESTORED = 0;

// WM_NCHITTEST answers: which part of a window a screen point is over.
constexpr int HTNOWHERE = 0;
constexpr int HTCLIENT = 1;
constexpr int HTHSCROLL = 6;
constexpr int HTVSCROLL = 7;
constexpr int HTBORDER = 18;
// A non-client mouse message is its client message moved by this much.
constexpr UINT kNonClientMouseOffset = WM_MOUSEMOVE - WM_NCMOUSEMOVE;

// Scroll-bar requests (LOWORD of WM_VSCROLL / WM_HSCROLL).
constexpr UINT SB_LINEUP = 0;
constexpr UINT SB_LINEDOWN = 1;
constexpr UINT SB_PAGEUP = 2;
constexpr UINT SB_PAGEDOWN = 3;
constexpr UINT SB_THUMBPOSITION = 4;
constexpr UINT SB_THUMBTRACK = 5;
constexpr UINT SB_TOP = 6;
constexpr UINT SB_BOTTOM = 7;
constexpr UINT SB_ENDSCROLL = 8;

// WM_GETDLGCODE answers.
constexpr UINT DLGC_WANTARROWS = 0x0001;
constexpr UINT DLGC_WANTALLKEYS = 0x0004;
constexpr UINT DLGC_HASSETSEL = 0x0008;
constexpr UINT DLGC_WANTCHARS = 0x0080;

// Virtual keys.
constexpr UINT VK_LBUTTON = 0x01;
constexpr UINT VK_RBUTTON = 0x02;
constexpr UINT VK_BACK = 0x08;
constexpr UINT VK_TAB = 0x09;
constexpr UINT VK_RETURN = 0x0D;
constexpr UINT VK_SHIFT = 0x10;
constexpr UINT VK_CONTROL = 0x11;
constexpr UINT VK_MENU = 0x12;
constexpr UINT VK_ESCAPE = 0x1B;
constexpr UINT VK_SPACE = 0x20;
constexpr UINT VK_PRIOR = 0x21;
constexpr UINT VK_NEXT = 0x22;
constexpr UINT VK_END = 0x23;
constexpr UINT VK_HOME = 0x24;
constexpr UINT VK_LEFT = 0x25;
constexpr UINT VK_UP = 0x26;
constexpr UINT VK_RIGHT = 0x27;
constexpr UINT VK_DOWN = 0x28;
constexpr UINT VK_INSERT = 0x2D;
constexpr UINT VK_DELETE = 0x2E;
constexpr UINT VK_NUMPAD0 = 0x60;  // to VK_NUMPAD9 = 0x69
constexpr UINT VK_MULTIPLY = 0x6A;
constexpr UINT VK_ADD = 0x6B;
constexpr UINT VK_SUBTRACT = 0x6D;
constexpr UINT VK_DECIMAL = 0x6E;
constexpr UINT VK_DIVIDE = 0x6F;
constexpr UINT VK_F1 = 0x70;
constexpr UINT VK_F2 = 0x71;
constexpr UINT VK_F3 = 0x72;
constexpr UINT VK_F4 = 0x73;
constexpr UINT VK_F5 = 0x74;
constexpr UINT VK_F6 = 0x75;
constexpr UINT VK_F7 = 0x76;
constexpr UINT VK_F8 = 0x77;
constexpr UINT VK_F9 = 0x78;
constexpr UINT VK_F10 = 0x79;
constexpr UINT VK_F11 = 0x7A;
constexpr UINT VK_F12 = 0x7B;

// Window styles.
constexpr DWORD WS_OVERLAPPED = 0x00000000;
constexpr DWORD WS_POPUP = 0x80000000;
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_DISABLED = 0x08000000;
constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
constexpr DWORD WS_BORDER = 0x00800000;
constexpr DWORD WS_CAPTION = 0x00C00000;
constexpr DWORD WS_VSCROLL = 0x00200000;
constexpr DWORD WS_HSCROLL = 0x00100000;
constexpr DWORD WS_TABSTOP = 0x00010000;
constexpr DWORD WS_OVERLAPPEDWINDOW = 0x00CF0000;
constexpr DWORD WS_EX_CLIENTEDGE = 0x00000200;

// SetWindowPos flags.
constexpr UINT SWP_NOSIZE = 0x0001;
constexpr UINT SWP_NOMOVE = 0x0002;
constexpr UINT SWP_NOZORDER = 0x0004;
constexpr UINT SWP_NOREDRAW = 0x0008;
constexpr UINT SWP_NOACTIVATE = 0x0010;
constexpr UINT SWP_SHOWWINDOW = 0x0040;
constexpr UINT SWP_HIDEWINDOW = 0x0080;

// ShowWindow commands.
constexpr int SW_HIDE = 0;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOW = 5;

// Notification header carried by WM_NOTIFY.
struct NMHDR {
    HWND hwndFrom = nullptr;
    UINT_PTR idFrom = 0;
    UINT code = 0;
};
using LPNMHDR = NMHDR*;

// Common notification codes.
constexpr UINT NM_FIRST = 0;
constexpr UINT NM_CLICK = static_cast<UINT>(NM_FIRST - 2);
constexpr UINT NM_DBLCLK = static_cast<UINT>(NM_FIRST - 3);
constexpr UINT NM_RETURN = static_cast<UINT>(NM_FIRST - 4);
constexpr UINT NM_RCLICK = static_cast<UINT>(NM_FIRST - 5);
constexpr UINT NM_SETFOCUS = static_cast<UINT>(NM_FIRST - 7);
constexpr UINT NM_KILLFOCUS = static_cast<UINT>(NM_FIRST - 8);

// Owner drawing: WM_MEASUREITEM asks the owner for an item's size, and
// WM_DRAWITEM asks it to draw one. A window that does not handle them offers
// them to the control they name (CWnd::OnChildNotify).
constexpr UINT ODT_MENU = 1;
constexpr UINT ODT_LISTBOX = 2;
constexpr UINT ODT_COMBOBOX = 3;
constexpr UINT ODT_BUTTON = 4;
constexpr UINT ODT_STATIC = 5;
constexpr UINT ODT_HEADER = 100;
constexpr UINT ODT_TAB = 101;
constexpr UINT ODT_LISTVIEW = 102;
constexpr UINT ODA_DRAWENTIRE = 0x0001;
constexpr UINT ODA_SELECT = 0x0002;
constexpr UINT ODA_FOCUS = 0x0004;
constexpr UINT ODS_SELECTED = 0x0001;
constexpr UINT ODS_GRAYED = 0x0002;
constexpr UINT ODS_DISABLED = 0x0004;
constexpr UINT ODS_CHECKED = 0x0008;
constexpr UINT ODS_FOCUS = 0x0010;
constexpr UINT ODS_DEFAULT = 0x0020;
constexpr UINT ODS_COMBOBOXEDIT = 0x1000;

struct MEASUREITEMSTRUCT {
    UINT CtlType = 0;
    UINT CtlID = 0;
    UINT itemID = 0;
    UINT itemWidth = 0;
    UINT itemHeight = 0;
    UINT_PTR itemData = 0;
};
using LPMEASUREITEMSTRUCT = MEASUREITEMSTRUCT*;

struct DRAWITEMSTRUCT {
    UINT CtlType = 0;
    UINT CtlID = 0;
    UINT itemID = 0;
    UINT itemAction = 0;
    UINT itemState = 0;
    HWND hwndItem = nullptr;
    HDC hDC = nullptr;
    RECT rcItem{};
    UINT_PTR itemData = 0;
};
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;

struct CREATESTRUCT {
    LPVOID lpCreateParams = nullptr;
    HINSTANCE hInstance = nullptr;
    HMENU hMenu = nullptr;
    HWND hwndParent = nullptr;
    int cy = 0;
    int cx = 0;
    int y = 0;
    int x = 0;
    LONG style = 0;
    LPCSTR lpszName = nullptr;
    LPCSTR lpszClass = nullptr;
    DWORD dwExStyle = 0;
};
using LPCREATESTRUCT = CREATESTRUCT*;
