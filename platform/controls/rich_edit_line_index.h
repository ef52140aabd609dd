// Where each line starts: running sums of line sizes in a Fenwick tree, so
// that finding a line's start or the line at a position costs O(log n), a
// line changing size costs O(log n), and so does a line added at the end.
// Lines added or removed elsewhere need Assign, which is O(n).
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace richedit {

class LineIndex {
public:
    void Assign(const std::vector<std::int64_t>& sizes);
    void PushBack(std::int64_t size);
    void PopBack();
    void Add(size_t line, std::int64_t delta);

    size_t Count() const { return m_tree.size() - 1; }
    std::int64_t Total() const { return m_total; }
    // Sum of the sizes of lines [0, line).
    std::int64_t Before(size_t line) const;
    // The line whose span holds pos, given sizes of at least 1: the last
    // line for a position at or past the total, 0 below zero.
    size_t Find(std::int64_t pos) const;

private:
    std::vector<std::int64_t> m_tree{0};  // 1-based; [0] unused
    std::int64_t m_total = 0;
};

}  // namespace richedit
