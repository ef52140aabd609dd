// The display lines of the rows of one row array: a count per row, their
// total, and a Fenwick tree over the counts for the line before a row and the
// row on a line in O(log n). The tree is rebuilt lazily from the first entry a
// change of shape made stale, so appending rows costs O(1) amortised and an
// insertion in the middle costs about what moving the pointers already does.
#pragma once

#include <cstddef>
#include <vector>

class GridLineSums {
public:
    // Where a line falls: the row index and the line within that row's lines.
    struct Hit {
        int index;
        int offset;
    };

    int Size() const { return static_cast<int>(m_lines.size()); }
    int Total() const { return m_total; }
    // The count of row index, which must be in range.
    int At(int index) const { return m_lines[static_cast<std::size_t>(index)]; }

    // index from 0 to Size(); count from index to the end, cut at the end.
    void Insert(int index, int lines);
    void Erase(int index, int count);
    void Set(int index, int lines);
    void Clear();

    // Lines of the rows before index, 0 to Size().
    int Before(int index);
    // line from 0 to Total() - 1.
    Hit Find(int line);

private:
    // Tree entries 1..m_valid are right; brings them up to upTo.
    void Extend(int upTo);

    std::vector<int> m_lines;
    // Entry j (1-based, stored at j - 1) holds the lines of rows j - lowbit(j) to j - 1.
    std::vector<int> m_tree;
    int m_valid = 0;
    int m_total = 0;
};
