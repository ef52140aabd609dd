// The watch's rows: finding them by display line, the input row, adding,
// inserting and deleting expression rows.
#include <algorithm>

#include "watch/watch_format.h"
#include "watch/watch_grid_ctrl.h"

CGridRow* CWatchGridCtrl::FindRowAt(int displayIndex, CGridRowArray* rows, int* counter)
{
    if (displayIndex == -1 || !rows || !counter) return nullptr;
    // Called with counter 0 for the top-level rows: the caller then also
    // learns which top-level row holds the line.
    const bool outermost = *counter == 0;
    CGridRow* found = FindRowInDisplayOrder(displayIndex, rows, counter);
    if (found && outermost) *counter = rows->IndexAtLine(displayIndex);
    return found;
}

int CWatchGridCtrl::LineOfTopRow(int index)
{
    // The lines the first rows take, shown descendants included.
    return Rows().LineOfIndex(std::clamp(index, 0, Rows().GetSize()));
}

int CWatchGridCtrl::LineOfRow(const CGridRow* row)
{
    return DisplayLineOf(Rows(), row);
}

BOOL CWatchGridCtrl::EnsureInputRow()
{
    if (!IsEditable()) return FALSE;
    // Only after the last line, or into an empty grid with nothing selected.
    if (GetItemCount() != GetSelectedItem() + 1) return FALSE;
    CGridRow* row = MakeWatchRow(InputRowText());
    InitRowCells(row);
    Rows().AddRow(row);
    AdjustItemCount(TRUE, 1);
    return TRUE;
}

void CWatchGridCtrl::AddExpression(const char* text, int line)
{
    if (!IsEditable() || !text || !*text) return;
    if (line == -1) line = GetItemCount() - 1;
    CGridRow* row = MakeWatchRow(text);
    EvaluateRow(row);
    InitRowCells(row);
    FormatRow(row, TRUE);
    const int top = InsertRowAtLine(line, row);
    SelectItem(LineOfTopRow(top));
}

int CWatchGridCtrl::InsertRowAtLine(int line, CGridRow* row)
{
    if (!IsEditable() || !row) return -1;
    if (line == -1) line = GetSelectedItem();
    int top = 0;
    if (line != -1 && !FindRowAt(line, &Rows(), &top)) top = 0;
    Rows().InsertRow(top, row);
    AdjustItemCount(TRUE, 1);
    return top;
}

void CWatchGridCtrl::InitRowCells(CGridRow* row)
{
    if (!row) return;
    row->Reset();
    if (IsEditable()) row->SetCellTextEdit(kExpressionColumn, TRUE, -1);
    const WatchRecord* record = RecordOf(row);
    if (record->status == 0) return;
    if (record->space != WS_NONE) {
        row->SetCellIcon(kFormatColumn, static_cast<int>(row->format));
        row->SetCellList(kFormatColumn, TRUE);
    }
    if (IsValueRow(row)) row->SetCellNumberEdit(kValueColumn, TRUE, -1);
    if (record->count > 0) row->SetFlags(row->Flags() | GRF_PARENT | GRF_COLLAPSED);
}

void CWatchGridCtrl::InsertNewRow()
{
    if (!IsEditable()) return;
    CGridRow* row = MakeWatchRow(InputRowText());
    InitRowCells(row);
    const int top = InsertRowAtLine(GetSelectedItem(), row);
    SelectItem(LineOfTopRow(top));
    SetCurrentColumn(kExpressionColumn);
    // The prompt is the row text, so the edit box opens empty.
    StartEdit(TRUE);
}

void CWatchGridCtrl::DeleteSelectedRow()
{
    DeleteRow(-1);
}

BOOL CWatchGridCtrl::DeleteRow(int line)
{
    if (!IsEditable()) return FALSE;
    if (line == -1) line = GetSelectedItem();
    if (line == -1 || line == GetItemCount() - 1) return FALSE;
    int top = 0;
    CGridRow* row = FindRowAt(line, &Rows(), &top);
    // Members and elements belong to their parent's object: they cannot go alone.
    if (!row || row->Level() != 0) return FALSE;
    AdjustItemCount(FALSE, row->ShownLines());
    Rows().DeleteRows(top, 1);
    SelectItem(line);
    Invalidate();
    return TRUE;
}
