// Messages of the rich edit control, editing, and the clipboard.
#include "platform/controls/rich_edit_control.h"

#include <climits>
#include <cstring>

#include "platform/core/paint_dc.h"
#include "platform/gdi/gdi_registry.h"
#include "platform/gdi/sys_color.h"
#include "platform/ole/clipboard.h"

namespace richedit {

RichEditControl::RichEditControl(CWnd* wnd) : m_wnd(wnd) {}

bool RichEditControl::Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    *result = 0;
    if (HandleEditMessage(message, wParam, lParam, result)) return true;
    switch (message) {
    case WM_CREATE:
        OnCreate(reinterpret_cast<const CREATESTRUCT*>(lParam));
        return true;
    case WM_SETTEXT:
        OnSetText(reinterpret_cast<const char*>(lParam));
        *result = TRUE;
        return true;
    case WM_GETTEXT:
        *result = OnGetText(static_cast<size_t>(wParam), reinterpret_cast<char*>(lParam));
        return true;
    case WM_GETTEXTLENGTH:
        *result = static_cast<LRESULT>(m_text.CrLfLength());
        return true;
    case WM_SETFONT:
        *result = m_wnd->CWnd::DefWindowProc(message, wParam, lParam);
        OnSetFont(reinterpret_cast<HGDIOBJ>(wParam), LOWORD(static_cast<WPARAM>(lParam)) != 0);
        return true;
    case WM_GETFONT:
        *result = reinterpret_cast<LRESULT>(FontHandle());
        return true;
    case WM_PAINT: {
        CPaintDC dc(m_wnd);
        Paint(dc, dc.m_ps.rcPaint);
        return true;
    }
    case WM_ERASEBKGND:
        *result = 1;  // painting fills the whole area it paints
        return true;
    case WM_SETREDRAW:
        *result = m_wnd->CWnd::DefWindowProc(message, wParam, lParam);
        if (wParam) InvalidateAll();
        return true;
    case WM_SIZE:
        InvalidateAll();
        FitScrollBars();
        return true;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        OnFocusChange(message == WM_SETFOCUS);
        return true;
    case WM_GETDLGCODE:
        *result = DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL | (IsMultiLine() ? DLGC_WANTALLKEYS : 0);
        return true;
    case WM_LBUTTONDOWN:
        OnLButtonDown(static_cast<UINT>(wParam), CPoint(lParam));
        return true;
    case WM_LBUTTONUP:
        OnLButtonUp();
        return true;
    case WM_LBUTTONDBLCLK:
        OnLButtonDblClk(CPoint(lParam));
        return true;
    case WM_MOUSEMOVE:
        OnMouseMove(static_cast<UINT>(wParam), CPoint(lParam));
        return true;
    case WM_CAPTURECHANGED:
        m_dragging = false;
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
    case WM_CHAR:
        OnChar(static_cast<UINT>(wParam));
        return true;
    case WM_COPY:
        CopyToClipboard();
        return true;
    case WM_CUT:
        if (!IsReadOnly() && CopyToClipboard()) ReplaceSelection("", true);
        return true;
    case WM_PASTE:
        PasteFromClipboard();
        return true;
    case WM_CLEAR:
        if (SelMin() < SelMax()) ReplaceSelection("", true);
        return true;
    case WM_NCDESTROY:
        // The object may create another window later; it starts empty.
        Forget();
        return false;
    default:
        return false;
    }
}

