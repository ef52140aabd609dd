// A text built on the stack from pieces and numbers: the watch writes one or
// more for every row it fills, tens of thousands when an array is expanded,
// and a format string would cost more than the row. What does not fit is
// dropped; every value, attribute and element name the watch makes fits.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

class ShortText {
public:
    static constexpr std::size_t kCapacity = 64;

    ShortText& Add(std::string_view text)
    {
        const std::size_t n = std::min(text.size(), kCapacity - m_size);
        if (n > 0) std::memcpy(m_bytes + m_size, text.data(), n);
        m_size += n;
        return *this;
    }

    ShortText& Add(char ch) { return Add(std::string_view(&ch, 1)); }

    // Upper-case digits, at least minDigits of them, as "%0*X" writes them.
    ShortText& AddHex(std::uint32_t value, std::size_t minDigits)
    {
        return AddNumber(value, 16, minDigits);
    }

    // A minus sign when negative, then at least minDigits digits.
    ShortText& AddDecimal(std::int64_t value, std::size_t minDigits = 1)
    {
        if (value < 0) Add('-');
        const std::uint64_t magnitude = value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
        return AddNumber(magnitude, 10, minDigits);
    }

    std::string_view View() const { return {m_bytes, m_size}; }

private:
    ShortText& AddNumber(std::uint64_t value, int base, std::size_t minDigits)
    {
        char digits[20];
        const auto end = std::to_chars(digits, digits + sizeof digits, value, base).ptr;
        const auto count = static_cast<std::size_t>(end - digits);
        std::transform(digits, end, digits, [](char c) { return c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c; });
        for (std::size_t i = count; i < minDigits && m_size < kCapacity; ++i) Add('0');
        return Add(std::string_view(digits, count));
    }

    char m_bytes[kCapacity];
    std::size_t m_size = 0;
};
