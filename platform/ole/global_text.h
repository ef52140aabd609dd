// CF_TEXT in a global memory block: GBK bytes ending in a zero byte.
#pragma once

#include <string>
#include <string_view>

#include "platform/ole/global_memory.h"

namespace GlobalText {

// A new movable block holding the text and its zero byte; null when the
// memory cannot be had.
AFX_API HGLOBAL Alloc(std::string_view text);
// The text up to the first zero byte, or the whole block when it has none.
// False (text untouched) for a bad handle or an empty block.
AFX_API bool Read(HGLOBAL mem, std::string* text);

}  // namespace GlobalText
