// Reading the reply of s51's `dump /h SPACE FIRST LAST 16`: lines of an
// address and sixteen two-digit hex bytes (then their characters).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Bytes per line the dump is asked for; the blocks read are multiples of it.
constexpr std::uint32_t kDumpBytesPerLine = 16;

// The command dumping count bytes (a multiple of kDumpBytesPerLine) from first.
std::string DumpCommand(std::string_view memory, std::uint32_t first, std::uint32_t count);
// The count bytes from first in a dump reply; nothing unless every line holds
// the address that comes next and all its bytes.
std::optional<std::vector<std::uint8_t>> ParseHexDump(std::string_view reply, std::uint32_t first, std::uint32_t count);
