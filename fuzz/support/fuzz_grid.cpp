#include "fuzz/support/fuzz_grid.h"

CGridRow* FuzzGrid::FindRowAt(int displayIndex, CGridRowArray* rows, int* counter)
{
    return FindRowInDisplayOrder(displayIndex, rows, counter);
}

void FuzzGrid::SyncCount()
{
    SetItemCount(CountVisibleRows(Rows()));
}

CGridRow* FuzzGrid::MakeRow(CGridRow* parent)
{
    if (rowBudget <= 0) return nullptr;
    --rowBudget;
    auto* row = new CGridRow;
    row->parent = parent;
    row->level = parent ? parent->level + 1 : 0;
    row->SetCellTextEdit(0, TRUE, -1);
    row->SetCellNumberEdit(1, TRUE, 16);
    row->SetCellList(2, TRUE);
    row->SetCellIcon(2, 2);
    return row;
}

void FuzzGrid::DeleteSelectedRow()
{
    if (fixedRows) return;
    CGridRow* row = GetSelectedRow();
    if (!row || !row->Container()) return;
    CGridRowArray* rows = row->Container();
    rows->DeleteRows(rows->IndexOf(row), 1);
    SyncCount();
}

void FuzzGrid::InsertNewRow()
{
    if (fixedRows) return;
    CGridRow* selected = GetSelectedRow();
    CGridRowArray* rows = selected && selected->Container() ? selected->Container() : &Rows();
    CGridRow* row = MakeRow(rows->Owner());
    if (!row) return;
    row->text = "new";
    rows->InsertRow(selected ? rows->IndexOf(selected) : rows->GetSize(), row);
    if (!row->Container()) {
        delete row;
        return;
    }
    SyncCount();
    SelectItem(DisplayLineOf(Rows(), row));
}

void FuzzGrid::MoveSelectedRow(int step)
{
    CGridRow* row = GetSelectedRow();
    if (!row || !row->Container()) return;
    CGridRowArray* rows = row->Container();
    const int to = rows->IndexOf(row) + step;
    if (to < 0 || to >= rows->GetSize()) return;
    rows->RemoveRow(rows->IndexOf(row));
    rows->InsertRow(to, row);
    SyncCount();
    SelectItem(DisplayLineOf(Rows(), row));
}

void FuzzGrid::UpdateRow(CGridRow* row, BOOL bRefresh)
{
    // A refresh rewrites the value, as a debugger's answer would.
    if (!row || !bRefresh) return;
    row->SetCellText(1, row->changed ? "0x00" : "0xFF");
    row->changed = !row->changed;
}

void FuzzGrid::CommitEdit()
{
    CGridRow* row = GetSelectedRow();
    if (!row) return;
    const CString typed = GetEditText();
    if (GetCurrentColumn() != 0) {
        row->SetCellText(GetCurrentColumn(), static_cast<const char*>(typed));
        row->changed = TRUE;
    } else if (typed.IsEmpty() && GetSelectedItem() != GetItemCount() - 1) {
        DeleteSelectedRow();
    } else {
        row->text = typed;
    }
    Invalidate(FALSE);
}

void FuzzGrid::CommitList()
{
    CGridRow* row = GetSelectedRow();
    if (row) row->SetCellIcon(GetCurrentColumn(), GetComboSel());
    Invalidate(FALSE);
}

LRESULT FuzzGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case UWM_GRID_FILL_CHILDREN: {
        auto* parent = reinterpret_cast<CGridRow*>(wParam);
        for (int i = 0; i < childrenToMake; ++i) {
            CGridRow* child = MakeRow(parent);
            if (!child) break;
            child->SetFlags(childFlags);
            child->text = "child";
            parent->children.AddRow(child);
        }
        return 0;
    }
    case UWM_GRID_EDIT_DONE:
        CommitEdit();
        return 0;
    case UWM_GRID_LIST_DONE:
        CommitList();
        return 0;
    case UWM_EDITOR_KILLFOCUS:
        OnEditorKillFocus(static_cast<BOOL>(wParam));
        return 0;
    case WM_COMMAND:
        if (LOWORD(wParam) == ID_GRID_SHOW_IN_MEMORY) return 0;
        break;
    default:
        break;
    }
    return CGridCtrl::WindowProc(message, wParam, lParam);
}
