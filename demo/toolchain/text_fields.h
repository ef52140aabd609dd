// Small parsing helpers for the toolchain's text: numbers that must be whole
// and in range, and fields split at a separator.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

// A whole field as an unsigned number; nullopt for empty, trailing junk or overflow.
inline std::optional<std::uint32_t> ParseUnsigned(std::string_view text, int base = 10)
{
    std::uint32_t value = 0;
    const char* end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, value, base);
    if (text.empty() || error != std::errc() || at != end) return std::nullopt;
    return value;
}

inline std::optional<int> ParseInt(std::string_view text)
{
    const auto value = ParseUnsigned(text);
    if (!value || *value > 0x7FFFFFFF) return std::nullopt;
    return static_cast<int>(*value);
}

inline std::vector<std::string_view> SplitFields(std::string_view text, char separator)
{
    std::vector<std::string_view> fields;
    for (;;) {
        const std::size_t at = text.find(separator);
        fields.push_back(text.substr(0, at));
        if (at == std::string_view::npos) return fields;
        text.remove_prefix(at + 1);
    }
}
