// Mouse on the header: dragging a divider resizes its column, pressing a
// button clicks it.
#include "platform/controls/header_ctrl_control.h"

namespace header {

void HeaderControl::OnLButtonDown(POINT pt, bool doubleClick)
{
    UINT flags = 0;
    const int index = HitTest(pt, &flags);
    if (index < 0) return;
    if (flags & HHT_ONDIVIDER) {
        if (doubleClick) {
            Notify(HDN_DIVIDERDBLCLICK, index, nullptr);
            return;
        }
        HDITEM current;
        current.mask = HDI_WIDTH;
        current.cxy = m_items[static_cast<size_t>(index)].width;
        LRESULT refused = 0;
        if (!Notify(HDN_BEGINTRACK, index, &current, &refused) || refused || !Valid(index)) return;
        m_tracking = index;
        m_grabOffset = pt.x - ItemRect(index).right;
        m_pendingWidth = m_items[static_cast<size_t>(index)].width;
        m_wnd->SetCapture();
        return;
    }
    if (doubleClick) {
        Notify(HDN_ITEMDBLCLICK, index, nullptr);
        return;
    }
    if (!(m_wnd->GetStyle() & HDS_BUTTONS)) return;
    m_pressed = index;
    m_pressedInside = true;
    m_wnd->SetCapture();
    InvalidateFrom(index);
}

void HeaderControl::OnMouseMove(POINT pt)
{
    if (m_tracking >= 0 && Valid(m_tracking)) {
        const int width = std::max(0, pt.x - m_grabOffset - ItemRect(m_tracking).left);
        HDITEM moving;
        moving.mask = HDI_WIDTH;
        moving.cxy = width;
        LRESULT stop = 0;
        const int index = m_tracking;
        if (!Notify(HDN_TRACK, index, &moving, &stop)) return;
        if (stop) {
            EndTracking(false);
            return;
        }
        if (m_wnd->GetStyle() & HDS_FULLDRAG) {
            if (width != m_items[static_cast<size_t>(index)].width) SetWidth(index, width);
        } else {
            m_pendingWidth = width;
        }
        return;
    }
    if (m_pressed >= 0 && Valid(m_pressed)) {
        const bool inside = ItemRect(m_pressed).PtInRect(pt);
        if (inside != m_pressedInside) {
            m_pressedInside = inside;
            InvalidateFrom(m_pressed);
        }
    }
}

void HeaderControl::OnLButtonUp(POINT pt)
{
    if (m_tracking >= 0) {
        EndTracking(true);
        return;
    }
    if (m_pressed < 0) return;
    const int index = m_pressed;
    const bool click = Valid(index) && ItemRect(index).PtInRect(pt);
    m_pressed = -1;
    if (::GetCapture() == Hwnd()) ::ReleaseCapture();
    InvalidateFrom(index);
    if (click) Notify(HDN_ITEMCLICK, index, nullptr);
}

void HeaderControl::EndTracking(bool apply)
{
    if (m_tracking < 0) {
        // A button press lost its capture: it springs back without a click.
        if (m_pressed >= 0) {
            const int pressed = m_pressed;
            m_pressed = -1;
            InvalidateFrom(pressed);
        }
        return;
    }
    const int index = m_tracking;
    m_tracking = -1;
    if (::GetCapture() == Hwnd()) ::ReleaseCapture();
    if (!Valid(index)) return;
    // Without full dragging the width changes only now, when the drag ends.
    if (apply && !(m_wnd->GetStyle() & HDS_FULLDRAG) && m_pendingWidth != m_items[static_cast<size_t>(index)].width) {
        if (!SetWidth(index, m_pendingWidth) || !Valid(index)) return;
    }
    HDITEM final;
    final.mask = HDI_WIDTH;
    final.cxy = m_items[static_cast<size_t>(index)].width;
    Notify(HDN_ENDTRACK, index, &final);
}

}  // namespace header
