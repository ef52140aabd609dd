// The rich edit control's state and behaviour behind
// CRichEditCtrl::DefWindowProc: the EM_* messages, the selection and its
// formats, scrolling, painting, mouse, keyboard and clipboard.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/rich_edit_ctrl.h"
#include "platform/controls/rich_edit_layout.h"
#include "platform/controls/rich_edit_text.h"

class CDC;
namespace gdi {
struct FontData;
}

namespace richedit {

class RichEditControl {
public:
    explicit RichEditControl(CWnd* wnd);
    RichEditControl(const RichEditControl&) = delete;
    RichEditControl& operator=(const RichEditControl&) = delete;

    // Handles a message; false leaves it to CWnd::DefWindowProc.
    bool Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // Draws the lines that meet clip (client coordinates) into dc.
    void Paint(CDC& dc, const CRect& clip);

private:
    // ---- messages (rich_edit_control.cpp)
    bool HandleEditMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    void OnCreate(const CREATESTRUCT* cs);
    void OnSetText(const char* text);
    LRESULT OnGetText(size_t size, char* buffer) const;
    LRESULT OnSetSel(LONG start, LONG end);
    LRESULT OnGetSel(DWORD* start, DWORD* end) const;
    LRESULT OnLineIndex(LONG line) const;
    LRESULT OnLineLength(LONG pos) const;
    LRESULT OnLineFromChar(LONG pos) const;
    LRESULT OnGetLine(WPARAM line, char* buffer) const;
    LRESULT OnGetTextRange(TEXTRANGE* range) const;
    LRESULT OnSetCharFormat(WPARAM scope, const CHARFORMAT* format);
    LRESULT OnGetCharFormat(WPARAM scope, CHARFORMAT* format) const;
    LRESULT OnFindText(WPARAM flags, const CHARRANGE& range, const char* what, CHARRANGE* found) const;
    COLORREF OnSetBackgroundColor(bool system, COLORREF color);
    void OnHideSelection(bool hide, bool permanent);
    void OnSetFont(HGDIOBJ font, bool redraw);
    void OnFocusChange(bool gained);
    void Forget();

    // ---- editing and the clipboard (rich_edit_control.cpp)
    // Replaces the selection with text as given to the control. A user's
    // edit of a read-only control does nothing and returns false.
    bool ReplaceSelection(std::string_view text, bool byUser);
    // Sets the selection (positions already snapped); scroll brings the
    // caret into view.
    void SetSelection(Pos anchor, Pos caret, bool scroll);
    // The format text inserted now takes.
    CharColor InsertionFormat() const;
    bool CopyToClipboard() const;
    void PasteFromClipboard();
    bool IsReadOnly() const;
    bool IsMultiLine() const;
    Pos SelMin() const { return std::min(m_anchor, m_caret); }
    Pos SelMax() const { return std::max(m_anchor, m_caret); }

    // ---- geometry, scrolling and repainting (rich_edit_scroll.cpp)
    Metrics ComputeMetrics() const;
    const gdi::FontData& FontData() const;
    HGDIOBJ FontHandle() const;
    // Client point of the top-left of the boundary at pos.
    POINT PointOf(const Metrics& m, Pos pos) const;
    Pos PosFromPoint(const Metrics& m, POINT pt) const;
    // The line under client y, clamped to the text.
    size_t LineAtY(const Metrics& m, int y) const;
    void EnsureCaretVisible();
    void ScrollTo(Pos firstLine, int scrollX);
    void LineScroll(int chars, Pos lines);
    // The first line shown when the last line is at the bottom.
    Pos LastTopLine(const Metrics& m) const;
    void OnVScroll(UINT code, int position);
    void OnHScroll(UINT code, int position);
    void OnMouseWheel(int delta);
    int MaxLineWidth(const Metrics& m);
    // Takes lines [first, end) into the widest line, if that is known.
    void WidenMaxLineWidth(size_t first, size_t end);
    // Shows the bars the styles asked for while the text overflows.
    void FitScrollBars();
    // Repaints lines [first, last] where they are shown.
    void InvalidateLines(size_t first, size_t last);
    void InvalidateRange(Pos a, Pos b);
    void InvalidateAll();

    // ---- painting (rich_edit_paint.cpp)
    void PaintLine(CDC& dc, const Metrics& m, size_t line, int y, Pos selLo, Pos selHi) const;
    COLORREF Background() const;

    // ---- input (rich_edit_input.cpp)
    void OnLButtonDown(UINT flags, POINT pt);
    void OnLButtonUp();
    void OnLButtonDblClk(POINT pt);
    void OnMouseMove(UINT flags, POINT pt);
    void OnKeyDown(UINT key);
    void OnChar(UINT ch);
    void MoveCaret(Pos pos, bool extend);
    void MoveVertically(Pos lines, bool extend);
    Pos WordLeft(Pos pos) const;
    Pos WordRight(Pos pos) const;

    HWND Hwnd() const { return m_wnd->GetSafeHwnd(); }

    CWnd* m_wnd;
    TextStore m_text;
    Pos m_anchor = 0;
    Pos m_caret = 0;
    // Set by EM_SETCHARFORMAT on an empty selection: the next insertion's
    // format, forgotten when the selection moves.
    std::optional<CharColor> m_pendingFormat;
    CharColor m_defaultFormat;

    size_t m_firstLine = 0;
    int m_scrollX = 0;
    int m_desiredX = -1;  // where up and down aim, kept across moves
    int m_wheelRemainder = 0;
    int m_maxWidth = 0;
    bool m_maxWidthKnown = false;
    bool m_allowVertical = false;    // created with WS_VSCROLL
    bool m_allowHorizontal = false;  // created with WS_HSCROLL

    bool m_systemBackground = true;
    COLORREF m_background = 0;
    HGDIOBJ m_font = nullptr;
    bool m_selectionShown = false;
    bool m_dragging = false;
    int m_pendingLead = -1;  // a typed lead byte waiting for its second byte
};

}  // namespace richedit
