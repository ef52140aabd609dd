// Mouse and keyboard: the control's default handling of user input.
#include "platform/controls/tree_control.h"

#include "platform/core/input_state.h"
#include "platform/text/gbk.h"

namespace tree {
namespace {

// Keys that type a character go on with type-ahead; so do the modifiers
// pressed to type them.
bool TypesCharacter(UINT key)
{
    return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9') || key == VK_SPACE || key >= 0xBA;
}

bool IsModifier(UINT key)
{
    return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU;
}

char FoldAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Whether text starts with prefix, folding ASCII letters only: the second
// byte of a double-byte character is compared as it is.
bool StartsWithFolded(const std::string& text, const std::string& prefix)
{
    if (prefix.size() > text.size()) return false;
    for (size_t pos = 0; pos < prefix.size();) {
        const int length = GbkCharLength(prefix, pos);
        if (length == 2) {
            if (text.compare(pos, 2, prefix, pos, 2) != 0) return false;
        } else if (FoldAscii(text[pos]) != FoldAscii(prefix[pos])) {
            return false;
        }
        pos += static_cast<size_t>(length);
    }
    return true;
}

}  // namespace

// ---------------------------------------------------------------- mouse

void TreeControl::OnLButtonDown(POINT pt)
{
    const HWND self = Hwnd();
    ResetTypeAhead();
    m_wnd->SetFocus();
    if (!IsWindow(self)) return;
    m_leftPressed = true;
    ::SetCapture(self);
    UINT flags = 0;
    const Slot slot = Resolve(HitTest(pt, &flags));
    if (slot == kNone) return;
    if (flags & TVHT_ONITEMBUTTON) {
        Expand(slot, TVE_TOGGLE, true);
        return;
    }
    if ((flags & TVHT_ONITEM) || (m_wnd->GetStyle() & TVS_FULLROWSELECT)) SelectCaret(slot, TVC_BYMOUSE, true);
}

void TreeControl::OnLButtonUp()
{
    const bool pressed = m_leftPressed;
    m_leftPressed = false;
    if (::GetCapture() == Hwnd()) ::ReleaseCapture();
    if (pressed) NotifySimple(NM_CLICK);
}

void TreeControl::OnLButtonDblClk(POINT pt)
{
    const HWND self = Hwnd();
    ResetTypeAhead();
    m_wnd->SetFocus();
    if (!IsWindow(self)) return;
    UINT flags = 0;
    const HTREEITEM handle = HitTest(pt, &flags);
    if (flags & TVHT_ONITEMBUTTON) {
        Expand(Resolve(handle), TVE_TOGGLE, true);
        return;
    }
    LRESULT handled = 0;
    if (!NotifySimple(NM_DBLCLK, &handled) || handled) return;
    const Slot slot = Resolve(handle);
    const bool onItem = (flags & TVHT_ONITEM) || (m_wnd->GetStyle() & TVS_FULLROWSELECT);
    if (slot != kNone && onItem && m_model.HasChildren(slot)) Expand(slot, TVE_TOGGLE, true);
}

LRESULT TreeControl::OnRButtonUp(WPARAM wParam, LPARAM lParam)
{
    LRESULT handled = 0;
    if (!NotifySimple(NM_RCLICK, &handled) || handled) return 0;
    // Unhandled, the platform turns the release into WM_CONTEXTMENU.
    return m_wnd->CWnd::DefWindowProc(WM_RBUTTONUP, wParam, lParam);
}

void TreeControl::OnMouseMove(POINT pt)
{
    if (!(m_wnd->GetStyle() & TVS_TRACKSELECT)) return;
    UINT flags = 0;
    HTREEITEM hot = HitTest(pt, &flags);
    if (!(flags & TVHT_ONITEM)) hot = nullptr;
    const Slot before = Resolve(m_hot);
    if (Resolve(hot) == before) return;
    InvalidateItem(before);
    m_hot = hot;
    InvalidateItem(Resolve(hot));
    if (hot) {
        // The hot item cools when the mouse leaves the tree.
        TRACKMOUSEEVENT track;
        track.dwFlags = TME_LEAVE;
        track.hwndTrack = Hwnd();
        TrackMouseEvent(&track);
    }
}

void TreeControl::OnMouseLeave()
{
    const Slot before = Resolve(m_hot);
    m_hot = nullptr;
    InvalidateItem(before);
}

// ---------------------------------------------------------------- keyboard

void TreeControl::MoveCaretToRow(int row)
{
    const auto& rows = m_model.Rows();
    if (rows.empty()) return;
    row = std::clamp(row, 0, static_cast<int>(rows.size()) - 1);
    SelectCaret(rows[static_cast<size_t>(row)], TVC_BYKEYBOARD, true);
}

void TreeControl::OnKeyDown(UINT key)
{
    NMTVKEYDOWN nm;
    nm.wVKey = static_cast<WORD>(key);
    LRESULT answer = 0;
    if (!Notify(nm.hdr, TVN_KEYDOWN, &answer)) return;
    // For a character key the parent's nonzero answer keeps the character
    // out of the type-ahead; any other key ends a type-ahead run.
    if (TypesCharacter(key)) m_skipNextChar = answer != 0;
    else if (!IsModifier(key)) ResetTypeAhead();

    const Metrics m = ComputeMetrics();
    const int top = TopIndex(m);
    const int count = static_cast<int>(m_model.Rows().size());
    if (count == 0) return;
    const int page = m.PageRows();
    const int step = std::max(1, page - 1);

    if (IsKeyDown(VK_CONTROL)) {
        // With Control the view scrolls and the caret stays.
        switch (key) {
        case VK_UP: ScrollTo(top - 1); return;
        case VK_DOWN: ScrollTo(top + 1); return;
        case VK_PRIOR: ScrollTo(top - page); return;
        case VK_NEXT: ScrollTo(top + page); return;
        case VK_HOME: ScrollTo(0); return;
        case VK_END: ScrollTo(count); return;
        default: break;
        }
    }

    const Slot caret = Caret();
    const int row = caret != kNone ? m_model.RowOf(caret) : -1;
    // Without a shown caret, any move starts at the first row shown.
    const bool start = row < 0;
    switch (key) {
    case VK_UP: MoveCaretToRow(start ? top : row - 1); return;
    case VK_DOWN: MoveCaretToRow(start ? top : row + 1); return;
    case VK_PRIOR: MoveCaretToRow(start ? top : row - step); return;
    case VK_NEXT: MoveCaretToRow(start ? top : row + step); return;
    case VK_HOME: MoveCaretToRow(0); return;
    case VK_END: MoveCaretToRow(count - 1); return;
    case VK_RETURN: NotifySimple(NM_RETURN); return;
    default: break;
    }
    if (start) {
        if (key == VK_LEFT || key == VK_RIGHT || key == VK_BACK) MoveCaretToRow(top);
        return;
    }
    const Item& item = m_model.At(caret);
    switch (key) {
    case VK_LEFT:
        if (m_model.IsExpanded(caret) && m_model.HasChildren(caret)) Expand(caret, TVE_COLLAPSE, true);
        else if (m_model.IsItem(item.parent)) SelectCaret(item.parent, TVC_BYKEYBOARD, true);
        return;
    case VK_BACK:
        if (m_model.IsItem(item.parent)) SelectCaret(item.parent, TVC_BYKEYBOARD, true);
        return;
    case VK_RIGHT:
        if (!m_model.HasChildren(caret)) return;
        if (!m_model.IsExpanded(caret)) Expand(caret, TVE_EXPAND, true);
        else if (item.firstChild != kNone) SelectCaret(item.firstChild, TVC_BYKEYBOARD, true);
        return;
    case VK_ADD:
        Expand(caret, TVE_EXPAND, true);
        return;
    case VK_SUBTRACT:
        Expand(caret, TVE_COLLAPSE, true);
        return;
    case VK_MULTIPLY: {
        const HWND self = Hwnd();
        const HTREEITEM handle = m_caret;
        ExpandSubtree(caret);
        if (IsWindow(self) && Resolve(handle) != kNone) ShowChildren(Resolve(handle));
        return;
    }
    default:
        return;
    }
}

void TreeControl::ResetTypeAhead()
{
    m_typed.clear();
    m_pendingLead.clear();
}

void TreeControl::OnChar(UINT ch)
{
    if (m_skipNextChar) {
        m_skipNextChar = false;
        return;
    }
    std::string piece;
    if (ch > 0xFF) {
        // Both bytes of a double-byte character in one message.
        piece = {static_cast<char>(ch >> 8), static_cast<char>(ch & 0xFF)};
        m_pendingLead.clear();
    } else if (ch < 0x20 || ch == 0x7F) {
        ResetTypeAhead();  // control characters (Return, Escape, Backspace) end a run
        return;
    } else if (!m_pendingLead.empty()) {
        piece = m_pendingLead + static_cast<char>(ch);
        m_pendingLead.clear();
    } else if (IsDBCSLeadByte(static_cast<unsigned char>(ch))) {
        m_pendingLead = std::string(1, static_cast<char>(ch));
        return;
    } else {
        piece = std::string(1, static_cast<char>(ch));
    }

    // The same character again cycles through the items that start with it;
    // otherwise the text typed so far is the prefix to find.
    bool repeat = !m_typed.empty() && m_typed.size() % piece.size() == 0;
    for (size_t pos = 0; repeat && pos < m_typed.size(); pos += piece.size()) {
        repeat = m_typed.compare(pos, piece.size(), piece) == 0;
    }
    m_typed += piece;
    const std::string prefix = repeat ? piece : m_typed;
    const bool fresh = repeat || m_typed.size() == piece.size();

    const auto& rows = m_model.Rows();
    const int count = static_cast<int>(rows.size());
    if (count == 0) return;
    const int caretRow = m_model.RowOf(Caret());
    // A new search starts after the caret; a longer prefix may still fit the caret.
    const int start = caretRow < 0 ? 0 : fresh ? caretRow + 1 : caretRow;
    for (int i = 0; i < count; ++i) {
        const Slot slot = rows[static_cast<size_t>((start + i) % count)];
        if (StartsWithFolded(m_model.At(slot).text, prefix)) {
            SelectCaret(slot, TVC_BYKEYBOARD, true);
            return;
        }
    }
}

}  // namespace tree
