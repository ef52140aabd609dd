// Records a debugger service would answer, for tests of the watch.
#pragma once

#include "watch/debug_protocol.h"

// An evaluated object: status 1 and the fields a test cares about.
inline WatchRecord MakeRecord(std::uint32_t type, std::uint32_t space, std::uint32_t address, std::uint32_t size,
                              std::uint32_t value = 0)
{
    WatchRecord record{};
    record.status = 1;
    record.type = type;
    record.space = space;
    record.address = address;
    record.size = size;
    record.value = value;
    return record;
}
