// The combo box's items: sorted and positional insertion, deletion, texts,
// values and searching, with bad indexes answered by CB_ERR.
#include <cstring>

#include "combo_box_test_support.h"
#include "platform/text/gbk.h"

using combo_test::ComboFixture;

namespace {

class ComboItems : public ComboFixture {};

}  // namespace

TEST_F(ComboItems, SortedInsertionFoldsAsciiCaseAndKeepsArrivalOrderOfEquals)
{
    Make();
    EXPECT_EQ(combo.AddString("beta"), 0);
    EXPECT_EQ(combo.AddString("Alpha"), 0);
    EXPECT_EQ(combo.AddString("gamma"), 2);
    EXPECT_EQ(combo.AddString("alpha"), 1);  // equal to "Alpha" folded: after it
    const std::string chinese = GBK(u8"中文");
    EXPECT_EQ(combo.AddString(chinese.c_str()), 4);  // double-byte text sorts after ASCII
    EXPECT_EQ(combo.AddString("_under"), 0);  // '_' sorts before letters, as _stricmp has it
    ASSERT_EQ(combo.GetCount(), 6);
    EXPECT_EQ(TextOf(1), "Alpha");
    EXPECT_EQ(TextOf(2), "alpha");
    EXPECT_EQ(TextOf(3), "beta");
    EXPECT_EQ(TextOf(5), chinese);
}

TEST_F(ComboItems, InsertStringIgnoresSortingAndChecksTheIndex)
{
    Make(CBS_DROPDOWNLIST);
    EXPECT_EQ(combo.AddString("z"), 0);
    EXPECT_EQ(combo.AddString("a"), 1);  // no CBS_SORT: at the end
    EXPECT_EQ(combo.InsertString(1, "m"), 1);
    EXPECT_EQ(combo.InsertString(-1, "last"), 3);
    EXPECT_EQ(combo.InsertString(5, "far"), CB_ERR);
    EXPECT_EQ(combo.InsertString(-2, "far"), CB_ERR);
    EXPECT_EQ(combo.AddString(nullptr), CB_ERR);
    EXPECT_EQ(combo.GetCount(), 4);
    EXPECT_EQ(TextOf(1), "m");
}

TEST_F(ComboItems, BadIndexesAnswerErrorsAndTouchNothing)
{
    Make();
    combo.AddString("one");
    combo.AddString("two");
    char buffer[8];
    std::memset(buffer, '#', sizeof buffer);
    EXPECT_EQ(combo.GetLBText(2, buffer), CB_ERR);
    EXPECT_EQ(combo.GetLBText(-1, buffer), CB_ERR);
    EXPECT_EQ(buffer[0], '#');
    EXPECT_EQ(combo.GetLBText(0, nullptr), CB_ERR);
    EXPECT_EQ(combo.GetLBTextLen(2), CB_ERR);
    EXPECT_EQ(combo.GetLBTextLen(-1), CB_ERR);
    EXPECT_EQ(combo.DeleteString(2), CB_ERR);
    EXPECT_EQ(combo.SetItemData(5, 1), CB_ERR);
    EXPECT_EQ(combo.GetItemData(5), static_cast<DWORD_PTR>(CB_ERR));
    EXPECT_EQ(combo.FindStringExact(-1, nullptr), CB_ERR);
    EXPECT_EQ(combo.GetCount(), 2);
    CString text;
    combo.GetLBText(9, text);
    EXPECT_TRUE(text.IsEmpty());

    EXPECT_EQ(combo.SetCurSel(1), 1);
    EXPECT_EQ(combo.SetCurSel(2), CB_ERR);  // clears the selection
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    EXPECT_EQ(combo.GetWindowTextLength(), 0);
}

TEST_F(ComboItems, SelectionFollowsItsItemThroughInsertAndDelete)
{
    Make();
    combo.AddString("b");
    combo.AddString("d");
    combo.SetCurSel(1);  // "d"
    combo.AddString("a");
    EXPECT_EQ(combo.GetCurSel(), 2);
    combo.AddString("e");
    EXPECT_EQ(combo.GetCurSel(), 2);
    EXPECT_EQ(combo.DeleteString(0), 3);
    EXPECT_EQ(combo.GetCurSel(), 1);
    CString shown;
    combo.GetWindowText(shown);
    EXPECT_EQ(shown, "d");
    EXPECT_EQ(combo.DeleteString(1), 2);  // the selected item goes: no selection
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    combo.SetCurSel(0);
    combo.ResetContent();
    EXPECT_EQ(combo.GetCount(), 0);
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
}

TEST_F(ComboItems, ValuesStayWithTheirItems)
{
    Make();
    combo.SetItemData(combo.AddString("m"), 13);
    combo.SetItemData(combo.AddString("a"), 1);
    EXPECT_EQ(combo.GetItemData(0), 1u);
    EXPECT_EQ(combo.GetItemData(1), 13u);
}

TEST_F(ComboItems, SearchesFoldCaseWrapRoundAndSelectQuietly)
{
    Make();
    for (const char* text : {"P0", "P1", "P2", "ACC", "B"}) combo.AddString(text);  // ACC B P0 P1 P2
    EXPECT_EQ(combo.FindStringExact(-1, "acc"), 0);
    EXPECT_EQ(combo.FindStringExact(-1, "ac"), CB_ERR);
    EXPECT_EQ(combo.FindString(-1, "p"), 2);
    EXPECT_EQ(combo.FindString(2, "p"), 3);
    EXPECT_EQ(combo.FindString(4, "p"), 2);  // past the end, round to the start
    EXPECT_EQ(combo.FindString(99, "b"), 1);
    EXPECT_EQ(combo.FindStringExact(3, "p1"), 3);  // round the whole list back to itself
    parent.codes.clear();
    EXPECT_EQ(combo.SelectString(-1, "p2"), 4);
    EXPECT_EQ(combo.GetCurSel(), 4);
    EXPECT_EQ(combo.SelectString(-1, "nothing"), CB_ERR);
    EXPECT_EQ(combo.GetCurSel(), 4);
    EXPECT_EQ(parent.Count(CBN_SELCHANGE), 0);
    // Setting the text of a drop-down list picks the item that has it.
    combo.SetWindowText("b");
    EXPECT_EQ(combo.GetCurSel(), 1);
    combo.SetWindowText("missing");
    EXPECT_EQ(combo.GetCurSel(), 1);
}
