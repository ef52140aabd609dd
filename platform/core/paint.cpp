// Invalid areas, the paint pass and window DCs.
#include "platform/core/paint.h"

#include <algorithm>

#include "platform/core/paint_dc.h"
#include "platform/core/window_registry.h"
#include "platform/gdi/font.h"
#include "platform/gdi/png_io.h"
#include "platform/gdi/surface.h"
#include "platform/gdi/sys_color.h"

namespace {

HWND g_locked = nullptr;  // LockWindowUpdate: one window at a time

// The clip of an area of a window (its client area, or the whole window) on
// its top-level surface, cut by every ancestor's client area.
CRect VisibleArea(HWND hwnd, bool wholeWindow, CPoint* origin)
{
    CRect client;
    CPoint at(0, 0);
    if (wholeWindow) {
        ::GetWindowRect(hwnd, &client);
        at = client.TopLeft();
        client.OffsetRect(-at.x, -at.y);
    } else {
        ::GetClientRect(hwnd, &client);
        ::ClientToScreen(hwnd, &at);
    }
    HWND top = hwnd;
    for (const WindowData* data = WindowRegistry::Find(hwnd); data && data->parent; data = WindowRegistry::Find(data->parent)) top = data->parent;
    CPoint topOrigin(0, 0);
    CRect topRect;
    ::GetWindowRect(top, &topRect);
    topOrigin = topRect.TopLeft();
    const CPoint offset(at.x - topOrigin.x, at.y - topOrigin.y);
    CRect visible = client;
    visible.OffsetRect(offset);
    for (const WindowData* data = WindowRegistry::Find(hwnd); data && data->parent; data = WindowRegistry::Find(data->parent)) {
        CRect parentClient;
        ::GetClientRect(data->parent, &parentClient);
        CPoint parentAt(0, 0);
        ::ClientToScreen(data->parent, &parentAt);
        parentClient.OffsetRect(parentAt.x - topOrigin.x, parentAt.y - topOrigin.y);
        visible.IntersectRect(visible, parentClient);
    }
    if (origin) *origin = offset;
    return visible;
}

CRect VisibleClientArea(HWND hwnd, CPoint* origin)
{
    return VisibleArea(hwnd, false, origin);
}

// Tells the screen that an area of a window's top-level surface is drawn on.
void NotePainted(HWND hwnd, CRect surfaceArea)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    while (data && data->parent) data = WindowRegistry::Find(data->parent);
    if (!data) return;
    surfaceArea.OffsetRect(data->rect.left, data->rect.top);
    Paint::MarkScreenPainted(surfaceArea);
}

// The frame (scroll bars) is drawn after the client, so a client that
// changed its bars while painting has them drawn in the same pass.
void PaintFrame(HWND hwnd)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data || !data->frameNeeded || Paint::IsPaintSuppressed(hwnd)) return;
    data->frameNeeded = false;
    ::SendMessage(hwnd, WM_NCPAINT, 1, 0);
}

bool IsLockedBy(HWND hwnd)
{
    // The paint pass asks this of every window; a lock is rare.
    if (!g_locked) return false;
    for (const WindowData* data = WindowRegistry::Find(hwnd); data; data = WindowRegistry::Find(data->parent)) {
        if (data->handle == g_locked) return true;
    }
    return false;
}

void PaintTree(HWND hwnd)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data || !IsWindowVisible(hwnd) || !data->redraw || IsLockedBy(hwnd)) return;
    if (!data->update.IsRectEmpty()) {
        ::SendMessage(hwnd, WM_PAINT, 0, 0);
        // A paint handler that drew nothing still leaves the window valid.
        if ((data = WindowRegistry::Find(hwnd)) != nullptr) {
            data->update.SetRectEmpty();
            data->eraseNeeded = false;
        }
    }
    PaintFrame(hwnd);
    if (!(data = WindowRegistry::Find(hwnd))) return;
    const std::vector<HWND> children = data->children;
    for (HWND child : children) PaintTree(child);
}

}  // namespace

