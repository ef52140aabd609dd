// One cell of a grid row: its kind, value, edit limit and text. A row holds
// tens of thousands of these when an array is expanded, so a cell is 40
// bytes and its text lives inline unless it is long.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/core/win_types.h"

// Room a cell's text takes at most, with its terminator.
constexpr int kGridCellTextBytes = 256;

// A cell's text: at most 255 bytes, up to the first NUL of what it was given,
// cut to whole characters. Values and attributes are short and stay inline;
// a longer text has a block of its own, sized to fit.
class AFX_EXT_CLASS GridCellText {
public:
    static constexpr std::size_t kMaxBytes = kGridCellTextBytes - 1;

    GridCellText() noexcept = default;
    GridCellText(const GridCellText& other);
    GridCellText(GridCellText&& other) noexcept;
    GridCellText& operator=(const GridCellText& other);
    GridCellText& operator=(GridCellText&& other) noexcept;
    ~GridCellText();

    std::string_view View() const noexcept { return {Data(), m_size}; }
    // Always terminated.
    const char* c_str() const noexcept { return Data(); }
    std::size_t size() const noexcept { return m_size; }
    bool empty() const noexcept { return m_size == 0; }

    // Any view, one into this text's own bytes included.
    void Assign(std::string_view text);
    void Clear() noexcept;

private:
    static constexpr std::size_t kInlineBytes = 23;

    bool OnHeap() const noexcept { return m_size > kInlineBytes; }
    char* Block() const noexcept;
    void SetBlock(char* block) noexcept;
    const char* Data() const noexcept { return OnHeap() ? Block() : m_bytes; }
    void TakeFrom(GridCellText& other) noexcept;

    // The text and its terminator; for a longer text, the address of its block.
    char m_bytes[kInlineBytes + 1]{};
    std::uint8_t m_size = 0;
};
static_assert(GridCellText::kMaxBytes <= UINT8_MAX, "a cell text's length is kept in one byte");

// The text comes first and the cell is pointer-aligned, so that a long
// text's block address sits where leak checkers look for pointers: in the
// middle of the cell it would be misaligned, and a live grid's long texts
// would be reported as leaked.
struct alignas(alignof(char*)) GridCell {
    GridCellText text;
    std::uint32_t kind = 0;
    std::uint32_t value = 0;
    std::uint32_t limit = 0;

    // What a column that was never set reads as.
    bool IsEmpty() const noexcept { return kind == 0 && value == 0 && limit == 0 && text.empty(); }
};
static_assert(sizeof(GridCell) <= 40, "a cell costs 40 bytes at most");
static_assert(offsetof(GridCell, text) == 0, "a long text's block address is pointer-aligned");
