#include "platform/ole/format_blocks.h"

#include <algorithm>

namespace {

template <typename Blocks>
auto FindFormat(Blocks& blocks, UINT format)
{
    return std::find_if(blocks.begin(), blocks.end(), [format](const auto& entry) { return entry.first == format; });
}

}  // namespace

bool FormatBlocks::Set(UINT format, HGLOBAL mem)
{
    if (format == 0 || !mem) return false;
    const auto existing = FindFormat(m_blocks, format);
    if (existing != m_blocks.end() && existing->second == mem) return true;
    if (!GlobalMemory::Hold(mem)) return false;
    if (existing != m_blocks.end()) {
        GlobalMemory::FreeHeld(existing->second);
        existing->second = mem;
    } else {
        m_blocks.emplace_back(format, mem);
    }
    return true;
}

HGLOBAL FormatBlocks::Find(UINT format) const
{
    const auto it = FindFormat(m_blocks, format);
    return it == m_blocks.end() ? nullptr : it->second;
}

UINT FormatBlocks::FormatAfter(UINT format) const
{
    if (format == 0) return m_blocks.empty() ? 0 : m_blocks.front().first;
    auto it = FindFormat(m_blocks, format);
    if (it == m_blocks.end() || ++it == m_blocks.end()) return 0;
    return it->first;
}

void FormatBlocks::Empty()
{
    // Cleared first, so that nothing can reach a block being freed.
    const auto blocks = std::move(m_blocks);
    m_blocks.clear();
    for (const auto& entry : blocks) GlobalMemory::FreeHeld(entry.second);
}
