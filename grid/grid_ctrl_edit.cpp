// Opening and closing the in-place editors over the current cell, and the
// rules that decide whether what was entered is committed.
#include <algorithm>

#include "grid/grid_ctrl.h"
#include "host/resource_ids.h"

std::uint32_t CGridCtrl::CurrentCellKind()
{
    CGridRow* row = GetSelectedRow();
    const GridCell* cell = row ? row->Cell(m_currentColumn) : nullptr;
    return cell ? cell->kind : 0;
}

bool CGridCtrl::IsPlaceholderOrEmpty(const CGridRow* row) const
{
    if (row->text.IsEmpty()) return true;
    CString placeholder;
    return placeholder.LoadString(IDS_INPUT_ROW) && row->text == placeholder;
}

void CGridCtrl::StartEdit(BOOL bInitText)
{
    if (!GetSelectedRow()) return;
    const std::uint32_t kind = CurrentCellKind();
    if (kind & (GCF_TEXT_EDIT | GCF_NUMBER_EDIT)) {
        StartBoxEdit(bInitText);
    } else if (kind & GCF_LIST_EDIT) {
        StartListEdit(bInitText);
    }
}

void CGridCtrl::StartBoxEdit(BOOL bInitText)
{
    const int item = GetSelectedItem();
    CGridRow* row = item == -1 ? nullptr : GetRowAt(item);
    if (!row) return;
    CRect bounds;
    CRect label;
    GetItemRect(item, &bounds, LVIR_BOUNDS);
    GetSubItemRect(item, m_currentColumn, LVIR_LABEL, label);
    CRect box(label.left, bounds.top, label.right, bounds.bottom);
    if (m_currentColumn == 0) {
        box.left = Geometry().TextLeft(row->Level());
    } else if (m_gridLines) {
        --box.left;
    }
    m_edit.SetFont(&m_font, TRUE);
    m_edit.MoveWindow(&box);
    m_edit.ShowWindow(SW_SHOW);
    // Read before the box has its text: its notifications may change the row.
    const GridCell* cell = row->Cell(m_currentColumn);
    const std::uint32_t limit = cell ? cell->limit : 0;
    if (bInitText) {
        CString text;
        if (m_currentColumn == 0) {
            if (!IsPlaceholderOrEmpty(row)) text = row->text;
        } else if (cell) {
            text = cell->text.View();
        }
        m_edit.SetWindowText(text);
        m_edit.SetSel(0, -1);
        m_edit.SendMessage(EM_SCROLLCARET, 0, 0);
    } else {
        // Typing and pasting start from an empty box, whatever the last edit left there.
        m_edit.Empty();
    }
    if (limit != 0) m_edit.SetLimitText(std::min(limit, kGridMaxEditLimit));
    m_edit.SetFocus();
}

void CGridCtrl::StartListEdit(BOOL bSetSel)
{
    if (m_currentColumn == 0) return;
    const int item = GetSelectedItem();
    CGridRow* row = item == -1 ? nullptr : GetRowAt(item);
    if (!row) return;
    CRect label;
    GetSubItemRect(item, m_currentColumn, LVIR_LABEL, label);
    m_combo.SetFont(&m_font, TRUE);
    m_combo.MoveWindow(&label);
    m_combo.ShowWindow(SW_SHOW);
    if (bSetSel) {
        const GridCell* cell = row->Cell(m_currentColumn);
        m_combo.SetCurSel(cell ? static_cast<int>(cell->value) : -1);
        m_combo.SetFocus();
    }
}

bool CGridCtrl::EditorOpen() const
{
    return m_edit.IsWindowVisible() || m_combo.IsWindowVisible();
}

void CGridCtrl::EndEdit()
{
    // Scrolling and clicks end editing; with no editor open there is nothing to look up.
    if (!EditorOpen() || !GetSelectedRow()) return;
    const std::uint32_t kind = CurrentCellKind();
    if (kind & (GCF_TEXT_EDIT | GCF_NUMBER_EDIT)) {
        EndBoxEdit();
    } else if (kind & GCF_LIST_EDIT) {
        EndListEdit();
    }
}

void CGridCtrl::EndBoxEdit()
{
    // Hidden first: taking the focus back re-enters through EN_KILLFOCUS.
    if (!m_edit.IsWindowVisible()) return;
    m_edit.ShowWindow(SW_HIDE);
    SetFocus();
    CGridRow* row = GetSelectedRow();
    if (!m_edit.IsModified()) {
        if (GetSelectedItem() == GetItemCount() - 1) return;
        if (row && IsPlaceholderOrEmpty(row)) DeleteSelectedRow();
        return;
    }
    if (!row) return;
    const std::uint32_t kind = CurrentCellKind();
    if (kind & GCF_TEXT_EDIT) {
        if (m_currentColumn == 0) Commit();
    } else if (kind & GCF_NUMBER_EDIT) {
        if (m_edit.TestAndClearModified()) Commit();
    }
}

void CGridCtrl::EndListEdit()
{
    if (!m_combo.GetSafeHwnd() || !m_combo.IsWindowVisible()) return;
    m_combo.ShowWindow(SW_HIDE);
    SetFocus();
    SendMessage(UWM_GRID_LIST_DONE, 0, 0);
}

void CGridCtrl::OnEditorKillFocus(BOOL bEditBox)
{
    if (!GetSelectedRow()) return;
    if (!bEditBox) {
        m_combo.ShowWindow(SW_HIDE);
        SendMessage(UWM_GRID_LIST_DONE, 0, 0);
        return;
    }
    m_edit.ShowWindow(SW_HIDE);
    const std::uint32_t kind = CurrentCellKind();
    if (!(kind & GCF_TEXT_EDIT)) return;  // a number edit is dropped
    if (m_currentColumn == 0 || ((kind & GCF_NUMBER_EDIT) && m_edit.TestAndClearModified())) Commit();
}
