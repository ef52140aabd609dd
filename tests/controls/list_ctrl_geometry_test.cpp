// Owner-data counts, line and column rectangles, hit testing and scrolling.
#include "platform/controls/list_ctrl_layout.h"
#include "list_ctrl_test_support.h"

using list_test::kHeaderHeight;
using list_test::kLineHeight;
using list_test::kPage;
using list_test::ListFixture;

namespace {

class ListGeometry : public ListFixture {};

CRect ItemRect(CListCtrl& list, int item, UINT code)
{
    CRect rect;
    EXPECT_TRUE(list.GetItemRect(item, &rect, code)) << "item " << item << " code " << code;
    return rect;
}

}  // namespace

TEST_F(ListGeometry, CountIsAllTheListHoldsAndBadCountsAreRefused)
{
    Make();
    EXPECT_EQ(list.GetItemCount(), 0);
    EXPECT_TRUE(list.SetItemCount(10000));
    EXPECT_EQ(list.GetItemCount(), 10000);
    EXPECT_FALSE(list.SetItemCount(-1));
    EXPECT_FALSE(list.SetItemCount(listview::kMaxItemCount + 1));
    EXPECT_EQ(list.GetItemCount(), 10000);
    EXPECT_TRUE(list.DeleteAllItems());
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(ListGeometry, ItemAndSubItemRectanglesFollowTheColumnsAndLines)
{
    Make(list_test::kGridStyle, 50);
    EXPECT_EQ(ItemRect(list, 0, LVIR_BOUNDS), CRect(0, kHeaderHeight, 330, kHeaderHeight + kLineHeight));
    EXPECT_EQ(ItemRect(list, 3, LVIR_BOUNDS), CRect(0, 68, 330, 84));
    EXPECT_EQ(ItemRect(list, 3, LVIR_LABEL), CRect(0, 68, 100, 84));
    EXPECT_EQ(ItemRect(list, 3, LVIR_ICON), CRect(0, 68, 0, 84));
    // Owner drawing selects whole lines.
    EXPECT_EQ(ItemRect(list, 3, LVIR_SELECTBOUNDS), CRect(0, 68, 330, 84));

    CRect sub;
    ASSERT_TRUE(list.GetSubItemRect(2, 1, LVIR_BOUNDS, sub));
    EXPECT_EQ(sub, CRect(100, 52, 180, 68));
    ASSERT_TRUE(list.GetSubItemRect(2, 2, LVIR_LABEL, sub));
    EXPECT_EQ(sub, CRect(180, 52, 330, 68));
    // Sub-item 0 stands for the whole line, its label for the first column.
    ASSERT_TRUE(list.GetSubItemRect(2, 0, LVIR_BOUNDS, sub));
    EXPECT_EQ(sub, CRect(0, 52, 330, 68));
    ASSERT_TRUE(list.GetSubItemRect(2, 0, LVIR_LABEL, sub));
    EXPECT_EQ(sub, CRect(0, 52, 100, 68));

    CRect untouched(1, 2, 3, 4);
    EXPECT_FALSE(list.GetItemRect(50, &untouched, LVIR_BOUNDS));
    EXPECT_FALSE(list.GetItemRect(-1, &untouched, LVIR_BOUNDS));
    EXPECT_FALSE(list.GetItemRect(0, &untouched, 9));
    EXPECT_FALSE(list.GetItemRect(0, nullptr, LVIR_BOUNDS));
    EXPECT_FALSE(list.GetSubItemRect(2, 3, LVIR_BOUNDS, sub));
    EXPECT_FALSE(list.GetSubItemRect(2, -1, LVIR_BOUNDS, sub));
    // The part asked for travels in left; nothing else is written on failure.
    EXPECT_EQ(untouched.top, 2);
    EXPECT_EQ(untouched.right, 3);
    EXPECT_EQ(untouched.bottom, 4);
}

TEST_F(ListGeometry, HitTestingNamesItemColumnAndWhereElse)
{
    Make(list_test::kGridStyle, 5);
    UINT flags = 0;
    EXPECT_EQ(list.HitTest(OnRow(2, 0), &flags), 2);
    EXPECT_EQ(flags, LVHT_ONITEMLABEL);
    // Owner-drawn lines are hit across every column.
    EXPECT_EQ(list.HitTest(OnRow(4, 2), &flags), 4);
    LVHITTESTINFO info;
    info.pt = OnRow(1, 1);
    EXPECT_EQ(list.SubItemHitTest(&info), 1);
    EXPECT_EQ(info.iSubItem, 1);

    EXPECT_EQ(list.HitTest(OnRow(5), &flags), -1);  // past the last item
    EXPECT_EQ(flags, LVHT_NOWHERE);
    EXPECT_EQ(list.HitTest(CPoint(50, 5), &flags), -1);  // on the header
    EXPECT_EQ(flags, LVHT_NOWHERE);
    EXPECT_EQ(list.HitTest(CPoint(50, -3), &flags), -1);
    EXPECT_EQ(flags, LVHT_ABOVE);
    EXPECT_EQ(list.HitTest(CPoint(50, 200), &flags), -1);
    EXPECT_EQ(flags, LVHT_BELOW);
    EXPECT_EQ(list.HitTest(CPoint(-1, 30), &flags), -1);
    EXPECT_EQ(flags, LVHT_TOLEFT);
    EXPECT_EQ(list.HitTest(CPoint(300, 30), &flags), -1);
    EXPECT_EQ(flags, LVHT_TORIGHT);
    EXPECT_EQ(list.HitTest(static_cast<LVHITTESTINFO*>(nullptr)), -1);
}

TEST_F(ListGeometry, PlainReportLinesAreHitOnTheFirstColumnOnly)
{
    Make(LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL, 5);
    UINT flags = 0;
    EXPECT_EQ(list.HitTest(OnRow(1, 1), &flags), -1);
    EXPECT_EQ(flags, LVHT_NOWHERE);
    list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    EXPECT_EQ(list.HitTest(OnRow(1, 1), &flags), 1);
}

TEST_F(ListGeometry, EnsureVisibleScrollsTheLeastAtTenThousandItems)
{
    Make(list_test::kGridStyle, 10000);
    EXPECT_EQ(list.GetCountPerPage(), kPage);
    EXPECT_TRUE(list.EnsureVisible(9999, FALSE));
    EXPECT_EQ(list.GetTopIndex(), 10000 - kPage);
    EXPECT_EQ(ItemRect(list, 9999, LVIR_BOUNDS).top, kHeaderHeight + (kPage - 1) * kLineHeight);

    EXPECT_TRUE(list.EnsureVisible(5000, FALSE));  // above: comes to the top
    EXPECT_EQ(list.GetTopIndex(), 5000);
    EXPECT_TRUE(list.EnsureVisible(5000 + kPage - 1, FALSE));  // shown whole already
    EXPECT_EQ(list.GetTopIndex(), 5000);
    // The line after the last whole one is cut by the bottom edge.
    EXPECT_TRUE(list.EnsureVisible(5000 + kPage, TRUE));
    EXPECT_EQ(list.GetTopIndex(), 5000);
    EXPECT_TRUE(list.EnsureVisible(5000 + kPage, FALSE));
    EXPECT_EQ(list.GetTopIndex(), 5001);
    EXPECT_EQ(ItemRect(list, 5000, LVIR_BOUNDS).bottom, kHeaderHeight);

    EXPECT_FALSE(list.EnsureVisible(10000, FALSE));
    EXPECT_FALSE(list.EnsureVisible(-1, FALSE));
    EXPECT_EQ(list.GetTopIndex(), 5001);
}

TEST_F(ListGeometry, TheLargestCountCostsNoMoreThanASmallOne)
{
    // Anything kept per item would need gigabytes here.
    Make(list_test::kGridStyle, listview::kMaxItemCount);
    const int last = listview::kMaxItemCount - 1;
    EXPECT_TRUE(list.EnsureVisible(last, FALSE));
    EXPECT_EQ(list.GetTopIndex(), listview::kMaxItemCount - kPage);
    EXPECT_TRUE(list.SetItemState(last, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED));
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), last);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), last);
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    // The first item lies far above: its rectangle stays ordered and above.
    const CRect first = ItemRect(list, 0, LVIR_BOUNDS);
    EXPECT_LT(first.bottom, 0);
    EXPECT_EQ(first.Height(), kLineHeight);
    list.SetFocus();
    Input::Key(VK_HOME);
    EXPECT_EQ(list.GetTopIndex(), 0);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 0);
    EXPECT_EQ(list.GetSelectedCount(), 1u);
}

