// What a closed edit box does to a watch row, and the expression list the
// host stores with its project.
#include <cstring>

#include "platform/text/compare.h"
#include "siblings/orv_project_misc.h"
#include "watch/debug_service.h"
#include "watch/watch_format.h"
#include "watch/watch_grid_ctrl.h"

void CWatchGridCtrl::CommitEdit()
{
    const int selected = GetSelectedItem();
    CGridRow* row = GetRowAt(selected);
    if (!row) return;
    const CString typed = GetEditText();
    switch (GetCurrentColumn()) {
    case kExpressionColumn:
        // The same text in other letter cases is the same expression.
        if (_stricmp(typed, row->text) == 0) return;
        CollapseRow(row, selected);
        row->children.DeleteAll();
        if (typed.IsEmpty()) {
            if (selected != GetItemCount() - 1) {
                DeleteSelectedRow();
                return;
            }
            // The input row gives its prompt back.
            row->text = InputRowText();
            RecordOf(row)->status = 0;
            InitRowCells(row);
        } else {
            row->text = typed;
            EvaluateRow(row);
            InitRowCells(row);
            FormatRow(row, TRUE);
            EnsureInputRow();
        }
        Invalidate();
        return;
    case kValueColumn:
        WriteValue(row, typed);
        return;
    default:
        return;
    }
}

void CWatchGridCtrl::WriteValue(CGridRow* row, CString text)
{
    WatchRecord* record = RecordOf(row);
    if (!record || _stricmp(text, row->Cell(kValueColumn)->text.c_str()) == 0) return;
    // A whole number typed for a float shown in decimal means that number as a float.
    const bool isFloat = record->type == WT_FLOAT || record->type == WT_FLOAT_ALT;
    if (row->format == WF_DECIMAL && isFloat && std::strpbrk(text, "hHxX.") == nullptr) text += ".";
    unsigned long typedValue = 0;
    if (!IsConstantData(text, typedValue, static_cast<unsigned char>(row->format))) return;
    const std::uint32_t old = record->value;
    record->value = static_cast<std::uint32_t>(typedValue);
    DebugService::Request(DRQ_WRITE_VALUE, record);
    // What is shown is what the target holds now, not what was typed.
    DebugService::Request(DRQ_READ_VALUE, record);
    FormatRow(row, FALSE);
    row->changed = record->value != old;
    if (row->changed) {
        RepaintNow();
    } else {
        InvalidateItem(GetSelectedItem());
    }
}

void CWatchGridCtrl::ExpressionList(CStringArray* list, BOOL bGet)
{
    if (!list) return;
    CGridRowArray& rows = Rows();
    if (bGet) {
        list->RemoveAll();
        // Every top-level row but the last: in an editable grid, the input row.
        for (int i = 0; i + 1 < rows.GetSize(); ++i) list->Add(rows.GetRow(i)->text);
        return;
    }
    DeleteAllRows();
    EnsureInputRow();
    for (int i = 0; i < list->GetSize(); ++i) AddExpression(list->GetAt(i), -1);
}

void CWatchGridCtrl::CommitFormat()
{
    CGridRow* row = GetRowAt(GetSelectedItem());
    if (row && GetCurrentColumn() == kFormatColumn) {
        const int format = GetComboSel();
        row->format = static_cast<std::uint32_t>(format);
        row->SetCellIcon(kFormatColumn, format);
        row->SetCellText(kValueColumn, FormatValue(row, FALSE).str());
    }
    RepaintNow();
}
