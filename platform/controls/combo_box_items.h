// The combo box's items: GBK texts with a value each, kept in order, and the
// searches the CB_FIND* messages make. Comparisons fold ASCII letters only,
// as _stricmp does on GBK text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/core/win_types.h"

namespace combo {

struct Item {
    std::string text;
    DWORD_PTR data = 0;
};

class ItemList {
public:
    int Count() const { return static_cast<int>(m_items.size()); }
    bool Valid(int index) const { return index >= 0 && index < Count(); }
    // Null for a bad index.
    const Item* At(int index) const;
    Item* At(int index);

    // After every item that sorts before or equal to it, so that equal
    // texts keep the order they came in.
    int AddSorted(std::string_view text);
    // Before index; -1 appends. -1 for an index past the end.
    int Insert(int index, std::string_view text);
    bool Remove(int index);
    void Clear() { m_items.clear(); }

    // The first item after `startAfter` (-1 or a bad index: from the start)
    // that begins with prefix / equals text, going round past the end once.
    int FindPrefix(int startAfter, std::string_view prefix) const;
    int FindExact(int startAfter, std::string_view text) const;

private:
    template <class Match>
    int Search(int startAfter, Match match) const;

    std::vector<Item> m_items;
};

}  // namespace combo
