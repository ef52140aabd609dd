// The list view's message dispatch, creation, font and header, and the
// notifications it sends its parent.
#include "platform/controls/list_ctrl_control.h"

#include <algorithm>

#include "platform/controls/control_notify.h"
#include "platform/controls/header_ctrl_control.h"
#include "platform/core/input_state.h"
#include "platform/core/paint_dc.h"
#include "platform/gdi/font.h"
#include "platform/gdi/font_model.h"
#include "platform/gdi/sys_color.h"

namespace listview {

ListControl::ListControl(CListCtrl* wnd) : m_wnd(wnd) {}

ListControl::~ListControl() = default;

bool ListControl::Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    *result = 0;
    switch (message) {
    // ---- items
    case LVM_GETITEMCOUNT:
        *result = m_count;
        return true;
    case LVM_SETITEMCOUNT:
        *result = OnSetItemCount(static_cast<int>(wParam), static_cast<DWORD>(lParam));
        return true;
    case LVM_DELETEALLITEMS:
        *result = OnSetItemCount(0, 0);
        return true;
    case LVM_GETITEMSTATE:
        *result = Valid(static_cast<int>(wParam)) ? StateOf(static_cast<int>(wParam)) & static_cast<UINT>(lParam) : 0;
        return true;
    case LVM_SETITEMSTATE: {
        const auto* item = reinterpret_cast<const LVITEM*>(lParam);
        const int index = static_cast<int>(wParam);
        if (!item || (index != -1 && !Valid(index))) return true;
        *result = ChangeState(index, item->state, item->stateMask) ? TRUE : FALSE;
        return true;
    }
    case LVM_GETNEXTITEM:
        *result = OnGetNextItem(static_cast<int>(wParam), LOWORD(static_cast<WPARAM>(lParam)));
        return true;
    case LVM_GETSELECTEDCOUNT:
        *result = static_cast<LRESULT>(m_selected.Count());
        return true;
    case LVM_GETSELECTIONMARK:
        *result = m_mark;
        return true;
    case LVM_SETSELECTIONMARK: {
        *result = m_mark;
        const int mark = static_cast<int>(lParam);
        m_mark = Valid(mark) ? mark : -1;
        return true;
    }
    case LVM_GETITEMRECT:
        *result = OnGetItemRect(static_cast<int>(wParam), reinterpret_cast<RECT*>(lParam));
        return true;
    case LVM_GETSUBITEMRECT:
        *result = OnGetSubItemRect(static_cast<int>(wParam), reinterpret_cast<RECT*>(lParam));
        return true;
    case LVM_HITTEST:
    case LVM_SUBITEMHITTEST:
        *result = OnHitTest(reinterpret_cast<LVHITTESTINFO*>(lParam), message == LVM_SUBITEMHITTEST);
        return true;

    // ---- scrolling and redrawing
    case LVM_ENSUREVISIBLE:
        *result = EnsureVisible(static_cast<int>(wParam), lParam != 0) ? TRUE : FALSE;
        return true;
    case LVM_GETTOPINDEX:
        *result = m_top;
        return true;
    case LVM_GETCOUNTPERPAGE:
        *result = ComputeGeometry().PageLines();
        return true;
    case LVM_SCROLL: {
        const Geometry g = ComputeGeometry();
        const long long dy = static_cast<int>(lParam);
        // Report view scrolls whole lines: the nearest number of them.
        const long long lines = dy >= 0 ? (dy + g.lineHeight / 2) / g.lineHeight : -((-dy + g.lineHeight / 2) / g.lineHeight);
        ScrollXTo(g, static_cast<long long>(m_scrollX) + static_cast<int>(wParam));
        ScrollTo(g, m_top + lines);
        *result = TRUE;
        return true;
    }
    case LVM_REDRAWITEMS: {
        // The lines named that are shown, as one run.
        const Geometry g = ComputeGeometry();
        const int first = std::max({static_cast<int>(wParam), 0, g.top});
        const int last = std::min({static_cast<int>(lParam), m_count - 1, g.top + g.PageLines()});
        InvalidateLines(g, first, last + 1);
        *result = TRUE;
        return true;
    }
    case LVM_UPDATE:
        InvalidateLine(static_cast<int>(wParam));
        *result = Valid(static_cast<int>(wParam)) ? TRUE : FALSE;
        return true;

    // ---- columns and header
    case LVM_INSERTCOLUMN:
        *result = OnInsertColumn(static_cast<int>(wParam), reinterpret_cast<const LVCOLUMN*>(lParam));
        return true;
    case LVM_DELETECOLUMN:
        *result = OnDeleteColumn(static_cast<int>(wParam));
        return true;
    case LVM_GETCOLUMN:
        *result = OnGetColumn(static_cast<int>(wParam), reinterpret_cast<LVCOLUMN*>(lParam));
        return true;
    case LVM_SETCOLUMN:
        *result = OnSetColumn(static_cast<int>(wParam), reinterpret_cast<const LVCOLUMN*>(lParam));
        return true;
    case LVM_GETCOLUMNWIDTH:
        *result = ColumnWidth(static_cast<int>(wParam));
        return true;
    case LVM_SETCOLUMNWIDTH:
        *result = OnSetColumnWidth(static_cast<int>(wParam), static_cast<short>(LOWORD(static_cast<WPARAM>(lParam))));
        return true;
    case LVM_GETHEADER:
        *result = reinterpret_cast<LRESULT>(HeaderHwnd());
        return true;

    // ---- appearance
    case LVM_GETEXTENDEDLISTVIEWSTYLE:
        *result = m_exStyle;
        return true;
    case LVM_SETEXTENDEDLISTVIEWSTYLE: {
        *result = m_exStyle;
        const DWORD mask = wParam ? static_cast<DWORD>(wParam) : 0xFFFFFFFFu;
        const DWORD style = (m_exStyle & ~mask) | (static_cast<DWORD>(lParam) & mask);
        if (style != m_exStyle) {
            m_exStyle = style;
            if (Hwnd()) m_wnd->Invalidate();
        }
        return true;
    }
    case LVM_GETBKCOLOR:
        *result = static_cast<LRESULT>(BackgroundColor());
        return true;
    case LVM_SETBKCOLOR:
        m_bkColor = static_cast<COLORREF>(lParam);
        if (Hwnd()) m_wnd->Invalidate();
        *result = TRUE;
        return true;

    // ---- window messages
    case WM_CREATE:
        OnCreate();
        return true;
    case WM_PAINT: {
        CPaintDC dc(m_wnd);
        Paint(dc, dc.m_ps.rcPaint);
        return true;
    }
    case WM_ERASEBKGND: {
        if (CDC* dc = CDC::FromHandle(reinterpret_cast<HDC>(wParam))) {
            CRect client;
            m_wnd->GetClientRect(&client);
            dc->FillSolidRect(&client, BackgroundColor());
        }
        *result = 1;
        return true;
    }
    case WM_SETFONT:
        *result = m_wnd->CWnd::DefWindowProc(message, wParam, lParam);
        OnSetFont(reinterpret_cast<HGDIOBJ>(wParam), LOWORD(static_cast<WPARAM>(lParam)) != 0);
        return true;
    case WM_SETREDRAW:
        *result = m_wnd->CWnd::DefWindowProc(message, wParam, lParam);
        if (wParam) m_wnd->Invalidate();
        return true;
    case WM_SIZE: {
        // As the platform's list view, owner-drawn lines are measured when the
        // window takes a size, the first time right after WM_CREATE; a scroll
        // bar coming or going changes only the client.
        CRect window;
        m_wnd->GetWindowRect(&window);
        if (m_measuredWindow != window.Size()) MeasureLines();
        m_measuredWindow = window.Size();
        if (!Hwnd()) return true;
        Revalidate();
        m_wnd->Invalidate();
        return true;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
        NMHDR header;
        if (!Notify(header, message == WM_SETFOCUS ? NM_SETFOCUS : NM_KILLFOCUS)) return true;
        if (message == WM_KILLFOCUS) EndPress();
        // Selection and the focus mark look different with and without focus.
        InvalidateItems();
        return true;
    }
    case WM_GETDLGCODE:
        *result = DLGC_WANTARROWS | DLGC_WANTCHARS;
        return true;
    case WM_NOTIFY: {
        auto* header = reinterpret_cast<NMHDR*>(lParam);
        if (header && header->hwndFrom && header->hwndFrom == HeaderHwnd()) *result = OnHeaderNotify(wParam, header);
        return true;
    }

    // ---- input
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
        OnButtonDown(CPoint(lParam), message == WM_RBUTTONDOWN, message == WM_LBUTTONDBLCLK, static_cast<UINT>(wParam));
        return true;
    case WM_MOUSEMOVE:
        OnMouseMove(CPoint(lParam));
        return true;
    case WM_LBUTTONUP:
        OnLButtonUp(CPoint(lParam));
        return true;
    case WM_RBUTTONUP:
        *result = OnRButtonUp(wParam, lParam);
        return true;
    case WM_CAPTURECHANGED:
        if (reinterpret_cast<HWND>(lParam) != Hwnd()) m_pressed = false;
        return true;
    case WM_MOUSEWHEEL:
        OnMouseWheel(static_cast<short>(HIWORD(wParam)));
        return true;
    case WM_VSCROLL:
        OnVScroll(LOWORD(wParam), ScrollRequestPosition(Hwnd(), message, wParam));
        return true;
    case WM_HSCROLL:
        OnHScroll(LOWORD(wParam), ScrollRequestPosition(Hwnd(), message, wParam));
        return true;
    case WM_KEYDOWN:
        OnKeyDown(static_cast<UINT>(wParam));
        return true;
    default:
        return false;
    }
}

