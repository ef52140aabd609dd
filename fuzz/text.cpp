// The text helpers every pane runs host and user text through: GBK
// conversion and cutting, folded compares, relative paths and the parser of
// a constant typed into the watch. The input is split into a few byte
// strings (any bytes, unterminated, over-long); each helper writes into a
// heap buffer of exactly the size it is given, so a byte past it is a report.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "fuzz/support/fuzz_check.h"
#include "platform/text/compare.h"
#include "platform/text/gbk.h"
#include "siblings/orv_project_misc.h"

namespace {

int Sign(int value) { return (value > 0) - (value < 0); }

// Conversions and cuts of one text, each held to its contract.
void Conversions(const std::string& text, size_t bufferSize)
{
    FUZZ_CHECK(GbkToUnicode(text).size() <= text.size());
    const std::string utf8 = GbkToUtf8(text);
    Utf8ToGbk(utf8);
    Utf8ToGbk(text);  // as if a host sent UTF-8, or garbage

    const size_t prefix = GbkPrefixBytes(text, bufferSize);
    FUZZ_CHECK(prefix <= bufferSize && prefix <= text.size());

    auto buffer = std::make_unique<char[]>(bufferSize ? bufferSize : 1);
    const size_t copied = CopyGbkText(text, bufferSize ? buffer.get() : nullptr, bufferSize);
    if (bufferSize == 0) {
        FUZZ_CHECK(copied == 0);
        return;
    }
    FUZZ_CHECK(copied < bufferSize && buffer[copied] == '\0');
    FUZZ_CHECK(std::memcmp(buffer.get(), text.data(), copied) == 0);
}

// The folded compare on views agrees with _stricmp on terminated texts, and
// matching at every character boundary stays inside the text.
void Compares(const std::string& a, const std::string& b, bool matchCase)
{
    const int views = CompareFolded(a, b);
    FUZZ_CHECK(Sign(views) == -Sign(CompareFolded(b, a)));
    FUZZ_CHECK(Sign(_stricmp(a.c_str(), b.c_str())) == Sign(CompareFolded(a.c_str(), b.c_str())));
    _strnicmp(a.c_str(), b.c_str(), b.size() / 2);
    if (a.find('\0') == std::string::npos && b.find('\0') == std::string::npos)
        FUZZ_CHECK(Sign(views) == Sign(_stricmp(a.c_str(), b.c_str())));
    for (size_t pos = 0; pos < a.size(); pos += GbkCharLength(a, pos))
        GbkMatchesFoldedAt(a, pos, b, matchCase);
}

// A relative path always fits the path buffer and is terminated.
void RelativePath(const std::string& path, const std::string& base)
{
    auto out = std::make_unique<char[]>(kPathBytes);
    std::memset(out.get(), 'x', kPathBytes);
    PathRelativePathToEx(out.get(), path.c_str(), base.c_str());
    FUZZ_CHECK(std::memchr(out.get(), '\0', kPathBytes) != nullptr);
}

void TypedConstant(const std::string& text, unsigned char format)
{
    CString typed(text.c_str());
    unsigned long value = 0x5A5A5A5A;
    if (!IsConstantData(typed, value, format)) FUZZ_CHECK(value == 0x5A5A5A5A);
    FUZZ_CHECK(std::string(static_cast<const char*>(typed)) == text.c_str());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    FuzzedDataProvider input(data, size);
    const size_t bufferSize = input.ConsumeIntegralInRange<size_t>(0, 300);
    const unsigned char format = input.ConsumeIntegral<unsigned char>();
    const bool matchCase = input.ConsumeBool();
    const std::string a = input.ConsumeRandomLengthString(600);
    const std::string b = input.ConsumeRandomLengthString(600);

    Conversions(a, bufferSize);
    Compares(a, b, matchCase);
    RelativePath(a, b);
    TypedConstant(b, format);
    return 0;
}
