// CWnd: the framework's window object. Each window has one; its WindowProc
// runs the message map chain and then DefWindowProc, which for a control is
// the control's built-in behaviour.
#pragma once

#include <vector>

#include "platform/core/cmd_target.h"
#include "platform/core/scroll_bar.h"

class CDC;
class CFont;
class CMenu;
struct WindowData;

class AFX_EXT_CLASS CWnd : public CCmdTarget {
    DECLARE_DYNCREATE(CWnd)

    CWnd() = default;
    ~CWnd() override;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    HWND m_hWnd = nullptr;

    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return GetSafeHwnd(); }
    // The window object of a handle; null for a stale or null handle. Every
    // window of this platform is created through a CWnd, so there are no
    // temporary wrappers.
    static CWnd* FromHandle(HWND hwnd);
    static CWnd* FromHandlePermanent(HWND hwnd) { return FromHandle(hwnd); }

    // Creation. rect is in the parent's client coordinates (screen for top level).
    virtual BOOL CreateEx(DWORD dwExStyle, const char* className, const char* windowName, DWORD dwStyle, const RECT& rect,
                          CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
    virtual BOOL Create(const char* className, const char* windowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL DestroyWindow();

    // Messages.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // Runs DefWindowProc with the message now being handled.
    LRESULT Default();
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, bool* pHandlerExists = nullptr) override;

    // Tree of windows.
    CWnd* GetParent() const;
    CWnd* GetOwner() const;
    CWnd* GetTopLevelParent() const;
    int GetDlgCtrlID() const;
    CWnd* GetDlgItem(int nID) const;
    BOOL IsChild(const CWnd* pWnd) const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);

    // Geometry.
    void GetWindowRect(LPRECT lpRect) const;
    void GetClientRect(LPRECT lpRect) const;
    void ClientToScreen(LPPOINT lpPoint) const;
    void ClientToScreen(LPRECT lpRect) const;
    void ScreenToClient(LPPOINT lpPoint) const;
    void ScreenToClient(LPRECT lpRect) const;
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE);
    BOOL ShowWindow(int nCmdShow);
    BOOL IsWindowVisible() const;
    BOOL EnableWindow(BOOL bEnable = TRUE);
    BOOL IsWindowEnabled() const;

    // Scroll bars (platform/core/scroll_bar.h has their rules).
    int SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
    BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL) const;
    int GetScrollPos(int nBar) const;
    int SetScrollPos(int nBar, int nPos, BOOL bRedraw = TRUE);
    void GetScrollRange(int nBar, int* lpMinPos, int* lpMaxPos) const;
    void SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw = TRUE);
    void ShowScrollBar(UINT nBar, BOOL bShow = TRUE);

    // Focus and capture.
    CWnd* SetFocus();
    static CWnd* GetFocus();
    CWnd* SetCapture();
    static CWnd* GetCapture();

    // Text and font.
    void SetWindowText(const char* text);
    int GetWindowText(char* buffer, int maxCount) const;
    void GetWindowText(CString& text) const;
    int GetWindowTextLength() const;
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
    CFont* GetFont() const;

    // Painting. Invalidation only records the area; painting happens when the
    // platform next updates windows (UpdateWindow, or the input layer's pass).
    void Invalidate(BOOL bErase = TRUE);
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE);
    void ValidateRect(LPCRECT lpRect);
    void UpdateWindow();
    BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, void* prgnUpdate = nullptr, UINT flags = 0);
    BOOL LockWindowUpdate();
    void UnlockWindowUpdate();
    BOOL GetUpdateRect(LPRECT lpRect, BOOL bErase = FALSE) const;
    void SetRedraw(BOOL bRedraw = TRUE) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(bRedraw), 0); }

protected:
    DECLARE_MESSAGE_MAP()

    // Message handling steps.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // A child's notification offered back to the child first.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    static BOOL ReflectLastMsg(HWND hWndChild, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    static BOOL ReflectMeasureItem(const CWnd* parent, const MEASUREITEMSTRUCT* measure, WPARAM wParam, LPARAM lParam,
                                   LRESULT* pResult);

    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    // Called after the window is gone; the object may delete itself here.
    virtual void PostNcDestroy();

    // Default handlers: each runs the default processing.
    int OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
    void OnDestroy() { Default(); }
    void OnSize(UINT, int, int) { Default(); }
    void OnPaint() { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    void OnSetFocus(CWnd*) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }
    void OnContextMenu(CWnd*, CPoint) { Default(); }
    // Offers an item request to the control it names, as an unhandled one is.
    void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnRButtonDown(UINT, CPoint) { Default(); }
    void OnRButtonUp(UINT, CPoint) { Default(); }
    void OnMouseMove(UINT, CPoint) { Default(); }
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    void OnKeyDown(UINT, UINT, UINT) { Default(); }
    void OnKeyUp(UINT, UINT, UINT) { Default(); }
    void OnChar(UINT, UINT, UINT) { Default(); }
    UINT OnGetDlgCode() { return static_cast<UINT>(Default()); }
    void OnEnterMenuLoop(BOOL) { Default(); }
    void OnExitMenuLoop(BOOL) { Default(); }

    WindowData* Data() const;

private:
    friend struct WindowLifecycle;
};

// Free functions with the platform's names, for code that holds handles.
AFX_API LRESULT SendMessage(HWND hwnd, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
AFX_API BOOL IsWindow(HWND hwnd);
AFX_API BOOL IsWindowVisible(HWND hwnd);
AFX_API HWND GetParent(HWND hwnd);
AFX_API HWND GetFocus();
AFX_API HWND SetFocus(HWND hwnd);
AFX_API HWND GetCapture();
AFX_API HWND SetCapture(HWND hwnd);
AFX_API BOOL ReleaseCapture();
AFX_API BOOL DestroyWindow(HWND hwnd);
AFX_API BOOL ScreenToClient(HWND hwnd, LPPOINT point);
AFX_API BOOL ClientToScreen(HWND hwnd, LPPOINT point);
AFX_API BOOL GetWindowRect(HWND hwnd, LPRECT rect);
AFX_API BOOL GetClientRect(HWND hwnd, LPRECT rect);
AFX_API BOOL InvalidateRect(HWND hwnd, LPCRECT rect, BOOL erase);
AFX_API BOOL UpdateWindow(HWND hwnd);
// The child-most visible, enabled window at a screen point, or null.
AFX_API HWND WindowFromPoint(POINT screenPoint);
// Every window below hwnd, depth first, parents before children.
AFX_API std::vector<HWND> GetDescendants(HWND hwnd);

// RedrawWindow flags.
constexpr UINT RDW_INVALIDATE = 0x0001;
constexpr UINT RDW_ERASE = 0x0004;
constexpr UINT RDW_VALIDATE = 0x0008;
constexpr UINT RDW_NOERASE = 0x0020;
constexpr UINT RDW_NOCHILDREN = 0x0040;
constexpr UINT RDW_ALLCHILDREN = 0x0080;
constexpr UINT RDW_UPDATENOW = 0x0100;
constexpr UINT RDW_ERASENOW = 0x0200;
constexpr UINT RDW_FRAME = 0x0400;
