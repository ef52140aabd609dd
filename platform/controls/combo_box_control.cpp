// The combo box's messages, its height, and the notifications it sends.
#include "platform/controls/combo_box_control.h"

#include <algorithm>
#include <cstring>

#include "platform/controls/combo_box_dropdown.h"
#include "platform/controls/control_notify.h"
#include "platform/core/paint_dc.h"
#include "platform/text/gbk.h"

namespace combo {

ComboControl::ComboControl(CWnd* wnd) : m_wnd(wnd) {}

ComboControl::~ComboControl() = default;

bool ComboControl::Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    *result = 0;
    const int index = static_cast<int>(wParam);
    switch (message) {
    // ---- items
    case CB_ADDSTRING:
        *result = OnAddString(reinterpret_cast<const char*>(lParam), (m_wnd->GetStyle() & CBS_SORT) != 0, -1);
        return true;
    case CB_INSERTSTRING:
        *result = OnAddString(reinterpret_cast<const char*>(lParam), false, index);
        return true;
    case CB_DELETESTRING:
        *result = OnDeleteString(index);
        return true;
    case CB_RESETCONTENT:
        OnResetContent();
        *result = CB_OKAY;
        return true;
    case CB_GETCOUNT:
        *result = m_items.Count();
        return true;
    case CB_GETLBTEXT:
        *result = OnGetLBText(index, reinterpret_cast<char*>(lParam));
        return true;
    case CB_GETLBTEXTLEN: {
        const Item* item = m_items.At(index);
        *result = item ? static_cast<LRESULT>(item->text.size()) : CB_ERR;
        return true;
    }
    case CB_GETITEMDATA: {
        const Item* item = m_items.At(index);
        *result = item ? static_cast<LRESULT>(item->data) : CB_ERR;
        return true;
    }
    case CB_SETITEMDATA: {
        Item* item = m_items.At(index);
        if (item) item->data = static_cast<DWORD_PTR>(lParam);
        *result = item ? TRUE : CB_ERR;
        return true;
    }
    case CB_FINDSTRING:
    case CB_FINDSTRINGEXACT:
    case CB_SELECTSTRING: {
        const char* text = reinterpret_cast<const char*>(lParam);
        if (!text) {
            *result = CB_ERR;
            return true;
        }
        const int found = message == CB_FINDSTRINGEXACT ? m_items.FindExact(index, text) : m_items.FindPrefix(index, text);
        // Selecting a string that is not there leaves the selection alone.
        if (message == CB_SELECTSTRING && found >= 0) OnSetCurSel(found);
        *result = found >= 0 ? found : CB_ERR;
        return true;
    }

    // ---- selection
    case CB_GETCURSEL:
        *result = m_selected;
        return true;
    case CB_SETCURSEL:
        *result = OnSetCurSel(index);
        return true;
    case WM_GETTEXT:
        *result = OnGetText(wParam, reinterpret_cast<char*>(lParam));
        return true;
    case WM_GETTEXTLENGTH:
        *result = m_items.Valid(m_selected) ? static_cast<LRESULT>(m_items.At(m_selected)->text.size()) : 0;
        return true;
    case WM_SETTEXT:
        *result = OnSetText(reinterpret_cast<const char*>(lParam));
        return true;

    // ---- the list
    case CB_SHOWDROPDOWN:
        if (wParam) Open();
        else Close(false);
        *result = TRUE;
        return true;
    case CB_GETDROPPEDSTATE:
        *result = m_dropped ? TRUE : FALSE;
        return true;
    case CB_GETDROPPEDCONTROLRECT:
        if (auto* rect = reinterpret_cast<RECT*>(lParam)) *rect = ListScreenRect();
        *result = TRUE;
        return true;
    case CB_GETITEMHEIGHT:
        *result = ItemHeight();
        return true;
    case CB_GETTOPINDEX:
        *result = m_listTop;
        return true;
    case CB_SETTOPINDEX:
        if (!m_items.Valid(index)) {
            *result = CB_ERR;
            return true;
        }
        m_listTop = ListTopClamped(index);
        if (m_list && m_list->GetSafeHwnd()) m_list->Invalidate();
        *result = CB_OKAY;
        return true;
    case CB_GETCOMBOBOXINFO:
        FillInfo(reinterpret_cast<COMBOBOXINFO*>(lParam));
        *result = lParam ? TRUE : FALSE;
        return true;

    // ---- window
    case WM_CREATE:
        OnCreate(reinterpret_cast<const CREATESTRUCT*>(lParam));
        return true;
    case WM_DESTROY:
        // The list goes with the box, quietly: nobody is told it closed.
        m_dropped = false;
        if (m_list && m_list->GetSafeHwnd()) m_list->DestroyWindow();
        return true;
    case WM_SIZE:
        FitHeight();
        m_wnd->Invalidate();
        return true;
    case WM_PAINT: {
        CPaintDC dc(m_wnd);
        Paint(dc);
        return true;
    }
    case WM_ERASEBKGND:
        *result = 1;  // painting covers the whole client area
        return true;
    case WM_SETFONT:
        *result = m_wnd->CWnd::DefWindowProc(message, wParam, lParam);
        OnSetFont(reinterpret_cast<HGDIOBJ>(wParam), LOWORD(static_cast<WPARAM>(lParam)) != 0);
        return true;
    case WM_ENABLE:
        if (!wParam) Close(false);
        m_wnd->Invalidate();
        return true;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        OnFocus(message == WM_SETFOCUS);
        return true;
    case WM_GETDLGCODE:
        *result = DLGC_WANTARROWS | DLGC_WANTCHARS;
        return true;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        OnKeyDown(static_cast<UINT>(wParam));
        return message == WM_KEYDOWN;
    case WM_CHAR:
        OnChar(static_cast<UINT>(wParam));
        return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        OnLButtonDown();
        return true;
    case WM_MOUSEWHEEL:
        OnMouseWheel(static_cast<short>(HIWORD(wParam)));
        return true;
    default:
        return false;
    }
}

