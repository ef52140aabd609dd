#include "fuzz/support/op_stream.h"

#include <algorithm>
#include <cstring>

std::uint16_t OpStream::U16()
{
    const std::uint16_t low = Byte();
    return static_cast<std::uint16_t>(low | (Byte() << 8));
}

std::uint32_t OpStream::U32()
{
    const std::uint32_t low = U16();
    return low | (static_cast<std::uint32_t>(U16()) << 16);
}

std::uint64_t OpStream::U64()
{
    const std::uint64_t low = U32();
    return low | (static_cast<std::uint64_t>(U32()) << 32);
}

size_t OpStream::Copy(void* out, size_t n)
{
    const size_t count = std::min(n, m_size - std::min(m_offset, m_size));
    if (count > 0) std::memcpy(out, m_data + m_offset, count);
    m_offset += count;
    return count;
}

std::string OpStream::Text(size_t maxBytes)
{
    return Bytes(std::min<size_t>(U16(), maxBytes));
}

std::string OpStream::ShortText(size_t maxBytes)
{
    return Bytes(std::min<size_t>(Byte(), maxBytes));
}

std::string OpStream::Bytes(size_t count)
{
    std::string text(count, '\0');
    text.resize(Copy(text.data(), text.size()));
    return text;
}
