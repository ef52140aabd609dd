// A grid as a derived class drives it, for the grid's fuzz target: rows are
// found in display order and the hooks act on the tree as a real grid's do
// (rows deleted, inserted and moved, children made on expand, edits
// committed into cells). After every change it makes to the tree the list's
// line count equals the lines the rows show, so any difference after user
// input is the grid's own doing.
#pragma once

#include <cstdint>

#include "grid/grid_ctrl.h"

class FuzzGrid : public CGridCtrl {
public:
    CGridRow* FindRowAt(int displayIndex, CGridRowArray* rows, int* counter) override;
    void MoveRowUp() override { MoveSelectedRow(-1); }
    void MoveRowDown() override { MoveSelectedRow(+1); }
    void DeleteSelectedRow() override;
    void InsertNewRow() override;
    void UpdateRow(CGridRow* row, BOOL bRefresh) override;

    // A new row under parent (top level for null), with an editable name, a
    // number cell and a format cell, not yet in any array; null once the
    // input's row budget is spent.
    CGridRow* MakeRow(CGridRow* parent);
    // The list's line count set to the lines the rows show.
    void SyncCount();

    // Per input: rows the hooks and the target may still make, and what an
    // expand makes under a row that has none.
    int rowBudget = 0;
    int childrenToMake = 0;
    std::uint32_t childFlags = GRF_CREATED;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void MoveSelectedRow(int step);
    void CommitEdit();
    void CommitList();
};
