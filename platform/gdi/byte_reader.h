// Bounds-checked little-endian reads from a byte blob: a read past the end
// fails instead of touching memory beyond it.
#pragma once

#include <cstddef>
#include <cstdint>

namespace gdi {

class ByteReader {
public:
    ByteReader(const unsigned char* data, size_t size) : m_data(data), m_size(data ? size : 0) {}

    size_t Size() const { return m_size; }
    bool Has(size_t offset, size_t count) const { return offset <= m_size && count <= m_size - offset; }
    const unsigned char* At(size_t offset) const { return m_data + offset; }

    bool U8(size_t offset, std::uint32_t& v) const { return Read(offset, 1, v); }
    bool U16(size_t offset, std::uint32_t& v) const { return Read(offset, 2, v); }
    bool U32(size_t offset, std::uint32_t& v) const { return Read(offset, 4, v); }
    bool I32(size_t offset, std::int32_t& v) const
    {
        std::uint32_t u = 0;
        if (!U32(offset, u)) return false;
        v = static_cast<std::int32_t>(u);
        return true;
    }

private:
    bool Read(size_t offset, size_t count, std::uint32_t& v) const
    {
        if (!Has(offset, count)) return false;
        v = 0;
        for (size_t i = 0; i < count; ++i) v |= static_cast<std::uint32_t>(m_data[offset + i]) << (8 * i);
        return true;
    }

    const unsigned char* m_data;
    size_t m_size;
};

}  // namespace gdi
