// Window rectangles, coordinates, visibility and the tree of windows.
#include "platform/core/paint.h"
#include "platform/core/window_frame.h"
#include "platform/core/window_registry.h"
#include "platform/core/wnd.h"

namespace {

// Screen position of a window's client origin.
CPoint ClientOriginOnScreen(const WindowData* data)
{
    CPoint origin(0, 0);
    for (; data; data = WindowRegistry::Find(data->parent)) {
        const CPoint client = FrameOf(*data).client.TopLeft();
        origin.Offset(data->rect.left + client.x, data->rect.top + client.y);
    }
    return origin;
}

HWND ChildFromPoint(const WindowData* data, CPoint clientPoint)
{
    for (auto it = data->children.rbegin(); it != data->children.rend(); ++it) {
        const WindowData* child = WindowRegistry::Find(*it);
        if (!child || !(child->style & WS_VISIBLE) || child->destroying || !child->rect.PtInRect(clientPoint)) continue;
        // Grandchildren live in the child's client area, never over its bars.
        const CRect client = FrameOf(*child).client;
        const CPoint inWindow(clientPoint.x - child->rect.left, clientPoint.y - child->rect.top);
        if (!client.PtInRect(inWindow)) return child->handle;
        const HWND deeper = ChildFromPoint(child, CPoint(inWindow.x - client.left, inWindow.y - client.top));
        return deeper ? deeper : child->handle;
    }
    return nullptr;
}

}  // namespace

BOOL ScreenToClient(HWND hwnd, LPPOINT point)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data || !point) return FALSE;
    const CPoint origin = ClientOriginOnScreen(data);
    point->x -= origin.x;
    point->y -= origin.y;
    return TRUE;
}

BOOL ClientToScreen(HWND hwnd, LPPOINT point)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data || !point) return FALSE;
    const CPoint origin = ClientOriginOnScreen(data);
    point->x += origin.x;
    point->y += origin.y;
    return TRUE;
}

BOOL GetWindowRect(HWND hwnd, LPRECT rect)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data || !rect) return FALSE;
    CPoint topLeft(0, 0);
    if (data->parent) ::ClientToScreen(data->parent, &topLeft);
    *rect = data->rect;
    rect->left += topLeft.x;
    rect->right += topLeft.x;
    rect->top += topLeft.y;
    rect->bottom += topLeft.y;
    return TRUE;
}

BOOL GetClientRect(HWND hwnd, LPRECT rect)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data || !rect) return FALSE;
    const CRect client = FrameOf(*data).client;
    *rect = CRect(0, 0, client.Width(), client.Height());
    return TRUE;
}

BOOL IsWindowVisible(HWND hwnd)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return FALSE;
    for (; data; data = WindowRegistry::Find(data->parent)) {
        if (!(data->style & WS_VISIBLE)) return FALSE;
    }
    return TRUE;
}

HWND GetParent(HWND hwnd)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return nullptr;
    return data->parent ? data->parent : data->owner;
}

HWND WindowFromPoint(POINT screenPoint)
{
    const auto tops = WindowRegistry::TopLevelWindows();
    for (auto it = tops.rbegin(); it != tops.rend(); ++it) {
        const WindowData* top = WindowRegistry::Find(*it);
        if (!(top->style & WS_VISIBLE) || !top->rect.PtInRect(screenPoint)) continue;
        CPoint client(screenPoint);
        ::ScreenToClient(top->handle, &client);
        const HWND child = ChildFromPoint(top, client);
        return child ? child : top->handle;
    }
    return nullptr;
}

// ---------------------------------------------------------------- CWnd members

CWnd* CWnd::GetParent() const { return FromHandle(::GetParent(m_hWnd)); }

CWnd* CWnd::GetOwner() const
{
    const WindowData* data = Data();
    return data ? FromHandle(data->owner ? data->owner : data->parent) : nullptr;
}

CWnd* CWnd::GetTopLevelParent() const
{
    const WindowData* data = Data();
    while (data && data->parent) data = WindowRegistry::Find(data->parent);
    return data ? FromHandle(data->handle) : nullptr;
}

int CWnd::GetDlgCtrlID() const
{
    const WindowData* data = Data();
    return data ? static_cast<int>(data->id) : 0;
}

CWnd* CWnd::GetDlgItem(int nID) const
{
    const WindowData* data = Data();
    if (!data) return nullptr;
    for (HWND child : data->children) {
        const WindowData* childData = WindowRegistry::Find(child);
        if (childData && static_cast<int>(childData->id) == nID) return childData->object;
    }
    return nullptr;
}

BOOL CWnd::IsChild(const CWnd* pWnd) const
{
    if (!pWnd || !m_hWnd) return FALSE;
    for (const WindowData* data = WindowRegistry::Find(pWnd->m_hWnd); data; data = WindowRegistry::Find(data->parent)) {
        if (data->parent == m_hWnd) return TRUE;
    }
    return FALSE;
}

DWORD CWnd::GetStyle() const
{
    const WindowData* data = Data();
    return data ? data->style : 0;
}

