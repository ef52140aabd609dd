// The demo host's editor area: one source file shown read-only, with a
// gutter of line numbers and marks (breakpoints, bookmarks, build errors)
// and a caret line that follows clicks, keys and GoToLine.
#pragma once

#include <string>
#include <vector>

#include "demo/views/line_mark.h"
#include "demo/views/source_layout.h"
#include "demo/views/source_text.h"
#include "demo/views/line_scroll_view.h"

class CSourceView : public CLineScrollView {
public:
    // The caret line's background, across the whole row.
    static constexpr COLORREF kCaretLineBack = RGB(255, 243, 176);

    CSourceView() : CLineScrollView(true) {}

    BOOL Create(CWnd* parent, const CRect& rect, UINT id);
    // Shows a file from its first line; the caret goes to line 1.
    void ShowFile(const std::string& path, std::string gbkText);
    // Makes a 1-based line, clamped to the file, the caret line and scrolls it
    // into view; ignored while no file is shown.
    void GoToLine(int line);
    // 1-based; 0 while no file is shown.
    int CaretLine() const { return m_hasFile ? m_caret + 1 : 0; }
    const std::string& Path() const { return m_path; }
    // Marks of lines outside the file are kept but not drawn.
    void SetLineMarks(std::vector<LineMark> marks);

    int TopLine() const override { return m_top; }

protected:
    void ScrollToLine(int top) override { ScrollTo(top, m_scrollX); }
    int PageLines() const override { return Layout().FullLines(); }
    ScrollNeeds NeedsFor(const CRect& client) const override;

    DECLARE_MESSAGE_MAP()
    void OnPaint();
    void OnLButtonDown(UINT, CPoint point);
    void OnKeyDown(UINT key, UINT, UINT);
    UINT OnGetDlgCode();
    LRESULT OnHScroll(WPARAM wParam, LPARAM);

private:
    SourceLayout Layout() const;
    SourceLayout LayoutFor(const CRect& client) const;
    // Moves the caret to a 0-based line, clamped; `third` scrolls a line out
    // of view to a third from the top, else the view moves as little as it can.
    void MoveCaret(int line, bool third);
    void ScrollTo(int top, int scrollX);
    int TextWidth() const;

    // Painting (source_paint.cpp).
    void PaintLine(CDC& dc, const SourceLayout& layout, int line, const std::vector<const LineMark*>& marks);
    void PaintText(CDC& dc, const SourceLayout& layout, int line, int y);

    std::string m_path;
    SourceText m_text;
    std::vector<unsigned char> m_startsInComment;  // per line: whether a block comment is open at its start
    std::vector<LineMark> m_marks;                 // sorted by line
    bool m_hasFile = false;
    int m_caret = 0;    // 0-based line
    int m_top = 0;      // first line shown
    int m_scrollX = 0;  // pixels of text scrolled off to the left
};
