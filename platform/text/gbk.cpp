#include "platform/text/gbk.h"

#include <cstring>

#include <cerrno>
#include <iconv.h>
#include <memory>

namespace {

// Bytes of the UTF-8 character at the start of text: its lead byte and the
// continuation bytes that follow it, as many as the lead byte announces, so
// that a character, whole or cut short, is one replacement. A byte that
// starts no character is 1.
size_t Utf8CharBytes(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const size_t length = lead >= 0xF0 && lead <= 0xF4 ? 4 : lead >= 0xE0 && lead < 0xF0 ? 3 : lead >= 0xC2 && lead < 0xE0 ? 2 : 1;
    size_t bytes = 1;
    while (bytes < length && bytes < text.size() && (static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80) ++bytes;
    return bytes;
}

// One iconv conversion, replacing each unconvertible input character by '?'
// (or U+003F) so that no text is dropped silently.
std::string Convert(const char* to, const char* from, std::string_view input, size_t minCharBytes, std::string_view replacement)
{
    const bool fromUtf8 = std::strcmp(from, "UTF-8") == 0;
    iconv_t cd = iconv_open(to, from);
    if (cd == reinterpret_cast<iconv_t>(-1)) return std::string();
    std::unique_ptr<void, int (*)(iconv_t)> guard(cd, iconv_close);
    std::string out;
    out.reserve(input.size() * 4);
    char* in = const_cast<char*>(input.data());
    size_t inLeft = input.size();
    char buffer[256];
    while (inLeft > 0) {
        char* outPtr = buffer;
        size_t outLeft = sizeof buffer;
        const size_t result = iconv(cd, &in, &inLeft, &outPtr, &outLeft);
        out.append(buffer, static_cast<size_t>(outPtr - buffer));
        if (result == static_cast<size_t>(-1) && errno != E2BIG) {
            // A character the target lacks, or an invalid or incomplete
            // sequence: skip it whole (a UTF-8 character), else one unit.
            const size_t skip = fromUtf8 ? Utf8CharBytes(std::string_view(in, inLeft)) : std::min(inLeft, minCharBytes);
            in += skip;
            inLeft -= skip;
            out.append(replacement);
            iconv(cd, nullptr, nullptr, nullptr, nullptr);
        }
    }
    return out;
}

}  // namespace

size_t GbkPrefixBytes(std::string_view text, size_t maxBytes)
{
    size_t used = 0;
    while (used < text.size()) {
        const size_t bytes = static_cast<size_t>(GbkCharLength(text, used));
        if (used + bytes > maxBytes) break;
        used += bytes;
    }
    return used;
}

size_t CopyGbkText(std::string_view text, char* buffer, size_t size)
{
    if (!buffer || size == 0) return 0;
    const size_t used = GbkPrefixBytes(text, size - 1);
    if (used > 0) std::memcpy(buffer, text.data(), used);  // an empty view may have no data at all
    buffer[used] = '\0';
    return used;
}

std::string Utf8ToGbk(std::string_view utf8)
{
    return Convert("GBK", "UTF-8", utf8, 1, "?");
}

std::string GbkToUtf8(std::string_view gbk)
{
    return Convert("UTF-8", "GBK", gbk, 1, "?");
}

std::u32string GbkToUnicode(std::string_view gbk)
{
    static constexpr char32_t kQuestion = U'?';
    const std::string bytes = Convert("UTF-32LE", "GBK", gbk, 1, std::string_view(reinterpret_cast<const char*>(&kQuestion), 4));
    std::u32string out(bytes.size() / 4, U'\0');
    for (size_t i = 0; i < out.size(); ++i) {
        const auto* b = reinterpret_cast<const unsigned char*>(bytes.data() + i * 4);
        out[i] = static_cast<char32_t>(b[0] | (b[1] << 8) | (b[2] << 16) | (static_cast<uint32_t>(b[3]) << 24));
    }
    return out;
}
