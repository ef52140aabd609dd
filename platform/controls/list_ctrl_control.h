// The list view's state and behaviour behind CListCtrl::DefWindowProc: the
// LVM_* messages, selection and focus with their notifications, the header
// and its columns, scrolling, painting, mouse and keyboard.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/controls/list_ctrl.h"
#include "platform/controls/list_ctrl_layout.h"
#include "platform/controls/list_ctrl_selection.h"
#include "platform/gdi/gdi_types.h"

class CDC;

namespace listview {

class ListControl {
public:
    explicit ListControl(CListCtrl* wnd);
    ~ListControl();
    ListControl(const ListControl&) = delete;
    ListControl& operator=(const ListControl&) = delete;

    // Handles a message; false leaves it to CWnd::DefWindowProc.
    bool Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

private:
    // ---- creation, font, header (list_ctrl_control.cpp)
    void OnCreate();
    void OnSetFont(HGDIOBJ font, bool redraw);
    // Asks the owner for the line height (owner-drawn lists).
    void MeasureLines();
    HGDIOBJ FontHandle() const;
    int FontHeight() const;
    // Places the header over the columns, following horizontal scrolling.
    void PlaceHeader();
    LRESULT OnHeaderNotify(WPARAM wParam, NMHDR* header);
    Geometry ComputeGeometry() const;
    HWND HeaderHwnd() const;

    // ---- items, selection, focus
    BOOL OnSetItemCount(int count, DWORD flags);
    UINT StateOf(int index) const;
    // Sets the masked state bits of one item (or of all, index -1) and
    // tells the parent what changed. False when the window went away.
    bool ChangeState(int index, UINT state, UINT mask);
    // Selects and focuses one item alone (-1: clears the selection only).
    bool SelectOnly(int index);
    // Selects the run between the selection mark and index alone, focusing index.
    bool SelectRange(int index);
    int OnGetNextItem(int start, UINT flags) const;
    BOOL OnGetItemRect(int index, RECT* rect) const;
    BOOL OnGetSubItemRect(int index, RECT* rect) const;
    int OnHitTest(LVHITTESTINFO* info, bool subItems) const;

    // ---- columns
    int OnInsertColumn(int index, const LVCOLUMN* column);
    BOOL OnDeleteColumn(int index);
    BOOL OnGetColumn(int index, LVCOLUMN* column) const;
    BOOL OnSetColumn(int index, const LVCOLUMN* column);
    int ColumnWidth(int index) const;
    BOOL OnSetColumnWidth(int index, int width);

    // ---- scrolling
    bool EnsureVisible(int index, bool partialOK);
    // g: the geometry as it is before the move.
    void ScrollTo(const Geometry& g, long long top);
    void ScrollXTo(const Geometry& g, long long x);
    void OnVScroll(UINT code, int position);
    void OnHScroll(UINT code, int position);
    void OnMouseWheel(int delta);
    // Keeps the scroll position inside the content after a change of count,
    // size, line height or columns, and the header over the columns.
    void Revalidate();
    // Shows the bars while lines or columns overflow, and keeps them in step.
    void FitScrollBars();
    COLORREF BackgroundColor() const;

    // ---- notifications: false when the window went away in the handler
    bool Notify(NMHDR& header, UINT code, LRESULT* result = nullptr);
    bool NotifyItemChanged(int index, UINT oldState, UINT newState);
    bool NotifyActivate(UINT code, int index, int column, POINT pt, LRESULT* result = nullptr);

    // ---- invalidation
    void InvalidateLine(int index);
    void InvalidateLines(const Geometry& g, int from, int to);  // [from, to)
    void InvalidateItems() { InvalidateItems(ComputeGeometry()); }
    void InvalidateItems(const Geometry& g);

    // ---- painting (list_ctrl_paint.cpp)
    void Paint(CDC& dc, const CRect& clip);
    void PaintLine(CDC& dc, const Geometry& g, int index);
    void PaintTexts(CDC& dc, const Geometry& g, int index, UINT state);
    void PaintGridLines(CDC& dc, const Geometry& g, const CRect& clip);
    bool ShowsSelection() const;

    // ---- input (list_ctrl_input.cpp)
    void OnButtonDown(POINT pt, bool right, bool doubleClick, UINT keys);
    void OnMouseMove(POINT pt);
    void OnLButtonUp(POINT pt);
    LRESULT OnRButtonUp(WPARAM wParam, LPARAM lParam);
    void OnKeyDown(UINT key);
    void MoveFocusTo(int index);
    void EndPress();

    bool Has(DWORD style) const { return (m_wnd->GetStyle() & style) != 0; }
    bool SingleSelect() const { return Has(LVS_SINGLESEL); }
    bool FullRowHits() const { return (m_exStyle & LVS_EX_FULLROWSELECT) || Has(LVS_OWNERDRAWFIXED); }
    bool Valid(int index) const { return index >= 0 && index < m_count; }
    HWND Hwnd() const { return m_wnd->GetSafeHwnd(); }

    CListCtrl* m_wnd;
    std::unique_ptr<CHeaderCtrl> m_header;
    std::vector<int> m_subItems;  // LVCOLUMN::iSubItem of each column

    int m_count = 0;
    Selection m_selected;
    int m_focus = -1;
    int m_mark = -1;  // where a range selection starts
    int m_top = 0;
    std::optional<CSize> m_measuredWindow;  // the window size lines were measured for
    int m_scrollX = 0;
    int m_measuredHeight = 0;  // from WM_MEASUREITEM; 0 when not measured
    int m_wheelRemainder = 0;
    DWORD m_exStyle = 0;
    HGDIOBJ m_font = nullptr;
    COLORREF m_bkColor = CLR_DEFAULT;  // CLR_DEFAULT: the system window colour

    // A button press waiting to become a click or a drag.
    bool m_pressed = false;
    bool m_pressedRight = false;
    int m_pressItem = -1;
    int m_pressColumn = -1;
    POINT m_pressPoint{};
};

}  // namespace listview
