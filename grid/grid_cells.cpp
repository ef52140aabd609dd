#include "grid/grid_cells.h"

namespace {

// What every column without a cell of its own reads as.
const GridCell kEmptyCell{};

}  // namespace

const GridCell* GridCells::Find(int c) const
{
    if (c < 0 || c >= kGridMaxCells) return nullptr;
    const std::uint32_t bit = 1u << c;
    return m_used & bit ? &m_cells[IndexOf(bit)] : &kEmptyCell;
}

void GridCells::Clear() noexcept
{
    m_cells.clear();
    m_used = 0;
}

void GridCells::Insert(std::uint32_t bit, GridCell&& cell)
{
    if (m_cells.capacity() == 0) m_cells.reserve(kFirstBlock);
    m_cells.insert(m_cells.begin() + static_cast<std::ptrdiff_t>(IndexOf(bit)), std::move(cell));
    m_used |= bit;
}

void GridCells::Erase(std::uint32_t bit)
{
    m_cells.erase(m_cells.begin() + static_cast<std::ptrdiff_t>(IndexOf(bit)));
    m_used &= ~bit;
}
