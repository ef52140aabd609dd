// The edit control's messages, changes and the notifications they bring.
#include "platform/controls/edit_control.h"

#include <algorithm>

#include "platform/controls/control_notify.h"
#include "platform/core/paint_dc.h"
#include "platform/gdi/sys_color.h"
#include "platform/text/gbk.h"

namespace edit {

EditControl::EditControl(CWnd* wnd) : m_wnd(wnd) {}

bool EditControl::Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    *result = 0;
    switch (message) {
    // ---- text
    case WM_CREATE: {
        const auto* create = reinterpret_cast<const CREATESTRUCT*>(lParam);
        m_buffer.SetText(create && create->lpszName ? create->lpszName : "");
        return true;
    }
    case WM_SETTEXT:
        OnSetText(reinterpret_cast<const char*>(lParam));
        *result = TRUE;
        return true;
    case WM_GETTEXT:
        *result = OnGetText(wParam, reinterpret_cast<char*>(lParam));
        return true;
    case WM_GETTEXTLENGTH:
        *result = m_buffer.Length();
        return true;

    // ---- selection and editing
    case EM_GETSEL:
        *result = OnGetSel(reinterpret_cast<DWORD*>(wParam), reinterpret_cast<DWORD*>(lParam));
        return true;
    case EM_SETSEL:
        OnSetSel(static_cast<INT_PTR>(static_cast<int>(wParam)), static_cast<INT_PTR>(static_cast<int>(lParam)));
        return true;
    case EM_REPLACESEL: {
        const char* text = reinterpret_cast<const char*>(lParam);
        Replace(text ? text : "", true, wParam != 0);
        return true;
    }
    case EM_SCROLLCARET:
        ScrollToCaret();
        *result = TRUE;
        return true;
    case WM_CUT:
        if (!ReadOnly()) Cut();
        return true;
    case WM_COPY:
        Copy();
        return true;
    case WM_PASTE:
        if (!ReadOnly()) Paste();
        return true;
    case WM_CLEAR:
        if (!ReadOnly()) ClearSelection();
        return true;
    case EM_CANUNDO:
        *result = m_buffer.CanUndo() ? TRUE : FALSE;
        return true;
    case EM_UNDO:
    case WM_UNDO:
        if (m_buffer.Undo()) {
            m_modified = true;
            SelectionMoved();
            *result = NotifyChanged() ? TRUE : FALSE;
        }
        return true;
    case EM_EMPTYUNDOBUFFER:
        m_buffer.EmptyUndo();
        return true;

    // ---- state
    case EM_LIMITTEXT:
        m_buffer.SetLimit(static_cast<int>(std::min<WPARAM>(wParam, kMaxLimit)));
        return true;
    case EM_GETLIMITTEXT:
        *result = m_buffer.Limit();
        return true;
    case EM_GETMODIFY:
        *result = m_modified ? TRUE : FALSE;
        return true;
    case EM_SETMODIFY:
        m_modified = wParam != 0;
        return true;
    case EM_SETREADONLY:
        m_wnd->ModifyStyle(wParam ? 0 : ES_READONLY, wParam ? ES_READONLY : 0);
        m_wnd->Invalidate();
        *result = TRUE;
        return true;
    case EM_SETPASSWORDCHAR: {
        m_passwordChar = static_cast<char>(wParam);
        m_wnd->ModifyStyle(m_passwordChar ? 0 : ES_PASSWORD, m_passwordChar ? ES_PASSWORD : 0);
        m_scrollX = 0;
        ScrollToCaret();
        m_wnd->Invalidate();
        return true;
    }
    case EM_GETPASSWORDCHAR:
        *result = static_cast<unsigned char>(Has(ES_PASSWORD) ? m_passwordChar : 0);
        return true;

    // ---- geometry
    case EM_GETLINECOUNT:
        *result = 1;
        return true;
    case EM_LINELENGTH:
        *result = m_buffer.Length();
        return true;
    case EM_GETRECT:
        if (auto* rect = reinterpret_cast<RECT*>(lParam)) *rect = FormatRect();
        return true;
    case EM_POSFROMCHAR:
        *result = OnPosFromChar(static_cast<INT_PTR>(static_cast<int>(wParam)));
        return true;
    case EM_CHARFROMPOS: {
        const int pos = PosFromX(GET_X_LPARAM(lParam));
        *result = MAKELONG(static_cast<WORD>(std::min(pos, 0xFFFF)), 0);
        return true;
    }

    // ---- window
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
    case WM_SIZE:
        ScrollToCaret();
        m_wnd->Invalidate();
        return true;
    case WM_ENABLE:
        m_wnd->Invalidate();
        return true;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        OnFocus(message == WM_SETFOCUS);
        return true;
    case WM_GETDLGCODE:
        *result = DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS | (Has(ES_MULTILINE) ? DLGC_WANTALLKEYS : 0);
        return true;
    case WM_KEYDOWN:
        OnKeyDown(static_cast<UINT>(wParam));
        return true;
    case WM_CHAR:
        OnChar(static_cast<UINT>(wParam));
        return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        OnLButtonDown(CPoint(lParam), message == WM_LBUTTONDBLCLK, static_cast<UINT>(wParam));
        return true;
    case WM_MOUSEMOVE:
        OnMouseMove(CPoint(lParam));
        return true;
    case WM_LBUTTONUP:
        OnLButtonUp();
        return true;
    case WM_CAPTURECHANGED:
        if (reinterpret_cast<HWND>(lParam) != Hwnd()) m_selecting = false;
        return true;
    default:
        return false;
    }
}

