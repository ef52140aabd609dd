#include "grid/grid_ctrl.h"

#include "host/view_font.h"
#include "platform/core/paint_dc.h"
#include "platform/gdi/icon.h"
#include "platform/gdi/sys_color.h"

namespace {

// The in-place editors: created visible with an empty rectangle, then hidden.
constexpr DWORD kEditStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL;
constexpr DWORD kComboStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWNLIST | CBS_SORT;
static_assert(kEditStyle == 0x50800080 && kComboStyle == 0x50210103);
// The drop-down list is created 100 pixels high; showing it moves it over a cell.
constexpr int kComboCreateHeight = 100;

// Items of the format list, sorted as they are added.
constexpr const char* kFormatNames[] = {"BIN", "DEC", "HEX"};

}  // namespace

IMPLEMENT_DYNCREATE(CGridCtrl, CBCGPListCtrl)

BEGIN_MESSAGE_MAP(CGridCtrl, CBCGPListCtrl)
    ON_WM_CREATE()
    ON_WM_KEYDOWN()
    ON_WM_CHAR()
    ON_WM_LBUTTONDOWN()
    ON_WM_RBUTTONDOWN()
    ON_WM_LBUTTONDBLCLK()
    ON_MESSAGE(WM_HSCROLL, &CGridCtrl::OnHScroll)
    ON_MESSAGE(WM_VSCROLL, &CGridCtrl::OnVScroll)
    ON_WM_ERASEBKGND()
    ON_CONTROL(EN_KILLFOCUS, kGridEditId, &CGridCtrl::OnEditKillFocus)
    ON_CONTROL(CBN_KILLFOCUS, kGridComboId, &CGridCtrl::OnComboKillFocus)
END_MESSAGE_MAP()

CGridCtrl::CGridCtrl()
{
    m_colours[kBackground] = RGB(255, 255, 255);
    m_colours[kGridLine] = GetSysColor(COLOR_BTNFACE);
    m_colours[kTreeLine] = GetSysColor(COLOR_WINDOWTEXT);
    m_colours[kCurrentText] = GetSysColor(COLOR_HIGHLIGHTTEXT);
    m_colours[kCurrentBackFocus] = GetSysColor(COLOR_HIGHLIGHT);
    m_colours[kCurrentBackNoFocus] = GetSysColor(COLOR_INACTIVECAPTION);
    m_colours[kNormalText] = RGB(0, 0, 0);
    m_colours[kChangedText] = RGB(255, 0, 0);
    m_treePen.CreatePen(PS_SOLID, 1, m_colours[kTreeLine]);
    m_treeBrush.CreateSolidBrush(m_colours[kTreeLine]);
}

CGridCtrl::~CGridCtrl()
{
    // The editors are children of the grid: gone with its window, before the rows.
    if (GetSafeHwnd()) DestroyWindow();
    m_rows.DeleteAll();
    for (HICON icon : m_formatIcons) {
        if (icon) DestroyIcon(icon);
    }
}

int CGridCtrl::OnCreate(LPCREATESTRUCT)
{
    if (Default() == -1) return -1;
    m_edit.Create(kEditStyle, CRect(0, 0, 0, 0), this, kGridEditId);
    m_edit.ShowWindow(SW_HIDE);
    m_combo.Create(kComboStyle, CRect(0, 0, 0, kComboCreateHeight), this, kGridComboId);
    m_combo.ShowWindow(SW_HIDE);
    for (const char* name : kFormatNames) m_combo.AddString(name);
    CClientDC dc(this);
    m_memDC.CreateCompatibleDC(&dc);
    m_font.CreatePointFont(kViewFontTenths, kViewFontFace);
    return 0;
}

// ---------------------------------------------------------------- selection and rows

int CGridCtrl::GetSelectedItem() const
{
    return GetNextItem(-1, LVNI_SELECTED);
}

