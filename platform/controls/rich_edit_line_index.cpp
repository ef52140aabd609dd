#include "platform/controls/rich_edit_line_index.h"

#include <algorithm>

namespace richedit {
namespace {

size_t LowBit(size_t i)
{
    return i & (~i + 1);
}

}  // namespace

void LineIndex::Assign(const std::vector<std::int64_t>& sizes)
{
    m_tree.assign(sizes.size() + 1, 0);
    m_total = 0;
    for (size_t i = 1; i <= sizes.size(); ++i) {
        m_tree[i] += sizes[i - 1];
        m_total += sizes[i - 1];
        const size_t parent = i + LowBit(i);
        if (parent <= sizes.size()) m_tree[parent] += m_tree[i];
    }
}

void LineIndex::PushBack(std::int64_t size)
{
    // The new node covers (n - lowbit(n), n]: its own size and the lines
    // before it in that span.
    const size_t n = m_tree.size();
    m_tree.push_back(size + Before(n - 1) - Before(n - LowBit(n)));
    m_total += size;
}

void LineIndex::PopBack()
{
    if (Count() == 0) return;
    const size_t n = Count();
    m_total -= Before(n) - Before(n - 1);
    m_tree.pop_back();
}

void LineIndex::Add(size_t line, std::int64_t delta)
{
    if (line >= Count()) return;
    m_total += delta;
    for (size_t i = line + 1; i < m_tree.size(); i += LowBit(i)) m_tree[i] += delta;
}

std::int64_t LineIndex::Before(size_t line) const
{
    std::int64_t sum = 0;
    for (size_t i = std::min(line, Count()); i > 0; i -= LowBit(i)) sum += m_tree[i];
    return sum;
}

size_t LineIndex::Find(std::int64_t pos) const
{
    const size_t n = Count();
    if (n == 0 || pos < 0) return 0;
    // The number of whole lines whose sizes add up to no more than pos.
    size_t step = 1;
    while (step * 2 <= n) step *= 2;
    size_t index = 0;
    std::int64_t left = pos;
    for (; step > 0; step /= 2) {
        if (index + step <= n && m_tree[index + step] <= left) {
            index += step;
            left -= m_tree[index];
        }
    }
    return std::min(index, n - 1);
}

}  // namespace richedit
