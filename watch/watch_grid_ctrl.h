// The watch of the debugger: a grid whose top-level rows are expressions that
// the host's debugger service evaluates, shown with their value, display
// format and attribute, expandable into members and elements. An editable
// grid keeps an input row last, where the user types a new expression; a
// fixed-list grid mirrors the service's own list and takes no new rows.
#pragma once

#include "grid/grid_ctrl.h"
#include "grid/grid_drop_target.h"
#include "platform/text/ptr_array.h"
#include "watch/watch_row.h"


// The grid window's control id under its pane.
constexpr UINT kWatchGridId = 1001;

class AFX_EXT_CLASS CWatchGridCtrl : public CGridCtrl {
    DECLARE_DYNCREATE(CWatchGridCtrl)

    CWatchGridCtrl();
    ~CWatchGridCtrl() override;

    // Added virtuals, in this order.
    virtual BOOL Create(CWnd* parent);
    virtual DROPEFFECT OnDragEnter(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState, CPoint point);
    virtual DROPEFFECT OnDragOver(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState, CPoint point);
    virtual DROPEFFECT OnDropEx(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropDefault,
                                DROPEFFECT dropList, CPoint point);
    virtual void OnDragLeave(CWnd* pWnd);
    virtual void ShowMenu(CPoint screenPoint);

    // Hooks of the grid.
    void MoveRowUp() override;
    void MoveRowDown() override;
    void DeleteSelectedRow() override;
    void InsertNewRow() override;
    void RefreshRow(CGridRow* row, int* displayIndex, const WatchRecord* previous) override;
    void UpdateRow(CGridRow* row, BOOL bRefresh) override;
    CGridRow* FindRowAt(int displayIndex, CGridRowArray* rows, int* counter) override;

    // Moves the grid inside the pane's client rectangle and sizes its columns.
    void Layout(int left, int top, int right, int bottom);

    BOOL EnsureInputRow();
    void AddExpression(const char* text, int line);
    int InsertRowAtLine(int line, CGridRow* row);
    void InitRowCells(CGridRow* row);
    void CommitEdit();
    void ExpressionList(CStringArray* list, BOOL bGet);
    int LineOfTopRow(int index);
    int LineOfRow(const CGridRow* row);
    BOOL DeleteRow(int line);
    BOOL MoveRow(int from, int to);
    void CopyRow(int from, int to);
    void SetAllFormats(int format);
    void ShowInMemory();

    // Exchanges with the debugger service.
    void EvaluateRow(CGridRow* row);
    void WriteValue(CGridRow* row, CString text);
    void FillMembers(CGridRow* row);
    void FillElements(CGridRow* row);
    void RefreshAll();
    void RefreshList();
    void LoadListEntry(const WatchListEntry* entries, int i, WatchRecord* record);
    int FindTopRowByName(const char* name);
    // The format picked in column 2's list, for the selected row.
    void CommitFormat();

    // Drag state, for the drag handlers.
    int DragSourceLine() const { return m_dragSourceLine; }
    int DropLine() const { return m_dropLine; }
    BOOL IsDragging() const { return m_dragging; }

protected:
    DECLARE_MESSAGE_MAP()
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnBeginDrag(NMHDR* pNMHDR, LRESULT* pResult);

    // Menu commands and their update handlers.
    void OnFormatCommand(UINT id);
    void OnClear();
    void OnEdit();
    void OnUpdateDelete(CCmdUI* pCmdUI);
    void OnUpdateClear(CCmdUI* pCmdUI);
    void OnUpdateEdit(CCmdUI* pCmdUI);
    void OnUpdateShowInMemory(CCmdUI* pCmdUI);
    void OnUpdateMoveUp(CCmdUI* pCmdUI);
    void OnUpdateMoveDown(CCmdUI* pCmdUI);

private:
    void InitWatch();
    void InsertColumns();
    // The input row's prompt: string 32062.
    static CString InputRowText();
    bool IsEditable() const { return !fixedRows; }
    // A child row, made from its record, under parent.
    void AppendChild(CGridRow* parent, CGridRow* child);
    void RepaintNow();

    CGridDropTarget m_dropTarget;
    int m_dragSourceLine = -1;
    int m_dropLine = -1;
    BOOL m_dragging = FALSE;
    BOOL m_firstLayout = TRUE;
};
