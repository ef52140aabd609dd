// Mouse, keyboard and the notifications the parent hears: selection and
// focus changes, clicks, drags, and column resizing through the header.
#include "list_ctrl_test_support.h"

using list_test::kHeaderHeight;
using list_test::kLineHeight;
using list_test::kPage;
using list_test::ListFixture;

namespace {

constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;

class ListInput : public ListFixture {
protected:
    int Selected() { return list.GetNextItem(-1, LVNI_SELECTED); }
    int Focused() { return list.GetNextItem(-1, LVNI_FOCUSED); }
    // Presses a key with the list focused and returns the LVN_ITEMCHANGED it brought.
    std::vector<list_test::Event> Press(UINT key, unsigned modifiers = Input::kNone)
    {
        parent.events.clear();
        Input::Key(key, modifiers);
        return parent.Of(LVN_ITEMCHANGED);
    }
};

}  // namespace

TEST_F(ListInput, ClickSelectsFocusesAndNotifiesInOrder)
{
    Make(list_test::kGridStyle, 20);
    parent.events.clear();
    Input::Click(&list, OnRow(2, 1));
    EXPECT_EQ(CWnd::GetFocus(), &list);
    EXPECT_EQ(list.GetItemState(2, kBoth), kBoth);
    ASSERT_EQ(parent.Codes(), (std::vector<UINT>{NM_SETFOCUS, LVN_ITEMCHANGED, NM_CLICK}));
    const list_test::Event& change = parent.events[1];
    EXPECT_EQ(change.item, 2);
    EXPECT_EQ(change.oldState, 0u);
    EXPECT_EQ(change.newState, kBoth);
    EXPECT_EQ(change.from, list.GetSafeHwnd());
    EXPECT_EQ(parent.events[2].item, 2);
    EXPECT_EQ(parent.events[2].subItem, 1);

    Input::Wait();
    parent.events.clear();
    Input::Click(&list, OnRow(5));
    const auto changes = parent.Of(LVN_ITEMCHANGED);
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_EQ(changes[0].item, 2);
    EXPECT_EQ(changes[0].oldState, kBoth);
    EXPECT_EQ(changes[0].newState, 0u);
    EXPECT_EQ(changes[1].item, 5);
    EXPECT_EQ(changes[1].newState, kBoth);
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    EXPECT_EQ(Selected(), 5);
}

TEST_F(ListInput, ClickBelowTheItemsClearsTheSelectionAndKeepsTheFocus)
{
    Make(list_test::kGridStyle, 3);
    Input::Click(&list, OnRow(1));
    Input::Wait();
    parent.events.clear();
    Input::Click(&list, OnRow(6));
    EXPECT_EQ(Selected(), -1);
    EXPECT_EQ(Focused(), 1);
    const list_test::Event* change = parent.Last(LVN_ITEMCHANGED);
    ASSERT_NE(change, nullptr);
    EXPECT_EQ(change->item, -1);
    EXPECT_EQ(change->oldState, static_cast<UINT>(LVIS_SELECTED));
    ASSERT_NE(parent.Last(NM_CLICK), nullptr);
    EXPECT_EQ(parent.Last(NM_CLICK)->item, -1);
}

TEST_F(ListInput, DoubleAndRightClicksNameTheirItem)
{
    Make(list_test::kGridStyle, 8);
    Input::DoubleClick(&list, OnRow(4));
    ASSERT_EQ(parent.Count(NM_DBLCLK), 1);
    EXPECT_EQ(parent.Last(NM_DBLCLK)->item, 4);
    EXPECT_EQ(parent.Count(LVN_ITEMACTIVATE), 1);

    parent.events.clear();
    Input::RightClick(&list, OnRow(6));
    EXPECT_EQ(Selected(), 6);
    ASSERT_EQ(parent.Count(NM_RCLICK), 1);
    EXPECT_EQ(parent.Last(NM_RCLICK)->item, 6);
    EXPECT_EQ(parent.CountMessage(WM_CONTEXTMENU), 1);
    // A parent that takes the right click gets no context menu request.
    parent.events.clear();
    parent.answers[NM_RCLICK] = 1;
    Input::RightClick(&list, OnRow(6));
    EXPECT_EQ(parent.Count(NM_RCLICK), 1);
    EXPECT_EQ(parent.CountMessage(WM_CONTEXTMENU), 0);
}

