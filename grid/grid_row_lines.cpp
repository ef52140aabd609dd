// Display lines of the row tree: keeping the counts up to date, and the row
// on a line and the line of a row.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <vector>

#include "grid/grid_row.h"

void CGridRow::MarkStale()
{
    for (CGridRow* row = this; row->m_container && !row->m_stale;) {
        CGridRowArray* array = row->m_container;
        row->m_stale = true;
        array->m_stale.push_back(row);
        // An owner hiding its children keeps its one line.
        if (!array->OwnerShows()) return;
        row = array->m_owner;
    }
}

void CGridRowArray::Refresh() const
{
    if (m_stale.empty()) return;
    // The arrays whose stale rows are being counted, each with the next one
    // to look at: a row's children are brought up to date before the row, the
    // innermost array last, so that depth costs no call stack.
    struct Frame {
        const CGridRowArray* array;
        std::size_t next;
    };
    std::vector<Frame> frames{{this, 0}};
    while (!frames.empty()) {
        Frame& frame = frames.back();
        const CGridRowArray* array = frame.array;
        if (frame.next == array->m_stale.size()) {
            array->m_stale.clear();
            frames.pop_back();
            continue;
        }
        CGridRow* row = array->m_stale[frame.next];
        if (row->ShowsChildren() && !row->children.m_stale.empty()) {
            frames.push_back({&row->children, 0});
            continue;
        }
        ++frame.next;
        row->m_stale = false;
        array->m_lines.Set(array->Locate(row), row->ShownLines());
    }
}

int CGridRowArray::Locate(const CGridRow* row) const
{
    // Each insertion or removal shifts a row by one at most, and moved the
    // pointers after it anyway: a search outwards from the last known index
    // costs no more than the shifts since it was last found.
    const int size = GetSize();
    const int hint = std::clamp(row->m_indexHint, 0, size - 1);
    for (int d = 0; d < size; ++d) {
        if (hint + d < size && GetRow(hint + d) == row) return row->m_indexHint = hint + d;
        if (hint - d >= 0 && GetRow(hint - d) == row) return row->m_indexHint = hint - d;
    }
    return -1;
}

int CGridRowArray::IndexOf(const CGridRow* row) const
{
    return row && row->m_container == this ? Locate(row) : -1;
}

int CGridRowArray::ShownLines() const
{
    Refresh();
    return m_lines.Total();
}

int CGridRowArray::IndexAtLine(int line) const
{
    if (line < 0 || line >= ShownLines()) return -1;
    return m_lines.Find(line).index;
}

int CGridRowArray::LineOfIndex(int index) const
{
    if (index < 0 || index > GetSize()) return -1;
    Refresh();
    return m_lines.Before(index);
}

CGridRow* FindRowInDisplayOrder(int displayIndex, CGridRowArray* rows, int* counter)
{
    if (displayIndex < 0 || !rows || !counter) return nullptr;
    const int total = rows->ShownLines();
    const std::int64_t first = *counter;
    std::int64_t line = displayIndex - first;
    if (line < 0 || line >= total) {
        // Past all the array's lines, as a walk over them would leave it.
        *counter = static_cast<int>(std::min<std::int64_t>(first + total, INT_MAX));
        return nullptr;
    }
    // Down one level at a time: the row holding the line, then, below its own
    // line, its children.
    for (const CGridRowArray* array = rows;;) {
        const int index = array->IndexAtLine(static_cast<int>(line));
        CGridRow* row = array->GetRow(index);
        line -= array->LineOfIndex(index);
        if (line == 0) {
            *counter = displayIndex + 1;
            return row;
        }
        --line;
        array = &row->children;
    }
}

int CountShownRows(const CGridRowArray& rows)
{
    return rows.ShownLines();
}

int DisplayLineOf(const CGridRowArray& top, const CGridRow* row)
{
    if (!row) return -1;
    // First whether it is shown under top at all, which needs no counts.
    for (const CGridRow* at = row;;) {
        const CGridRowArray* array = at->Container();
        if (!array) return -1;
        if (array == &top) break;
        at = array->Owner();
        if (!at || !at->ShowsChildren()) return -1;
    }
    int line = 0;
    for (const CGridRow* at = row;;) {
        const CGridRowArray* array = at->Container();
        line += array->LineOfIndex(array->IndexOf(at));
        if (array == &top) return line;
        at = array->Owner();
        ++line;  // the owner's own line
    }
}
