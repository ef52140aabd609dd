// The watch menu's commands, the keys that reach the same operations, and
// the display formats of one row or of every shown line.
#include <vector>

#include "host/resource_ids.h"
#include "watch/debug_service.h"
#include "watch/watch_format.h"
#include "watch/watch_grid_ctrl.h"

BEGIN_MESSAGE_MAP(CWatchGridCtrl, CGridCtrl)
    ON_COMMAND_RANGE(ID_WATCH_FORMAT_BIN, ID_WATCH_FORMAT_HEX, &CWatchGridCtrl::OnFormatCommand)
    ON_COMMAND(ID_WATCH_DELETE, &CWatchGridCtrl::DeleteSelectedRow)
    ON_UPDATE_COMMAND_UI(ID_WATCH_DELETE, &CWatchGridCtrl::OnUpdateDelete)
    ON_COMMAND(ID_WATCH_CLEAR, &CWatchGridCtrl::OnClear)
    ON_UPDATE_COMMAND_UI(ID_WATCH_CLEAR, &CWatchGridCtrl::OnUpdateClear)
    ON_COMMAND(ID_WATCH_EDIT, &CWatchGridCtrl::OnEdit)
    ON_UPDATE_COMMAND_UI(ID_WATCH_EDIT, &CWatchGridCtrl::OnUpdateEdit)
    ON_COMMAND(ID_WATCH_SHOW_IN_MEMORY, &CWatchGridCtrl::ShowInMemory)
    ON_UPDATE_COMMAND_UI(ID_WATCH_SHOW_IN_MEMORY, &CWatchGridCtrl::OnUpdateShowInMemory)
    ON_COMMAND(ID_WATCH_MOVE_UP, &CWatchGridCtrl::MoveRowUp)
    ON_UPDATE_COMMAND_UI(ID_WATCH_MOVE_UP, &CWatchGridCtrl::OnUpdateMoveUp)
    ON_COMMAND(ID_WATCH_MOVE_DOWN, &CWatchGridCtrl::MoveRowDown)
    ON_UPDATE_COMMAND_UI(ID_WATCH_MOVE_DOWN, &CWatchGridCtrl::OnUpdateMoveDown)
    ON_NOTIFY_REFLECT(LVN_BEGINDRAG, &CWatchGridCtrl::OnBeginDrag)
END_MESSAGE_MAP()

void CWatchGridCtrl::OnFormatCommand(UINT id)
{
    SetAllFormats(static_cast<int>(id - ID_WATCH_FORMAT_BIN));
}

void CWatchGridCtrl::OnClear()
{
    DeleteAllRows();
    EnsureInputRow();
}

void CWatchGridCtrl::OnEdit()
{
    StartEdit(TRUE);
}

void CWatchGridCtrl::OnUpdateDelete(CCmdUI* pCmdUI)
{
    const int s = GetSelectedItem();
    pCmdUI->Enable(IsEditable() && s != -1 && s != GetItemCount() - 1);
}

void CWatchGridCtrl::OnUpdateClear(CCmdUI* pCmdUI)
{
    pCmdUI->Enable(IsEditable());
}

void CWatchGridCtrl::OnUpdateEdit(CCmdUI* pCmdUI)
{
    const CGridRow* row = GetSelectedRow();
    const GridCell* cell = row ? row->Cell(GetCurrentColumn()) : nullptr;
    pCmdUI->Enable(cell && (cell->kind & (GCF_TEXT_EDIT | GCF_NUMBER_EDIT | GCF_LIST_EDIT)) != 0);
}

void CWatchGridCtrl::OnUpdateShowInMemory(CCmdUI* pCmdUI)
{
    const CGridRow* row = GetSelectedRow();
    pCmdUI->Enable(row && row->record);
}

void CWatchGridCtrl::OnUpdateMoveUp(CCmdUI* pCmdUI)
{
    const int s = GetSelectedItem();
    const CGridRow* row = GetRowAt(s);
    pCmdUI->Enable(s > 0 && s < GetItemCount() - 1 && row && row->Level() == 0);
}

