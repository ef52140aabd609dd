#include "grid/grid_cell.h"

#include <cstring>

#include "platform/text/gbk.h"

char* GridCellText::Block() const noexcept
{
    char* block = nullptr;
    std::memcpy(&block, m_bytes, sizeof block);
    return block;
}

void GridCellText::SetBlock(char* block) noexcept
{
    std::memcpy(m_bytes, &block, sizeof block);
}

GridCellText::GridCellText(const GridCellText& other)
{
    Assign(other.View());
}

GridCellText::GridCellText(GridCellText&& other) noexcept
{
    TakeFrom(other);
}

GridCellText& GridCellText::operator=(const GridCellText& other)
{
    if (this != &other) Assign(other.View());
    return *this;
}

GridCellText& GridCellText::operator=(GridCellText&& other) noexcept
{
    if (this != &other) {
        Clear();
        TakeFrom(other);
    }
    return *this;
}

GridCellText::~GridCellText()
{
    Clear();
}

void GridCellText::TakeFrom(GridCellText& other) noexcept
{
    // Inline bytes and a block's address move alike; other is left empty.
    std::memcpy(m_bytes, other.m_bytes, sizeof m_bytes);
    m_size = other.m_size;
    other.m_size = 0;
    other.m_bytes[0] = '\0';
}

void GridCellText::Clear() noexcept
{
    if (OnHeap()) delete[] Block();
    m_size = 0;
    m_bytes[0] = '\0';
}

void GridCellText::Assign(std::string_view text)
{
    text = text.substr(0, text.find('\0'));
    // Only a longer text has a character to cut.
    const std::size_t n = text.size() <= kMaxBytes ? text.size() : GbkPrefixBytes(text, kMaxBytes);
    // The old bytes stay until the new ones are in place: text may be them.
    char* old = OnHeap() ? Block() : nullptr;
    if (n > kInlineBytes) {
        // A refresh mostly rewrites a text of the same length: its block serves again.
        char* block = old && n == m_size ? old : new char[n + 1];
        std::memmove(block, text.data(), n);
        block[n] = '\0';
        if (old != block) delete[] old;
        SetBlock(block);
    } else {
        if (n > 0) std::memmove(m_bytes, text.data(), n);  // an empty view may have no data
        m_bytes[n] = '\0';
        delete[] old;
    }
    m_size = static_cast<std::uint8_t>(n);
}
