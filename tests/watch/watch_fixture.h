// A watch grid in a pane over a test host whose project context names a
// scripted debugger service, with helpers to read what the grid shows.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/input/input.h"
#include "platform/text/gbk.h"
#include "tests/support/scripted_debugger.h"
#include "tests/support/test_host.h"
#include "tests/support/test_pane.h"
#include "watch/watch_grid_ctrl.h"

class WatchFixture : public ::testing::Test {
protected:
    using Texts = std::vector<std::string>;

    void SetUp() override
    {
        ASSERT_TRUE(pane.CreatePane(&host, CRect(0, 0, 700, 300)));
        ASSERT_TRUE(service.CreateService(&host));
        host.context.debuggerWindow = service.GetSafeHwnd();
        ASSERT_TRUE(grid.Create(&pane));
        grid.Layout(0, 0, 700, 300);
        ASSERT_TRUE(other.CreatePane(&host, CRect(0, 300, 700, 400)));
    }

    // The prompt of the input row, GBK.
    static std::string Prompt() { return GBK(u8"\"点击输入表达式\""); }

    // Row texts of every display line, in order.
    Texts Lines()
    {
        Texts texts;
        for (int i = 0; i < grid.GetItemCount(); ++i) {
            const CGridRow* row = grid.GetRowAt(i);
            texts.emplace_back(row ? static_cast<const char*>(row->text) : "<none>");
        }
        return texts;
    }

    std::string Cell(int line, int column)
    {
        CGridRow* row = grid.GetRowAt(line);
        return row ? std::string(row->CellText(column)) : "<none>";
    }

    // Types an expression over column 0 of a line (the last one unless
    // told) and commits it with Enter.
    void TypeExpression(const std::string& gbk, int line = -1)
    {
        grid.SetFocus();
        grid.SelectItem(line == -1 ? grid.GetItemCount() - 1 : line);
        grid.SetCurrentColumn(0);
        Input::Type(gbk);
        Input::Key(VK_RETURN);
    }

    // Opens the editor of a cell with Enter, replaces its text and commits.
    void EditCell(int line, int column, const std::string& gbk)
    {
        grid.SetFocus();
        grid.SelectItem(line);
        grid.SetCurrentColumn(column);
        Input::Key(VK_RETURN);
        grid.EditBox().SetWindowText(gbk.c_str());
        grid.EditBox().SetModify(TRUE);
        Input::Key(VK_RETURN);
    }

    TestHost host;
    ScriptedDebugger service;
    TestPane pane;
    TestPane other;
    CWatchGridCtrl grid;
};
