#include "demo/toolchain/line_map.h"

#include <algorithm>
#include <numeric>
#include <tuple>

void LineMap::Index()
{
    m_byAddress.resize(m_entries.size());
    std::iota(m_byAddress.begin(), m_byAddress.end(), 0);
    m_byLine = m_byAddress;
    std::stable_sort(m_byAddress.begin(), m_byAddress.end(),
                     [this](std::size_t a, std::size_t b) { return m_entries[a].address < m_entries[b].address; });
    std::sort(m_byLine.begin(), m_byLine.end(), [this](std::size_t a, std::size_t b) {
        const LineEntry& x = m_entries[a];
        const LineEntry& y = m_entries[b];
        return std::tie(x.file, x.line, x.address) < std::tie(y.file, y.line, y.address);
    });
}

std::optional<std::uint32_t> LineMap::AddressOf(std::string_view file, int line) const
{
    const auto found = std::lower_bound(m_byLine.begin(), m_byLine.end(), std::pair(file, line),
                                        [this](std::size_t index, const std::pair<std::string_view, int>& key) {
                                            const LineEntry& entry = m_entries[index];
                                            return std::pair(std::string_view(entry.file), entry.line) < key;
                                        });
    if (found == m_byLine.end() || m_entries[*found].file != file || m_entries[*found].line != line) return std::nullopt;
    return m_entries[*found].address;
}

const LineEntry* LineMap::LineAt(std::uint32_t address) const
{
    const auto after = std::upper_bound(m_byAddress.begin(), m_byAddress.end(), address,
                                        [this](std::uint32_t key, std::size_t index) { return key < m_entries[index].address; });
    if (after == m_byAddress.begin()) return nullptr;
    return &m_entries[*std::prev(after)];
}

std::vector<const LineEntry*> LineMap::Within(std::uint32_t first, std::uint32_t last) const
{
    const auto begin = std::lower_bound(m_byAddress.begin(), m_byAddress.end(), first,
                                        [this](std::size_t index, std::uint32_t key) { return m_entries[index].address < key; });
    std::vector<const LineEntry*> found;
    for (auto at = begin; at != m_byAddress.end() && m_entries[*at].address <= last; ++at) found.push_back(&m_entries[*at]);
    return found;
}
