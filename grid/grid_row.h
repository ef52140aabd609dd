// Rows of the grid control: a tree of rows, each with up to 32 cells,
// the text of its first column and an opaque record of the derived grid. The
// grid shows the tree as a flat list of lines in display order: a row, then,
// when it is expanded, its children, recursively.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>
#include <type_traits>
#include <vector>

#include "grid/grid_cells.h"
#include "grid/grid_line_sums.h"
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

// A row's display format after construction (the watch reads 2 as hexadecimal).
constexpr std::uint32_t kGridDefaultFormat = 2;

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

// Owns its rows and keeps every row's previous/next links equal to its
// neighbours, and the display lines each row takes (see GridLineSums), so
// that the row on a line and the line of a row cost O(log n) per level.
// The counts are exact within an array; a change deep in the tree marks the
// rows above it stale up to the first one already stale, and any query
// brings the stale rows up to date first, so a change costs O(depth) at
// most, and building a deep chain from the top down O(1) a row.
class AFX_EXT_CLASS CGridRowArray : public CPtrArray {
public:
    CGridRowArray() = default;
    ~CGridRowArray() override;
    CGridRowArray(const CGridRowArray&) = delete;
    CGridRowArray& operator=(const CGridRowArray&) = delete;

    CGridRow* GetRow(int index) const { return static_cast<CGridRow*>(GetAt(index)); }

    void AddRow(CGridRow* row);
    // index from 0 to the size. A row already held by an array, or one this
    // array lies under (it would hold itself), is refused: nothing happens.
    void InsertRow(int index, CGridRow* row);
    // Takes the row out without freeing it; an index at or past the end does nothing.
    void RemoveRow(int index);
    void DeleteRows(int index, int count);
    void DeleteAll();

    // The row whose children this array is; null for a top-level array.
    CGridRow* Owner() const { return m_owner; }
    // Display lines the array takes: each row, and under each row that shows
    // its children, theirs, however deep.
    int ShownLines() const;
    // The index of the row whose lines hold line, counting the array's first
    // row as line 0; -1 for a line outside the array.
    int IndexAtLine(int line) const;
    // The line of row index, counting the array's first row as line 0;
    // ShownLines() for the size, -1 outside 0..size.
    int LineOfIndex(int index) const;
    // -1 when the row is not one of this array's. O(1) amortised.
    int IndexOf(const CGridRow* row) const;

private:
    friend class CGridRow;
    explicit CGridRowArray(CGridRow* owner) : m_owner(owner) {}

    // Mutators of the pointer block that would bypass the links and the counts.
    using CPtrArray::Add;
    using CPtrArray::GetData;
    using CPtrArray::InsertAt;
    using CPtrArray::RemoveAll;
    using CPtrArray::RemoveAt;
    using CPtrArray::SetAt;
    using CPtrArray::SetSize;

    // The index of a row known to be held here: searched outwards from the
    // row's last known index, so shifts from insertions cost what they moved.
    int Locate(const CGridRow* row) const;
    // Whether row is the owner of this array or above it.
    bool LiesUnder(const CGridRow* row) const;
    // Takes rows index..index + count - 1 out, unlinked from the array, not freed.
    void Detach(int index, int count);
    // Empties the array without touching its owner's counts; the rows, held
    // by none, are appended to rows, each with its own children still held.
    void Release(std::vector<CGridRow*>& rows);
    // After a change of the rows or their counts: the owner's lines change
    // when it shows its children before or after.
    void OwnerChanged(bool ownerShowed);
    bool OwnerShows() const;
    // Brings the counts of the stale rows, and of the stale rows under them, up to date.
    void Refresh() const;

    CGridRow* m_owner = nullptr;
    mutable GridLineSums m_lines;
    // Rows whose count may be out of date, each marked stale.
    mutable std::vector<CGridRow*> m_stale;
};

class AFX_EXT_CLASS CGridRow {
public:
    CGridRow();
    // A row still held by an array leaves it first.
    ~CGridRow();
    // Deep copies: the children are copied, the links and the holding array are not.
    CGridRow(const CGridRow& other);
    CGridRow& operator=(const CGridRow& other);

    // Flags 4, every cell plain and empty, children deleted.
    void Reset();

