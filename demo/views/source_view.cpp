#include "demo/views/source_view.h"

#include <algorithm>
#include <climits>

#include "demo/views/c_syntax.h"
#include "demo/views/scroll_request.h"

namespace {

constexpr DWORD kSourceViewStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP;
// Room after the widest line, so its last character is not at the very edge.
constexpr int kRightMargin = 6;
// Characters one click on a horizontal arrow scrolls.
constexpr int kHScrollStepChars = 4;

}  // namespace

BEGIN_MESSAGE_MAP(CSourceView, CLineScrollView)
    ON_WM_PAINT()
    ON_WM_LBUTTONDOWN()
    ON_WM_KEYDOWN()
    ON_WM_GETDLGCODE()
    ON_MESSAGE(WM_HSCROLL, &CSourceView::OnHScroll)
END_MESSAGE_MAP()

BOOL CSourceView::Create(CWnd* parent, const CRect& rect, UINT id)
{
    return CreateView("DemoSourceView", kSourceViewStyle, parent, rect, id);
}

void CSourceView::ShowFile(const std::string& path, std::string gbkText)
{
    m_path = path;
    m_text = SourceText(gbkText);
    // Comment state once per file, so painting any line needs only that line.
    m_startsInComment.assign(static_cast<size_t>(m_text.LineCount()), 0);
    bool inComment = false;
    for (int line = 0; line < m_text.LineCount(); ++line) {
        m_startsInComment[static_cast<size_t>(line)] = inComment;
        ColourLine(m_text.Line(line), inComment);
    }
    m_hasFile = true;
    m_caret = 0;
    m_top = 0;
    m_scrollX = 0;
    Invalidate();
    FitBars();
}

void CSourceView::GoToLine(int line)
{
    if (!m_hasFile) return;
    MoveCaret(std::max(line, 1) - 1, true);  // no overflow below the first line
}

void CSourceView::SetLineMarks(std::vector<LineMark> marks)
{
    std::stable_sort(marks.begin(), marks.end(), [](const LineMark& a, const LineMark& b) { return a.line < b.line; });
    m_marks = std::move(marks);
    Invalidate();
}

// ---------------------------------------------------------------- geometry and scrolling

SourceLayout CSourceView::LayoutFor(const CRect& client) const
{
    return MakeSourceLayout(client, FontHeight(), m_text.LineCount());
}

SourceLayout CSourceView::Layout() const
{
    CRect client;
    GetClientRect(&client);
    return LayoutFor(client);
}

int CSourceView::TextWidth() const
{
    const SourceLayout l = Layout();
    return m_text.MaxColumns() * l.charWidth + kRightMargin;
}

void CSourceView::MoveCaret(int line, bool third)
{
    m_caret = std::clamp(line, 0, std::max(0, m_text.LineCount() - 1));
    const int full = Layout().FullLines();
    int top = m_top;
    if (m_caret < m_top || m_caret >= m_top + full) {
        if (third) top = m_caret - full / 3;
        else top = m_caret < m_top ? m_caret : m_caret - full + 1;
    }
    Invalidate();
    ScrollTo(top, m_scrollX);
}

void CSourceView::ScrollTo(int top, int scrollX)
{
    const SourceLayout l = Layout();
    top = std::clamp(top, 0, std::max(0, m_text.LineCount() - l.FullLines()));
    scrollX = std::clamp(scrollX, 0, std::max(0, TextWidth() - l.TextWidth()));
    if (top != m_top || scrollX != m_scrollX) {
        m_top = top;
        m_scrollX = scrollX;
        Invalidate();
    }
    FitBars();
}

ScrollNeeds CSourceView::NeedsFor(const CRect& client) const
{
    const SourceLayout l = LayoutFor(client);
    ScrollNeeds needs;
    needs.vertical = {m_text.LineCount(), l.FullLines(), m_top};
    needs.horizontal = {TextWidth(), l.TextWidth(), m_scrollX};
    return needs;
}

// ---------------------------------------------------------------- messages

void CSourceView::OnLButtonDown(UINT, CPoint point)
{
    SetFocus();
    if (!m_hasFile) return;
    const SourceLayout l = Layout();
    if (point.y < l.client.top) return;
    MoveCaret(m_top + (point.y - l.client.top) / l.lineHeight, false);
}

void CSourceView::OnKeyDown(UINT key, UINT, UINT)
{
    if (!m_hasFile) return;
    const int page = Layout().FullLines();
    switch (key) {
    case VK_UP: MoveCaret(m_caret - 1, false); break;
    case VK_DOWN: MoveCaret(m_caret + 1, false); break;
    case VK_PRIOR: MoveCaret(m_caret - page, false); break;
    case VK_NEXT: MoveCaret(m_caret + page, false); break;
    case VK_HOME: MoveCaret(0, false); break;
    case VK_END: MoveCaret(INT_MAX, false); break;
    default: break;
    }
}

UINT CSourceView::OnGetDlgCode()
{
    return DLGC_WANTARROWS;
}

LRESULT CSourceView::OnHScroll(WPARAM wParam, LPARAM)
{
    const SourceLayout l = Layout();
    // A page is the text area less one step, so some text stays in sight.
    const int step = kHScrollStepChars * l.charWidth;
    ScrollTo(m_top, RequestedScroll(m_hWnd, WM_HSCROLL, wParam, m_scrollX, step, std::max(step, l.TextWidth() - step)));
    return 0;
}
