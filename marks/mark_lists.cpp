// The exported classes are defined here, so that their virtual tables and
// destructors live in the library the host links against.
#include "marks/mark_lists.h"

CBookMarkItems::CBookMarkItems() = default;
CBookMarkItems::~CBookMarkItems() = default;
CBreakPointItems::CBreakPointItems() = default;
CBreakPointItems::~CBreakPointItems() = default;
CBookMarkList::CBookMarkList() = default;
CBookMarkList::~CBookMarkList() = default;
CBreakPointList::CBreakPointList() = default;
CBreakPointList::~CBreakPointList() = default;
