// Keys and the mouse on the box: arrows move the selection, a click or F4
// drops the list, a typed character finds the next item starting with it.
#include "platform/controls/combo_box_control.h"

#include <algorithm>

#include "platform/controls/combo_box_dropdown.h"
#include "platform/core/input_state.h"

namespace combo {

void ComboControl::OnKeyDown(UINT key)
{
    if (key == VK_F4 || (IsKeyDown(VK_MENU) && (key == VK_UP || key == VK_DOWN))) {
        if (m_dropped) Close(true, m_hot);
        else Open();
        return;
    }
    if (m_dropped && key == VK_RETURN) {
        Close(true, m_hot);
        return;
    }
    if (m_dropped && key == VK_ESCAPE) {
        Close(false);
        return;
    }
    const int count = m_items.Count();
    if (count == 0) return;
    const int page = std::max(1, VisibleItems() - 1);
    const int current = m_selected;
    int target = current;
    switch (key) {
    case VK_UP:
    case VK_LEFT: target = current < 0 ? 0 : current - 1; break;
    case VK_DOWN:
    case VK_RIGHT: target = current < 0 ? 0 : current + 1; break;
    case VK_HOME: target = 0; break;
    case VK_END: target = count - 1; break;
    case VK_PRIOR: target = current < 0 ? 0 : current - page; break;
    case VK_NEXT: target = current < 0 ? 0 : current + page; break;
    default: return;
    }
    // At either end the selection stays, and nobody is told anything.
    SelectByUser(std::clamp(target, 0, count - 1));
}

void ComboControl::OnChar(UINT ch)
{
    ch &= 0xFF;
    if (ch < 0x20 || ch == 0x7F) return;
    const char text[2] = {static_cast<char>(ch), '\0'};
    const int found = m_items.FindPrefix(m_selected, text);
    if (found >= 0) SelectByUser(found);
}

void ComboControl::OnLButtonDown()
{
    const HWND self = Hwnd();
    if (::GetFocus() != self) {
        m_wnd->SetFocus();
        if (!IsWindow(self) || ::GetFocus() != self) return;
    }
    if (m_dropped) Close(false);
    else Open();
}

void ComboControl::OnMouseWheel(int delta)
{
    const int notches = TakeWheelNotches(m_wheelRemainder, delta);
    if (!notches) return;
    if (m_dropped) {
        // The open list scrolls; the selection stays.
        const int top = ListTopClamped(m_listTop - notches * kWheelScrollLines);
        if (top != m_listTop) {
            m_listTop = top;
            m_list->Invalidate();
        }
        return;
    }
    // On the closed box each notch moves the selection by one item.
    if (m_items.Count() == 0) return;
    const int from = m_selected < 0 ? 0 : m_selected - notches;
    SelectByUser(std::clamp(from, 0, m_items.Count() - 1));
}

}  // namespace combo
