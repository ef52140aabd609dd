#include "platform/core/wnd.h"

#include <cstring>

#include "platform/core/current_message.h"
#include "platform/core/paint.h"
#include "platform/core/paint_dc.h"
#include "platform/core/window_frame_paint.h"
#include "platform/core/window_registry.h"

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
END_MESSAGE_MAP()

CWnd::~CWnd()
{
    if (m_hWnd) ::DestroyWindow(m_hWnd);
}

CWnd* CWnd::FromHandle(HWND hwnd)
{
    WindowData* data = WindowRegistry::Find(hwnd);
    return data ? data->object : nullptr;
}

WindowData* CWnd::Data() const
{
    return WindowRegistry::Find(m_hWnd);
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT&)
{
    return TRUE;
}

void CWnd::PostNcDestroy() {}

// ---------------------------------------------------------------- messages

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (!OnWndMsg(message, wParam, lParam, &result)) result = DefWindowProc(message, wParam, lParam);
    return result;
}

LRESULT CWnd::Default()
{
    const CurrentMessage& current = CurrentMessage::Get();
    return DefWindowProc(current.message, current.wParam, current.lParam);
}

BOOL CWnd::ReflectMeasureItem(const CWnd* parent, const MEASUREITEMSTRUCT* measure, WPARAM wParam, LPARAM lParam,
                              LRESULT* pResult)
{
    const CWnd* child = measure->CtlType != ODT_MENU ? parent->GetDlgItem(static_cast<int>(measure->CtlID)) : nullptr;
    return child && ReflectLastMsg(child->m_hWnd, WM_MEASUREITEM, wParam, lParam, pResult);
}

void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    const CurrentMessage& current = CurrentMessage::Get();
    LRESULT result = 0;
    if (lpMeasureItemStruct && ReflectMeasureItem(this, lpMeasureItemStruct, current.wParam, current.lParam, &result)) return;
    Default();
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message == WM_COMMAND) {
        if (!OnCommand(wParam, lParam)) return FALSE;
        *pResult = 0;
        return TRUE;
    }
    if (message == WM_NOTIFY) return OnNotify(wParam, lParam, pResult);
    const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(message, 0, 0);
    if (!entry) {
        // Owner-draw requests nobody here handles go to the control they name.
        if (message == WM_DRAWITEM && lParam) {
            const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            if (draw->CtlType != ODT_MENU && ReflectLastMsg(draw->hwndItem, message, wParam, lParam, pResult)) {
                *pResult = TRUE;
                return TRUE;
            }
        } else if (message == WM_MEASUREITEM && lParam) {
            if (ReflectMeasureItem(this, reinterpret_cast<const MEASUREITEMSTRUCT*>(lParam), wParam, lParam, pResult)) {
                *pResult = TRUE;
                return TRUE;
            }
        }
        return FALSE;
    }
    return entry->pfn(this, wParam, lParam, nullptr, pResult) ? TRUE : FALSE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT id = LOWORD(wParam);
    UINT code = HIWORD(wParam);
    const HWND control = reinterpret_cast<HWND>(lParam);
    if (!control) {
        code = CN_COMMAND;  // menus and accelerators
    } else {
        LRESULT result = 0;
        if (ReflectLastMsg(control, WM_COMMAND, wParam, lParam, &result)) return TRUE;
        if (id == 0) return FALSE;
    }
    return OnCmdMsg(id, static_cast<int>(code), nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (!header) return FALSE;
    if (ReflectLastMsg(header->hwndFrom, WM_NOTIFY, wParam, lParam, pResult)) return TRUE;
    const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(WM_NOTIFY, header->code, static_cast<UINT>(header->idFrom));
    if (!entry) return FALSE;
    return entry->pfn(this, wParam, lParam, nullptr, pResult) ? TRUE : FALSE;
}

BOOL CWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, bool* pHandlerExists)
{
    return CCmdTarget::OnCmdMsg(nID, nCode, pExtra, pHandlerExists);
}

BOOL CWnd::ReflectLastMsg(HWND hWndChild, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    CWnd* child = FromHandle(hWndChild);
    return child ? child->OnChildNotify(message, wParam, lParam, pResult) : FALSE;
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    UINT code = 0;
    if (message == WM_COMMAND) {
        code = HIWORD(wParam);
    } else if (message == WM_NOTIFY) {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (!header) return FALSE;
        code = header->code;
    } else {
        const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(WM_REFLECT_BASE + message, 0, 0);
        return entry && entry->pfn(this, wParam, lParam, nullptr, pResult) ? TRUE : FALSE;
    }
    const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(WM_REFLECT_BASE + message, code, 0);
    return entry && entry->pfn(this, wParam, lParam, nullptr, pResult) ? TRUE : FALSE;
}

// ---------------------------------------------------------------- default processing

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    WindowData* data = Data();
    if (!data) return 0;
    switch (message) {
    case WM_RBUTTONUP: {
        // The platform turns a right button release into a context-menu request.
        POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        ClientToScreen(&point);
        SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_hWnd), MAKELPARAM(point.x, point.y));
        return 0;
    }
    case WM_CONTEXTMENU:
    case WM_MOUSEWHEEL:
        // Unhandled, these travel up to the parent.
        if (data->parent) return ::SendMessage(data->parent, message, wParam, lParam);
        return 0;
    case WM_SETREDRAW:
        data->redraw = wParam != 0;
        return 0;
    case WM_SETTEXT:
        data->text = lParam ? reinterpret_cast<const char*>(lParam) : "";
        return TRUE;
    case WM_GETTEXT: {
        auto* buffer = reinterpret_cast<char*>(lParam);
        if (!buffer || wParam == 0) return 0;
        const size_t count = std::min(data->text.size(), static_cast<size_t>(wParam) - 1);
        std::memcpy(buffer, data->text.data(), count);
        buffer[count] = '\0';
        return static_cast<LRESULT>(count);
    }
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(data->text.size());
    case WM_SETFONT:
        data->font = reinterpret_cast<HGDIOBJ>(wParam);
        if (LOWORD(static_cast<WPARAM>(lParam))) Invalidate();
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(data->font);
    case WM_PAINT: {
        CPaintDC dc(this);  // validates, erasing the background when asked to
        return 0;
    }
    case WM_ERASEBKGND:
        return EraseBackground(m_hWnd, reinterpret_cast<HDC>(wParam));
    case WM_NCHITTEST:
        return NonClientHitTest(m_hWnd, POINT{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
    case WM_NCPAINT:
        PaintWindowFrame(m_hWnd);
        return 0;
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
        // A quick second press on a bar is one more press, as the platform does.
        PressNonClient(m_hWnd, static_cast<int>(wParam), POINT{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        return 0;
    default:
        return 0;
    }
}
