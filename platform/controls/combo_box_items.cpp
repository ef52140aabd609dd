// Sorted insertion and searching of combo box items.
#include "platform/controls/combo_box_items.h"

#include <algorithm>

#include "platform/text/compare.h"

namespace combo {

const Item* ItemList::At(int index) const
{
    return Valid(index) ? &m_items[static_cast<size_t>(index)] : nullptr;
}

Item* ItemList::At(int index)
{
    return Valid(index) ? &m_items[static_cast<size_t>(index)] : nullptr;
}

int ItemList::AddSorted(std::string_view text)
{
    const auto at = std::upper_bound(m_items.begin(), m_items.end(), text,
                                     [](std::string_view t, const Item& item) { return CompareFolded(t, item.text) < 0; });
    const auto inserted = m_items.insert(at, Item{std::string(text), 0});
    return static_cast<int>(inserted - m_items.begin());
}

int ItemList::Insert(int index, std::string_view text)
{
    if (index == -1) index = Count();
    if (index < 0 || index > Count()) return -1;
    m_items.insert(m_items.begin() + index, Item{std::string(text), 0});
    return index;
}

bool ItemList::Remove(int index)
{
    if (!Valid(index)) return false;
    m_items.erase(m_items.begin() + index);
    return true;
}

template <class Match>
int ItemList::Search(int startAfter, Match match) const
{
    const int count = Count();
    if (!Valid(startAfter)) startAfter = -1;
    for (int step = 1; step <= count; ++step) {
        const int index = (startAfter + step) % count;
        if (match(m_items[static_cast<size_t>(index)].text)) return index;
    }
    return -1;
}

int ItemList::FindPrefix(int startAfter, std::string_view prefix) const
{
    return Search(startAfter, [prefix](const std::string& text) {
        return text.size() >= prefix.size() && CompareFolded(std::string_view(text).substr(0, prefix.size()), prefix) == 0;
    });
}

int ItemList::FindExact(int startAfter, std::string_view text) const
{
    return Search(startAfter, [text](const std::string& item) { return CompareFolded(item, text) == 0; });
}

}  // namespace combo