bool RichEditControl::HandleEditMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    switch (message) {
    case EM_SETSEL:
        OnSetSel(static_cast<LONG>(wParam), static_cast<LONG>(lParam));
        return true;
    case EM_EXSETSEL:
        if (const auto* range = reinterpret_cast<const CHARRANGE*>(lParam)) *result = OnSetSel(range->cpMin, range->cpMax);
        return true;
    case EM_GETSEL:
        *result = OnGetSel(reinterpret_cast<DWORD*>(wParam), reinterpret_cast<DWORD*>(lParam));
        return true;
    case EM_EXGETSEL:
        if (auto* range = reinterpret_cast<CHARRANGE*>(lParam)) {
            range->cpMin = static_cast<LONG>(SelMin());
            range->cpMax = static_cast<LONG>(SelMax());
        }
        return true;
    case EM_REPLACESEL:
        ReplaceSelection(lParam ? reinterpret_cast<const char*>(lParam) : "", false);
        return true;
    case EM_GETSELTEXT:
        if (auto* buffer = reinterpret_cast<char*>(lParam)) {
            const size_t n = m_text.CopyOut(SelMin(), SelMax(), false, buffer, SIZE_MAX);
            buffer[n] = '\0';
            *result = static_cast<LRESULT>(n);
        }
        return true;
    case EM_GETTEXTRANGE:
        *result = OnGetTextRange(reinterpret_cast<TEXTRANGE*>(lParam));
        return true;
    case EM_GETTEXTLENGTHEX: {
        const auto* how = reinterpret_cast<const GETTEXTLENGTHEX*>(wParam);
        *result = static_cast<LRESULT>(how && (how->flags & GTL_USECRLF) ? m_text.CrLfLength() : m_text.Length());
        return true;
    }
    case EM_GETLINECOUNT:
        *result = static_cast<LRESULT>(m_text.LineCount());
        return true;
    case EM_LINEINDEX:
        *result = OnLineIndex(static_cast<LONG>(wParam));
        return true;
    case EM_LINELENGTH:
        *result = OnLineLength(static_cast<LONG>(wParam));
        return true;
    case EM_LINEFROMCHAR:
        *result = OnLineFromChar(static_cast<LONG>(wParam));
        return true;
    case EM_EXLINEFROMCHAR:
        *result = OnLineFromChar(static_cast<LONG>(lParam));
        return true;
    case EM_GETLINE:
        *result = OnGetLine(wParam, reinterpret_cast<char*>(lParam));
        return true;
    case EM_GETFIRSTVISIBLELINE:
        *result = static_cast<LRESULT>(m_firstLine);
        return true;
    case EM_LINESCROLL:
        LineScroll(static_cast<int>(wParam), static_cast<LONG>(lParam));
        *result = TRUE;
        return true;
    case EM_SCROLLCARET:
        EnsureCaretVisible();
        return true;
    case EM_GETRECT:
        if (auto* rect = reinterpret_cast<RECT*>(lParam)) *rect = ComputeMetrics().view;
        return true;
    case EM_POSFROMCHAR:
        if (auto* point = reinterpret_cast<POINT*>(wParam)) *point = PointOf(ComputeMetrics(), m_text.Snap(static_cast<LONG>(lParam)));
        return true;
    case EM_CHARFROMPOS:
        if (const auto* point = reinterpret_cast<const POINT*>(lParam)) *result = static_cast<LRESULT>(PosFromPoint(ComputeMetrics(), *point));
        return true;
    case EM_SETREADONLY:
        m_wnd->ModifyStyle(wParam ? 0 : ES_READONLY, wParam ? ES_READONLY : 0);
        *result = TRUE;
        return true;
    case EM_SETCHARFORMAT:
        *result = OnSetCharFormat(wParam, reinterpret_cast<const CHARFORMAT*>(lParam));
        return true;
    case EM_GETCHARFORMAT:
        *result = OnGetCharFormat(wParam, reinterpret_cast<CHARFORMAT*>(lParam));
        return true;
    case EM_SETBKGNDCOLOR:
        *result = static_cast<LRESULT>(OnSetBackgroundColor(wParam != 0, static_cast<COLORREF>(lParam)));
        return true;
    case EM_HIDESELECTION:
        OnHideSelection(wParam != 0, lParam != 0);
        return true;
    case EM_FINDTEXT:
        if (const auto* find = reinterpret_cast<const FINDTEXT*>(lParam)) *result = OnFindText(wParam, find->chrg, find->lpstrText, nullptr);
        else *result = -1;
        return true;
    case EM_FINDTEXTEX:
        if (auto* find = reinterpret_cast<FINDTEXTEX*>(lParam)) *result = OnFindText(wParam, find->chrg, find->lpstrText, &find->chrgText);
        else *result = -1;
        return true;
    default:
        return false;
    }
}

// ---------------------------------------------------------------- text

