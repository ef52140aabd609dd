// Keys, typed characters and the mouse in the grid.
#include "grid/grid_ctrl.h"

#include "platform/core/input_state.h"
#include "platform/core/thread.h"

namespace {

// Characters that reach the grid as WM_CHAR.
constexpr UINT kCtrlM = 13;
constexpr UINT kCtrlV = 22;

bool KeyIsDown(int virtualKey)
{
    return GetKeyState(virtualKey) < 0;
}

bool IsNumberChar(UINT ch)
{
    return (ch >= '0' && ch <= '9') || (ch >= 'A' && ch <= 'F');
}

}  // namespace

void CGridCtrl::RecordCtrlHeld()
{
    // The high byte of the key state is 0xFF while the key is down.
    m_ctrlHeld = (static_cast<WORD>(GetKeyState(VK_CONTROL)) >> 8) == 0xFF;
}

BOOL CGridCtrl::PreTranslateMessage(MSG* pMsg)
{
    RecordCtrlHeld();
    if (pMsg->message == WM_KEYDOWN) {
        if (CWinThread* thread = AfxGetThread()) {
            if (CWnd* main = thread->GetMainWnd()) main->PreTranslateMessage(pMsg);
        }
        if (!m_menuLoop) {
            if (pMsg->wParam == VK_RETURN) {
                ToggleEdit();
                return TRUE;
            }
            if (pMsg->wParam == VK_UP && KeyIsDown(VK_SHIFT)) {
                MoveRowUp();
                return TRUE;
            }
            if (pMsg->wParam == VK_DOWN && KeyIsDown(VK_SHIFT)) {
                MoveRowDown();
                return TRUE;
            }
        }
        if (m_edit.GetSafeHwnd() && m_edit.IsWindowVisible()) {
            m_edit.SetFocus();
        } else if (m_combo.GetSafeHwnd() && m_combo.IsWindowVisible()) {
            m_combo.SetFocus();
        }
    } else if (pMsg->message == WM_MOUSEWHEEL) {
        EndEdit();
    }
    return CBCGPListCtrl::PreTranslateMessage(pMsg);
}

void CGridCtrl::ToggleEdit()
{
    if (EditorOpen()) {
        EndEdit();
    } else {
        StartEdit(TRUE);
    }
}

void CGridCtrl::OnKeyDown(UINT nChar, UINT, UINT)
{
    Default();
    const int selected = GetSelectedItem();
    switch (nChar) {
    case VK_RETURN:
        ToggleEdit();
        break;
    case VK_LEFT:
        if (m_currentColumn > 0 && selected != -1) SetCurrentColumn(m_currentColumn - 1);
        break;
    case VK_RIGHT:
        if (selected != -1 && m_currentColumn + 1 < ColumnCount()) SetCurrentColumn(m_currentColumn + 1);
        break;
    case VK_INSERT:
        InsertNewRow();
        break;
    case VK_DELETE:
        DeleteSelectedRow();
        break;
    default:
        break;
    }
    NotifyParentOfInput();
}

void CGridCtrl::OnChar(UINT nChar, UINT, UINT)
{
    if (nChar == kCtrlM) {
        SendMessage(WM_COMMAND, ID_GRID_SHOW_IN_MEMORY, 0);
        return;
    }
    if (m_ctrlHeld && nChar != kCtrlV) return;
    if (!GetSelectedRow()) {
        if (fixedRows || GetItemCount() == 0) return;
        SelectItem(GetItemCount() - 1);
        m_currentColumn = 0;
        if (!GetSelectedRow()) return;
    }
    if (m_edit.IsWindowVisible()) return;
    const std::uint32_t kind = CurrentCellKind();
    if (!(kind & GCF_TEXT_EDIT) && !((kind & GCF_NUMBER_EDIT) && IsNumberChar(nChar))) return;
    StartBoxEdit(FALSE);
    if (nChar == kCtrlV) {
        m_edit.Paste();
        m_edit.SetSel(0, -1);
    } else {
        const char typed[2] = {static_cast<char>(nChar), '\0'};
        m_edit.SetWindowText(typed);
        m_edit.SetSel(1, 1);
    }
    m_edit.SendMessage(EM_SCROLLCARET, 0, 0);
    m_edit.SetFocus();
}

// ---------------------------------------------------------------- mouse

int CGridCtrl::HitTestColumn(CPoint point)
{
    const int item = HitTest(point);
    const int columns = ColumnCount();
    for (int c = 0; c < columns; ++c) {
        CRect label;
        if (GetSubItemRect(item, c, LVIR_LABEL, label) && label.PtInRect(point)) return c;
    }
    return m_currentColumn;
}

bool CGridCtrl::InExpandZone(int nItem, CPoint point)
{
    CRect bounds;
    const CGridRow* row = GetRowAt(nItem);
    if (!row || !GetItemRect(nItem, &bounds, LVIR_BOUNDS)) return false;
    return point.y >= bounds.top && point.y < bounds.bottom && Geometry().InExpandZone(row->Level(), point.x);
}

void CGridCtrl::OnLButtonDown(UINT, CPoint point)
{
    if (GetFocus() != this) SetFocus();
    const int column = HitTestColumn(point);
    const int selected = GetSelectedItem();
    if (column != m_currentColumn && column >= 0) {
        SetCurrentColumn(column);
    } else if (selected != -1 && HitTest(point) == selected && !InExpandZone(selected, point)) {
        // A further click on the current cell edits it; the list does not see it.
        StartEdit(TRUE);
        return;
    }
    EndEdit();
    const int item = HitTest(point);
    if (item != -1 && InExpandZone(item, point)) ToggleExpand(item);
    Default();
}

void CGridCtrl::OnRButtonDown(UINT, CPoint point)
{
    if (GetFocus() != this) SetFocus();
    Default();
    const int column = HitTestColumn(point);
    if (column != m_currentColumn && column >= 0) SetCurrentColumn(column);
}

void CGridCtrl::SetCurrentColumn(int nCol)
{
    if (nCol == m_currentColumn) return;
    m_currentColumn = nCol;
    InvalidateItem(GetSelectedItem());
}

void CGridCtrl::OnLButtonDblClk(UINT, CPoint)
{
    StartEdit(TRUE);
    Default();
    NotifyParentOfInput();
}
