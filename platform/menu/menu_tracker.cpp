#include "platform/menu/menu_tracker.h"

#include "platform/menu/menu_layout.h"

bool MenuTracker::Selectable(const ShownMenuItem& item)
{
    return item.IsPopup() || IsCommand(item);
}

bool MenuTracker::IsCommand(const ShownMenuItem& item)
{
    // Command 0 would read as a dismissal.
    return !item.separator && !item.IsPopup() && item.enabled && item.id != 0;
}

const ShownMenuItem* MenuTracker::At(int index) const
{
    return index >= 0 && static_cast<size_t>(index) < m_items->size() ? &(*m_items)[static_cast<size_t>(index)] : nullptr;
}

bool MenuTracker::IsSelectable(int index) const
{
    const ShownMenuItem* item = At(index);
    return item && Selectable(*item);
}

bool MenuTracker::Hover(int index)
{
    const int hot = IsSelectable(index) ? index : kNone;
    if (hot == m_hot) return false;
    m_hot = hot;
    return true;
}

bool MenuTracker::Step(int direction)
{
    const int count = static_cast<int>(m_items->size());
    if (count == 0 || direction == 0) return false;
    const int step = direction > 0 ? 1 : -1;
    int index = m_hot == kNone ? (step > 0 ? count - 1 : 0) : m_hot;
    // At most one lap: a menu with nothing selectable keeps no hot item.
    for (int tried = 0; tried < count; ++tried) {
        index = (index + step + count) % count;
        if (IsSelectable(index)) return Hover(index);
    }
    return false;
}

int MenuTracker::FindMnemonic(UINT key) const
{
    if (key == 0) return kNone;
    for (size_t i = 0; i < m_items->size(); ++i) {
        const ShownMenuItem& item = (*m_items)[i];
        if (Selectable(item) && MenuLayout::MnemonicOf(item.text) == key) return static_cast<int>(i);
    }
    return kNone;
}
