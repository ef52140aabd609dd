// The combo box driven by a user: arrows and characters move the selection,
// clicks drop the list and choose from it, and the parent hears of it.
#include "combo_box_test_support.h"

using combo_test::ComboFixture;
using combo_test::kBoxHeight;
using combo_test::kItemHeight;
using combo_test::kListRows;

namespace {

class ComboInput : public ComboFixture {
protected:
    void Fill(int n)
    {
        for (int i = 0; i < n; ++i) combo.AddString(("item " + std::string(1, static_cast<char>('a' + i))).c_str());
    }
    HWND ListWindow() const
    {
        COMBOBOXINFO info;
        EXPECT_TRUE(combo.GetComboBoxInfo(&info));
        return info.hwndList;
    }
};

}  // namespace

TEST_F(ComboInput, TheBoxIsOneItemHighAndTheListFitsTheHeightAskedFor)
{
    Make();
    CRect window;
    combo.GetWindowRect(&window);
    EXPECT_EQ(window.Height(), kBoxHeight);
    EXPECT_EQ(combo.GetItemHeight(0), kItemHeight);
    Fill(3);
    CRect list;
    combo.GetDroppedControlRect(&list);
    EXPECT_EQ(list.top, window.bottom);
    EXPECT_EQ(list.Width(), window.Width());
    EXPECT_EQ(list.Height(), 3 * kItemHeight + 2);  // three items: three rows
    Fill(10);
    combo.GetDroppedControlRect(&list);
    EXPECT_EQ(list.Height(), kListRows * kItemHeight + 2);
    // Moving the box keeps its height; the height asked for is the list's.
    combo.MoveWindow(10, 10, 150, 100);
    combo.GetWindowRect(&window);
    EXPECT_EQ(window.Height(), kBoxHeight);
    combo.GetDroppedControlRect(&list);
    EXPECT_EQ(list.Height(), (100 - kBoxHeight - 2) / kItemHeight * kItemHeight + 2);
}

TEST_F(ComboInput, ArrowsMoveTheSelectionAndStopQuietlyAtTheEnds)
{
    Make();
    Fill(4);
    combo.SetFocus();
    parent.codes.clear();
    Input::Key(VK_DOWN);  // nothing selected: the first
    EXPECT_EQ(combo.GetCurSel(), 0);
    Input::Key(VK_DOWN);
    Input::Key(VK_RIGHT);
    EXPECT_EQ(combo.GetCurSel(), 2);
    Input::Key(VK_UP);
    EXPECT_EQ(combo.GetCurSel(), 1);
    EXPECT_EQ(parent.Count(CBN_SELCHANGE), 4);
    // The parent sees the new selection when told.
    EXPECT_EQ(parent.selectionSeen, (std::vector<int>{0, 1, 2, 1}));

    Input::Key(VK_HOME);
    parent.codes.clear();
    Input::Key(VK_UP);
    Input::Key(VK_LEFT);
    Input::Key(VK_HOME);
    Input::Key(VK_PRIOR);
    EXPECT_EQ(combo.GetCurSel(), 0);
    EXPECT_EQ(parent.Count(CBN_SELCHANGE), 0);
    Input::Key(VK_END);
    EXPECT_EQ(combo.GetCurSel(), 3);
    Input::Key(VK_DOWN);
    Input::Key(VK_NEXT);
    EXPECT_EQ(combo.GetCurSel(), 3);
    EXPECT_EQ(parent.Count(CBN_SELCHANGE), 1);
}

TEST_F(ComboInput, AnEmptyBoxIgnoresKeys)
{
    Make();
    combo.SetFocus();
    parent.codes.clear();
    Input::Key(VK_DOWN);
    Input::Key(VK_END);
    Input::Type("x");
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    EXPECT_EQ(parent.Count(CBN_SELCHANGE), 0);
}

TEST_F(ComboInput, ATypedCharacterFindsTheNextItemStartingWithIt)
{
    Make();
    for (const char* text : {"R0", "R1", "A", "DPTR"}) combo.AddString(text);  // A DPTR R0 R1
    combo.SetFocus();
    Input::Type("r");
    EXPECT_EQ(combo.GetCurSel(), 2);
    Input::Type("r");
    EXPECT_EQ(combo.GetCurSel(), 3);
    Input::Type("r");
    EXPECT_EQ(combo.GetCurSel(), 2);
    Input::Type("d");
    EXPECT_EQ(combo.GetCurSel(), 1);
    parent.codes.clear();
    Input::Type("q");
    EXPECT_EQ(combo.GetCurSel(), 1);
    EXPECT_EQ(parent.Count(CBN_SELCHANGE), 0);
}

