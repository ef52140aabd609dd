#include "grid/grid_row.h"

#include <utility>
#include <vector>

// ---------------------------------------------------------------- row

CGridRow::CGridRow()
{
    Reset();
}

CGridRow::~CGridRow()
{
    if (m_container) m_container->RemoveRow(m_container->IndexOf(this));
    children.DeleteAll();
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
    SetFlags(GRF_CREATED);
    m_cells.Clear();
    children.DeleteAll();
}

void CGridRow::SetFlags(std::uint32_t flags)
{
    const bool showed = ShowsChildren();
    m_flags = flags;
    if (showed != ShowsChildren()) MarkStale();
}

void CGridRow::CopyOwnFrom(const CGridRow& other)
{
    level = other.level;
    m_cells = other.m_cells;
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
            copy->SetFlags(child->m_flags);
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
    // Read before the old children go: other may be one of them.
    const std::uint32_t flags = other.m_flags;
    CopyOwnFrom(other);
    children.DeleteAll();
    SetFlags(flags);
    std::vector<CGridRow*> rows;
    copies.Release(rows);
    for (CGridRow* row : rows) children.AddRow(row);
}

void CGridRow::SetCellEdit(int c, std::uint32_t kind, BOOL bEnable, int nLimit)
{
    m_cells.Edit(c, [&](GridCell& cell) {
        cell.kind = bEnable ? kind : 0;
        cell.value = 0;
        cell.limit = nLimit == -1 ? 0 : static_cast<std::uint32_t>(nLimit);
    });
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
    m_cells.Edit(c, [bOn](GridCell& cell) { cell.kind = bOn ? (cell.kind | GCF_LIST_EDIT) : (cell.kind & ~GCF_LIST_EDIT); });
}

void CGridRow::SetCellIcon(int c, int nValue)
{
    m_cells.Edit(c, [nValue](GridCell& cell) {
        cell.kind |= GCF_ICON;
        cell.value = static_cast<std::uint32_t>(nValue);
    });
}

void CGridRow::SetCellText(int c, std::string_view text)
{
    m_cells.Edit(c, [text](GridCell& cell) { cell.text.Assign(text); });
}

void CGridRow::SetCellKind(int c, std::uint32_t kind)
{
    m_cells.Edit(c, [kind](GridCell& cell) { cell.kind = kind; });
}

std::string_view CGridRow::CellText(int c) const
{
    const GridCell* cell = Cell(c);
    return cell ? cell->text.View() : std::string_view();
}
