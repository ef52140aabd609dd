// A grid as a derived class uses it: rows looked up by walking the tree, the
// hooks and the private messages counted, and a grid fixture hosted in a pane
// over a test host.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "grid/grid_ctrl.h"
#include "platform/core/paint.h"
#include "platform/input/input.h"
#include "platform/text/gbk.h"
#include "tests/support/test_host.h"
#include "tests/support/test_pane.h"

class TestGrid : public CGridCtrl {
public:
    // The row on a display line, walking the rows in display order.
    CGridRow* FindRowAt(int displayIndex, CGridRowArray* rows, int* counter) override
    {
        return FindRowInDisplayOrder(displayIndex, rows, counter);
    }

    void MoveRowUp() override { ++moveUps; }
    void MoveRowDown() override { ++moveDowns; }
    void DeleteSelectedRow() override { ++deletes; }
    void InsertNewRow() override { ++inserts; }
    void UpdateRow(CGridRow* row, BOOL bRefresh) override { updates.push_back({row, bRefresh != FALSE}); }

    // Children made on UWM_GRID_FILL_CHILDREN: this many, with these flags.
    int childrenToMake = 0;
    std::uint32_t childFlags = GRF_CREATED;

    int moveUps = 0, moveDowns = 0, deletes = 0, inserts = 0, fills = 0, showInMemory = 0;
    std::vector<std::pair<CGridRow*, bool>> updates;
    std::vector<std::string> editsDone;  // GetEditText at each UWM_GRID_EDIT_DONE
    std::vector<int> listsDone;          // GetComboSel at each UWM_GRID_LIST_DONE

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message) {
        case UWM_GRID_FILL_CHILDREN: {
            ++fills;
            auto* row = reinterpret_cast<CGridRow*>(wParam);
            for (int i = 0; i < childrenToMake; ++i) {
                auto* child = new CGridRow;
                child->parent = row;
                child->level = row->level + 1;
                child->SetFlags(childFlags);
                child->text = ("child" + std::to_string(i)).c_str();
                row->children.AddRow(child);
            }
            return 0;
        }
        case UWM_GRID_EDIT_DONE:
            editsDone.emplace_back(static_cast<const char*>(GetEditText()));
            return 0;
        case UWM_GRID_LIST_DONE:
            listsDone.push_back(GetComboSel());
            return 0;
        case UWM_EDITOR_KILLFOCUS:
            OnEditorKillFocus(static_cast<BOOL>(wParam));
            return 0;
        case WM_COMMAND:
            if (LOWORD(wParam) == ID_GRID_SHOW_IN_MEMORY) {
                ++showInMemory;
                return 0;
            }
            break;
        default:
            break;
        }
        return CGridCtrl::WindowProc(message, wParam, lParam);
    }
};

// A pane that counts the grid's UWM_GRID_INPUT.
class GridPane : public TestPane {
public:
    int inputs = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == UWM_GRID_INPUT) ++inputs;
        return TestPane::WindowProc(message, wParam, lParam);
    }
};

// The grid in a pane, with three columns: expression, value, format.
class GridFixture : public ::testing::Test {
protected:
    static constexpr DWORD kGridStyle =
        WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDRAWFIXED | LVS_OWNERDATA;
    static constexpr int kColumnWidths[] = {120, 100, 60};

    void SetUp() override
    {
        pane.view = &grid;
        ASSERT_TRUE(pane.CreatePane(&host, CRect(0, 0, 400, 300)));
        ASSERT_TRUE(grid.Create(kGridStyle, CRect(1, 1, 399, 299), &pane, 100));
        const char* names[] = {"Name", "Value", "Format"};
        for (int c = 0; c < 3; ++c) grid.InsertColumn(c, names[c], LVCFMT_LEFT, kColumnWidths[c]);
        ASSERT_TRUE(other.CreatePane(&host, CRect(400, 0, 600, 300)));
    }

    // A top-level row with an editable expression, a value cell of `valueKind`
    // and a format cell.
    CGridRow* AddRow(const char* text, std::uint32_t valueKind = GCF_NUMBER_EDIT, const char* value = "12")
    {
        auto* row = new CGridRow;
        row->text = text;
        row->SetCellTextEdit(0, TRUE, -1);
        row->SetCellKind(1, valueKind);
        row->SetCellText(1, value);
        row->SetCellList(2, TRUE);
        row->SetCellIcon(2, 1);
        grid.Rows().AddRow(row);
        return row;
    }

    void SyncCount() { grid.SetItemCount(grid.CountVisibleRows(grid.Rows())); }

    CPoint CellCentre(int item, int column)
    {
        CRect r;
        grid.GetSubItemRect(item, column, LVIR_LABEL, r);
        return r.CenterPoint();
    }

    void ClickCell(int item, int column)
    {
        Input::Wait();
        Input::Click(&grid, CellCentre(item, column));
    }

    // A point inside the expand zone of a line.
    CPoint ExpandPoint(int item)
    {
        CRect first, bounds;
        grid.GetItemRect(0, &first, LVIR_BOUNDS);
        grid.GetItemRect(item, &bounds, LVIR_BOUNDS);
        const int unit = first.Height() / 4 + 4;
        const CGridRow* row = grid.GetRowAt(item);
        return CPoint(bounds.left + unit * (row ? row->Level() : 0) + unit / 2, bounds.top + first.Height() / 2);
    }

    bool Editing() const { return const_cast<TestGrid&>(grid).EditBox().IsWindowVisible() != FALSE; }
    bool Listing() const { return const_cast<TestGrid&>(grid).ComboBox().IsWindowVisible() != FALSE; }

    TestHost host;
    GridPane pane;
    TestPane other;  // another pane, to take the focus away
    TestGrid grid;
};
