#include "platform/window/desktop_text.h"

#include "platform/text/gbk.h"

namespace DesktopText {

std::string ToDesktop(std::string_view gbk)
{
    const std::string utf8 = GbkToUtf8(gbk);
    std::string out;
    out.reserve(utf8.size());
    for (size_t i = 0; i < utf8.size(); ++i) {
        if (utf8[i] == '\r' && i + 1 < utf8.size() && utf8[i + 1] == '\n') continue;
        out += utf8[i];
    }
    return out;
}

std::string FromDesktop(std::string_view utf8)
{
    std::string lines;
    lines.reserve(utf8.size());
    for (size_t i = 0; i < utf8.size(); ++i) {
        if (utf8[i] == '\n' && (i == 0 || utf8[i - 1] != '\r')) lines += '\r';
        lines += utf8[i];
    }
    return Utf8ToGbk(lines);
}

std::string Typed(std::string_view utf8)
{
    std::string gbk = Utf8ToGbk(utf8);
    // GBK trail bytes are 0x40 and up, so a byte below 0x20 is a character.
    std::erase_if(gbk, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
    return gbk;
}

}  // namespace DesktopText
