// What the demo's source and memory views share: a window of text rows in
// the view font that scrolls by lines, with the wheel, the vertical bar and
// the fitting of both bars to what the view needs.
#pragma once

#include "platform/core/scroll_bar.h"
#include "platform/core/wnd.h"
#include "platform/gdi/font.h"

// Lines [first, end) whose rows meet a paint area's span [areaTop,
// areaBottom), for rows of rowHeight from rowsTop with topLine in the first.
struct LineRange {
    int first = 0;
    int end = 0;
};
LineRange LinesMeeting(int areaTop, int areaBottom, int rowsTop, int rowHeight, int topLine, int lineCount);

class CLineScrollView : public CWnd {
public:
    // The first line shown.
    virtual int TopLine() const = 0;

protected:
    // horizontal: whether the view uses a horizontal bar as well.
    explicit CLineScrollView(bool horizontal) : m_horizontal(horizontal) {}

    // Scrolls so that `top` is the first line shown, clamped by the view.
    virtual void ScrollToLine(int top) = 0;
    // Rows a page scroll moves.
    virtual int PageLines() const = 0;
    // What the content needs of the bars in a candidate client rectangle.
    virtual ScrollNeeds NeedsFor(const CRect& client) const = 0;

    BOOL CreateView(const char* className, DWORD style, CWnd* parent, const CRect& rect, UINT id);
    // Shows, hides and sets the bars for what NeedsFor says.
    void FitBars();
    int FontHeight() const;

    DECLARE_MESSAGE_MAP()
    int OnCreate(LPCREATESTRUCT);
    void OnSize(UINT, int, int);
    BOOL OnEraseBkgnd(CDC*);
    BOOL OnMouseWheel(UINT, short delta, CPoint);
    LRESULT OnVScroll(WPARAM wParam, LPARAM);

    CFont m_font;

private:
    bool m_horizontal = false;
    int m_wheelRemainder = 0;
    bool m_fitting = false;  // FitScrollBars sends WM_SIZE, which would fit again
};
