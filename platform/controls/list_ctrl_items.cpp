// The count, selection and focus of an owner-data list, item rectangles and
// hit testing.
#include "platform/controls/list_ctrl_control.h"

#include <algorithm>

namespace listview {

namespace {

constexpr UINT kKeptStates = LVIS_SELECTED | LVIS_FOCUSED;

}  // namespace

BOOL ListControl::OnSetItemCount(int count, DWORD flags)
{
    if (count < 0 || count > kMaxItemCount) return FALSE;
    const int old = m_count;
    m_count = count;
    m_selected.Truncate(count);
    if (m_focus >= count) m_focus = -1;
    if (m_mark >= count) m_mark = -1;
    if (m_pressItem >= count) m_pressed = false;
    if (!Hwnd()) return TRUE;
    const int top = m_top;
    Revalidate();
    if (top != m_top || !(flags & LVSICF_NOINVALIDATEALL)) {
        InvalidateItems();
    } else {
        // Only the lines that appeared or went away look different.
        const Geometry g = ComputeGeometry();
        const auto [first, last] = g.LinesIn(g.ItemsTop(), g.client.bottom);
        InvalidateLines(g, std::max(std::min(old, count), first), std::min(std::max(old, count), last));
    }
    return TRUE;
}

UINT ListControl::StateOf(int index) const
{
    UINT state = 0;
    if (m_selected.Contains(index)) state |= LVIS_SELECTED;
    if (index == m_focus) state |= LVIS_FOCUSED;
    return state;
}

bool ListControl::ChangeState(int index, UINT state, UINT mask)
{
    mask &= kKeptStates;
    state &= mask;
    if (index == -1) {
        // Every item at once: the parent hears of it as one change of item -1.
        UINT oldState = 0;
        if ((mask & LVIS_SELECTED) && !m_selected.Empty()) oldState |= LVIS_SELECTED;
        if ((mask & LVIS_FOCUSED) && m_focus >= 0) oldState |= LVIS_FOCUSED;
        bool changed = false;
        if (mask & LVIS_SELECTED) {
            if (state & LVIS_SELECTED) {
                // One selected item at most in a single-selection list.
                if (!SingleSelect() && m_selected.Count() != m_count) {
                    m_selected.AddRange(0, m_count);
                    changed = true;
                }
            } else if (!m_selected.Empty()) {
                m_selected.Clear();
                changed = true;
            }
        }
        // Only one item can have the focus, so "all" can only lose it.
        if ((mask & LVIS_FOCUSED) && !(state & LVIS_FOCUSED) && m_focus >= 0) {
            m_focus = -1;
            changed = true;
        }
        if (!changed) return true;
        InvalidateItems();
        return NotifyItemChanged(-1, oldState, state);
    }
    if (!Valid(index)) return false;
    const UINT oldState = StateOf(index);
    const UINT newState = (oldState & ~mask) | state;
    if (newState == oldState) return true;
    if ((newState & LVIS_SELECTED) && !(oldState & LVIS_SELECTED) && SingleSelect()) {
        const int other = m_selected.NextAfter(-1);
        if (other >= 0 && other != index && !ChangeState(other, 0, LVIS_SELECTED)) return false;
    }
    if ((newState & LVIS_FOCUSED) && m_focus >= 0 && m_focus != index) {
        if (!ChangeState(m_focus, 0, LVIS_FOCUSED)) return false;
    }
    if (!Valid(index)) return true;  // the parent shrank the list meanwhile
    if (newState & LVIS_SELECTED) m_selected.Add(index);
    else m_selected.Remove(index);
    if (newState & LVIS_FOCUSED) {
        m_focus = index;
    } else if (m_focus == index) {
        m_focus = -1;
    }
    InvalidateLine(index);
    return NotifyItemChanged(index, oldState, newState);
}

bool ListControl::SelectOnly(int index)
{
    // The old focus item loses its focus and selection in one change.
    if (m_focus >= 0 && m_focus != index) {
        if (!ChangeState(m_focus, 0, kKeptStates)) return false;
    }
    // Whatever else is selected goes: one item by itself, many as one change.
    if (m_selected.Count() > 1 || (m_selected.Count() == 1 && !m_selected.Contains(index))) {
        const bool keep = Valid(index) && m_selected.Contains(index);
        if (m_selected.Count() - (keep ? 1 : 0) == 1) {
            int other = m_selected.NextAfter(-1);
            if (other == index) other = m_selected.NextAfter(index);
            if (!ChangeState(other, 0, LVIS_SELECTED)) return false;
        } else {
            m_selected.Clear();
            if (keep) m_selected.Add(index);
            InvalidateItems();
            if (!NotifyItemChanged(-1, LVIS_SELECTED, 0)) return false;
        }
    }
    if (!Valid(index)) return true;
    m_mark = index;
    return ChangeState(index, kKeptStates, kKeptStates);
}

bool ListControl::SelectRange(int index)
{
    if (!Valid(index)) return true;
    const int anchor = Valid(m_mark) ? m_mark : index;
    const int first = std::min(anchor, index);
    const int last = std::max(anchor, index);
    if (!m_selected.Empty()) {
        m_selected.Clear();
        InvalidateItems();
        if (!NotifyItemChanged(-1, LVIS_SELECTED, 0)) return false;
    }
    if (!Valid(last)) return true;
    m_selected.AddRange(first, last + 1);
    InvalidateItems();
    // A run of owner-data items is reported as one range.
    NMLVODSTATECHANGE nm;
    nm.iFrom = first;
    nm.iTo = last;
    nm.uNewState = LVIS_SELECTED;
    nm.uOldState = 0;
    if (!Notify(nm.hdr, LVN_ODSTATECHANGED)) return false;
    if (!Valid(index)) return true;
    return ChangeState(index, LVIS_FOCUSED, LVIS_FOCUSED);
}

int ListControl::OnGetNextItem(int start, UINT flags) const
{
    start = std::max(start, -1);
    if (flags & LVNI_ABOVE) return start > 0 && start - 1 < m_count ? start - 1 : -1;
    if (flags & LVNI_BELOW) return start + 1 < m_count ? start + 1 : -1;
    if (flags & LVNI_FOCUSED) {
        if (m_focus <= start) return -1;
        if ((flags & LVNI_SELECTED) && !m_selected.Contains(m_focus)) return -1;
        return m_focus;
    }
    if (flags & LVNI_SELECTED) {
        const int next = m_selected.NextAfter(start);
        return next < m_count ? next : -1;
    }
    return start + 1 < m_count ? start + 1 : -1;
}

BOOL ListControl::OnGetItemRect(int index, RECT* rect) const
{
    if (!rect || !Valid(index)) return FALSE;
    const int code = rect->left;
    const Geometry g = ComputeGeometry();
    CRect label = g.columns.empty() ? CRect(g.LineBounds(index).left, g.LineTop(index), g.LineBounds(index).left,
                                            g.LineTop(index) + g.lineHeight)
                                    : g.CellRect(index, 0);
    switch (code) {
    case LVIR_BOUNDS: *rect = g.LineBounds(index); return TRUE;
    // No image lists here: the icon part is empty, at the label's left.
    case LVIR_ICON: *rect = CRect(label.left, label.top, label.left, label.bottom); return TRUE;
    case LVIR_LABEL: *rect = label; return TRUE;
    case LVIR_SELECTBOUNDS: *rect = FullRowHits() ? g.LineBounds(index) : label; return TRUE;
    default: return FALSE;
    }
}

BOOL ListControl::OnGetSubItemRect(int index, RECT* rect) const
{
    if (!rect || !Valid(index)) return FALSE;
    const int column = rect->top;
    const int code = rect->left;
    if (code != LVIR_BOUNDS && code != LVIR_ICON && code != LVIR_LABEL) return FALSE;
    // Sub-item 0 stands for the whole item, as on the platform.
    if (column == 0) return OnGetItemRect(index, rect);
    const Geometry g = ComputeGeometry();
    if (column < 0 || column >= static_cast<int>(g.columns.size())) return FALSE;
    const CRect cell = g.CellRect(index, column);
    *rect = code == LVIR_ICON ? CRect(cell.left, cell.top, cell.left, cell.bottom) : cell;
    return TRUE;
}

int ListControl::OnHitTest(LVHITTESTINFO* info, bool subItems) const
{
    if (!info) return -1;
    const Geometry g = ComputeGeometry();
    int item = -1;
    int column = -1;
    info->flags = g.HitTest(info->pt, subItems || FullRowHits(), &item, &column);
    info->iItem = item;
    if (subItems) info->iSubItem = std::max(column, 0);
    return item;
}

}  // namespace listview
