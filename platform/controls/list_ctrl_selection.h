// The selected items of an owner-data list: disjoint runs of indexes, so that
// selecting, testing and walking cost the same whatever the number of items.
#pragma once

#include <map>

namespace listview {

class Selection {
public:
    bool Contains(int index) const;
    // Number of selected items.
    long long Count() const { return m_count; }
    bool Empty() const { return m_count == 0; }
    // The first selected index after `index` (-1: from the start), or -1.
    int NextAfter(int index) const;

    void Add(int index) { AddRange(index, index + 1); }
    void Remove(int index) { RemoveRange(index, index + 1); }
    // [first, last) with first < last; nothing otherwise.
    void AddRange(int first, int last);
    void RemoveRange(int first, int last);
    void Clear();
    // Drops everything at or past `count`.
    void Truncate(int count);

private:
    std::map<int, int> m_runs;  // first index -> one past the last
    long long m_count = 0;
};

}  // namespace listview
