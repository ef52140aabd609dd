// Rows of the grid control: a tree of rows, each with fixed room for 32 cells,
// the text of its first column and an opaque record of the derived grid. The
// grid shows the tree as a flat list of lines in display order: a row, then,
// when it is expanded, its children, recursively.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>

#include "platform/text/cstring.h"
#include "platform/text/ptr_array.h"

// Row flags.
constexpr std::uint32_t GRF_PARENT = 1;
// Expandable, and put back to collapsed whenever its parent is expanded.
constexpr std::uint32_t GRF_SUBPARENT = 2;
// Set at construction; nothing tests it.
constexpr std::uint32_t GRF_CREATED = 4;
constexpr std::uint32_t GRF_COLLAPSED = 8;
constexpr std::uint32_t GRF_EXPANDED = 16;

// Cell kinds.
constexpr std::uint32_t GCF_TEXT_EDIT = 0x40;
constexpr std::uint32_t GCF_NUMBER_EDIT = 0x80;
constexpr std::uint32_t GCF_LIST_EDIT = 0x100;
constexpr std::uint32_t GCF_ICON = 0x200;

// Every row has room for this many cells, whatever the number of columns.
constexpr int kGridMaxCells = 32;
constexpr int kGridCellTextBytes = 256;
// A row's display format after construction (the watch reads 2 as hexadecimal).
constexpr std::uint32_t kGridDefaultFormat = 2;

struct GridCell {
    std::uint32_t kind;
    std::uint32_t value;
    std::uint32_t limit;
    char text[kGridCellTextBytes];
};

// The derived grid's data for a row: 84 bytes, aligned for 32-bit fields,
// copied and freed as bytes, so the grid never needs to know their type. The
// derived grid views them as its own record through As<T>(); the byte array
// gives that record a lifetime of its own, so the view aliases nothing.
constexpr std::size_t kGridRowRecordBytes = 84;

struct GridRowRecord {
    alignas(std::uint32_t) std::byte bytes[kGridRowRecordBytes]{};

    template <class T>
    T* As() noexcept
    {
        CheckViewable<T>();
        return std::launder(reinterpret_cast<T*>(bytes));
    }
    template <class T>
    const T* As() const noexcept
    {
        CheckViewable<T>();
        return std::launder(reinterpret_cast<const T*>(bytes));
    }

private:
    template <class T>
    static constexpr void CheckViewable()
    {
        static_assert(std::is_trivially_copyable_v<T>, "a row record is copied as bytes");
        static_assert(sizeof(T) <= kGridRowRecordBytes, "a row record holds 84 bytes");
        static_assert(alignof(T) <= alignof(std::uint32_t), "a row record is aligned for 32-bit fields");
    }
};
static_assert(sizeof(GridRowRecord) == kGridRowRecordBytes, "the row record is the derived grid's 84-byte record");

class CGridRow;

// Owns its rows and keeps every row's previous/next links equal to its neighbours.
class AFX_EXT_CLASS CGridRowArray : public CPtrArray {
public:
    CGridRowArray() = default;
    ~CGridRowArray() override;
    CGridRowArray(const CGridRowArray&) = delete;
    CGridRowArray& operator=(const CGridRowArray&) = delete;

    CGridRow* GetRow(int index) const { return static_cast<CGridRow*>(GetAt(index)); }

    void AddRow(CGridRow* row);
    // index from 0 to the size.
    void InsertRow(int index, CGridRow* row);
    // Takes the row out without freeing it; an index at or past the end does nothing.
    void RemoveRow(int index);
    void DeleteRows(int index, int count);
    void DeleteAll();
};

class AFX_EXT_CLASS CGridRow {
public:
    CGridRow();
    ~CGridRow();
    CGridRow(const CGridRow& other);
    CGridRow& operator=(const CGridRow& other);

    // Flags 4, every cell plain and empty, children deleted.
    void Reset();

    void SetCellTextEdit(int c, BOOL bEnable, int nLimit);
    void SetCellNumberEdit(int c, BOOL bEnable, int nLimit);
    void SetCellList(int c, BOOL bOn);
    void SetCellIcon(int c, int nValue);

    BOOL HasChildren() const { return (flags & (GRF_PARENT | GRF_SUBPARENT)) != 0; }
    BOOL IsExpanded() const { return HasChildren() && !(flags & GRF_COLLAPSED); }
    // The display order shows children under this test.
    bool ShowsChildren() const { return (flags & GRF_EXPANDED) && children.GetSize() > 0; }
    // Depth: only the low 8 bits count.
    int Level() const { return static_cast<int>(level & 0xFF); }
    // A cell by column; null outside 0..31.
    GridCell* Cell(int c) { return c >= 0 && c < kGridMaxCells ? &cells[c] : nullptr; }
    const GridCell* Cell(int c) const { return c >= 0 && c < kGridMaxCells ? &cells[c] : nullptr; }

    std::uint32_t flags = GRF_CREATED;
    std::uint32_t level = 0;
    GridCell cells[kGridMaxCells];
    CString text;
    BOOL changed = FALSE;
    // Owned: freed with the row, copied with it.
    GridRowRecord* record = nullptr;
    CGridRowArray children;
    std::uint32_t format = kGridDefaultFormat;
    CGridRow* parent = nullptr;
    CGridRow* prev = nullptr;
    CGridRow* next = nullptr;

private:
    void SetCellEdit(int c, std::uint32_t kind, BOOL bEnable, int nLimit);
    // Everything copied but the children and the links.
    void CopyOwnFrom(const CGridRow& other);
    void CopyFrom(const CGridRow& other);
};

// The row on a display line, counting in display order from *counter, the
// display line of the array's first row; on return *counter is past the rows
// walked. None for a negative line or one past the last. A walk over the shown
// rows: a derived grid's FindRowAt may use it, or keep its own faster index.
AFX_EXT_CLASS CGridRow* FindRowInDisplayOrder(int displayIndex, CGridRowArray* rows, int* counter);
// Display lines the array takes: its rows and, under each row that shows its
// children, theirs, however deep.
AFX_EXT_CLASS int CountShownRows(const CGridRowArray& rows);
