#include "grid/grid_row.h"

#include <algorithm>
#include <cstring>

// ---------------------------------------------------------------- row

CGridRow::CGridRow()
{
    Reset();
}

CGridRow::~CGridRow()
{
    delete record;
}

CGridRow::CGridRow(const CGridRow& other)
{
    Reset();
    CopyFrom(other);
}

CGridRow& CGridRow::operator=(const CGridRow& other)
{
    if (this != &other) CopyFrom(other);
    return *this;
}

void CGridRow::Reset()
{
    flags = GRF_CREATED;
    std::memset(cells, 0, sizeof cells);
    children.DeleteAll();
}

void CGridRow::CopyFrom(const CGridRow& other)
{
    flags = other.flags;
    level = other.level;
    std::memcpy(cells, other.cells, sizeof cells);
    text = other.text;
    changed = other.changed;
    format = other.format;
    delete record;
    record = other.record ? new GridRowRecord(*other.record) : nullptr;
    children.DeleteAll();
    for (int i = 0; i < other.children.GetSize(); ++i) {
        auto* copy = new CGridRow(*other.children.GetRow(i));
        copy->parent = this;
        children.AddRow(copy);
    }
}

void CGridRow::SetCellEdit(int c, std::uint32_t kind, BOOL bEnable, int nLimit)
{
    GridCell* cell = Cell(c);
    if (!cell) return;
    cell->kind = bEnable ? kind : 0;
    cell->value = 0;
    cell->limit = nLimit == -1 ? 0 : static_cast<std::uint32_t>(nLimit);
}

void CGridRow::SetCellTextEdit(int c, BOOL bEnable, int nLimit)
{
    SetCellEdit(c, GCF_TEXT_EDIT, bEnable, nLimit);
}

void CGridRow::SetCellNumberEdit(int c, BOOL bEnable, int nLimit)
{
    SetCellEdit(c, GCF_NUMBER_EDIT, bEnable, nLimit);
}

void CGridRow::SetCellList(int c, BOOL bOn)
{
    GridCell* cell = Cell(c);
    if (!cell) return;
    cell->kind = bOn ? (cell->kind | GCF_LIST_EDIT) : (cell->kind & ~GCF_LIST_EDIT);
}

void CGridRow::SetCellIcon(int c, int nValue)
{
    GridCell* cell = Cell(c);
    if (!cell) return;
    cell->kind |= GCF_ICON;
    cell->value = static_cast<std::uint32_t>(nValue);
}

// ---------------------------------------------------------------- array

CGridRowArray::~CGridRowArray()
{
    DeleteAll();
}

void CGridRowArray::AddRow(CGridRow* row)
{
    InsertRow(GetSize(), row);
}

void CGridRowArray::InsertRow(int index, CGridRow* row)
{
    if (!row || index < 0 || index > GetSize()) return;
    CGridRow* before = GetRow(index - 1);
    CGridRow* after = GetRow(index);
    row->prev = before;
    row->next = after;
    if (before) before->next = row;
    if (after) after->prev = row;
    InsertAt(index, row);
}

void CGridRowArray::RemoveRow(int index)
{
    CGridRow* row = GetRow(index);
    if (!row) return;
    if (row->prev) row->prev->next = row->next;
    if (row->next) row->next->prev = row->prev;
    RemoveAt(index);
}

void CGridRowArray::DeleteRows(int index, int count)
{
    if (index < 0 || index >= GetSize() || count <= 0) return;
    const int n = std::min(GetSize() - index, count);
    // From the last one down, so that each removal moves no pointers.
    for (int i = index + n - 1; i >= index; --i) {
        CGridRow* row = GetRow(i);
        RemoveRow(i);
        delete row;
    }
}

void CGridRowArray::DeleteAll()
{
    // Freed last to first so that no row is left linked to a freed neighbour.
    for (int i = GetSize() - 1; i >= 0; --i) delete GetRow(i);
    RemoveAll();
}

CGridRow* FindRowInDisplayOrder(int displayIndex, CGridRowArray* rows, int* counter)
{
    if (displayIndex < 0 || !rows || !counter) return nullptr;
    for (int i = 0; i < rows->GetSize(); ++i) {
        CGridRow* row = rows->GetRow(i);
        if ((*counter)++ == displayIndex) return row;
        if (row->ShowsChildren()) {
            if (CGridRow* found = FindRowInDisplayOrder(displayIndex, &row->children, counter)) return found;
        }
    }
    return nullptr;
}