void RichEditControl::OnCreate(const CREATESTRUCT* cs)
{
    m_selectionShown = (m_wnd->GetStyle() & ES_NOHIDESEL) != 0;
    // The styles ask for the bars; from now on the style bits say whether they show.
    m_allowVertical = (m_wnd->GetStyle() & WS_VSCROLL) != 0;
    m_allowHorizontal = (m_wnd->GetStyle() & WS_HSCROLL) != 0;
    OnSetText(cs ? cs->lpszName : nullptr);
}

void RichEditControl::OnSetText(const char* text)
{
    m_text.Reset(m_defaultFormat);
    const std::string stored = NormalizeInput(text ? text : "", !IsMultiLine());
    if (!stored.empty()) m_text.Replace(0, 0, stored, m_defaultFormat);
    m_anchor = m_caret = 0;
    m_pendingFormat.reset();
    m_desiredX = -1;
    m_firstLine = 0;
    m_scrollX = 0;
    m_maxWidthKnown = false;
    InvalidateAll();
    FitScrollBars();
}

LRESULT RichEditControl::OnGetText(size_t size, char* buffer) const
{
    if (!buffer || size == 0) return 0;
    const size_t n = m_text.CopyOut(0, m_text.Length(), true, buffer, size - 1);
    buffer[n] = '\0';
    return static_cast<LRESULT>(n);
}

LRESULT RichEditControl::OnGetLine(WPARAM line, char* buffer) const
{
    if (!buffer || line >= m_text.LineCount()) return 0;
    WORD size = 0;
    std::memcpy(&size, buffer, sizeof size);
    const Pos from = m_text.LineStart(line);
    const Pos to = line + 1 < m_text.LineCount() ? m_text.LineStart(line + 1) : m_text.LineEnd(line);
    const size_t n = m_text.CopyOut(from, to, false, buffer, size);
    if (n < size) buffer[n] = '\0';
    return static_cast<LRESULT>(n);
}

LRESULT RichEditControl::OnGetTextRange(TEXTRANGE* range) const
{
    if (!range || !range->lpstrText) return 0;
    const Pos length = m_text.Length();
    const Pos first = range->chrg.cpMin;
    const Pos last = range->chrg.cpMax < 0 ? length : std::min<Pos>(range->chrg.cpMax, length);
    if (first < 0 || first >= last) {
        range->lpstrText[0] = '\0';
        return 0;
    }
    // Whole characters inside the range, so the text never outgrows it.
    Pos from = m_text.Snap(first);
    if (from < first) from = m_text.NextChar(from);
    const Pos to = std::max(from, m_text.Snap(last));
    const size_t n = m_text.CopyOut(from, to, false, range->lpstrText, static_cast<size_t>(last - first));
    range->lpstrText[n] = '\0';
    return static_cast<LRESULT>(n);
}

// ---------------------------------------------------------------- selection and lines

LRESULT RichEditControl::OnSetSel(LONG start, LONG end)
{
    const Pos length = m_text.Length();
    Pos anchor = 0, caret = 0;
    if (start < 0) {
        anchor = caret = end < 0 ? length : SelMax();
    } else {
        anchor = start;
        caret = end < 0 ? length : end;
    }
    SetSelection(m_text.Snap(anchor), m_text.Snap(caret), m_selectionShown);
    return static_cast<LRESULT>(SelMax());
}

LRESULT RichEditControl::OnGetSel(DWORD* start, DWORD* end) const
{
    if (start) *start = static_cast<DWORD>(SelMin());
    if (end) *end = static_cast<DWORD>(SelMax());
    if (SelMax() > 0xFFFF) return -1;
    return static_cast<LRESULT>(static_cast<DWORD>(MAKELONG(static_cast<WORD>(SelMin()), static_cast<WORD>(SelMax()))));
}

LRESULT RichEditControl::OnLineIndex(LONG line) const
{
    if (line == -1) return static_cast<LRESULT>(m_text.LineStart(m_text.LineOf(m_caret)));
    if (line < 0 || static_cast<size_t>(line) >= m_text.LineCount()) return -1;
    return static_cast<LRESULT>(m_text.LineStart(static_cast<size_t>(line)));
}

