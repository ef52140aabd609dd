// The drop-down list: opening and closing it, its place, its mouse handling
// and its painting.
#include "platform/controls/combo_box_dropdown.h"

#include <algorithm>

#include "platform/controls/combo_box_control.h"
#include "platform/controls/control_notify.h"
#include "platform/core/input_state.h"
#include "platform/core/paint_dc.h"
#include "platform/gdi/sys_color.h"

namespace combo {

DropDownList::~DropDownList()
{
    if (m_hWnd) DestroyWindow();
}

LRESULT DropDownList::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (m_owner && m_owner->HandleList(message, wParam, lParam, &result)) return result;
    return CWnd::DefWindowProc(message, wParam, lParam);
}

// ---------------------------------------------------------------- opening and closing

bool ComboControl::Open()
{
    if (!m_list || !m_list->GetSafeHwnd()) return false;
    const bool opening = !m_dropped;
    if (opening) {
        if (!SendCommandNotify(m_wnd, CBN_DROPDOWN)) return false;
        m_dropped = true;
        m_hot = m_selected;
        m_listPressed = false;
        EnsureListShows(m_selected);
    }
    m_listTop = ListTopClamped(m_listTop);
    const CRect rect = ListScreenRect();
    m_list->SetWindowPos(nullptr, rect.left, rect.top, rect.Width(), rect.Height(), SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    m_list->Invalidate();
    if (opening) {
        // The list follows the mouse from now on, wherever it goes.
        m_list->SetCapture();
        m_wnd->Invalidate();
    }
    return true;
}

bool ComboControl::Close(bool accept, int choose)
{
    if (!m_dropped) return true;
    m_dropped = false;
    m_listPressed = false;
    if (m_list && m_list->GetSafeHwnd()) {
        if (::GetCapture() == m_list->GetSafeHwnd()) ::ReleaseCapture();
        m_list->ShowWindow(SW_HIDE);
    }
    m_wnd->Invalidate();
    if (choose >= 0 && !SelectByUser(choose)) return false;
    if (!SendCommandNotify(m_wnd, accept ? CBN_SELENDOK : CBN_SELENDCANCEL)) return false;
    return SendCommandNotify(m_wnd, CBN_CLOSEUP);
}

int ComboControl::VisibleItems() const
{
    const int fit = (m_dropHeight - BoxHeight() - 2 * kListBorder) / ItemHeight();
    return std::max(1, std::min(fit, m_items.Count()));
}

CRect ComboControl::ListScreenRect() const
{
    CRect box;
    m_wnd->GetWindowRect(&box);
    return CRect(box.left, box.bottom, box.right, box.bottom + VisibleItems() * ItemHeight() + 2 * kListBorder);
}

int ComboControl::ListTopClamped(int top) const
{
    return std::clamp(top, 0, std::max(0, m_items.Count() - VisibleItems()));
}

void ComboControl::EnsureListShows(int index)
{
    if (!m_items.Valid(index)) return;
    const int visible = VisibleItems();
    int top = m_listTop;
    if (index < top) top = index;
    else if (index >= top + visible) top = index - visible + 1;
    top = ListTopClamped(top);
    if (top == m_listTop) return;
    m_listTop = top;
    if (m_list && m_list->GetSafeHwnd()) m_list->Invalidate();
}

int ComboControl::ListItemAt(POINT pt) const
{
    if (!m_list || !m_list->GetSafeHwnd()) return -1;
    CRect client;
    m_list->GetClientRect(&client);
    client.DeflateRect(kListBorder, kListBorder);
    if (!client.PtInRect(pt)) return -1;
    const int index = m_listTop + (pt.y - client.top) / ItemHeight();
    return index < m_listTop + VisibleItems() && m_items.Valid(index) ? index : -1;
}

// ---------------------------------------------------------------- the list window

bool ComboControl::HandleList(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    *result = 0;
    switch (message) {
    case WM_PAINT: {
        CPaintDC dc(m_list.get());
        PaintList(dc);
        return true;
    }
    case WM_ERASEBKGND:
        *result = 1;
        return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        OnListMouse(message, CPoint(lParam));
        return true;
    case WM_MOUSEWHEEL:
        OnMouseWheel(static_cast<short>(HIWORD(wParam)));
        return true;
    case WM_CAPTURECHANGED:
        // Another window took the mouse: the list gives up, unless the box is
        // going away anyway.
        if (m_dropped && reinterpret_cast<HWND>(lParam) != m_list->GetSafeHwnd() && IsWindow(Hwnd())) Close(false);
        return true;
    default:
        return false;
    }
}

void ComboControl::OnListMouse(UINT message, POINT pt)
{
    if (!m_dropped) return;
    CRect client;
    m_list->GetClientRect(&client);
    const bool inside = client.PtInRect(pt);
    const int item = ListItemAt(pt);
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        // A press anywhere else, the box included, puts the list away.
        if (!inside) {
            Close(false);
            return;
        }
        m_listPressed = true;
        break;
    case WM_MOUSEMOVE:
        if (inside && IsKeyDown(VK_LBUTTON)) m_listPressed = true;
        break;
    case WM_LBUTTONUP:
        // Releasing the press that opened the list leaves it open.
        if (inside && m_listPressed && item >= 0) {
            Close(true, item);
            return;
        }
        break;
    default:
        return;
    }
    if (item >= 0 && item != m_hot) {
        m_hot = item;
        m_list->Invalidate();
    }
}

void ComboControl::PaintList(CDC& dc)
{
    CRect client;
    m_list->GetClientRect(&client);
    dc.FillSolidRect(&client, GetSysColor(COLOR_WINDOW));
    dc.Draw3dRect(&client, GetSysColor(COLOR_WINDOWFRAME), GetSysColor(COLOR_WINDOWFRAME));
    const int saved = dc.SaveDC();
    if (CFont* font = CFont::FromHandle(FontHandle())) dc.SelectObject(font);
    dc.SetBkMode(TRANSPARENT);
    const int height = ItemHeight();
    const int rows = VisibleItems();
    for (int row = 0; row < rows; ++row) {
        const int index = m_listTop + row;
        const Item* item = m_items.At(index);
        if (!item) break;
        CRect rect(client.left + kListBorder, client.top + kListBorder + row * height, client.right - kListBorder,
                   client.top + kListBorder + (row + 1) * height);
        const bool lit = index == m_hot;
        if (lit) dc.FillSolidRect(&rect, GetSysColor(COLOR_HIGHLIGHT));
        dc.SetTextColor(GetSysColor(lit ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        rect.DeflateRect(kTextPadding, 0);
        dc.DrawText(item->text.c_str(), static_cast<int>(item->text.size()), &rect,
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
    dc.RestoreDC(saved);
}

}  // namespace combo