// ---------------------------------------------------------------- creation, font, header

void ListControl::OnCreate()
{
    m_measuredWindow.reset();
    m_header = std::make_unique<CHeaderCtrl>();
    const DWORD visible = Has(LVS_NOCOLUMNHEADER) ? 0 : WS_VISIBLE;
    // The platform's list view gives its header the id 0.
    if (!m_header->Create(WS_CHILD | visible | HDS_HORZ | HDS_BUTTONS | HDS_FULLDRAG, CRect(0, 0, 0, 0), m_wnd, 0)) {
        m_header.reset();
    }
    if (m_header) m_header->SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(FontHandle()), FALSE);
    PlaceHeader();
}

HGDIOBJ ListControl::FontHandle() const
{
    // The header and the lines share one font: the list's own, else the GUI font.
    return gdi::FontOr(m_font, DEFAULT_GUI_FONT);
}

int ListControl::FontHeight() const
{
    return gdi::MetricsOfHandle(FontHandle()).height;
}

void ListControl::OnSetFont(HGDIOBJ font, bool redraw)
{
    m_font = font;
    // A measured line height stays: the owner set it, possibly while setting this font.
    if (m_header) m_header->SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(FontHandle()), FALSE);
    if (!Hwnd()) return;
    Revalidate();
    if (redraw) m_wnd->Invalidate();
}

