// The demo grid: a few variables of the sample program as rows, with a
// value column and a format column. It does what a derived grid must: finds
// the row on a line, makes child rows when one is first expanded, and applies
// what the user commits in the editors.
#pragma once

#include <functional>
#include <string>

#include "grid/grid_ctrl.h"

class DemoGrid : public CGridCtrl {
public:
    // Told each thing the grid asked of its derived class, in UTF-8.
    std::function<void(const std::string&)> log;

    BOOL Create(CWnd* parent);
    // The sample variables, collapsed; the item count follows them.
    void FillSampleRows();

    CGridRow* FindRowAt(int displayIndex, CGridRowArray* rows, int* counter) override;
    void UpdateRow(CGridRow* row, BOOL bRefresh) override;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void FillChildren(CGridRow* row);
    void CommitEdit();
    void CommitFormat();
    void Log(const std::string& text) const
    {
        if (log) log(text);
    }
};