    // The cell setters leave a column outside 0..31 alone.
    void SetCellTextEdit(int c, BOOL bEnable, int nLimit);
    void SetCellNumberEdit(int c, BOOL bEnable, int nLimit);
    void SetCellList(int c, BOOL bOn);
    void SetCellIcon(int c, int nValue);
    // Cut to 255 bytes of whole characters, and at the first NUL.
    void SetCellText(int c, std::string_view text);
    // The kind bits as given, for combinations the setters above do not make.
    void SetCellKind(int c, std::uint32_t kind);

    std::uint32_t Flags() const { return m_flags; }
    // Every flag change goes through here, so that the lines above follow.
    void SetFlags(std::uint32_t flags);
    // Clears the collapsed flag and sets the expanded one.
    void MarkExpanded() { SetFlags((m_flags & ~GRF_COLLAPSED) | GRF_EXPANDED); }
    // Clears the expanded flag and sets the collapsed one.
    void MarkCollapsed() { SetFlags((m_flags & ~GRF_EXPANDED) | GRF_COLLAPSED); }

    BOOL HasChildren() const { return (m_flags & (GRF_PARENT | GRF_SUBPARENT)) != 0; }
    BOOL IsExpanded() const { return HasChildren() && !(m_flags & GRF_COLLAPSED); }
    // The display order shows children under this test.
    bool ShowsChildren() const { return (m_flags & GRF_EXPANDED) && children.GetSize() > 0; }
    // Display lines of the row: 1, and its children's when it shows them.
    int ShownLines() const { return 1 + (ShowsChildren() ? children.ShownLines() : 0); }
    // The array holding the row; null for a row in none.
    CGridRowArray* Container() const { return m_container; }
    // Depth: only the low 8 bits count.
    int Level() const { return static_cast<int>(level & 0xFF); }
    // A cell by column; a column never set reads as an empty cell; null
    // outside 0..31. Valid until the row's cells next change.
    const GridCell* Cell(int c) const { return m_cells.Find(c); }
    // Empty for a column without text and outside 0..31.
    std::string_view CellText(int c) const;
    // Cells kept: the columns that hold anything.
    int CellCount() const { return m_cells.Count(); }

    std::uint32_t level = 0;
    CString text;
    BOOL changed = FALSE;
    // Owned: freed with the row, copied with it.
    GridRowRecord* record = nullptr;
    CGridRowArray children{this};
    std::uint32_t format = kGridDefaultFormat;
    CGridRow* parent = nullptr;
    CGridRow* prev = nullptr;
    CGridRow* next = nullptr;

private:
    friend class CGridRowArray;

    void SetCellEdit(int c, std::uint32_t kind, BOOL bEnable, int nLimit);
    // Everything copied but the flags, the children and the links.
    void CopyOwnFrom(const CGridRow& other);
    void CopyFrom(const CGridRow& other);
    // The row's lines may have changed: it and the rows above it, up to one
    // already stale or one that does not show its children, are marked stale.
    void MarkStale();

    GridCells m_cells;
    std::uint32_t m_flags = GRF_CREATED;
    CGridRowArray* m_container = nullptr;
    // Where the row was last seen in its array.
    mutable int m_indexHint = 0;
    // Its count in its array may be out of date; it is then in the array's stale list.
    bool m_stale = false;
};

// The row on a display line, counting in display order from *counter, the
// display line of the array's first row; on return *counter is past the rows
// walked: one past the line found, or past all the array's lines when none is.
// None for a negative line (the counter is left alone) or one past the last.
// O(depth × log width): a derived grid's FindRowAt may use it; one that keeps
// its own steps can take the top-level row from rows->IndexAtLine.
AFX_EXT_CLASS CGridRow* FindRowInDisplayOrder(int displayIndex, CGridRowArray* rows, int* counter);
// Display lines the array takes: rows.ShownLines().
AFX_EXT_CLASS int CountShownRows(const CGridRowArray& rows);
// The display line of a row under top, its first line 0; -1 when the row is
// not under top or an array on its way up is not shown. O(depth × log width).
AFX_EXT_CLASS int DisplayLineOf(const CGridRowArray& top, const CGridRow* row);