LRESULT RichEditControl::OnLineLength(LONG pos) const
{
    if (pos == -1) {
        const size_t first = m_text.LineOf(SelMin());
        const size_t last = m_text.LineOf(SelMax());
        return static_cast<LRESULT>((SelMin() - m_text.LineStart(first)) + (m_text.LineEnd(last) - SelMax()));
    }
    if (pos < 0 || pos > m_text.Length()) return 0;
    return m_text.LineLength(m_text.LineOf(pos));
}

LRESULT RichEditControl::OnLineFromChar(LONG pos) const
{
    if (pos < 0) return static_cast<LRESULT>(m_text.LineOf(SelMin() < SelMax() ? SelMin() : m_caret));
    return static_cast<LRESULT>(m_text.LineOf(pos));
}

void RichEditControl::SetSelection(Pos anchor, Pos caret, bool scroll)
{
    if (anchor != m_anchor || caret != m_caret) {
        InvalidateRange(SelMin(), SelMax());
        m_anchor = anchor;
        m_caret = caret;
        m_pendingFormat.reset();
        m_desiredX = -1;
        InvalidateRange(SelMin(), SelMax());
    }
    if (scroll) EnsureCaretVisible();
}

// ---------------------------------------------------------------- editing

bool RichEditControl::IsReadOnly() const
{
    return (m_wnd->GetStyle() & ES_READONLY) != 0;
}

bool RichEditControl::IsMultiLine() const
{
    return (m_wnd->GetStyle() & ES_MULTILINE) != 0;
}

CharColor RichEditControl::InsertionFormat() const
{
    if (m_pendingFormat) return *m_pendingFormat;
    const Pos at = SelMin();
    // A selection is replaced in the format of its first character; at a
    // line's start text joins what follows, elsewhere what precedes.
    if (at < SelMax() || at == m_text.LineStart(m_text.LineOf(at))) return m_text.FormatAt(at);
    return m_text.FormatAt(m_text.PrevChar(at));
}

bool RichEditControl::ReplaceSelection(std::string_view text, bool byUser)
{
    if (byUser && IsReadOnly()) return false;
    const std::string stored = NormalizeInput(text, !IsMultiLine());
    const Pos from = SelMin();
    const Pos to = SelMax();
    if (from < to || !stored.empty()) {
        const Change change = m_text.Replace(from, to, stored, InsertionFormat());
        // Inserting only lengthens lines, so the widest line is known still.
        if (from == to) WidenMaxLineWidth(change.first, change.newEnd);
        else m_maxWidthKnown = false;
        InvalidateLines(change.first, change.oldEnd == change.newEnd ? change.newEnd - 1 : SIZE_MAX);
        m_anchor = m_caret = from + static_cast<Pos>(stored.size());
        m_pendingFormat.reset();
        m_desiredX = -1;
        if (m_firstLine >= m_text.LineCount()) ScrollTo(static_cast<Pos>(m_text.LineCount()) - 1, m_scrollX);
        FitScrollBars();
    }
    if (byUser || m_selectionShown) EnsureCaretVisible();
    return true;
}

// ---------------------------------------------------------------- formats

LRESULT RichEditControl::OnSetCharFormat(WPARAM scope, const CHARFORMAT* format)
{
    if (!format || format->cbSize < sizeof(CHARFORMAT)) return FALSE;
    if (!(format->dwMask & CFM_COLOR)) return TRUE;  // nothing else is kept per run
    const CharColor color = (format->dwEffects & CFE_AUTOCOLOR) ? CharColor::Auto() : CharColor::Of(format->crTextColor);
    if (scope & SCF_ALL) {
        m_text.SetAllFormats(color);
        m_pendingFormat.reset();
        InvalidateAll();
    } else if (scope & SCF_SELECTION) {
        if (SelMin() < SelMax()) {
            m_text.SetFormat(SelMin(), SelMax(), color);
            m_pendingFormat.reset();
            InvalidateRange(SelMin(), SelMax());
        } else {
            m_pendingFormat = color;
        }
    } else {
        m_defaultFormat = color;
        if (m_text.Length() == 0) m_text.SetAllFormats(color);
    }
    return TRUE;
}