// ---------------------------------------------------------------- messages

void EditControl::OnSetText(const char* text)
{
    m_buffer.SetText(text ? text : "");
    m_buffer.EmptyUndo();
    m_modified = false;
    m_pendingLead = -1;
    m_scrollX = 0;
    m_wnd->Invalidate();
    // The platform tells the parent of a new text only for a single line.
    if (!Has(ES_MULTILINE)) NotifyChanged();
}

LRESULT EditControl::OnGetText(WPARAM size, char* buffer) const
{
    return static_cast<LRESULT>(CopyGbkText(m_buffer.Text(), buffer, static_cast<size_t>(size)));
}

LRESULT EditControl::OnGetSel(DWORD* start, DWORD* end) const
{
    const int first = m_buffer.SelStart();
    const int last = m_buffer.SelEnd();
    if (start) *start = static_cast<DWORD>(first);
    if (end) *end = static_cast<DWORD>(last);
    // The packed answer holds 16 bits each; past that the platform says -1.
    if (first > 0xFFFF || last > 0xFFFF) return -1;
    return MAKELONG(static_cast<WORD>(first), static_cast<WORD>(last));
}

void EditControl::OnSetSel(INT_PTR start, INT_PTR end)
{
    const int length = m_buffer.Length();
    if (start == -1) {
        // -1 removes the selection and leaves the caret where it is.
        m_buffer.MoveCaret(m_buffer.Caret(), false);
    } else {
        // Other negative values are huge to the platform: the end of the text.
        const long long anchor = start < 0 ? length : start;
        const long long caret = end < 0 ? length : end;
        m_buffer.Select(anchor, caret);
    }
    SelectionMoved();
}

void EditControl::OnSetFont(HGDIOBJ font, bool redraw)
{
    m_font = font;
    m_scrollX = 0;
    ScrollToCaret();
    if (redraw) m_wnd->Invalidate();
}

void EditControl::OnFocus(bool gained)
{
    if (!gained) {
        m_selecting = false;
        m_pendingLead = -1;
    }
    // The caret shows only with the focus, and the selection too unless
    // ES_NOHIDESEL.
    m_wnd->Invalidate();
    SendCommandNotify(m_wnd, gained ? EN_SETFOCUS : EN_KILLFOCUS);
}

LRESULT EditControl::OnPosFromChar(INT_PTR index) const
{
    if (index < 0 || index > m_buffer.Length()) return -1;
    const int pos = m_buffer.Snap(index);
    return MAKELONG(static_cast<WORD>(static_cast<short>(XOf(pos))), static_cast<WORD>(FormatRect().top));
}

// ---------------------------------------------------------------- changes

bool EditControl::Replace(std::string_view text, bool honourLimit, bool canUndo)
{
    // Without ES_AUTOHSCROLL the text may not grow wider than the control.
    if (!Has(ES_AUTOHSCROLL) && !Has(ES_MULTILINE)) {
        const long long kept = Width(0, m_buffer.SelStart()) + Width(m_buffer.SelEnd(), m_buffer.Length());
        const gdi::FontMetrics font = Font();
        const bool password = Has(ES_PASSWORD);
        const int room = TextRoom();
        size_t fits = 0;
        long long width = kept;
        while (fits < text.size()) {
            const int bytes = GbkCharLength(text, fits);
            const long long next = width + ShownAdvance(font, password, bytes);
            if (next > room) break;
            width = next;
            fits += static_cast<size_t>(bytes);
        }
        if (fits < text.size()) {
            text = text.substr(0, fits);
            if (text.empty() && !m_buffer.HasSelection()) return SendCommandNotify(m_wnd, EN_MAXTEXT);
        }
    }
    bool truncated = false;
    if (!m_buffer.ReplaceSelection(text, honourLimit, canUndo, &truncated)) {
        return truncated ? SendCommandNotify(m_wnd, EN_MAXTEXT) : true;
    }
    m_modified = true;
    m_pendingLead = -1;
    SelectionMoved();
    if (truncated && !SendCommandNotify(m_wnd, EN_MAXTEXT)) return false;
    return NotifyChanged();
}

bool EditControl::NotifyChanged()
{
    return SendCommandNotify(m_wnd, EN_UPDATE) && SendCommandNotify(m_wnd, EN_CHANGE);
}

void EditControl::SelectionMoved()
{
    ScrollToCaret();
    m_wnd->Invalidate();
}

}  // namespace edit
