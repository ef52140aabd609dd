#include "demo/debugger/ucsim/hex_dump.h"

#include <charconv>

#include "demo/debugger/ucsim/console_text.h"

namespace {

std::string Hex(std::uint32_t value)
{
    char text[16];
    const auto end = std::to_chars(text, text + sizeof text, value, 16).ptr;
    return "0x" + std::string(text, end);
}

// The next blank-separated token of line, advancing past it.
std::string_view NextToken(std::string_view& line)
{
    const auto start = line.find_first_not_of(' ');
    if (start == std::string_view::npos) {
        line = {};
        return {};
    }
    line.remove_prefix(start);
    const auto end = std::min(line.find(' '), line.size());
    const auto token = line.substr(0, end);
    line.remove_prefix(end);
    return token;
}

std::optional<std::uint8_t> HexByte(std::string_view token)
{
    std::uint8_t value = 0;
    if (token.size() != 2) return std::nullopt;
    const auto [end, error] = std::from_chars(token.data(), token.data() + 2, value, 16);
    if (error != std::errc() || end != token.data() + 2) return std::nullopt;
    return value;
}

}  // namespace

std::string DumpCommand(std::string_view memory, std::uint32_t first, std::uint32_t count)
{
    return "dump /h " + std::string(memory) + " " + Hex(first) + " " + Hex(first + count - 1) + " " +
           std::to_string(kDumpBytesPerLine);
}

std::optional<std::vector<std::uint8_t>> ParseHexDump(std::string_view reply, std::uint32_t first, std::uint32_t count)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(count);
    while (!reply.empty()) {
        const auto end = std::min(reply.find('\n'), reply.size());
        std::string_view line = reply.substr(0, end);
        reply.remove_prefix(std::min(end + 1, reply.size()));
        if (line.find_first_not_of(' ') == std::string_view::npos) continue;
        const auto address = ParseConsoleNumber(NextToken(line));
        if (!address || bytes.size() >= count || *address != first + bytes.size()) return std::nullopt;
        // Exactly as many byte tokens as the line must hold: the character
        // column after them may itself look like a hex byte.
        const std::size_t onLine = std::min<std::size_t>(kDumpBytesPerLine, count - bytes.size());
        for (std::size_t i = 0; i < onLine; ++i) {
            const auto byte = HexByte(NextToken(line));
            if (!byte) return std::nullopt;
            bytes.push_back(*byte);
        }
    }
    if (bytes.size() != count) return std::nullopt;
    return bytes;
}
