// Creating and destroying windows, and delivering messages to them.
#include <algorithm>

#include "platform/core/current_message.h"
#include "platform/core/message_spy.h"
#include "platform/core/paint.h"
#include "platform/core/window_registry.h"
#include "platform/core/wnd.h"

// The platform's access to CWnd's private attachment.
struct WindowLifecycle {
    static void Attach(CWnd* wnd, WindowData* data)
    {
        wnd->m_hWnd = data->handle;
        data->object = wnd;
    }
    static CWnd* Detach(WindowData* data)
    {
        CWnd* wnd = data->object;
        data->object = nullptr;
        if (wnd) wnd->m_hWnd = nullptr;
        return wnd;
    }
    static void PostNcDestroy(CWnd* wnd) { wnd->PostNcDestroy(); }
};

LRESULT SendMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data || !data->object) return 0;
    MessageSpy::Notify(hwnd, message, wParam, lParam);
    CurrentMessageScope scope(hwnd, message, wParam, lParam);
    return data->object->WindowProc(message, wParam, lParam);
}

BOOL IsWindow(HWND hwnd)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    return data && !data->destroying ? TRUE : FALSE;
}

BOOL CWnd::Create(const char* className, const char* windowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateEx(0, className, windowName, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, const char* className, const char* windowName, DWORD dwStyle, const RECT& rect,
                    CWnd* pParentWnd, UINT nID, LPVOID lpParam)
{
    if (m_hWnd) return FALSE;  // one window per object
    const HWND parent = pParentWnd ? pParentWnd->GetSafeHwnd() : nullptr;
    if ((dwStyle & WS_CHILD) && !IsWindow(parent)) return FALSE;

    CREATESTRUCT cs;
    cs.dwExStyle = dwExStyle;
    cs.lpszClass = className;
    cs.lpszName = windowName;
    cs.style = static_cast<LONG>(dwStyle);
    cs.x = rect.left;
    cs.y = rect.top;
    cs.cx = rect.right - rect.left;
    cs.cy = rect.bottom - rect.top;
    cs.hwndParent = parent;
    cs.hMenu = reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(nID));
    cs.lpCreateParams = lpParam;
    if (!PreCreateWindow(cs)) return FALSE;

    WindowData* data = WindowRegistry::Create();
    const bool child = (static_cast<DWORD>(cs.style) & WS_CHILD) != 0;
    data->parent = child ? parent : nullptr;
    data->owner = child ? nullptr : parent;
    data->style = static_cast<DWORD>(cs.style);
    data->exStyle = cs.dwExStyle;
    data->id = child ? nID : 0;
    data->className = cs.lpszClass ? cs.lpszClass : "";
    data->text = cs.lpszName ? cs.lpszName : "";
    data->rect = CRect(cs.x, cs.y, cs.x + std::max(cs.cx, 0), cs.y + std::max(cs.cy, 0));
    data->frameNeeded = true;
    if (data->parent) WindowRegistry::Find(data->parent)->children.push_back(data->handle);
    WindowLifecycle::Attach(this, data);
    if (!data->parent) Paint::ResizeSurface(data);

    const HWND self = m_hWnd;
    if (::SendMessage(self, WM_CREATE, 0, reinterpret_cast<LPARAM>(&cs)) == -1) {
        ::DestroyWindow(self);
        return FALSE;
    }
    if (!IsWindow(self)) return FALSE;
    CRect client;
    ::GetClientRect(self, &client);
    ::SendMessage(self, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.Width(), client.Height()));
    if (IsWindow(self)) ::InvalidateRect(self, nullptr, TRUE);
    return IsWindow(self);
}

BOOL CWnd::DestroyWindow()
{
    return m_hWnd ? ::DestroyWindow(m_hWnd) : FALSE;
}

std::vector<HWND> GetDescendants(HWND hwnd)
{
    std::vector<HWND> result;
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return result;
    for (HWND child : data->children) {
        result.push_back(child);
        const auto below = GetDescendants(child);
        result.insert(result.end(), below.begin(), below.end());
    }
    return result;
}

namespace {

bool IsSelfOrDescendant(HWND ancestor, HWND hwnd)
{
    for (const WindowData* data = WindowRegistry::Find(hwnd); data; data = WindowRegistry::Find(data->parent)) {
        if (data->handle == ancestor) return true;
    }
    return false;
}

// Sends WM_DESTROY to a window and then to its children, parents first, as
// the platform does.
void SendDestroyMessages(HWND hwnd)
{
    ::SendMessage(hwnd, WM_DESTROY, 0, 0);
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return;
    const std::vector<HWND> children = data->children;
    for (HWND child : children) {
        if (WindowData* childData = WindowRegistry::Find(child)) childData->destroying = true;
        SendDestroyMessages(child);
    }
}

// Detaches objects and frees the window data, children first.
void FinishDestroy(HWND hwnd)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return;
    const std::vector<HWND> children = data->children;
    for (HWND child : children) FinishDestroy(child);
    ::SendMessage(hwnd, WM_NCDESTROY, 0, 0);
    data = WindowRegistry::Find(hwnd);
    if (!data) return;
    if (WindowData* parent = WindowRegistry::Find(data->parent)) std::erase(parent->children, hwnd);
    Paint::ForgetWindow(hwnd);
    CWnd* object = WindowLifecycle::Detach(data);
    WindowRegistry::Remove(hwnd);
    if (object) WindowLifecycle::PostNcDestroy(object);
}

}  // namespace

BOOL DestroyWindow(HWND hwnd)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data || data->destroying) return FALSE;
    data->destroying = true;

    // Owned top-level windows (popups) go first, as the platform destroys them.
    for (HWND top : WindowRegistry::TopLevelWindows()) {
        if (WindowData* topData = WindowRegistry::Find(top); topData && topData->owner == hwnd) ::DestroyWindow(top);
    }
    if (IsSelfOrDescendant(hwnd, ::GetCapture())) ::ReleaseCapture();
    if (IsSelfOrDescendant(hwnd, ::GetFocus())) ::SetFocus(nullptr);
    if (WindowData* parent = WindowRegistry::Find(data->parent); parent && (data->style & WS_VISIBLE)) {
        CRect area = data->rect;
        ::InvalidateRect(parent->handle, &area, TRUE);
    }

    SendDestroyMessages(hwnd);
    FinishDestroy(hwnd);
    return TRUE;
}