TEST_F(ListInput, DraggingStartsOnlyPastTheThreshold)
{
    Make(list_test::kGridStyle, 8);
    const CPoint start = OnRow(1);
    Input::MouseDown(&list, start);
    Input::MouseMove(&list, CPoint(start.x + 4, start.y - 4));
    Input::MouseMove(&list, CPoint(start.x - 4, start.y + 4));
    EXPECT_EQ(parent.Count(LVN_BEGINDRAG), 0);
    Input::MouseMove(&list, CPoint(start.x, start.y + 5));
    ASSERT_EQ(parent.Count(LVN_BEGINDRAG), 1);
    EXPECT_EQ(parent.Last(LVN_BEGINDRAG)->item, 1);
    EXPECT_EQ(parent.Last(LVN_BEGINDRAG)->point.x, start.x);
    EXPECT_EQ(parent.Last(LVN_BEGINDRAG)->point.y, start.y);
    Input::MouseMove(&list, CPoint(start.x + 40, start.y + 40));
    Input::MouseUp(&list, CPoint(start.x + 40, start.y + 40));
    // A drag is no click, and starts once.
    EXPECT_EQ(parent.Count(LVN_BEGINDRAG), 1);
    EXPECT_EQ(parent.Count(NM_CLICK), 0);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);

    // A press on no item never drags.
    Input::Wait();
    Input::MouseDown(&list, OnRow(9));
    Input::MouseMove(&list, OnRow(2));
    Input::MouseUp(&list, OnRow(2));
    EXPECT_EQ(parent.Count(LVN_BEGINDRAG), 1);
}

TEST_F(ListInput, ArrowsHomeEndAndPagesMoveFocusAndSelection)
{
    Make(list_test::kGridStyle, 100);
    list.SetFocus();
    auto changes = Press(VK_DOWN);  // nothing focused yet: the first item
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].item, 0);
    EXPECT_EQ(changes[0].newState, kBoth);
    EXPECT_EQ(parent.Count(LVN_KEYDOWN), 1);

    Press(VK_DOWN);
    Press(VK_DOWN);
    changes = Press(VK_UP);
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_EQ(changes[0].item, 2);
    EXPECT_EQ(changes[0].newState, 0u);
    EXPECT_EQ(changes[1].item, 1);
    EXPECT_EQ(Selected(), 1);

    Press(VK_NEXT);  // to the last whole line shown
    EXPECT_EQ(Focused(), kPage - 1);
    EXPECT_EQ(list.GetTopIndex(), 0);
    Press(VK_NEXT);  // from there a page on
    EXPECT_EQ(Focused(), 2 * (kPage - 1));
    EXPECT_EQ(list.GetTopIndex(), 2 * (kPage - 1) - kPage + 1);
    Press(VK_PRIOR);  // to the first whole line shown
    EXPECT_EQ(Focused(), list.GetTopIndex());

    Press(VK_END);
    EXPECT_EQ(Selected(), 99);
    EXPECT_EQ(list.GetTopIndex(), 100 - kPage);
    EXPECT_TRUE(Press(VK_DOWN).empty());
    EXPECT_TRUE(Press(VK_NEXT).empty());
    Press(VK_HOME);
    EXPECT_EQ(Selected(), 0);
    EXPECT_EQ(list.GetTopIndex(), 0);
    EXPECT_TRUE(Press(VK_UP).empty());
    EXPECT_TRUE(Press(VK_PRIOR).empty());
    EXPECT_EQ(list.GetSelectedCount(), 1u);
}

