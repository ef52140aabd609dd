#include "demo/debugger/ucsim/console_text.h"

#include <charconv>

namespace {

constexpr char kEscape = '\x1b';

}  // namespace

std::string CleanConsoleLine(std::string_view raw)
{
    std::string line;
    line.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (raw[i] == kEscape) {
            // A CSI sequence: ESC [ parameters, ended by a letter.
            if (i + 1 < raw.size() && raw[i + 1] == '[') {
                i += 2;
                while (i < raw.size() && !((raw[i] >= 'A' && raw[i] <= 'Z') || (raw[i] >= 'a' && raw[i] <= 'z'))) ++i;
            }
            continue;
        }
        if (raw[i] == '\r') continue;
        line += raw[i];
    }
    while (!line.empty() && (line.back() == ' ' || line.back() == '\t')) line.pop_back();
    return line;
}

std::optional<std::uint32_t> ParseConsoleNumber(std::string_view token)
{
    int base = 10;
    if (token.size() > 2 && token[0] == '0' && (token[1] == 'x' || token[1] == 'X')) {
        token.remove_prefix(2);
        base = 16;
    }
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), value, base);
    if (token.empty() || error != std::errc() || end != token.data() + token.size()) return std::nullopt;
    return value;
}
