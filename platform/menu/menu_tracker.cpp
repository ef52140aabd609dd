#include "platform/menu/menu_tracker.h"

#include "platform/menu/menu_layout.h"

bool MenuTracker::Choosable(const ShownMenuItem& item)
{
    return !item.separator && !item.IsPopup() && item.enabled && item.id != 0;
}

bool MenuTracker::IsChoosable(int index) const
{
    return index >= 0 && static_cast<size_t>(index) < m_items->size() && Choosable((*m_items)[static_cast<size_t>(index)]);
}

bool MenuTracker::Hover(int index)
{
    const int hot = IsChoosable(index) ? index : kNone;
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
    // At most one lap: a menu with nothing choosable keeps no hot item.
    for (int tried = 0; tried < count; ++tried) {
        index = (index + step + count) % count;
        if (IsChoosable(index)) return Hover(index);
    }
    return false;
}

void MenuTracker::Choose(int index)
{
    if (m_done || !IsChoosable(index)) return;
    m_chosen = (*m_items)[static_cast<size_t>(index)].id;
    m_done = true;
}

void MenuTracker::ChooseHot()
{
    if (m_hot == kNone) return Dismiss();
    Choose(m_hot);
}

void MenuTracker::ChooseByMnemonic(UINT key)
{
    if (key == 0) return;
    for (size_t i = 0; i < m_items->size(); ++i) {
        const ShownMenuItem& item = (*m_items)[i];
        if (Choosable(item) && MenuLayout::MnemonicOf(item.text) == key) return Choose(static_cast<int>(i));
    }
}

void MenuTracker::Dismiss()
{
    if (m_done) return;
    m_chosen = 0;
    m_done = true;
}
