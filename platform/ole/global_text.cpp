#include "platform/ole/global_text.h"

#include <cstring>

namespace GlobalText {

HGLOBAL Alloc(std::string_view text)
{
    HGLOBAL mem = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    if (!mem) return nullptr;
    auto* bytes = static_cast<char*>(GlobalLock(mem));
    if (!text.empty()) std::memcpy(bytes, text.data(), text.size());
    bytes[text.size()] = '\0';
    GlobalUnlock(mem);
    return mem;
}

bool Read(HGLOBAL mem, std::string* text)
{
    if (!text) return false;
    const auto* bytes = static_cast<const char*>(GlobalLock(mem));
    if (!bytes) return false;
    text->assign(bytes, strnlen(bytes, GlobalSize(mem)));
    GlobalUnlock(mem);
    return true;
}

}  // namespace GlobalText