namespace Paint {

void ResizeSurface(WindowData* data)
{
    if (!data->surface) data->surface = std::make_unique<Surface>();
    data->surface->Resize(std::max(data->rect.Width(), 1), std::max(data->rect.Height(), 1), ColorRefToPixel(GetSysColor(COLOR_BTNFACE)));
}

void ForgetWindow(HWND hwnd)
{
    if (g_locked == hwnd) g_locked = nullptr;
}

void UpdateAllWindows()
{
    for (HWND top : WindowRegistry::TopLevelWindows()) PaintTree(top);
}

Surface* SurfaceOf(HWND hwnd, POINT* clientOrigin)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return nullptr;
    CPoint origin;
    VisibleClientArea(hwnd, &origin);
    if (clientOrigin) *clientOrigin = origin;
    while (data && data->parent) data = WindowRegistry::Find(data->parent);
    return data ? data->surface.get() : nullptr;
}

bool CaptureWindow(HWND hwnd, const char* path)
{
    UpdateAllWindows();
    Surface* surface = SurfaceOf(hwnd, nullptr);
    if (!surface || !path) return false;
    CRect area;
    ::GetWindowRect(hwnd, &area);
    CRect top = area;
    const WindowData* data = WindowRegistry::Find(hwnd);
    while (data && data->parent) data = WindowRegistry::Find(data->parent);
    if (data) ::GetWindowRect(data->handle, &top);
    area.OffsetRect(-top.left, -top.top);
    return WritePng(*surface, area, path);
}

bool CaptureScreen(const RECT& area, const char* path)
{
    UpdateAllWindows();
    const CRect screenArea(area);
    if (screenArea.IsRectEmpty() || !path) return false;
    Surface screen(screenArea.Width(), screenArea.Height());
    ComposeScreen(screenArea, screen, POINT{0, 0});
    return WritePng(screen, path);
}

bool IsPaintSuppressed(HWND hwnd)
{
    const WindowData* data = WindowRegistry::Find(hwnd);
    return !data || !IsWindowVisible(hwnd) || !data->redraw || IsLockedBy(hwnd);
}

}  // namespace Paint

// ---------------------------------------------------------------- invalidation

BOOL InvalidateRect(HWND hwnd, LPCRECT rect, BOOL erase)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return FALSE;
    CRect client;
    ::GetClientRect(hwnd, &client);
    CRect area = rect ? CRect(*rect) : client;
    area.IntersectRect(area, client);
    if (area.IsRectEmpty()) return TRUE;
    data->update.UnionRect(data->update, area);
    if (erase) data->eraseNeeded = true;
    return TRUE;
}

BOOL UpdateWindow(HWND hwnd)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    if (!data) return FALSE;
    if (!data->update.IsRectEmpty() && !Paint::IsPaintSuppressed(hwnd)) {
        ::SendMessage(hwnd, WM_PAINT, 0, 0);
        if ((data = WindowRegistry::Find(hwnd)) != nullptr) data->update.SetRectEmpty();
    }
    PaintFrame(hwnd);
    return TRUE;
}

void CWnd::Invalidate(BOOL bErase) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
void CWnd::InvalidateRect(LPCRECT lpRect, BOOL bErase) { ::InvalidateRect(m_hWnd, lpRect, bErase); }
void CWnd::UpdateWindow() { ::UpdateWindow(m_hWnd); }

void CWnd::ValidateRect(LPCRECT lpRect)
{
    WindowData* data = Data();
    if (!data) return;
    // The invalid area is kept as one box: validating part of it validates
    // the box only when the part covers it.
    CRect covered;
    if (!lpRect || (covered.IntersectRect(data->update, *lpRect) && covered == data->update)) {
        data->update.SetRectEmpty();
        data->eraseNeeded = false;
    }
}

BOOL CWnd::GetUpdateRect(LPRECT lpRect, BOOL) const
{
    const WindowData* data = Data();
    if (!data) return FALSE;
    if (lpRect) *lpRect = data->update;
    return data->update.IsRectEmpty() ? FALSE : TRUE;
}

BOOL CWnd::RedrawWindow(LPCRECT lpRectUpdate, void*, UINT flags)
{
    if (!Data()) return FALSE;
    if (flags & RDW_INVALIDATE) {
        InvalidateRect(lpRectUpdate, (flags & RDW_ERASE) ? TRUE : FALSE);
        if (flags & RDW_ALLCHILDREN) {
            for (HWND child : GetDescendants(m_hWnd)) ::InvalidateRect(child, nullptr, (flags & RDW_ERASE) ? TRUE : FALSE);
        }
    }
    if (flags & RDW_VALIDATE) ValidateRect(lpRectUpdate);
    if (flags & (RDW_UPDATENOW | RDW_ERASENOW)) {
        UpdateWindow();
        if (flags & RDW_ALLCHILDREN) {
            for (HWND child : GetDescendants(m_hWnd)) ::UpdateWindow(child);
        }
    }
    return TRUE;
}