DWORD CWnd::GetExStyle() const
{
    const WindowData* data = Data();
    return data ? data->exStyle : 0;
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT)
{
    WindowData* data = Data();
    if (!data) return FALSE;
    const DWORD before = data->style;
    data->style = (data->style & ~dwRemove) | dwAdd;
    if (before != data->style) Invalidate();
    return before != data->style;
}

void CWnd::GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
void CWnd::GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }
void CWnd::ClientToScreen(LPPOINT lpPoint) const { ::ClientToScreen(m_hWnd, lpPoint); }
void CWnd::ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }

void CWnd::ClientToScreen(LPRECT lpRect) const
{
    ::ClientToScreen(m_hWnd, reinterpret_cast<LPPOINT>(&lpRect->left));
    ::ClientToScreen(m_hWnd, reinterpret_cast<LPPOINT>(&lpRect->right));
}

void CWnd::ScreenToClient(LPRECT lpRect) const
{
    ::ScreenToClient(m_hWnd, reinterpret_cast<LPPOINT>(&lpRect->left));
    ::ScreenToClient(m_hWnd, reinterpret_cast<LPPOINT>(&lpRect->right));
}

BOOL CWnd::SetWindowPos(const CWnd*, int x, int y, int cx, int cy, UINT nFlags)
{
    WindowData* data = Data();
    if (!data) return FALSE;
    const CRect before = data->rect;
    CRect after = before;
    if (!(nFlags & SWP_NOMOVE)) after = CRect(x, y, x + before.Width(), y + before.Height());
    if (!(nFlags & SWP_NOSIZE)) after.right = after.left + std::max(cx, 0), after.bottom = after.top + std::max(cy, 0);
    if (nFlags & SWP_SHOWWINDOW) data->style |= WS_VISIBLE;
    if (nFlags & SWP_HIDEWINDOW) data->style &= ~WS_VISIBLE;
    data->rect = after;
    if (after.Size() != before.Size() || (nFlags & SWP_SHOWWINDOW)) data->frameNeeded = true;
    const HWND self = m_hWnd;
    if (!(nFlags & SWP_NOREDRAW)) {
        if (WindowData* parent = WindowRegistry::Find(data->parent)) {
            CRect old = before;
            ::InvalidateRect(parent->handle, &old, TRUE);
        }
        Invalidate();
    }
    if (!data->parent && after.Size() != before.Size()) Paint::ResizeSurface(data);
    if (after.Size() != before.Size()) {
        CRect client;
        ::GetClientRect(self, &client);
        ::SendMessage(self, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.Width(), client.Height()));
    }
    return TRUE;
}

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint)
{
    SetWindowPos(nullptr, x, y, nWidth, nHeight, SWP_NOZORDER | SWP_NOACTIVATE | (bRepaint ? 0 : SWP_NOREDRAW));
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint)
{
    if (lpRect) MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top, bRepaint);
}

BOOL CWnd::ShowWindow(int nCmdShow)
{
    WindowData* data = Data();
    if (!data) return FALSE;
    const BOOL wasVisible = (data->style & WS_VISIBLE) ? TRUE : FALSE;
    if (nCmdShow == SW_HIDE) {
        data->style &= ~WS_VISIBLE;
        if (WindowData* parent = WindowRegistry::Find(data->parent)) {
            CRect area = data->rect;
            ::InvalidateRect(parent->handle, &area, TRUE);
        }
    } else {
        data->style |= WS_VISIBLE;
        data->frameNeeded = true;
        Invalidate();
    }
    if (wasVisible != ((data->style & WS_VISIBLE) ? TRUE : FALSE)) SendMessage(WM_SHOWWINDOW, nCmdShow != SW_HIDE, 0);
    return wasVisible;
}

BOOL CWnd::IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }

BOOL CWnd::EnableWindow(BOOL bEnable)
{
    WindowData* data = Data();
    if (!data) return FALSE;
    const BOOL wasDisabled = (data->style & WS_DISABLED) ? TRUE : FALSE;
    if (bEnable) data->style &= ~WS_DISABLED;
    else data->style |= WS_DISABLED;
    if (wasDisabled != (bEnable ? FALSE : TRUE)) SendMessage(WM_ENABLE, bEnable ? TRUE : FALSE, 0);
    return wasDisabled;
}

BOOL CWnd::IsWindowEnabled() const
{
    const WindowData* data = Data();
    return data && !(data->style & WS_DISABLED) ? TRUE : FALSE;
}

void CWnd::SetWindowText(const char* text) { SendMessage(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text ? text : "")); }

int CWnd::GetWindowText(char* buffer, int maxCount) const
{
    return static_cast<int>(SendMessage(WM_GETTEXT, static_cast<WPARAM>(std::max(maxCount, 0)), reinterpret_cast<LPARAM>(buffer)));
}

void CWnd::GetWindowText(CString& text) const
{
    const int length = GetWindowTextLength();
    char* buffer = text.GetBuffer(length);
    GetWindowText(buffer, length + 1);
    text.ReleaseBuffer();
}

int CWnd::GetWindowTextLength() const { return static_cast<int>(SendMessage(WM_GETTEXTLENGTH)); }
