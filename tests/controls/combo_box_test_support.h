// A top-level window holding a drop-down list combo box, recording the
// notifications it sends.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/controls/combo_box.h"
#include "platform/core/paint.h"
#include "platform/input/input.h"

namespace combo_test {

constexpr UINT kComboId = 91;
// The system font is 16 pixels high: items are 18, the box 24.
constexpr int kItemHeight = 18;
constexpr int kBoxHeight = 24;
// Created 150 high: room below the box for (150 - 24 - 2) / 18 = 6 items.
const CRect kComboArea(10, 10, 160, 160);
constexpr int kListRows = 6;

class Parent : public CWnd {
public:
    std::vector<UINT> codes;  // CBN_* in the order they came
    // Looks at the box while a notification is handled.
    CComboBox* watched = nullptr;
    std::vector<int> selectionSeen;  // GetCurSel at each CBN_SELCHANGE

    int Count(UINT code) const
    {
        int n = 0;
        for (UINT c : codes) n += c == code;
        return n;
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_COMMAND && lParam) {
            codes.push_back(HIWORD(wParam));
            if (HIWORD(wParam) == CBN_SELCHANGE && watched) selectionSeen.push_back(watched->GetCurSel());
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class Other : public CWnd {};

class ComboFixture : public ::testing::Test {
protected:
    void Make(DWORD style = CBS_DROPDOWNLIST | CBS_SORT)
    {
        ASSERT_TRUE(parent.CreateEx(0, "ComboTestParent", "parent", WS_OVERLAPPED | WS_VISIBLE, CRect(50, 40, 450, 340), nullptr, 0));
        ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, kComboArea, &parent, kComboId));
        ASSERT_TRUE(other.Create("Other", "", WS_CHILD | WS_VISIBLE, CRect(200, 200, 240, 220), &parent, 92));
        parent.watched = &combo;
        Paint::UpdateAllWindows();
    }
    void TearDown() override
    {
        combo.DestroyWindow();
        other.DestroyWindow();
        parent.DestroyWindow();
    }
    std::string TextOf(int index) const
    {
        CString text;
        combo.GetLBText(index, text);
        return text.str();
    }
    // A point on a row of the dropped list, in the combo box's client coordinates.
    CPoint OnListRow(int row) const
    {
        CRect list;
        combo.GetDroppedControlRect(&list);
        CPoint point(list.left + 20, list.top + 1 + row * kItemHeight + kItemHeight / 2);
        combo.ScreenToClient(&point);
        return point;
    }

    Parent parent;
    CComboBox combo;
    Other other;
};

}  // namespace combo_test
