// Typing, caret keys and the mouse.
#include "platform/controls/edit_control.h"

#include "platform/core/input_state.h"
#include "platform/text/gbk.h"

namespace edit {

namespace {

// Control characters that WM_CHAR brings for Ctrl+letter.
constexpr UINT kCtrlA = 0x01;
constexpr UINT kCtrlC = 0x03;
constexpr UINT kCtrlV = 0x16;
constexpr UINT kCtrlX = 0x18;
constexpr UINT kCtrlZ = 0x1A;

bool IsTrailByte(UINT byte)
{
    return byte >= 0x40 && byte <= 0xFE && byte != 0x7F;
}

}  // namespace

void EditControl::OnKeyDown(UINT key)
{
    const bool shift = IsKeyDown(VK_SHIFT);
    const bool control = IsKeyDown(VK_CONTROL);
    const int caret = m_buffer.Caret();
    switch (key) {
    case VK_LEFT:
        if (m_buffer.HasSelection() && !shift) m_buffer.MoveCaret(m_buffer.SelStart(), false);
        else m_buffer.MoveCaret(control ? m_buffer.WordLeft(caret) : m_buffer.PrevChar(caret), shift);
        break;
    case VK_RIGHT:
        if (m_buffer.HasSelection() && !shift) m_buffer.MoveCaret(m_buffer.SelEnd(), false);
        else m_buffer.MoveCaret(control ? m_buffer.WordRight(caret) : m_buffer.NextChar(caret), shift);
        break;
    case VK_HOME:
        m_buffer.MoveCaret(0, shift);
        break;
    case VK_END:
        m_buffer.MoveCaret(m_buffer.Length(), shift);
        break;
    case VK_DELETE:
        if (ReadOnly()) return;
        if (shift) {
            Cut();
        } else if (m_buffer.HasSelection()) {
            ClearSelection();
        } else if (caret < m_buffer.Length()) {
            m_buffer.Select(caret, m_buffer.NextChar(caret));
            ClearSelection();
        }
        return;
    case VK_INSERT:
        if (control) Copy();
        else if (shift && !ReadOnly()) Paste();
        return;
    default:
        return;
    }
    m_pendingLead = -1;
    SelectionMoved();
}

void EditControl::OnChar(UINT ch)
{
    ch &= 0xFF;
    // The second byte of a double-byte character completes the first.
    if (m_pendingLead >= 0) {
        const int lead = m_pendingLead;
        m_pendingLead = -1;
        if (IsTrailByte(ch)) {
            TypeCharacter(std::string{static_cast<char>(lead), static_cast<char>(ch)});
            return;
        }
    }
    switch (ch) {
    case kCtrlA:
        m_buffer.Select(0, m_buffer.Length());
        SelectionMoved();
        return;
    case kCtrlC:
        Copy();
        return;
    case kCtrlV:
        if (!ReadOnly()) Paste();
        return;
    case kCtrlX:
        if (!ReadOnly()) Cut();
        return;
    case kCtrlZ:
        if (!ReadOnly()) m_wnd->SendMessage(EM_UNDO);
        return;
    case '\b': {
        if (ReadOnly()) return;
        if (!m_buffer.HasSelection()) {
            const int caret = m_buffer.Caret();
            if (caret == 0) return;
            m_buffer.Select(caret, m_buffer.PrevChar(caret));
        }
        ClearSelection();
        return;
    }
    default:
        break;
    }
    // Other control characters (Enter, Tab, Escape) do nothing on one line.
    if (ch < 0x20 || ch == 0x7F) return;
    if (IsDBCSLeadByte(static_cast<unsigned char>(ch))) {
        m_pendingLead = static_cast<int>(ch);
        return;
    }
    TypeCharacter(std::string(1, static_cast<char>(ch)));
}

bool EditControl::TypeCharacter(std::string text)
{
    if (ReadOnly()) return true;
    // ES_NUMBER takes digits only.
    if (Has(ES_NUMBER) && (text.size() != 1 || text[0] < '0' || text[0] > '9')) return true;
    if (text.size() == 1) {
        char& c = text[0];
        if (Has(ES_UPPERCASE) && c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
        if (Has(ES_LOWERCASE) && c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return Replace(text, true, true);
}

void EditControl::OnLButtonDown(POINT pt, bool doubleClick, UINT keys)
{
    const HWND self = Hwnd();
    if (::GetFocus() != self) {
        m_wnd->SetFocus();
        if (!IsWindow(self)) return;
    }
    const int pos = PosFromX(pt.x);
    if (doubleClick) {
        // The word under the pointer, with the spaces after it.
        m_buffer.Select(m_buffer.WordStart(pos), m_buffer.WordRight(pos));
        SelectionMoved();
        return;
    }
    m_buffer.MoveCaret(pos, (keys & MK_SHIFT) != 0);
    m_selecting = true;
    m_wnd->SetCapture();
    SelectionMoved();
}

void EditControl::OnMouseMove(POINT pt)
{
    if (!m_selecting) return;
    const int pos = PosFromX(pt.x);
    if (pos == m_buffer.Caret()) return;
    m_buffer.MoveCaret(pos, true);
    SelectionMoved();
}

void EditControl::OnLButtonUp()
{
    if (!m_selecting) return;
    m_selecting = false;
    if (::GetCapture() == Hwnd()) ::ReleaseCapture();
}

}  // namespace edit
