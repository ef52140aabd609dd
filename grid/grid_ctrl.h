// A report list that behaves as a small spreadsheet over a tree of rows: one
// row a line, a current cell that Left and Right move, in-place editors, and
// rows that expand into child rows under a box. The list underneath holds only
// the number of lines; everything shown comes from the rows, drawn here line
// by line. What the rows mean, how child rows are made and what a committed
// edit does are left to a derived class, through the hooks and the private
// messages below.
#pragma once

#include <array>
#include <cstdint>

#include "grid/grid_editors.h"
#include "grid/grid_line_geometry.h"
#include "grid/grid_row.h"
#include "host/host_messages.h"
#include "platform/docking/bcgp_list_ctrl.h"
#include "platform/gdi/bitmap.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/brush.h"
#include "platform/gdi/font.h"
#include "platform/gdi/pen.h"

// Sent by the grid to its own window when Ctrl+M is typed.
constexpr UINT ID_GRID_SHOW_IN_MEMORY = 32994;
// The header's item-changing notification, in both character sets.
constexpr UINT HDN_ITEMCHANGINGA = static_cast<UINT>(-300);
constexpr UINT HDN_ITEMCHANGINGW = static_cast<UINT>(-320);

// The most a cell's edit box takes, whatever limit the host gives the cell:
// far more than any expression or value, and it keeps a user who pastes the
// box's own text back in from doubling it without end.
constexpr std::uint32_t kGridMaxEditLimit = 65535;

// The record a watch row carries; the grid passes it through without reading it.
struct WatchRecord;

class AFX_EXT_CLASS CGridCtrl : public CBCGPListCtrl {
    DECLARE_DYNCREATE(CGridCtrl)

    // Indexes of the colour members.
    enum Colour {
        kBackground,
        kGridLine,
        kTreeLine,
        kCurrentText,
        kCurrentBackFocus,
        kCurrentBackNoFocus,
        kNormalText,
        kChangedText,
        kColourCount
    };

    CGridCtrl();
    ~CGridCtrl() override;

    // Hooks for the derived class, in this order.
    void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct) override;
    virtual void MoveRowUp() {}
    virtual void MoveRowDown() {}
    virtual void DeleteSelectedRow() {}
    virtual void InsertNewRow() {}
    virtual void RefreshRow(CGridRow* /*row*/, int* /*displayIndex*/, const WatchRecord* /*previousRecord*/) {}
    virtual void UpdateRow(CGridRow* /*row*/, BOOL /*bRefresh*/) {}
    virtual CGridRow* FindRowAt(int /*displayIndex*/, CGridRowArray* /*rows*/, int* /*counter*/) { return nullptr; }

    BOOL PreTranslateMessage(MSG* pMsg) override;
    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

    int GetSelectedItem() const;
    void SelectItem(int nItem);
    CGridRow* GetRowAt(int nItem);
    CGridRow* GetSelectedRow();
    CString GetEditText() const;
    int GetComboSel() const;
    BOOL DeleteAllRows();
    int CountVisibleRows(CGridRowArray& rows);
    void ToggleExpand(int nItem);
    void ExpandRow(CGridRow* row, int nItem);
    void CollapseRow(CGridRow* row, int nItem);
    void UpdateItemCount(CGridRow* row);
    void AdjustItemCount(BOOL bAdd, int n);
    void StartEdit(BOOL bInitText);
    void EndEdit();
    void OnEditorKillFocus(BOOL bEditBox);
    void SetGridLines(BOOL bOn) { m_gridLines = bOn; }

    int GetCurrentColumn() const { return m_currentColumn; }
    // Moves the cell cursor to another column and repaints the selected line.
    void SetCurrentColumn(int nCol);
    // Whether Ctrl was down when the last message was pre-translated, or
    // when a derived grid last recorded it.
    BOOL IsCtrlHeld() const { return m_ctrlHeld; }
    // Records in the Ctrl-held flag whether Ctrl is down now.
    void RecordCtrlHeld();
    CGridRowArray& Rows() { return m_rows; }
    CFont* GetGridFont() { return &m_font; }
    CGridEdit& EditBox() { return m_edit; }
    CGridComboBox& ComboBox() { return m_combo; }

    // Set from outside for a grid whose rows the user may not add to.
    BOOL fixedRows = FALSE;
    // Set by the derived class while a menu loop runs.
    BOOL m_menuLoop = FALSE;

protected:
    DECLARE_MESSAGE_MAP()
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    int OnCreate(LPCREATESTRUCT lpCreateStruct);
    void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnRButtonDown(UINT nFlags, CPoint point);
    void OnLButtonDblClk(UINT nFlags, CPoint point);
    LRESULT OnHScroll(WPARAM wParam, LPARAM lParam);
    LRESULT OnVScroll(WPARAM wParam, LPARAM lParam);
    BOOL OnEraseBkgnd(CDC* pDC);
    void OnEditKillFocus();
    void OnComboKillFocus();

    void ToggleEdit();
    bool EditorOpen() const;
    void StartBoxEdit(BOOL bInitText);
    void StartListEdit(BOOL bSetSel);
    void EndBoxEdit();
    void EndListEdit();
    int HitTestColumn(CPoint point);
    // Whether the point lies in the expand zone of the item's line.
    bool InExpandZone(int nItem, CPoint point);
    int ColumnCount() const;
    void InvalidateItem(int nItem);

private:
    // Kind of the current cell of the selected row; 0 without one.
    std::uint32_t CurrentCellKind();
    void Commit() { SendMessage(UWM_GRID_EDIT_DONE, 0, 0); }
    void NotifyParentOfInput();
    bool IsPlaceholderOrEmpty(const CGridRow* row) const;

    // Drawing, one line at a time into the memory DC.
    GridLineGeometry Geometry();
    void DrawLine(int nItem, const GridLineGeometry& g, const CRect& screen, CDC* target);
    void DrawColumn0(CGridRow* row, bool current, const GridLineGeometry& g);
    void DrawCell(CGridRow* row, int c, bool current, const GridLineGeometry& g);
    CRect ColumnRect(int c, const GridLineGeometry& g);
    void ApplyCellColours(const CRect& r, bool current);
    void DrawCellText(CRect r, std::string_view text, bool changed);
    void DrawCellIcon(CRect r, std::uint32_t value, bool current);
    HICON FormatIcon(std::uint32_t value);
    void DrawExpandBox(CGridRow* row, const CRect& box);
    void DrawTreeLines(CGridRow* row, int level, const GridLineGeometry& g);

    BOOL m_gridLines = FALSE;
    CFont m_font;
    CGridEdit m_edit;
    CGridComboBox m_combo;
    CDC m_memDC;
    CBitmap m_rowBitmap;
    CSize m_rowBitmapSize;
    int m_rowBitmapDepth = 0;
    int m_currentColumn = 0;
    CGridRowArray m_rows;
    std::array<COLORREF, kColourCount> m_colours{};
    // Tree lines and expand boxes, in the tree-line colour.
    CPen m_treePen;
    CBrush m_treeBrush;
    // Format icons by cell value (0, 1, 2, other), loaded on first use.
    std::array<HICON, 4> m_formatIcons{};
    BOOL m_ctrlHeld = FALSE;
};
