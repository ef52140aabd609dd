#include "marks/mark_items.h"

#include <cstring>

// The line is left for the creator to set, as the host expects; it is zeroed
// here all the same so that a forgotten line is 0 rather than garbage.
CBookMarkItem::CBookMarkItem() : hostTag(0), line(0), hostFlag(0), hostData(0)
{
    std::memset(text, 0, sizeof text);
}

CBookMarkItem& CBookMarkItem::operator=(const CBookMarkItem& other)
{
    if (this != &other) std::memcpy(static_cast<void*>(this), &other, sizeof(CBookMarkItem));
    return *this;
}

CBreakPointItem::CBreakPointItem() : line(0), active(0), hostTag(0), hostFlag(0), hostData(0)
{
    std::memset(text, 0, sizeof text);
}

CBreakPointItem& CBreakPointItem::operator=(const CBreakPointItem& other)
{
    if (this != &other) std::memcpy(static_cast<void*>(this), &other, sizeof(CBreakPointItem));
    return *this;
}