// ---------------------------------------------------------------- messages

void ComboControl::OnCreate(const CREATESTRUCT* create)
{
    m_dropHeight = create ? std::max(create->cy, 0) : 0;
    m_list = std::make_unique<DropDownList>(this);
    // Hidden until dropped; owned by the box, so it goes when the box goes.
    if (!m_list->CreateEx(0, "ComboLBox", nullptr, WS_POPUP, CRect(0, 0, 1, 1), m_wnd, 0)) m_list.reset();
    FitHeight();
}

void ComboControl::FitHeight()
{
    if (m_fitting || !Hwnd()) return;
    CRect rect;
    m_wnd->GetWindowRect(&rect);
    const int box = BoxHeight();
    // Any height but the box's own is how far the dropped list should reach;
    // the window itself stays one box high.
    if (rect.Height() != m_boxHeight) m_dropHeight = rect.Height();
    m_boxHeight = box;
    if (rect.Height() == box) return;
    m_fitting = true;
    m_wnd->SetWindowPos(nullptr, 0, 0, rect.Width(), box, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    m_fitting = false;
}

int ComboControl::OnAddString(const char* text, bool sorted, int index)
{
    if (!text) return CB_ERR;
    const int at = sorted ? m_items.AddSorted(text) : m_items.Insert(index, text);
    if (at < 0) return CB_ERR;
    if (m_selected >= at) ++m_selected;
    if (m_hot >= at) ++m_hot;
    if (m_dropped) Open();  // the list grows and repaints
    return at;
}

int ComboControl::OnDeleteString(int index)
{
    if (!m_items.Remove(index)) return CB_ERR;
    if (m_selected == index) {
        m_selected = -1;
        m_wnd->Invalidate();
    } else if (m_selected > index) {
        --m_selected;
    }
    if (m_hot == index) m_hot = -1;
    else if (m_hot > index) --m_hot;
    m_listTop = ListTopClamped(m_listTop);
    if (m_dropped) Open();
    return m_items.Count();
}

void ComboControl::OnResetContent()
{
    m_items.Clear();
    m_selected = -1;
    m_hot = -1;
    m_listTop = 0;
    m_wnd->Invalidate();
    if (m_dropped) Open();
}

int ComboControl::OnSetCurSel(int index)
{
    const int selected = m_items.Valid(index) ? index : -1;
    if (selected != m_selected) {
        m_selected = selected;
        m_wnd->Invalidate();
    }
    if (m_dropped) {
        m_hot = selected;
        EnsureListShows(selected);
    }
    return selected >= 0 ? selected : CB_ERR;
}

LRESULT ComboControl::OnGetLBText(int index, char* buffer) const
{
    const Item* item = m_items.At(index);
    if (!item || !buffer) return CB_ERR;
    std::memcpy(buffer, item->text.c_str(), item->text.size() + 1);
    return static_cast<LRESULT>(item->text.size());
}

LRESULT ComboControl::OnGetText(WPARAM size, char* buffer) const
{
    const Item* item = m_items.At(m_selected);
    return static_cast<LRESULT>(CopyGbkText(item ? std::string_view(item->text) : std::string_view(), buffer, static_cast<size_t>(size)));
}

LRESULT ComboControl::OnSetText(const char* text)
{
    // A drop-down list can only show one of its items.
    const int found = m_items.FindExact(-1, text ? text : "");
    if (found < 0) return CB_ERR;
    OnSetCurSel(found);
    return TRUE;
}

void ComboControl::OnSetFont(HGDIOBJ font, bool redraw)
{
    m_font = font;
    FitHeight();
    if (m_dropped) Open();
    if (redraw) m_wnd->Invalidate();
}

void ComboControl::OnFocus(bool gained)
{
    if (!gained && !Close(false)) return;
    m_wnd->Invalidate();
    SendCommandNotify(m_wnd, gained ? CBN_SETFOCUS : CBN_KILLFOCUS);
}

void ComboControl::FillInfo(COMBOBOXINFO* info) const
{
    if (!info) return;
    info->rcItem = ItemRect();
    info->rcButton = ButtonRect();
    info->stateButton = m_dropped ? STATE_SYSTEM_PRESSED : 0;
    info->hwndCombo = Hwnd();
    info->hwndItem = Hwnd();
    info->hwndList = m_list ? m_list->GetSafeHwnd() : nullptr;
}

// ---------------------------------------------------------------- selection

bool ComboControl::SelectByUser(int index)
{
    if (!m_items.Valid(index) || index == m_selected) return true;
    OnSetCurSel(index);
    return SendCommandNotify(m_wnd, CBN_SELCHANGE);
}

}  // namespace combo
