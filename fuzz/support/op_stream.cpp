#include "fuzz/support/op_stream.h"

#include <algorithm>

std::uint16_t OpStream::U16()
{
    const std::uint16_t low = Byte();
    return static_cast<std::uint16_t>(low | (Byte() << 8));
}

std::int32_t OpStream::I32()
{
    const std::uint32_t low = U16();
    return static_cast<std::int32_t>(low | (static_cast<std::uint32_t>(U16()) << 16));
}

std::uint64_t OpStream::U64()
{
    const std::uint64_t low = static_cast<std::uint32_t>(I32());
    return low | (static_cast<std::uint64_t>(static_cast<std::uint32_t>(I32())) << 32);
}

std::string OpStream::Text(size_t maxBytes)
{
    const size_t wanted = std::min<size_t>(U16(), maxBytes);
    const size_t count = std::min(wanted, m_size - std::min(m_offset, m_size));
    std::string text(reinterpret_cast<const char*>(m_data + m_offset), count);
    m_offset += count;
    return text;
}
