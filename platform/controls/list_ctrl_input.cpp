// Mouse and keyboard: clicks select and focus items, a press that moves far
// enough starts a drag, keys move the focus and the selection with it.
#include "platform/controls/list_ctrl_control.h"

#include <algorithm>
#include <cstdlib>

#include "platform/core/input_state.h"

namespace listview {

void ListControl::OnButtonDown(POINT pt, bool right, bool doubleClick, UINT keys)
{
    const HWND self = Hwnd();
    EndPress();
    // A double click does not take the focus: the first click of it already
    // did, and whatever the owner gave the focus to in between keeps it.
    if (!doubleClick && ::GetFocus() != self) {
        m_wnd->SetFocus();
        if (!IsWindow(self)) return;
    }
    const Geometry g = ComputeGeometry();
    int item = -1;
    int column = -1;
    g.HitTest(pt, FullRowHits(), &item, &column);
    const bool multi = !SingleSelect();
    if (Valid(item)) {
        if (right && m_selected.Contains(item)) {
            // A right click keeps the selection it lands in.
            if (!ChangeState(item, LVIS_FOCUSED, LVIS_FOCUSED)) return;
        } else if (multi && !right && (keys & MK_CONTROL)) {
            const UINT selected = m_selected.Contains(item) ? 0 : LVIS_SELECTED;
            m_mark = item;
            if (!ChangeState(item, selected | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED)) return;
        } else if (multi && !right && (keys & MK_SHIFT)) {
            if (!SelectRange(item)) return;
        } else if (!SelectOnly(item)) {
            return;
        }
    } else if (!(keys & (MK_CONTROL | MK_SHIFT))) {
        // A press on no item clears the selection; the focus stays.
        if (!ChangeState(-1, 0, LVIS_SELECTED)) return;
    }
    if (doubleClick) {
        if (!NotifyActivate(NM_DBLCLK, Valid(item) ? item : -1, column, pt)) return;
        if (Valid(item)) NotifyActivate(LVN_ITEMACTIVATE, item, column, pt);
        return;
    }
    // The press becomes a click when released, or a drag when moved far enough.
    m_pressed = true;
    m_pressedRight = right;
    m_pressItem = Valid(item) ? item : -1;
    m_pressColumn = column;
    m_pressPoint = pt;
    m_wnd->SetCapture();
}

void ListControl::OnMouseMove(POINT pt)
{
    if (!m_pressed || m_pressItem < 0) return;
    if (std::abs(pt.x - m_pressPoint.x) <= kDragThreshold && std::abs(pt.y - m_pressPoint.y) <= kDragThreshold) return;
    const bool right = m_pressedRight;
    const int item = m_pressItem;
    EndPress();
    if (!Valid(item)) return;
    NMLISTVIEW nm;
    nm.iItem = item;
    nm.ptAction = m_pressPoint;
    Notify(nm.hdr, right ? LVN_BEGINRDRAG : LVN_BEGINDRAG);
}

void ListControl::OnLButtonUp(POINT pt)
{
    if (!m_pressed || m_pressedRight) return;
    const int item = Valid(m_pressItem) ? m_pressItem : -1;
    const int column = m_pressColumn;
    EndPress();
    NotifyActivate(NM_CLICK, item, column, pt);
}

LRESULT ListControl::OnRButtonUp(WPARAM wParam, LPARAM lParam)
{
    if (m_pressed && m_pressedRight) {
        const int item = Valid(m_pressItem) ? m_pressItem : -1;
        const int column = m_pressColumn;
        EndPress();
        LRESULT handled = 0;
        if (!NotifyActivate(NM_RCLICK, item, column, CPoint(lParam), &handled)) return 0;
        // A parent that handled the click gets no context menu request.
        if (handled) return 0;
    }
    return m_wnd->CWnd::DefWindowProc(WM_RBUTTONUP, wParam, lParam);
}

void ListControl::EndPress()
{
    m_pressed = false;
    if (::GetCapture() == Hwnd()) ::ReleaseCapture();
}

void ListControl::OnKeyDown(UINT key)
{
    NMLVKEYDOWN nm;
    nm.wVKey = static_cast<WORD>(key);
    if (!Notify(nm.hdr, LVN_KEYDOWN)) return;
    if (m_count == 0) return;
    const Geometry g = ComputeGeometry();
    const int page = g.PageLines();
    const int focus = m_focus;
    long long target = -1;
    switch (key) {
    case VK_UP: target = focus < 0 ? 0 : focus - 1; break;
    case VK_DOWN: target = focus < 0 ? 0 : static_cast<long long>(focus) + 1; break;
    case VK_HOME: target = 0; break;
    case VK_END: target = m_count - 1; break;
    case VK_PRIOR:
        // To the first whole line shown; from there, a page up.
        target = focus < 0 ? g.top : focus > g.top ? g.top : static_cast<long long>(focus) - (page - 1);
        break;
    case VK_NEXT: {
        // To the last whole line shown; from there, a page down.
        const long long bottom = static_cast<long long>(g.top) + page - 1;
        target = focus < 0 ? bottom : focus < bottom ? bottom : static_cast<long long>(focus) + (page - 1);
        break;
    }
    case VK_SPACE:
        if (Valid(focus)) {
            const bool toggle = !SingleSelect() && IsKeyDown(VK_CONTROL);
            const UINT selected = toggle && m_selected.Contains(focus) ? 0 : LVIS_SELECTED;
            ChangeState(focus, selected, LVIS_SELECTED);
        }
        return;
    case VK_RETURN: {
        NMHDR header;
        if (!Notify(header, NM_RETURN)) return;
        if (Valid(m_focus)) NotifyActivate(LVN_ITEMACTIVATE, m_focus, 0, POINT{});
        return;
    }
    default:
        return;
    }
    MoveFocusTo(static_cast<int>(std::clamp<long long>(target, 0, m_count - 1)));
}

void ListControl::MoveFocusTo(int index)
{
    const HWND self = Hwnd();
    const bool multi = !SingleSelect();
    bool ok = true;
    if (multi && IsKeyDown(VK_SHIFT)) {
        ok = SelectRange(index);
    } else if (multi && IsKeyDown(VK_CONTROL)) {
        ok = ChangeState(index, LVIS_FOCUSED, LVIS_FOCUSED);
    } else if (index != m_focus || !m_selected.Contains(index) || m_selected.Count() != 1) {
        ok = SelectOnly(index);
    }
    if (ok && IsWindow(self)) EnsureVisible(index, false);
}

}  // namespace listview
