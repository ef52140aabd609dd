#include "grid/grid_line_sums.h"

#include <algorithm>
#include <bit>

namespace {

int LowBit(int j)
{
    return j & -j;
}

}  // namespace

void GridLineSums::Insert(int index, int lines)
{
    m_lines.insert(m_lines.begin() + index, lines);
    m_tree.push_back(0);
    m_total += lines;
    m_valid = std::min(m_valid, index);
}

void GridLineSums::Erase(int index, int count)
{
    const auto first = m_lines.begin() + index;
    const auto last = first + std::min(count, Size() - index);
    for (auto it = first; it != last; ++it) m_total -= *it;
    m_tree.resize(m_tree.size() - static_cast<std::size_t>(last - first));
    m_lines.erase(first, last);
    m_valid = std::min(m_valid, index);
}

void GridLineSums::Set(int index, int lines)
{
    const int delta = lines - m_lines[static_cast<std::size_t>(index)];
    if (delta == 0) return;
    m_lines[static_cast<std::size_t>(index)] = lines;
    m_total += delta;
    // Entries past m_valid are rebuilt from the counts when next needed.
    for (int j = index + 1; j <= m_valid; j += LowBit(j)) m_tree[static_cast<std::size_t>(j - 1)] += delta;
}

void GridLineSums::Clear()
{
    m_lines.clear();
    m_tree.clear();
    m_valid = 0;
    m_total = 0;
}

void GridLineSums::Extend(int upTo)
{
    // Entry j is its own count plus the entries j - 1, j - 2, j - 4, ... below
    // its low bit, all already right: O(1) amortised per entry.
    for (int j = m_valid + 1; j <= upTo; ++j) {
        int sum = m_lines[static_cast<std::size_t>(j - 1)];
        for (int step = 1; step < LowBit(j); step <<= 1) sum += m_tree[static_cast<std::size_t>(j - step - 1)];
        m_tree[static_cast<std::size_t>(j - 1)] = sum;
    }
    m_valid = std::max(m_valid, upTo);
}

int GridLineSums::Before(int index)
{
    if (index == Size()) return m_total;
    Extend(index);
    int sum = 0;
    for (int j = index; j > 0; j -= LowBit(j)) sum += m_tree[static_cast<std::size_t>(j - 1)];
    return sum;
}

GridLineSums::Hit GridLineSums::Find(int line)
{
    Extend(Size());
    // Every count is at least 1, so the sums rise strictly: descend to the
    // last row whose lines before it are at most line.
    int index = 0;
    int rest = line;
    for (int step = static_cast<int>(std::bit_floor(static_cast<unsigned>(Size()))); step > 0; step >>= 1) {
        const int next = index + step;
        if (next <= Size() && m_tree[static_cast<std::size_t>(next - 1)] <= rest) {
            index = next;
            rest -= m_tree[static_cast<std::size_t>(next - 1)];
        }
    }
    return {index, rest};
}
