// A fuzz input read front to back, one field at a time. A target that plays
// operations and a fuzz service that answers them share one reader, so the
// bytes of an input follow the order in which things happen and a seed can be
// written down as a script. Past the end every read fails and gives zeros.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

class FrontBytes {
public:
    FrontBytes(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    bool Empty() const { return m_pos == m_size; }
    std::size_t Remaining() const { return m_size - m_pos; }

    // False at the end, leaving out alone.
    bool Next(std::uint8_t& out)
    {
        if (Empty()) return false;
        out = m_data[m_pos++];
        return true;
    }

    std::uint8_t Byte()
    {
        std::uint8_t b = 0;
        Next(b);
        return b;
    }

    // Little-endian; the bytes that are missing read as zero.
    std::uint16_t U16() { return static_cast<std::uint16_t>(Byte() | Byte() << 8); }
    std::uint32_t U32() { return U16() | static_cast<std::uint32_t>(U16()) << 16; }

    // Up to n bytes into out; returns how many there were.
    std::size_t Copy(void* out, std::size_t n)
    {
        const std::size_t count = std::min(n, Remaining());
        if (count > 0) std::memcpy(out, m_data + m_pos, count);
        m_pos += count;
        return count;
    }

    // A length byte (cut to maxBytes), then that many bytes.
    std::string Text(std::size_t maxBytes)
    {
        std::string text(std::min<std::size_t>(Byte(), maxBytes), '\0');
        text.resize(Copy(text.data(), text.size()));
        return text;
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_pos = 0;
};
