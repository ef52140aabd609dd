// One bookmark and one breakpoint: plain records shared with the host, with
// fixed sizes and offsets. The host owns the fields marked "host"; the panes
// carry them without reading them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/core/win_types.h"

// Bytes of a mark's text, terminator included.
constexpr int kMarkTextBytes = 2052;

class AFX_EXT_CLASS CBookMarkItem {
public:
    CBookMarkItem();
    CBookMarkItem& operator=(const CBookMarkItem& other);
    CBookMarkItem(const CBookMarkItem& other) { *this = other; }

    std::int32_t hostTag;     // 0: host
    std::int32_t line;        // 4: sort key, shown and sent back; set by the creator
    std::uint8_t hostFlag;    // 8: host
    std::int32_t hostData;    // 12: host
    char text[kMarkTextBytes];  // 16: GBK, zero-terminated
};

class AFX_EXT_CLASS CBreakPointItem {
public:
    CBreakPointItem();
    CBreakPointItem& operator=(const CBreakPointItem& other);
    CBreakPointItem(const CBreakPointItem& other) { *this = other; }

    std::int32_t line;        // 0: sort key, shown and sent back; set by the creator
    std::int32_t active;      // 4: nonzero shows the filled breakpoint image
    std::int32_t hostTag;     // 8: host
    std::uint8_t hostFlag;    // 12: host
    std::int32_t hostData;    // 16: host
    char text[kMarkTextBytes];  // 20: GBK, zero-terminated
};

static_assert(sizeof(CBookMarkItem) == 2068);
static_assert(offsetof(CBookMarkItem, line) == 4);
static_assert(offsetof(CBookMarkItem, hostFlag) == 8);
static_assert(offsetof(CBookMarkItem, hostData) == 12);
static_assert(offsetof(CBookMarkItem, text) == 16);
static_assert(sizeof(CBreakPointItem) == 2072);
static_assert(offsetof(CBreakPointItem, active) == 4);
static_assert(offsetof(CBreakPointItem, hostFlag) == 12);
static_assert(offsetof(CBreakPointItem, hostData) == 16);
static_assert(offsetof(CBreakPointItem, text) == 20);
