// Runs of selected indexes.
#include "platform/controls/list_ctrl_selection.h"

#include <algorithm>
#include <limits>

namespace listview {

bool Selection::Contains(int index) const
{
    auto it = m_runs.upper_bound(index);
    if (it == m_runs.begin()) return false;
    --it;
    return index < it->second;
}

int Selection::NextAfter(int index) const
{
    if (index == std::numeric_limits<int>::max()) return -1;
    const int from = std::max(index + 1, 0);
    auto it = m_runs.upper_bound(from);
    if (it != m_runs.begin()) {
        auto before = std::prev(it);
        if (from < before->second) return from;
    }
    return it == m_runs.end() ? -1 : it->first;
}

void Selection::AddRange(int first, int last)
{
    if (first >= last) return;
    // Swallow every run that touches or overlaps [first, last).
    auto it = m_runs.upper_bound(first);
    if (it != m_runs.begin() && std::prev(it)->second >= first) --it;
    while (it != m_runs.end() && it->first <= last) {
        first = std::min(first, it->first);
        last = std::max(last, it->second);
        m_count -= it->second - it->first;
        it = m_runs.erase(it);
    }
    m_runs.emplace(first, last);
    m_count += last - first;
}

void Selection::RemoveRange(int first, int last)
{
    if (first >= last) return;
    auto it = m_runs.upper_bound(first);
    if (it != m_runs.begin() && std::prev(it)->second > first) --it;
    while (it != m_runs.end() && it->first < last) {
        const int runFirst = it->first;
        const int runLast = it->second;
        m_count -= runLast - runFirst;
        it = m_runs.erase(it);
        if (runFirst < first) {
            m_runs.emplace(runFirst, first);
            m_count += first - runFirst;
        }
        if (runLast > last) {
            it = m_runs.emplace(last, runLast).first;
            m_count += runLast - last;
            ++it;
        }
    }
}

void Selection::Clear()
{
    m_runs.clear();
    m_count = 0;
}

void Selection::Truncate(int count)
{
    RemoveRange(std::max(count, 0), std::numeric_limits<int>::max());
}

}  // namespace listview
