// Global memory blocks by clipboard format, in the order they were set: what
// the clipboard holds and what a drag carries. The set takes each block over
// (GlobalMemory::Hold) and frees it when it is replaced, emptied away or the
// set goes.
#pragma once

#include <utility>
#include <vector>

#include "platform/ole/global_memory.h"

class AFX_EXT_CLASS FormatBlocks {
public:
    FormatBlocks() = default;
    ~FormatBlocks() { Empty(); }
    FormatBlocks(const FormatBlocks&) = delete;
    FormatBlocks& operator=(const FormatBlocks&) = delete;

    // Takes the block over under the format, freeing the one it replaces.
    // False for format 0, a null or bad block, or a block already held (by
    // this set under another format, by another set or by the clipboard);
    // setting the block a format already has is a success that changes
    // nothing.
    bool Set(UINT format, HGLOBAL mem);
    // The block of a format, lent; null when there is none.
    HGLOBAL Find(UINT format) const;
    // The format set after `format` (0: the first); 0 at the end or for a
    // format not in the set.
    UINT FormatAfter(UINT format) const;
    int Count() const { return static_cast<int>(m_blocks.size()); }
    void Empty();

private:
    std::vector<std::pair<UINT, HGLOBAL>> m_blocks;
};
