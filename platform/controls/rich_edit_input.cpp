// Mouse and keyboard: the caret, the selection, typing and the clipboard
// keys. A read-only control lets the user move about and copy, nothing more.
#include "platform/controls/rich_edit_control.h"

#include <algorithm>
#include <vector>

#include "platform/core/input_state.h"
#include "platform/text/gbk.h"

namespace richedit {
namespace {

enum class Kind { Space, Word, Other };

// Double-byte characters count as letters, so a run of them is one word.
Kind KindAt(const std::string& text, int offset)
{
    const char c = text[static_cast<size_t>(offset)];
    if (c == ' ' || c == '\t') return Kind::Space;
    return IsWordCharAt(text, static_cast<size_t>(offset)) ? Kind::Word : Kind::Other;
}

// Offsets where the line's characters start.
std::vector<int> CharStarts(const std::string& text)
{
    std::vector<int> starts;
    for (size_t pos = 0; pos < text.size(); pos += static_cast<size_t>(GbkCharLength(text, pos))) starts.push_back(static_cast<int>(pos));
    return starts;
}

// Index of the character starting at offset (the count for the line's end).
size_t IndexOf(const std::vector<int>& starts, int offset)
{
    return static_cast<size_t>(std::lower_bound(starts.begin(), starts.end(), offset) - starts.begin());
}

bool IsModifier(UINT key)
{
    return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU;
}

}  // namespace

// ---------------------------------------------------------------- mouse

void RichEditControl::OnLButtonDown(UINT flags, POINT pt)
{
    const HWND self = Hwnd();
    m_wnd->SetFocus();
    if (!IsWindow(self)) return;
    m_pendingLead = -1;
    const Pos pos = PosFromPoint(ComputeMetrics(), pt);
    SetSelection((flags & MK_SHIFT) ? m_anchor : pos, pos, true);
    m_dragging = true;
    ::SetCapture(self);
}

void RichEditControl::OnMouseMove(UINT flags, POINT pt)
{
    if (!m_dragging || !(flags & MK_LBUTTON)) return;
    SetSelection(m_anchor, PosFromPoint(ComputeMetrics(), pt), true);
}

void RichEditControl::OnLButtonUp()
{
    m_dragging = false;
    if (::GetCapture() == Hwnd()) ::ReleaseCapture();
}

void RichEditControl::OnLButtonDblClk(POINT pt)
{
    const HWND self = Hwnd();
    m_wnd->SetFocus();
    if (!IsWindow(self)) return;
    m_dragging = false;
    const Metrics m = ComputeMetrics();
    const size_t line = LineAtY(m, pt.y);
    const Pos start = m_text.LineStart(line);
    const std::string& text = m_text.LineAt(line).text;
    if (text.empty()) {
        SetSelection(start, start, true);
        return;
    }
    // The word under the point with the spaces after it; or the run of
    // spaces, or of other characters, under it.
    const std::vector<int> starts = CharStarts(text);
    const size_t under = IndexOf(starts, OffsetUnderX(m, text, static_cast<int>(pt.x - m.view.left + m_scrollX)));
    const Kind kind = KindAt(text, starts[under]);
    size_t lo = under, hi = under + 1;
    while (lo > 0 && KindAt(text, starts[lo - 1]) == kind) --lo;
    while (hi < starts.size() && KindAt(text, starts[hi]) == kind) ++hi;
    if (kind == Kind::Word)
        while (hi < starts.size() && KindAt(text, starts[hi]) == Kind::Space) ++hi;
    SetSelection(start + starts[lo], start + (hi < starts.size() ? starts[hi] : static_cast<int>(text.size())), true);
}

// ---------------------------------------------------------------- caret movement

void RichEditControl::MoveCaret(Pos pos, bool extend)
{
    SetSelection(extend ? m_anchor : pos, pos, true);
}

void RichEditControl::MoveVertically(Pos lines, bool extend)
{
    const Metrics m = ComputeMetrics();
    const size_t line = m_text.LineOf(m_caret);
    // Successive moves aim at the column the first one started from.
    const int desired = m_desiredX >= 0 ? m_desiredX : TextX(m, m_text.LineAt(line).text, static_cast<int>(m_caret - m_text.LineStart(line)));
    const Pos target = std::clamp<Pos>(static_cast<Pos>(line) + lines, 0, static_cast<Pos>(m_text.LineCount()) - 1);
    Pos pos = m_caret;
    if (target != static_cast<Pos>(line)) {
        const size_t to = static_cast<size_t>(target);
        pos = m_text.LineStart(to) + OffsetNearX(m, m_text.LineAt(to).text, desired);
    }
    MoveCaret(pos, extend);
    m_desiredX = desired;
}

Pos RichEditControl::WordRight(Pos pos) const
{
    const size_t line = m_text.LineOf(pos);
    const Pos start = m_text.LineStart(line);
    const std::string& text = m_text.LineAt(line).text;
    if (pos - start >= static_cast<Pos>(text.size())) return m_text.NextChar(pos);
    const std::vector<int> starts = CharStarts(text);
    size_t i = IndexOf(starts, static_cast<int>(pos - start));
    const Kind kind = KindAt(text, starts[i]);
    if (kind != Kind::Space)
        while (i < starts.size() && KindAt(text, starts[i]) == kind) ++i;
    while (i < starts.size() && KindAt(text, starts[i]) == Kind::Space) ++i;
    return start + (i < starts.size() ? starts[i] : static_cast<int>(text.size()));
}

Pos RichEditControl::WordLeft(Pos pos) const
{
    const size_t line = m_text.LineOf(pos);
    const Pos start = m_text.LineStart(line);
    if (pos == start) return m_text.PrevChar(pos);
    const std::string& text = m_text.LineAt(line).text;
    const std::vector<int> starts = CharStarts(text);
    size_t i = IndexOf(starts, static_cast<int>(pos - start));
    while (i > 0 && KindAt(text, starts[i - 1]) == Kind::Space) --i;
    if (i > 0) {
        const Kind kind = KindAt(text, starts[i - 1]);
        while (i > 0 && KindAt(text, starts[i - 1]) == kind) --i;
    }
    return start + starts[i];
}

// ---------------------------------------------------------------- keyboard

void RichEditControl::OnKeyDown(UINT key)
{
    if (IsModifier(key)) return;
    m_pendingLead = -1;
    const bool shift = GetKeyState(static_cast<int>(VK_SHIFT)) < 0;
    const bool control = GetKeyState(static_cast<int>(VK_CONTROL)) < 0;
    const Pos lo = SelMin(), hi = SelMax();
    switch (key) {
    case VK_LEFT:
        if (!shift && !control && lo < hi) MoveCaret(lo, false);
        else MoveCaret(control ? WordLeft(m_caret) : m_text.PrevChar(m_caret), shift);
        break;
    case VK_RIGHT:
        if (!shift && !control && lo < hi) MoveCaret(hi, false);
        else MoveCaret(control ? WordRight(m_caret) : m_text.NextChar(m_caret), shift);
        break;
    case VK_UP:
        MoveVertically(-1, shift);
        break;
    case VK_DOWN:
        MoveVertically(1, shift);
        break;
    case VK_HOME:
        MoveCaret(control ? 0 : m_text.LineStart(m_text.LineOf(m_caret)), shift);
        break;
    case VK_END:
        MoveCaret(control ? m_text.Length() : m_text.LineEnd(m_text.LineOf(m_caret)), shift);
        break;
    case VK_PRIOR:
    case VK_NEXT: {
        // The view moves a page, and the caret with it.
        const Pos page = ComputeMetrics().FullLines();
        OnVScroll(key == VK_NEXT ? SB_PAGEDOWN : SB_PAGEUP, 0);
        MoveVertically(key == VK_NEXT ? page : -page, shift);
        break;
    }
    case VK_DELETE:
        if (shift) {
            if (!IsReadOnly() && CopyToClipboard()) ReplaceSelection("", true);
        } else if (!IsReadOnly()) {
            if (lo == hi) SetSelection(m_caret, m_text.NextChar(m_caret), false);
            ReplaceSelection("", true);
        }
        break;
    case VK_INSERT:
        if (control) CopyToClipboard();
        else if (shift) PasteFromClipboard();
        break;
    case 'A':
        if (control) SetSelection(0, m_text.Length(), false);
        break;
    case 'C':
        if (control) CopyToClipboard();
        break;
    case 'X':
        if (control && !IsReadOnly() && CopyToClipboard()) ReplaceSelection("", true);
        break;
    case 'V':
        if (control) PasteFromClipboard();
        break;
    default:
        break;
    }
}

void RichEditControl::OnChar(UINT ch)
{
    if (ch > 0xFF) return;
    if (IsReadOnly()) {
        m_pendingLead = -1;
        return;
    }
    if (m_pendingLead >= 0) {
        const char pair[2] = {static_cast<char>(m_pendingLead), static_cast<char>(ch)};
        m_pendingLead = -1;
        if (ch != 0 && ch != '\r' && ch != '\n') {
            ReplaceSelection(std::string_view(pair, 2), true);
            return;
        }
    }
    if (IsDBCSLeadByte(static_cast<unsigned char>(ch))) {
        m_pendingLead = static_cast<int>(ch);
        return;
    }
    switch (ch) {
    case '\b':
        if (SelMin() == SelMax()) SetSelection(m_text.PrevChar(m_caret), m_caret, false);
        ReplaceSelection("", true);
        break;
    case '\r':
        if (IsMultiLine()) ReplaceSelection("\r", true);
        break;
    case '\t':
        ReplaceSelection("\t", true);
        break;
    default:
        // Other control characters are keys' by-products (Ctrl+C gives 3).
        if (ch >= 0x20 && ch != 0x7F) {
            const char c = static_cast<char>(ch);
            ReplaceSelection(std::string_view(&c, 1), true);
        }
        break;
    }
}

}  // namespace richedit