TEST_F(ListGeometry, ShrinkingTheCountKeepsTopSelectionAndFocusInside)
{
    Make(list_test::kGridStyle, 100);
    list.EnsureVisible(99, FALSE);
    list.SetItemState(90, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ASSERT_TRUE(list.SetItemCount(20));
    EXPECT_EQ(list.GetTopIndex(), 20 - kPage);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), -1);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), -1);
    EXPECT_EQ(list.GetSelectedCount(), 0u);
    ASSERT_TRUE(list.SetItemCount(3));
    EXPECT_EQ(list.GetTopIndex(), 0);
}

TEST_F(ListGeometry, ScrollMessagesWheelAndScrollMoveWholeLines)
{
    Make(list_test::kGridStyle, 100);
    list.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 0));
    EXPECT_EQ(list.GetTopIndex(), 1);
    list.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    EXPECT_EQ(list.GetTopIndex(), 1 + kPage);
    list.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 40));
    EXPECT_EQ(list.GetTopIndex(), 40);
    list.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_BOTTOM, 0));
    EXPECT_EQ(list.GetTopIndex(), 100 - kPage);
    list.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 0));
    EXPECT_EQ(list.GetTopIndex(), 100 - kPage);
    list.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_TOP, 0));
    EXPECT_EQ(list.GetTopIndex(), 0);

    // Pixels round to the nearest whole line.
    EXPECT_TRUE(list.Scroll(CSize(0, 3 * kLineHeight + kLineHeight / 2 - 1)));
    EXPECT_EQ(list.GetTopIndex(), 3);
    EXPECT_TRUE(list.Scroll(CSize(0, kLineHeight / 2)));
    EXPECT_EQ(list.GetTopIndex(), 4);
    EXPECT_TRUE(list.Scroll(CSize(0, -2 * kLineHeight)));
    EXPECT_EQ(list.GetTopIndex(), 2);

    list.SetFocus();
    const CPoint inside = OnRow(3);
    Input::Wheel(&list, inside, -120);
    EXPECT_EQ(list.GetTopIndex(), 5);
    Input::Wheel(&list, inside, -60);  // half a notch waits for the other half
    EXPECT_EQ(list.GetTopIndex(), 5);
    Input::Wheel(&list, inside, -60);
    EXPECT_EQ(list.GetTopIndex(), 8);
    Input::Wheel(&list, inside, 240);
    EXPECT_EQ(list.GetTopIndex(), 2);
    Input::Wheel(&list, inside, 360);
    EXPECT_EQ(list.GetTopIndex(), 0);
}