TEST_F(ComboInput, AClickDropsTheListAndAClickOnAnItemChoosesIt)
{
    Make();
    Fill(4);
    combo.SetCurSel(0);
    parent.codes.clear();
    Input::Click(&combo, CPoint(30, 10));
    EXPECT_EQ(CWnd::GetFocus(), &combo);
    EXPECT_TRUE(combo.GetDroppedState());
    EXPECT_TRUE(IsWindowVisible(ListWindow()));
    EXPECT_EQ(parent.codes, (std::vector<UINT>{CBN_SETFOCUS, CBN_DROPDOWN}));

    Input::Wait();
    parent.codes.clear();
    Input::Click(&combo, OnListRow(2));
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_FALSE(IsWindowVisible(ListWindow()));
    EXPECT_EQ(combo.GetCurSel(), 2);
    EXPECT_EQ(parent.codes, (std::vector<UINT>{CBN_SELCHANGE, CBN_SELENDOK, CBN_CLOSEUP}));
    EXPECT_EQ(parent.selectionSeen.back(), 2);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);

    // Choosing the item already chosen changes nothing.
    Input::Wait();
    Input::Click(&combo, CPoint(30, 10));
    Input::Wait();
    parent.codes.clear();
    Input::Click(&combo, OnListRow(2));
    EXPECT_EQ(parent.codes, (std::vector<UINT>{CBN_SELENDOK, CBN_CLOSEUP}));
}

TEST_F(ComboInput, AClickElsewhereOrOnTheBoxPutsTheListAwayUnchanged)
{
    Make();
    Fill(4);
    combo.SetCurSel(1);
    Input::Click(&combo, CPoint(30, 10));
    Input::Wait();
    parent.codes.clear();
    Input::Click(&parent, CPoint(300, 250));
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_EQ(combo.GetCurSel(), 1);
    EXPECT_EQ(parent.codes, (std::vector<UINT>{CBN_SELENDCANCEL, CBN_CLOSEUP}));

    Input::Wait();
    Input::Click(&combo, CPoint(30, 10));
    EXPECT_TRUE(combo.GetDroppedState());
    Input::Wait();
    Input::Click(&combo, CPoint(30, 10));
    EXPECT_FALSE(combo.GetDroppedState());
    // Pressing on the box, sliding into the list and letting go there chooses.
    Input::Wait();
    Input::MouseDown(&combo, CPoint(30, 10));
    Input::MouseMove(&combo, OnListRow(3));
    Input::MouseUp(&combo, OnListRow(3));
    EXPECT_EQ(combo.GetCurSel(), 3);
    EXPECT_FALSE(combo.GetDroppedState());
}

TEST_F(ComboInput, KeysDriveTheDroppedList)
{
    Make();
    Fill(10);
    combo.SetFocus();
    Input::Key(VK_F4);
    EXPECT_TRUE(combo.GetDroppedState());
    parent.codes.clear();
    Input::Key(VK_END);
    EXPECT_EQ(combo.GetCurSel(), 9);
    EXPECT_EQ(combo.GetTopIndex(), 10 - kListRows);  // the list scrolled to show it
    Input::Key(VK_RETURN);
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_EQ(parent.codes, (std::vector<UINT>{CBN_SELCHANGE, CBN_SELENDOK, CBN_CLOSEUP}));

    Input::Key(VK_DOWN, Input::kAlt);
    EXPECT_TRUE(combo.GetDroppedState());
    parent.codes.clear();
    Input::Key(VK_ESCAPE);
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_EQ(parent.codes, (std::vector<UINT>{CBN_SELENDCANCEL, CBN_CLOSEUP}));
    EXPECT_EQ(combo.GetCurSel(), 9);
}

TEST_F(ComboInput, LosingTheFocusClosesTheListAndTellsTheParent)
{
    Make();
    Fill(3);
    combo.SetFocus();
    combo.ShowDropDown(TRUE);
    EXPECT_TRUE(combo.GetDroppedState());
    parent.codes.clear();
    other.SetFocus();
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_EQ(parent.codes, (std::vector<UINT>{CBN_SELENDCANCEL, CBN_CLOSEUP, CBN_KILLFOCUS}));
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
}

TEST_F(ComboInput, DestroyingTheBoxWhileDroppedTakesTheListAlongQuietly)
{
    Make();
    Fill(3);
    combo.ShowDropDown(TRUE);
    const HWND list = ListWindow();
    ASSERT_TRUE(IsWindow(list));
    parent.codes.clear();
    combo.DestroyWindow();
    EXPECT_FALSE(IsWindow(list));
    EXPECT_EQ(parent.Count(CBN_CLOSEUP), 0);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
}
