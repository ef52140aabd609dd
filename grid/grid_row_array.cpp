// The row array's changes of shape: links, ownership and the line counts.
#include <algorithm>
#include <vector>

#include "grid/grid_row.h"

CGridRowArray::~CGridRowArray()
{
    DeleteAll();
}

bool CGridRowArray::OwnerShows() const
{
    return m_owner && m_owner->ShowsChildren();
}

void CGridRowArray::OwnerChanged(bool ownerShowed)
{
    if (m_owner && (ownerShowed || m_owner->ShowsChildren())) m_owner->MarkStale();
}

bool CGridRowArray::LiesUnder(const CGridRow* row) const
{
    // Only a row with children can be above its owner: a leaf, as when a
    // chain is built from the top down, costs no walk up.
    if (row == m_owner) return true;
    if (row->children.GetSize() == 0) return false;
    for (const CGridRow* above = m_owner; above; above = above->m_container ? above->m_container->m_owner : nullptr) {
        if (above == row) return true;
    }
    return false;
}

void CGridRowArray::AddRow(CGridRow* row)
{
    InsertRow(GetSize(), row);
}

void CGridRowArray::InsertRow(int index, CGridRow* row)
{
    if (!row || index < 0 || index > GetSize() || GetSize() >= kPtrArrayMaxSize) return;
    if (row->m_container || LiesUnder(row)) return;
    const bool ownerShowed = OwnerShows();
    const int lines = row->ShownLines();
    CGridRow* before = GetRow(index - 1);
    CGridRow* after = GetRow(index);
    row->prev = before;
    row->next = after;
    if (before) before->next = row;
    if (after) after->prev = row;
    InsertAt(index, row);
    m_lines.Insert(index, lines);
    row->m_container = this;
    row->m_indexHint = index;
    OwnerChanged(ownerShowed);
}

void CGridRowArray::Detach(int index, int count)
{
    // A stale row leaving must not stay in the stale list.
    Refresh();
    const bool ownerShowed = OwnerShows();
    CGridRow* first = GetRow(index);
    CGridRow* last = GetRow(index + count - 1);
    if (first->prev) first->prev->next = last->next;
    if (last->next) last->next->prev = first->prev;
    for (int i = index; i < index + count; ++i) GetRow(i)->m_container = nullptr;
    RemoveAt(index, count);
    m_lines.Erase(index, count);
    OwnerChanged(ownerShowed);
}

void CGridRowArray::RemoveRow(int index)
{
    if (!GetRow(index)) return;
    Detach(index, 1);
}

void CGridRowArray::DeleteRows(int index, int count)
{
    if (index < 0 || index >= GetSize() || count <= 0) return;
    const int n = std::min(GetSize() - index, count);
    std::vector<CGridRow*> rows(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) rows[static_cast<size_t>(i)] = GetRow(index + i);
    Detach(index, n);
    for (CGridRow* row : rows) delete row;
}

void CGridRowArray::Release(std::vector<CGridRow*>& rows)
{
    for (int i = 0; i < GetSize(); ++i) {
        CGridRow* row = GetRow(i);
        row->m_container = nullptr;
        row->m_stale = false;
        rows.push_back(row);
    }
    RemoveAll();
    m_lines.Clear();
    m_stale.clear();
}

void CGridRowArray::DeleteAll()
{
    if (GetSize() == 0) return;
    const bool ownerShowed = OwnerShows();
    // Each row's children are taken out before it is freed, so that freeing
    // goes through a list of pending rows instead of nested destructors.
    std::vector<CGridRow*> pending;
    Release(pending);
    while (!pending.empty()) {
        CGridRow* row = pending.back();
        pending.pop_back();
        row->children.Release(pending);
        delete row;
    }
    OwnerChanged(ownerShowed);
}