void CGridCtrl::SelectItem(int nItem)
{
    SetItemState(nItem, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    EnsureVisible(nItem, FALSE);
}

CGridRow* CGridCtrl::GetRowAt(int nItem)
{
    int counter = 0;
    return FindRowAt(nItem, &m_rows, &counter);
}

CGridRow* CGridCtrl::GetSelectedRow()
{
    const int item = GetSelectedItem();
    return item == -1 ? nullptr : GetRowAt(item);
}

CString CGridCtrl::GetEditText() const
{
    CString text;
    if (m_edit.GetSafeHwnd()) m_edit.GetWindowText(text);
    return text;
}

int CGridCtrl::GetComboSel() const
{
    return m_combo.GetSafeHwnd() ? m_combo.GetCurSel() : -1;
}

BOOL CGridCtrl::DeleteAllRows()
{
    DeleteAllItems();
    m_rows.DeleteAll();
    return TRUE;
}

int CGridCtrl::CountVisibleRows(CGridRowArray& rows)
{
    return CountShownRows(rows);
}

// ---------------------------------------------------------------- expand and collapse

void CGridCtrl::UpdateItemCount(CGridRow* row)
{
    if (!row) return;
    AdjustItemCount(row->IsExpanded(), CountVisibleRows(row->children));
}

void CGridCtrl::AdjustItemCount(BOOL bAdd, int n)
{
    const int count = GetItemCount() + (bAdd ? n : -n);
    SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(count), 0);
}

void CGridCtrl::ToggleExpand(int nItem)
{
    CGridRow* row = GetRowAt(nItem);
    if (!row || !row->HasChildren()) return;
    if (row->Flags() & GRF_EXPANDED) {
        CollapseRow(row, nItem);
    } else {
        ExpandRow(row, nItem);
    }
}

void CGridCtrl::CollapseRow(CGridRow* row, int)
{
    if (!row || !row->HasChildren()) return;
    if (row->Flags() & GRF_EXPANDED) {
        row->MarkCollapsed();
        UpdateItemCount(row);
    }
    Invalidate(FALSE);
}

void CGridCtrl::ExpandRow(CGridRow* row, int)
{
    if (!row || !row->HasChildren()) return;
    if (!(row->Flags() & GRF_COLLAPSED)) {
        Invalidate(FALSE);
        return;
    }
    row->MarkExpanded();
    LockWindowUpdate();
    BOOL bRefresh = TRUE;
    if (row->children.GetSize() == 0) {
        SendMessage(UWM_GRID_FILL_CHILDREN, reinterpret_cast<WPARAM>(row), 0);
        bRefresh = FALSE;
    }
    for (int i = 0; i < row->children.GetSize(); ++i) {
        CGridRow* child = row->children.GetRow(i);
        if (child->Flags() & GRF_SUBPARENT) child->MarkCollapsed();
    }
    UpdateItemCount(row);
    for (int i = 0; i < row->children.GetSize(); ++i) UpdateRow(row->children.GetRow(i), bRefresh);
    UnlockWindowUpdate();
    Invalidate(FALSE);
}

// ---------------------------------------------------------------- messages

BOOL CGridCtrl::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    // Resizing a column closes the editor.
    if (header && (header->code == HDN_ITEMCHANGINGA || header->code == HDN_ITEMCHANGINGW)) EndEdit();
    return CBCGPListCtrl::OnNotify(wParam, lParam, pResult);
}

LRESULT CGridCtrl::OnHScroll(WPARAM, LPARAM)
{
    const LRESULT result = Default();
    EndEdit();
    // Columns move under the line buffers: repaint everything at once.
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    return result;
}

LRESULT CGridCtrl::OnVScroll(WPARAM, LPARAM)
{
    const LRESULT result = Default();
    EndEdit();
    return result;
}

void CGridCtrl::OnEditKillFocus()
{
    EndEdit();
}

void CGridCtrl::OnComboKillFocus()
{
    EndEdit();
}

void CGridCtrl::NotifyParentOfInput()
{
    if (CWnd* parent = GetParent()) parent->SendMessage(UWM_GRID_INPUT, 0, 0);
}

int CGridCtrl::ColumnCount() const
{
    const CHeaderCtrl* header = GetHeaderCtrl();
    return header ? header->GetItemCount() : 0;
}

void CGridCtrl::InvalidateItem(int nItem)
{
    CRect bounds;
    if (nItem >= 0 && GetItemRect(nItem, &bounds, LVIR_BOUNDS)) InvalidateRect(&bounds, FALSE);
}
