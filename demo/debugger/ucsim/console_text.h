// Text helpers for ucsim's console replies: its lines, and the numbers in
// them. A reply that does not read as expected reads as nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// One console line without its carriage return, terminal escapes (s51 clears
// to the end of the line after a disassembly) and trailing blanks.
std::string CleanConsoleLine(std::string_view raw);
// A whole token as an unsigned number: 0x-prefixed hex or decimal.
std::optional<std::uint32_t> ParseConsoleNumber(std::string_view token);
