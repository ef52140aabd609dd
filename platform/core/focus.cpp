// Keyboard focus and mouse capture: one window each, for the whole thread.
#include <map>

#include "platform/core/focus_watch.h"
#include "platform/core/window_registry.h"
#include "platform/core/wnd.h"

namespace {
HWND g_focus = nullptr;
HWND g_capture = nullptr;

struct Watchers {
    std::map<int, FocusWatch::Watcher> byCookie;
    int next = 1;
};

Watchers& TheWatchers()
{
    static Watchers watchers;
    return watchers;
}

void TellWatchers(HWND lost, HWND gained)
{
    Watchers& watchers = TheWatchers();
    // Looked up one by one, so that a watcher may remove itself or another.
    for (auto it = watchers.byCookie.begin(); it != watchers.byCookie.end();) {
        const int cookie = it->first;
        const FocusWatch::Watcher watcher = it->second;
        watcher(lost, gained);
        it = watchers.byCookie.upper_bound(cookie);
    }
}
}  // namespace

namespace FocusWatch {

int Add(Watcher watcher)
{
    Watchers& watchers = TheWatchers();
    watchers.byCookie.emplace(watchers.next, std::move(watcher));
    return watchers.next++;
}

void Remove(int cookie)
{
    TheWatchers().byCookie.erase(cookie);
}

}  // namespace FocusWatch

HWND GetFocus()
{
    return IsWindow(g_focus) ? g_focus : nullptr;
}

HWND SetFocus(HWND hwnd)
{
    if (hwnd && !IsWindow(hwnd)) return nullptr;
    const HWND old = GetFocus();
    if (old == hwnd) return old;
    // The losing window hears first and learns who gains; then the gaining
    // window hears who lost. A handler may move the focus again meanwhile;
    // the latest move wins.
    g_focus = hwnd;
    if (old) ::SendMessage(old, WM_KILLFOCUS, reinterpret_cast<WPARAM>(hwnd), 0);
    if (hwnd && g_focus == hwnd && IsWindow(hwnd)) ::SendMessage(hwnd, WM_SETFOCUS, reinterpret_cast<WPARAM>(old), 0);
    // Only the move that stuck is told; a handler's later move told its own.
    if (g_focus == hwnd) TellWatchers(old, hwnd);
    return old;
}

HWND GetCapture()
{
    return IsWindow(g_capture) ? g_capture : nullptr;
}

HWND SetCapture(HWND hwnd)
{
    const HWND old = GetCapture();
    if (hwnd && !IsWindow(hwnd)) return old;
    g_capture = hwnd;
    if (old && old != hwnd) ::SendMessage(old, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(hwnd));
    return old;
}

BOOL ReleaseCapture()
{
    const HWND old = GetCapture();
    g_capture = nullptr;
    if (old) ::SendMessage(old, WM_CAPTURECHANGED, 0, 0);
    return TRUE;
}

CWnd* CWnd::SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
CWnd* CWnd::GetFocus() { return FromHandle(::GetFocus()); }
CWnd* CWnd::SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
CWnd* CWnd::GetCapture() { return FromHandle(::GetCapture()); }
