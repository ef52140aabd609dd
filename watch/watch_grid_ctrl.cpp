#include "watch/watch_grid_ctrl.h"

#include <algorithm>

#include "host/resource_ids.h"
#include "host/show_menu.h"
#include "watch/watch_format.h"

namespace {

// A report list with one selected line at a time, drawn line by line by the
// grid, holding only the number of lines.
constexpr DWORD kWatchStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDRAWFIXED |
                              LVS_ALIGNLEFT | LVS_OWNERDATA;
static_assert(kWatchStyle == 0x50001C05);
constexpr RECT kCreateRect{0, 0, 250, 250};

struct ColumnSpec {
    const char* heading;  // GBK
    int firstWidth;       // set by the first layout
};
constexpr ColumnSpec kColumns[kWatchColumnCount] = {
    {"\xB1\xED\xB4\xEF\xCA\xBD", 300},  // 表达式
    {"\xD6\xB5", 120},                  // 值
    {"\xB8\xF1\xCA\xBD", 60},           // 格式
    {"\xCA\xF4\xD0\xD4", 0},            // 属性: takes what the others leave
};
// The attribute column never gets narrower than this on a resize.
constexpr int kMinAttributeWidth = 100;

}  // namespace

IMPLEMENT_DYNCREATE(CWatchGridCtrl, CGridCtrl)

CWatchGridCtrl::CWatchGridCtrl()
{
    m_menuLoop = FALSE;
}

CWatchGridCtrl::~CWatchGridCtrl() = default;

BOOL CWatchGridCtrl::Create(CWnd* parent)
{
    if (!CGridCtrl::Create(kWatchStyle, kCreateRect, parent, kWatchGridId)) return FALSE;
    InitWatch();
    return TRUE;
}

void CWatchGridCtrl::InitWatch()
{
    m_dropTarget.Register(this);
    InsertColumns();
    SetGridLines(TRUE);
    DeleteAllRows();
    EnsureInputRow();
}

void CWatchGridCtrl::InsertColumns()
{
    for (int c = 0; c < kWatchColumnCount; ++c) InsertColumn(c, kColumns[c].heading, LVCFMT_LEFT);
}

void CWatchGridCtrl::Layout(int left, int top, int right, int bottom)
{
    SetWindowPos(nullptr, left + 1, top + 1, right - left - 2, bottom - top - 2, SWP_NOZORDER | SWP_NOACTIVATE);
    if (m_firstLayout) {
        for (int c = 0; c < kAttributeColumn; ++c) SetColumnWidth(c, kColumns[c].firstWidth);
        m_firstLayout = FALSE;
    }
    // The user's widths of the first three columns survive; the last takes the rest.
    int used = 0;
    for (int c = 0; c < kAttributeColumn; ++c) used += GetColumnWidth(c);
    SetColumnWidth(kAttributeColumn, std::max((right - left) - used, kMinAttributeWidth));
}

CString CWatchGridCtrl::InputRowText()
{
    CString text;
    text.LoadString(IDS_INPUT_ROW);
    return text;
}

void CWatchGridCtrl::ShowMenu(CPoint screenPoint)
{
    ShowViewMenu(this, IDR_WATCH_MENU, screenPoint);
}

void CWatchGridCtrl::RepaintNow()
{
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

LRESULT CWatchGridCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_ENTERMENULOOP:
        m_menuLoop = TRUE;
        CGridCtrl::WindowProc(message, wParam, lParam);
        return 1;
    case WM_EXITMENULOOP:
        m_menuLoop = FALSE;
        CGridCtrl::WindowProc(message, wParam, lParam);
        return 1;
    case UWM_WATCH_ADD_EXPRESSION:
        AddExpression(reinterpret_cast<const char*>(wParam), -1);
        return 1;
    case UWM_WATCH_REFRESH:
        RefreshAll();
        return 1;
    case UWM_GRID_EDIT_DONE:
        CommitEdit();
        return 1;
    case UWM_GRID_LIST_DONE:
        CommitFormat();
        return 1;
    case UWM_GRID_FILL_CHILDREN:
        FillMembers(reinterpret_cast<CGridRow*>(wParam));
        return 1;
    case UWM_WATCH_EXPRESSIONS:
        ExpressionList(reinterpret_cast<CStringArray*>(wParam), static_cast<BOOL>(lParam));
        return 1;
    case UWM_WATCH_CLEAR:
        DeleteAllRows();
        return 1;
    case UWM_EDITOR_KILLFOCUS:
        OnEditorKillFocus(static_cast<BOOL>(wParam));
        return 1;
    case UWM_WATCH_FORMAT_VALUE:
        if (wParam && lParam) {
            QuickViewText(reinterpret_cast<char*>(wParam), reinterpret_cast<const WatchRecord*>(lParam));
        }
        return 1;
    default:
        return CGridCtrl::WindowProc(message, wParam, lParam);
    }
}