LRESULT RichEditControl::OnGetCharFormat(WPARAM scope, CHARFORMAT* format) const
{
    if (!format || format->cbSize < sizeof(CHARFORMAT)) return 0;
    CharColor color = m_defaultFormat;
    bool uniform = true;
    if (scope & SCF_SELECTION) {
        if (SelMin() < SelMax()) uniform = m_text.SameFormat(SelMin(), SelMax(), &color);
        else color = InsertionFormat();
    }
    const gdi::FontData& font = FontData();
    const LOGFONT& lf = font.logFont;
    const UINT size = format->cbSize;
    *format = CHARFORMAT{};
    format->cbSize = size;
    format->dwMask = CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_STRIKEOUT | CFM_FACE | CFM_SIZE | CFM_CHARSET | CFM_OFFSET |
                     (uniform ? CFM_COLOR : 0);
    if (lf.lfWeight >= FW_BOLD) format->dwEffects |= CFE_BOLD;
    if (lf.lfItalic) format->dwEffects |= CFE_ITALIC;
    if (lf.lfUnderline) format->dwEffects |= CFE_UNDERLINE;
    if (lf.lfStrikeOut) format->dwEffects |= CFE_STRIKEOUT;
    if (color.automatic) format->dwEffects |= CFE_AUTOCOLOR;
    format->crTextColor = color.automatic ? GetSysColor(COLOR_WINDOWTEXT) : color.color;
    format->yHeight = font.pixelHeight * 15;  // twips at 96 dots per inch
    format->bCharSet = lf.lfCharSet;
    format->bPitchAndFamily = lf.lfPitchAndFamily;
    std::memcpy(format->szFaceName, lf.lfFaceName, sizeof format->szFaceName);
    format->szFaceName[LF_FACESIZE - 1] = '\0';
    return static_cast<LRESULT>(format->dwMask);
}

COLORREF RichEditControl::OnSetBackgroundColor(bool system, COLORREF color)
{
    const COLORREF previous = Background();
    m_systemBackground = system;
    if (!system) m_background = color;
    InvalidateAll();
    return previous;
}

COLORREF RichEditControl::Background() const
{
    return m_systemBackground ? GetSysColor(COLOR_WINDOW) : m_background;
}

// ---------------------------------------------------------------- focus, font, appearance

void RichEditControl::OnHideSelection(bool hide, bool permanent)
{
    if (permanent) m_wnd->ModifyStyle(hide ? ES_NOHIDESEL : 0, hide ? 0 : ES_NOHIDESEL);
    m_selectionShown = !hide;
    InvalidateRange(SelMin(), SelMax());
}

void RichEditControl::OnFocusChange(bool gained)
{
    m_selectionShown = gained || (m_wnd->GetStyle() & ES_NOHIDESEL);
    if (!gained) {
        m_dragging = false;
        m_pendingLead = -1;
    }
    // The caret and the highlight come and go.
    InvalidateRange(SelMin(), SelMax());
}

void RichEditControl::OnSetFont(HGDIOBJ font, bool redraw)
{
    // The same font again (as a view that sets its font before every line
    // does) measures the same.
    if (font != m_font) m_maxWidthKnown = false;
    m_font = font;
    if (redraw) InvalidateAll();
    FitScrollBars();
}

void RichEditControl::Forget()
{
    m_text.Reset(CharColor());
    m_defaultFormat = CharColor();
    m_pendingFormat.reset();
    m_anchor = m_caret = 0;
    m_firstLine = 0;
    m_scrollX = 0;
    m_desiredX = -1;
    m_wheelRemainder = 0;
    m_maxWidthKnown = false;
    m_systemBackground = true;
    m_font = nullptr;
    m_selectionShown = m_dragging = false;
    m_pendingLead = -1;
}

// ---------------------------------------------------------------- clipboard

bool RichEditControl::CopyToClipboard() const
{
    if (SelMin() >= SelMax()) return false;
    return SetClipboardText(Hwnd(), m_text.Text(SelMin(), SelMax(), true));
}

void RichEditControl::PasteFromClipboard()
{
    if (IsReadOnly()) return;
    std::string text;
    if (GetClipboardText(Hwnd(), &text) && !text.empty()) ReplaceSelection(text, true);
}

}  // namespace richedit