void ListControl::MeasureLines()
{
    m_measuredHeight = 0;
    if (!Has(LVS_OWNERDRAWFIXED) || !Hwnd()) return;
    MEASUREITEMSTRUCT measure;
    measure.CtlType = ODT_LISTVIEW;
    measure.CtlID = static_cast<UINT>(m_wnd->GetDlgCtrlID());
    measure.itemID = 0;
    measure.itemHeight = static_cast<UINT>(FontHeight() + kLineVerticalSpace);
    const HWND self = Hwnd();
    if (const HWND parent = ::GetParent(self)) ::SendMessage(parent, WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
    if (!IsWindow(self)) return;
    // A line must be at least one pixel high, and the answer must stay usable
    // as a coordinate.
    m_measuredHeight = static_cast<int>(std::clamp<UINT>(measure.itemHeight, 1, 0x7FFF));
}

HWND ListControl::HeaderHwnd() const
{
    return m_header ? m_header->GetSafeHwnd() : nullptr;
}

void ListControl::PlaceHeader()
{
    const HWND header = HeaderHwnd();
    if (!header) return;
    CRect client;
    m_wnd->GetClientRect(&client);
    const int height = Has(LVS_NOCOLUMNHEADER) ? 0 : header::HeightFor(gdi::MetricsOfHandle(FontHandle()));
    CRect now;
    ::GetWindowRect(header, &now);
    m_wnd->ScreenToClient(&now);
    const CRect wanted(client.left - m_scrollX, client.top, client.right, client.top + height);
    if (now == wanted) return;
    m_header->MoveWindow(&wanted);
}

LRESULT ListControl::OnHeaderNotify(WPARAM wParam, NMHDR* header)
{
    const HWND self = Hwnd();
    const UINT code = header->code;
    const int item = code == HDN_ITEMCLICK ? reinterpret_cast<NMHEADER*>(header)->iItem : -1;
    // The platform passes its header's notifications on to its own parent.
    const HWND parent = ::GetParent(self);
    const LRESULT answer = parent ? ::SendMessage(parent, WM_NOTIFY, wParam, reinterpret_cast<LPARAM>(header)) : 0;
    if (!IsWindow(self)) return answer;
    if (code == HDN_ITEMCHANGED) {
        Revalidate();
        m_wnd->Invalidate();
    } else if (code == HDN_ITEMCLICK) {
        NMLISTVIEW nm;
        nm.iItem = -1;
        nm.iSubItem = item;
        Notify(nm.hdr, LVN_COLUMNCLICK);
    }
    return answer;
}

Geometry ListControl::ComputeGeometry() const
{
    Geometry g;
    m_wnd->GetClientRect(&g.client);
    g.lineHeight = m_measuredHeight > 0 ? m_measuredHeight : FontHeight() + kLineVerticalSpace;
    g.count = m_count;
    g.top = m_top;
    g.scrollX = m_scrollX;
    if (const HWND header = HeaderHwnd()) {
        if (!Has(LVS_NOCOLUMNHEADER)) {
            CRect rect;
            ::GetWindowRect(header, &rect);
            g.headerHeight = rect.Height();
        }
        const int columns = static_cast<int>(::SendMessage(header, HDM_GETITEMCOUNT, 0, 0));
        int left = 0;
        for (int i = 0; i < columns; ++i) {
            HDITEM item;
            item.mask = HDI_WIDTH | HDI_FORMAT;
            ::SendMessage(header, HDM_GETITEM, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
            g.columns.push_back({left, left + item.cxy, item.fmt});
            left += item.cxy;
        }
    }
    return g;
}

void ListControl::Revalidate()
{
    const Geometry g = ComputeGeometry();
    const int top = g.ClampTop(m_top);
    const int x = g.ClampScrollX(m_scrollX);
    if (top != m_top || x != m_scrollX) {
        m_top = top;
        m_scrollX = x;
        if (Hwnd()) m_wnd->Invalidate();
    }
    PlaceHeader();
    FitScrollBars();
}

COLORREF ListControl::BackgroundColor() const
{
    return m_bkColor == CLR_DEFAULT ? GetSysColor(COLOR_WINDOW) : m_bkColor;
}

// ---------------------------------------------------------------- notifications

bool ListControl::Notify(NMHDR& header, UINT code, LRESULT* result)
{
    return SendNotify(m_wnd, header, code, result);
}

bool ListControl::NotifyItemChanged(int index, UINT oldState, UINT newState)
{
    NMLISTVIEW nm;
    nm.iItem = index;
    nm.uOldState = oldState;
    nm.uNewState = newState;
    nm.uChanged = LVIF_STATE;
    return Notify(nm.hdr, LVN_ITEMCHANGED);
}

bool ListControl::NotifyActivate(UINT code, int index, int column, POINT pt, LRESULT* result)
{
    NMITEMACTIVATE nm;
    nm.iItem = index;
    nm.iSubItem = std::max(column, 0);
    nm.ptAction = pt;
    if (IsKeyDown(VK_MENU)) nm.uKeyFlags |= LVKF_ALT;
    if (IsKeyDown(VK_CONTROL)) nm.uKeyFlags |= LVKF_CONTROL;
    if (IsKeyDown(VK_SHIFT)) nm.uKeyFlags |= LVKF_SHIFT;
    if (Valid(index)) nm.uNewState = nm.uOldState = StateOf(index);
    return Notify(nm.hdr, code, result);
}

// ---------------------------------------------------------------- invalidation

void ListControl::InvalidateLine(int index)
{
    if (!Valid(index) || !Hwnd()) return;
    const Geometry g = ComputeGeometry();
    if (index < g.top || index > g.top + g.PageLines()) return;
    InvalidateLines(g, index, index + 1);
}

void ListControl::InvalidateLines(const Geometry& g, int from, int to)
{
    if (from >= to || !Hwnd()) return;
    const CRect lines = g.RowsRect(from, to);
    ::InvalidateRect(Hwnd(), &lines, TRUE);
}

void ListControl::InvalidateItems(const Geometry& g)
{
    if (!Hwnd()) return;
    CRect items = g.client;
    items.top = g.ItemsTop();
    ::InvalidateRect(Hwnd(), &items, TRUE);
}

}  // namespace listview