TEST_F(ListInput, StateChangesForAllItemsComeAsOne)
{
    Make(list_test::kGridStyle, 10);
    EXPECT_TRUE(list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_TRUE(list.SetItemState(4, LVIS_SELECTED, LVIS_SELECTED));  // single selection: 3 goes
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    EXPECT_EQ(Selected(), 4);
    parent.events.clear();
    EXPECT_TRUE(list.SetItemState(-1, 0, LVIS_SELECTED));
    ASSERT_EQ(parent.Count(LVN_ITEMCHANGED), 1);
    EXPECT_EQ(parent.Last(LVN_ITEMCHANGED)->item, -1);
    EXPECT_EQ(list.GetSelectedCount(), 0u);
    // Nothing to change: nothing said.
    parent.events.clear();
    EXPECT_TRUE(list.SetItemState(-1, 0, LVIS_SELECTED));
    EXPECT_TRUE(list.SetItemState(5, 0, LVIS_SELECTED));
    EXPECT_EQ(parent.Count(LVN_ITEMCHANGED), 0);
    EXPECT_FALSE(list.SetItemState(10, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_FALSE(list.SetItemState(-2, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_EQ(list.GetItemState(10, kBoth), 0u);
}

TEST_F(ListInput, MultipleSelectionTakesRangesAndToggles)
{
    Make(LVS_REPORT | LVS_OWNERDATA | LVS_OWNERDRAWFIXED, 50);
    Input::Click(&list, OnRow(2));
    Input::Wait();
    Input::Click(&list, OnRow(5), Input::kShift);
    EXPECT_EQ(list.GetSelectedCount(), 4u);
    const list_test::Event* range = parent.Last(LVN_ODSTATECHANGED);
    ASSERT_NE(range, nullptr);
    EXPECT_EQ(range->from2, 2);
    EXPECT_EQ(range->to, 5);
    EXPECT_EQ(Focused(), 5);
    Input::Wait();
    Input::Click(&list, OnRow(3), Input::kControl);
    EXPECT_EQ(list.GetSelectedCount(), 3u);
    EXPECT_EQ(list.GetItemState(3, LVIS_SELECTED), 0u);
    EXPECT_EQ(list.GetNextItem(2, LVNI_SELECTED), 4);
    EXPECT_TRUE(list.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_EQ(list.GetSelectedCount(), 50u);
}

TEST_F(ListInput, DraggingADividerResizesTheColumnAfterAskingFirst)
{
    Make(list_test::kGridStyle, 5);
    CHeaderCtrl* header = list.GetHeaderCtrl();
    ASSERT_NE(header, nullptr);
    HDHITTESTINFO hit;
    hit.pt = CPoint(101, 10);
    EXPECT_EQ(header->HitTest(&hit), 0);
    EXPECT_EQ(hit.flags, HHT_ONDIVIDER);
    hit.pt = CPoint(140, 10);
    EXPECT_EQ(header->HitTest(&hit), 1);
    EXPECT_EQ(hit.flags, HHT_ONHEADER);

    parent.events.clear();
    Input::MouseDown(header, CPoint(101, 10));
    Input::MouseMove(header, CPoint(141, 10));
    Input::MouseUp(header, CPoint(141, 10));
    EXPECT_EQ(list.GetColumnWidth(0), 140);
    CRect sub;
    ASSERT_TRUE(list.GetSubItemRect(0, 1, LVIR_BOUNDS, sub));
    EXPECT_EQ(sub.left, 140);
    // The list passes its header's notifications on, the header as sender.
    ASSERT_EQ(parent.Count(HDN_ITEMCHANGING), 1);
    EXPECT_EQ(parent.Last(HDN_ITEMCHANGING)->width, 140);
    EXPECT_EQ(parent.Last(HDN_ITEMCHANGING)->item, 0);
    EXPECT_EQ(parent.Last(HDN_ITEMCHANGING)->from, header->GetSafeHwnd());
    EXPECT_EQ(parent.Count(HDN_ITEMCHANGED), 1);
    EXPECT_EQ(parent.Count(HDN_BEGINTRACK), 1);
    EXPECT_EQ(parent.Count(HDN_ENDTRACK), 1);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
}

TEST_F(ListInput, ARefusedResizeLeavesTheColumnAlone)
{
    Make(list_test::kGridStyle, 5);
    CHeaderCtrl* header = list.GetHeaderCtrl();
    parent.answers[HDN_ITEMCHANGING] = 1;
    parent.events.clear();
    Input::MouseDown(header, CPoint(100, 10));
    Input::MouseMove(header, CPoint(60, 10));
    Input::MouseUp(header, CPoint(60, 10));
    EXPECT_EQ(list.GetColumnWidth(0), 100);
    EXPECT_EQ(parent.Count(HDN_ITEMCHANGING), 1);
    EXPECT_EQ(parent.Count(HDN_ITEMCHANGED), 0);
    // A width set by program is asked for too.
    EXPECT_FALSE(list.SetColumnWidth(1, 20));
    EXPECT_EQ(list.GetColumnWidth(1), 80);
    parent.answers.clear();
    EXPECT_TRUE(list.SetColumnWidth(1, 20));
    EXPECT_EQ(list.GetColumnWidth(1), 20);
    // A refused start of tracking means no tracking at all.
    parent.answers[HDN_BEGINTRACK] = 1;
    parent.events.clear();
    Input::MouseDown(header, CPoint(120, 10));
    Input::MouseMove(header, CPoint(150, 10));
    Input::MouseUp(header, CPoint(150, 10));
    EXPECT_EQ(list.GetColumnWidth(1), 20);
    EXPECT_EQ(parent.Count(HDN_ITEMCHANGING), 0);
}

TEST_F(ListInput, ClickingAColumnHeadingBecomesAColumnClick)
{
    Make(list_test::kGridStyle, 5);
    CHeaderCtrl* header = list.GetHeaderCtrl();
    parent.events.clear();
    Input::Click(header, CPoint(140, 10));
    ASSERT_EQ(parent.Count(HDN_ITEMCLICK), 1);
    ASSERT_EQ(parent.Count(LVN_COLUMNCLICK), 1);
    EXPECT_EQ(parent.Last(LVN_COLUMNCLICK)->subItem, 1);
    EXPECT_EQ(parent.Last(LVN_COLUMNCLICK)->from, list.GetSafeHwnd());
    // Pressed on one heading and released on another: no click.
    Input::Wait();
    Input::MouseDown(header, CPoint(140, 10));
    Input::MouseUp(header, CPoint(250, 10));
    EXPECT_EQ(parent.Count(HDN_ITEMCLICK), 1);
}

TEST_F(ListInput, AParentDestroyingTheListInAHandlerIsSafe)
{
    Make(list_test::kGridStyle, 5);
    parent.destroyOnChange = &list;
    Input::Click(&list, OnRow(1));
    EXPECT_FALSE(IsWindow(list.GetSafeHwnd()));
    Input::Key(VK_DOWN);  // the focus went with the window
}