TEST_F(ListGeometry, HorizontalScrollingMovesLinesAndHeaderTogether)
{
    Make(list_test::kGridStyle, 5);
    list.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LINEDOWN, 0));
    EXPECT_EQ(ItemRect(list, 0, LVIR_BOUNDS).left, -listview::kHorizontalLine);
    CRect header;
    list.GetHeaderCtrl()->GetWindowRect(&header);
    list.ScreenToClient(&header);
    EXPECT_EQ(header.left, -listview::kHorizontalLine);
    EXPECT_EQ(header.right, 300);
    EXPECT_EQ(header.Height(), kHeaderHeight);

    // The columns are 30 pixels wider than the client: no further than that.
    list.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    EXPECT_EQ(ItemRect(list, 0, LVIR_BOUNDS).left, -30);
    list.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 12));
    EXPECT_EQ(ItemRect(list, 0, LVIR_BOUNDS).left, -12);
    UINT flags = 0;
    EXPECT_EQ(list.HitTest(CPoint(100 - 12 + 1, 30), &flags), 0);
    LVHITTESTINFO info;
    info.pt = CPoint(100 - 12 + 1, 30);
    list.SubItemHitTest(&info);
    EXPECT_EQ(info.iSubItem, 1);

    // Narrower columns bring the view back.
    ASSERT_TRUE(list.SetColumnWidth(2, 100));
    EXPECT_EQ(ItemRect(list, 0, LVIR_BOUNDS).left, 0);
}

TEST_F(ListGeometry, ColumnsKeepHeadingWidthAndSubItem)
{
    Make();
    EXPECT_EQ(list.GetHeaderCtrl()->GetItemCount(), 3);
    char text[8] = {};
    LVCOLUMN column;
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM | LVCF_FMT;
    column.pszText = text;
    column.cchTextMax = 5;  // "Value" needs 6 bytes with its end
    ASSERT_TRUE(list.GetColumn(1, &column));
    EXPECT_STREQ(text, "Valu");
    EXPECT_EQ(column.cx, 80);
    EXPECT_EQ(column.iSubItem, 1);
    EXPECT_EQ(list.InsertColumn(7, "Far", LVCFMT_RIGHT, 40, 9), 3);  // past the end appends
    EXPECT_EQ(list.GetColumnWidth(3), 40);
    column.mask = LVCF_SUBITEM | LVCF_FMT;
    ASSERT_TRUE(list.GetColumn(3, &column));
    EXPECT_EQ(column.iSubItem, 9);
    EXPECT_EQ(column.fmt, LVCFMT_RIGHT);
    EXPECT_EQ(list.InsertColumn(-1, "Bad"), -1);
    EXPECT_EQ(list.InsertColumn(0, static_cast<const LVCOLUMN*>(nullptr)), -1);
    EXPECT_TRUE(list.DeleteColumn(0));
    EXPECT_FALSE(list.DeleteColumn(5));
    EXPECT_EQ(list.GetColumnWidth(0), 80);
    EXPECT_EQ(list.GetColumnWidth(9), 0);
    EXPECT_FALSE(list.SetColumnWidth(9, 10));
    // Fitting the heading of the last column also fills the client's width.
    ASSERT_TRUE(list.SetColumnWidth(2, LVSCW_AUTOSIZE_USEHEADER));
    EXPECT_EQ(list.GetColumnWidth(2), 300 - 80 - 150);
}
