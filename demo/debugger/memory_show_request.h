// What the watch asks a memory view to show (DRQ_SHOW_MEMORY), once its text
// has evaluated: where the object lives and how many bytes it has. A value
// computed from constants lives nowhere and comes with space WS_NUMBER;
// "*(unsigned char xdata *)0x100" names the byte at xdata 0x100.
#pragma once

#include <cstdint>
#include <string>

struct MemoryShowRequest {
    std::uint32_t space;     // a WatchSpace code
    std::uint32_t address;
    std::uint32_t size;      // bytes
    std::string expression;  // the watch's text (GBK)
};