void CWatchGridCtrl::OnUpdateMoveDown(CCmdUI* pCmdUI)
{
    const int s = GetSelectedItem();
    const CGridRow* row = GetRowAt(s);
    pCmdUI->Enable(s >= 0 && s < GetItemCount() - 2 && row && row->Level() == 0);
}

void CWatchGridCtrl::MoveRowUp()
{
    const int s = GetSelectedItem();
    if (!IsEditable() || s <= 0) return;
    // From the input row, or from a member, only the selection moves.
    if (s == GetItemCount() - 1 || !MoveRow(s, s - 1)) SelectItem(s - 1);
}

void CWatchGridCtrl::MoveRowDown()
{
    const int s = GetSelectedItem();
    if (!IsEditable() || s < 0 || s == GetItemCount() - 1) return;
    const CGridRow* row = GetRowAt(s);
    // The first line after the row and what it shows under it.
    const int t = s + (row ? row->ShownLines() : 1);
    if (t == GetItemCount() - 1 || !MoveRow(s, t)) SelectItem(t);
}

BOOL CWatchGridCtrl::MoveRow(int from, int to)
{
    if (!IsEditable()) return FALSE;
    const int n = GetItemCount();
    if (to == -1) to = n - 1;
    // The line above the input row is the lowest a row can go.
    if (to >= n - 2) to = n - 2;
    if (from == to) return FALSE;
    int a = 0;
    CGridRow* row = FindRowAt(from, &Rows(), &a);
    if (!row || row->Level() != 0) return FALSE;
    int b = 0;
    if (!FindRowAt(to, &Rows(), &b)) b = 0;
    // The row leaves first: moving down lands it after the row that held `to`.
    Rows().RemoveRow(a);
    b = std::min(b, Rows().GetSize());
    Rows().InsertRow(b, row);
    SelectItem(LineOfTopRow(b));
    RepaintNow();
    return TRUE;
}

void CWatchGridCtrl::CopyRow(int from, int to)
{
    const CGridRow* source = from == -1 ? nullptr : GetRowAt(from);
    if (!source) return;
    int b = 0;
    if (to == -1 || !FindRowAt(to, &Rows(), &b)) b = 0;
    auto* copy = new CGridRow(*source);
    Rows().InsertRow(b, copy);
    AdjustItemCount(TRUE, copy->ShownLines());
    SelectItem(LineOfTopRow(b));
}

void CWatchGridCtrl::SetAllFormats(int format)
{
    // Every shown line in display order, walked once: rows under a collapsed
    // parent keep their own formats.
    const int last = GetItemCount() - 1;
    int line = 0;
    std::vector<std::pair<CGridRowArray*, int>> walk{{&Rows(), 0}};
    while (!walk.empty()) {
        auto& [array, next] = walk.back();
        if (next == array->GetSize()) {
            walk.pop_back();
            continue;
        }
        CGridRow* row = array->GetRow(next++);
        row->format = static_cast<std::uint32_t>(format);
        if (line != last && RecordOf(row)->status != 0) {
            row->SetCellIcon(kFormatColumn, format);
            FormatRow(row, FALSE);
        }
        ++line;
        if (row->ShowsChildren()) walk.emplace_back(&row->children, 0);
    }
    RepaintNow();
}

void CWatchGridCtrl::ShowInMemory()
{
    const CGridRow* row = GetSelectedRow();
    if (!row || !row->record) return;
    // Members join their parent with ".", elements follow their array directly.
    CString path = row->text;
    for (const CGridRow* p = row->parent; p; p = p->parent) {
        if (RecordOf(p)->type != WT_ARRAY) path = "." + path;
        path = p->text + path;
    }
    DebugService::Request(DRQ_SHOW_MEMORY, const_cast<char*>(static_cast<const char*>(path)));
}