BOOL CWnd::LockWindowUpdate()
{
    if (g_locked && g_locked != m_hWnd) return FALSE;
    g_locked = m_hWnd;
    return TRUE;
}

void CWnd::UnlockWindowUpdate()
{
    if (g_locked != m_hWnd) return;
    g_locked = nullptr;
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// ---------------------------------------------------------------- fonts

void CWnd::SetFont(CFont* pFont, BOOL bRedraw)
{
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont ? pFont->GetSafeHandle() : nullptr), bRedraw);
}

CFont* CWnd::GetFont() const
{
    return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}

// ---------------------------------------------------------------- DCs

CDC* BeginPaint(HWND hwnd, CDC& dc, PAINTSTRUCT* ps)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    Surface* surface = data ? Paint::SurfaceOf(hwnd, nullptr) : nullptr;
    if (!data || !surface || !ps) return nullptr;
    CPoint origin;
    const CRect visible = VisibleClientArea(hwnd, &origin);
    CRect clip = data->update;
    clip.OffsetRect(origin);
    clip.IntersectRect(clip, visible);
    ps->rcPaint = data->update;
    ps->fErase = data->eraseNeeded ? TRUE : FALSE;
    const bool erase = data->eraseNeeded;
    const CRect update = data->update;
    data->update.SetRectEmpty();
    data->eraseNeeded = false;
    dc.AttachToSurface(surface, origin, clip);
    NotePainted(hwnd, clip);
    ps->hdc = dc.GetSafeHdc();
    // Children drawn over by this window paint again after it.
    for (HWND child : data->children) {
        const WindowData* childData = WindowRegistry::Find(child);
        CRect overlap;
        if (!childData || !overlap.IntersectRect(childData->rect, update)) continue;
        overlap.OffsetRect(-childData->rect.left, -childData->rect.top);
        ::InvalidateRect(child, &overlap, TRUE);
        if (WindowData* covered = WindowRegistry::Find(child)) covered->frameNeeded = true;
    }
    if (erase && ::SendMessage(hwnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(ps->hdc), 0)) ps->fErase = FALSE;
    return &dc;
}

void EndPaint(HWND, const PAINTSTRUCT*) {}

LRESULT EraseBackground(HWND hwnd, HDC hdc)
{
    CDC* dc = CDC::FromHandle(hdc);
    if (!dc) return 0;
    CRect client;
    ::GetClientRect(hwnd, &client);
    const WindowData* data = WindowRegistry::Find(hwnd);
    // Top-level frames show the face colour, other windows the window colour.
    dc->FillSolidRect(&client, GetSysColor(data && !data->parent ? COLOR_BTNFACE : COLOR_WINDOW));
    return 1;
}

CPaintDC::CPaintDC(CWnd* wnd) : m_hWnd(wnd ? wnd->GetSafeHwnd() : nullptr)
{
    BeginPaint(m_hWnd, *this, &m_ps);
}

CPaintDC::~CPaintDC()
{
    EndPaint(m_hWnd, &m_ps);
}

CClientDC::CClientDC(CWnd* wnd)
{
    const HWND hwnd = wnd ? wnd->GetSafeHwnd() : nullptr;
    Surface* surface = Paint::SurfaceOf(hwnd, nullptr);
    if (!surface) return;
    CPoint origin;
    const CRect visible = VisibleClientArea(hwnd, &origin);
    AttachToSurface(surface, origin, visible);
    // What it will draw is not known yet: all it may draw on counts.
    NotePainted(hwnd, visible);
}

CWindowDC::CWindowDC(HWND hwnd)
{
    Surface* surface = Paint::SurfaceOf(hwnd, nullptr);
    if (!surface) return;
    CPoint origin;
    const CRect visible = VisibleArea(hwnd, true, &origin);
    AttachToSurface(surface, origin, visible);
    NotePainted(hwnd, visible);
}
