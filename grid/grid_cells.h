// The cells of a row by column, 0..31. Only the cells in use are kept, in
// column order, one for each bit of a mask of the columns in use, so a row
// of the watch pays for its four columns, not for 32, and reaching a column
// costs a bit count.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "grid/grid_cell.h"

// Every row has room for this many cells, whatever the number of columns.
constexpr int kGridMaxCells = 32;

class AFX_EXT_CLASS GridCells {
public:
    // Null outside 0..31; a column without a cell reads as an empty one.
    const GridCell* Find(int c) const;

    // Lets change edit column c's cell; a cell left empty is not kept.
    // A column outside 0..31 is left alone.
    template <class Change>
    void Edit(int c, Change&& change);

    void Clear() noexcept;
    // Cells kept: the columns in use.
    int Count() const noexcept { return std::popcount(m_used); }

private:
    // The watch fills four columns: the first block holds them all.
    static constexpr std::size_t kFirstBlock = 4;

    std::size_t IndexOf(std::uint32_t bit) const noexcept
    {
        return static_cast<std::size_t>(std::popcount(m_used & (bit - 1)));
    }
    void Insert(std::uint32_t bit, GridCell&& cell);
    void Erase(std::uint32_t bit);

    std::vector<GridCell> m_cells;
    std::uint32_t m_used = 0;
};

template <class Change>
void GridCells::Edit(int c, Change&& change)
{
    if (c < 0 || c >= kGridMaxCells) return;
    const std::uint32_t bit = 1u << c;
    if (m_used & bit) {
        GridCell& cell = m_cells[IndexOf(bit)];
        change(cell);
        if (cell.IsEmpty()) Erase(bit);
        return;
    }
    GridCell cell;
    change(cell);
    if (!cell.IsEmpty()) Insert(bit, std::move(cell));
}
