#include "grid/grid_row.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

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

void CGridRow::CopyOwnFrom(const CGridRow& other)
{
    flags = other.flags;
    level = other.level;
    std::memcpy(cells, other.cells, sizeof cells);
    text = other.text;
    changed = other.changed;
    format = other.format;
    delete record;
    record = other.record ? new GridRowRecord(*other.record) : nullptr;
}

void CGridRow::CopyFrom(const CGridRow& other)
{
    // The copies of the descendants are built aside first, so that copying a
    // row from one of its own descendants or ancestors reads nothing freed;
    // pending source rows are kept in a list, so depth costs no call stack.
    CGridRowArray copies;
    std::vector<std::pair<const CGridRow*, CGridRow*>> pending;
    auto copyChildren = [&pending](const CGridRow& source, CGridRow* parent, CGridRowArray& into) {
        for (int i = 0; i < source.children.GetSize(); ++i) {
            const CGridRow* child = source.children.GetRow(i);
            auto* copy = new CGridRow;
            copy->CopyOwnFrom(*child);
            copy->parent = parent;
            into.AddRow(copy);
            pending.emplace_back(child, copy);
        }
    };
    copyChildren(other, this, copies);
    while (!pending.empty()) {
        const auto [source, copy] = pending.back();
        pending.pop_back();
        copyChildren(*source, copy, copy->children);
    }
    CopyOwnFrom(other);
    children.DeleteAll();
    for (int i = 0; i < copies.GetSize(); ++i) children.AddRow(copies.GetRow(i));
    copies.RemoveAll();
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
    if (GetSize() == 0) return;
    // Each row's children are taken out before it is freed, so that freeing
    // goes through a list of pending rows instead of nested destructors.
    std::vector<CGridRow*> pending;
    for (int i = 0; i < GetSize(); ++i) pending.push_back(GetRow(i));
    RemoveAll();
    while (!pending.empty()) {
        CGridRow* row = pending.back();
        pending.pop_back();
        for (int i = 0; i < row->children.GetSize(); ++i) pending.push_back(row->children.GetRow(i));
        row->children.RemoveAll();
        delete row;
    }
}

CGridRow* FindRowInDisplayOrder(int displayIndex, CGridRowArray* rows, int* counter)
{
    if (displayIndex < 0 || !rows || !counter) return nullptr;
    // The arrays being walked, each with the index of its next row: the
    // innermost last, so that depth costs no call stack.
    std::vector<std::pair<CGridRowArray*, int>> walk{{rows, 0}};
    while (!walk.empty()) {
        auto& [array, next] = walk.back();
        if (next == array->GetSize()) {
            walk.pop_back();
            continue;
        }
        CGridRow* row = array->GetRow(next++);
        if ((*counter)++ == displayIndex) return row;
        if (row->ShowsChildren()) walk.emplace_back(&row->children, 0);
    }
    return nullptr;
}

int CountShownRows(const CGridRowArray& rows)
{
    int count = 0;
    std::vector<const CGridRowArray*> pending{&rows};
    while (!pending.empty()) {
        const CGridRowArray* array = pending.back();
        pending.pop_back();
        count += array->GetSize();
        for (int i = 0; i < array->GetSize(); ++i) {
            const CGridRow* row = array->GetRow(i);
            if (row->ShowsChildren()) pending.push_back(&row->children);
        }
    }
    return count;
}
