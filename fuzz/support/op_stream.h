// The fuzz input read front to back as a stream of small values, so that a
// seed can be written by hand as a list of operations. A target that plays
// operations and a fuzz service that answers them share one stream, so the
// bytes follow the order in which things happen. Past the end every value
// reads as zero and every text as empty: a cut input still replays.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

class OpStream {
public:
    OpStream(const std::uint8_t* data, size_t size) : m_data(data), m_size(size) {}

    bool Done() const { return m_offset >= m_size; }

    std::uint8_t Byte() { return Done() ? 0 : m_data[m_offset++]; }
    // False at the end, leaving out alone.
    bool Next(std::uint8_t& out)
    {
        if (Done()) return false;
        out = Byte();
        return true;
    }
    bool Bool() { return Byte() & 1; }
    // A value in [0, count); count is at most 256.
    unsigned Below(unsigned count) { return count ? Byte() % count : 0; }
    // Little-endian.
    std::uint16_t U16();
    std::uint32_t U32();
    std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
    std::uint64_t U64();
    // A 16-bit little-endian length cut to maxBytes, then that many bytes (any
    // bytes, NULs included; fewer when the input ends).
    std::string Text(size_t maxBytes);
    // The same after a length byte.
    std::string ShortText(size_t maxBytes);
    // Up to n bytes into out; returns how many there were.
    size_t Copy(void* out, size_t n);

private:
    // Up to count bytes, fewer when the input ends.
    std::string Bytes(size_t count);

    const std::uint8_t* m_data;
    size_t m_size;
    size_t m_offset = 0;
};
