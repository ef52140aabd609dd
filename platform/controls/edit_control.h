// The edit control's state and behaviour behind CEdit::DefWindowProc: the
// EM_* and text messages, typing, caret movement, the mouse, the clipboard,
// horizontal scrolling, notifications and painting.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/controls/edit.h"
#include "platform/controls/edit_buffer.h"
#include "platform/gdi/font_model.h"

class CDC;

namespace edit {

// Between the client edges and the text.
constexpr int kHorizontalMargin = 2;
constexpr int kTopMargin = 1;
constexpr int kCaretWidth = 1;
// Widths stop here, far beyond any surface, so that callers can add to them.
constexpr long long kMaxTextWidth = 1 << 28;
// When the caret leaves the view, the text scrolls so that the caret lands
// this fraction of the width in from the edge it left by.
constexpr int kScrollDivisor = 3;
// Shown for each character of a password.
constexpr char kDefaultPasswordChar = '*';

// What a character of `bytes` bytes advances as shown: a password shows a
// narrow mark for every character.
inline int ShownAdvance(const gdi::FontMetrics& font, bool password, int bytes)
{
    return font.Advance(password ? 1 : bytes);
}

// Measures the buffer's text as shown, counting characters in its index:
// nothing walks the text, so a paint of a long text costs what shows.
struct Ruler {
    const Buffer& buffer;
    gdi::FontMetrics font;
    bool password;

    // What `chars` characters of `bytes` bytes advance: characters take one
    // or two bytes, so the surplus of bytes counts the wide ones.
    long long Width(long long chars, long long bytes) const
    {
        if (password) return chars * ShownAdvance(font, true, 1);
        const long long wide = bytes - chars;
        return (chars - wide) * font.Advance(1) + wide * font.Advance(2);
    }
    // Offset of the index-th character from the text's start.
    long long Left(int index) const { return Width(index, buffer.CharStart(index)); }
};

class EditControl {
public:
    explicit EditControl(CWnd* wnd);
    EditControl(const EditControl&) = delete;
    EditControl& operator=(const EditControl&) = delete;

    // Handles a message; false leaves it to CWnd::DefWindowProc.
    bool Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

private:
    // ---- messages (edit_control.cpp)
    void OnSetText(const char* text);
    LRESULT OnGetText(WPARAM size, char* buffer) const;
    LRESULT OnGetSel(DWORD* start, DWORD* end) const;
    void OnSetSel(INT_PTR start, INT_PTR end);
    void OnSetFont(HGDIOBJ font, bool redraw);
    void OnFocus(bool gained);
    LRESULT OnPosFromChar(INT_PTR index) const;

    // ---- changes: each false when the window went away meanwhile
    // Replaces the selection with text typed, pasted or sent, within the
    // limit (and the width, without ES_AUTOHSCROLL), then tells the parent.
    bool Replace(std::string_view text, bool honourLimit, bool canUndo);
    bool NotifyChanged();
    // Caret or selection moved: show it.
    void SelectionMoved();

    // ---- clipboard (edit_clipboard.cpp)
    void Copy();
    bool Cut();
    bool Paste();
    bool ClearSelection();

    // ---- keyboard and mouse (edit_input.cpp)
    void OnKeyDown(UINT key);
    void OnChar(UINT ch);
    bool TypeCharacter(std::string text);
    void OnLButtonDown(POINT pt, bool doubleClick, UINT keys);
    void OnMouseMove(POINT pt);
    void OnLButtonUp();
    bool ReadOnly() const { return Has(ES_READONLY); }

    // ---- geometry (edit_layout.cpp)
    HGDIOBJ FontHandle() const;
    gdi::FontMetrics Font() const;
    CRect FormatRect() const;
    Ruler MakeRuler() const { return Ruler{m_buffer, Font(), Has(ES_PASSWORD)}; }
    // Width of text[from, to) as shown.
    int Width(int from, int to) const;
    // Client x of the text's start and of a position.
    int TextLeft() const;
    int XOf(int pos) const;
    // The first character index for which past(index) holds, past being
    // false and then true along the text; the count when it never holds.
    template <class Past>
    int FirstChar(Past past) const;
    // The character boundary nearest a client x.
    int PosFromX(int x) const;
    // The positions around the characters that meet client columns [clipLeft, clipRight).
    std::pair<int, int> ShownRange(int clipLeft, int clipRight) const;
    // Scrolls so the caret shows (with ES_AUTOHSCROLL), keeping the view filled.
    void ScrollToCaret();
    // The widest text that can be shown without ES_AUTOHSCROLL.
    int TextRoom() const;

    // ---- painting (edit_paint.cpp)
    void Paint(CDC& dc);
    std::string Shown(int from, int to) const;
    bool ShowsSelection() const;

    bool Has(DWORD style) const { return (m_wnd->GetStyle() & style) != 0; }
    HWND Hwnd() const { return m_wnd->GetSafeHwnd(); }

    CWnd* m_wnd;
    Buffer m_buffer;
    bool m_modified = false;
    int m_scrollX = 0;  // pixels of text scrolled out on the left
    HGDIOBJ m_font = nullptr;
    char m_passwordChar = kDefaultPasswordChar;
    bool m_selecting = false;  // a mouse drag is extending the selection
    int m_pendingLead = -1;    // a lead byte typed, waiting for its trail byte
};

}  // namespace edit
