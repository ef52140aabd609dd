#include "platform/gdi/handle_table.h"

namespace gdi {

std::uintptr_t NextHandleValue()
{
    // Starts high and steps by 4 so values look like the platform's handles
    // and never meet small integers that code casts to handles.
    static std::uintptr_t next = 0x10000;
    next += 4;
    return next;
}

}  // namespace gdi
