// Fixed-height owner drawing: the line height asked of the owner at
// creation, and one WM_DRAWITEM per line shown, reaching DrawItem.
#include <set>

#include "list_ctrl_test_support.h"

using list_test::DrawnList;
using list_test::kHeaderHeight;
using list_test::kLineHeight;
using list_test::kListArea;
using list_test::kListId;
using list_test::kPage;
using list_test::ListFixture;

namespace {

class ListOwnerDraw : public ListFixture {
protected:
    // Paints everything again and returns the lines drawn.
    std::vector<DRAWITEMSTRUCT> Repaint()
    {
        list.drawn.clear();
        list.Invalidate();
        Paint::UpdateAllWindows();
        return list.drawn;
    }
};

}  // namespace

TEST_F(ListOwnerDraw, CreationAsksTheOwnerForTheLineHeightOnce)
{
    Make();
    ASSERT_EQ(parent.CountMessage(WM_MEASUREITEM), 1);
    const list_test::Event& asked = parent.events.front();
    EXPECT_EQ(asked.message, static_cast<UINT>(WM_MEASUREITEM));
    EXPECT_EQ(asked.code, ODT_LISTVIEW);
    EXPECT_EQ(asked.item, static_cast<int>(kListId));
    EXPECT_EQ(asked.width, kLineHeight);  // the height proposed
    // Left unhandled by the parent, it reached the list's own MeasureItem.
    EXPECT_EQ(list.measureCalls, 1);
    EXPECT_EQ(list.GetCountPerPage(), kPage);
}

TEST_F(ListOwnerDraw, TheHeightMeasuredSetsTheLines)
{
    list.measureAnswer = 24;
    Make(list_test::kGridStyle, 100);
    CRect rect;
    ASSERT_TRUE(list.GetItemRect(2, &rect, LVIR_BOUNDS));
    EXPECT_EQ(rect, CRect(0, kHeaderHeight + 48, 330, kHeaderHeight + 72));
    EXPECT_EQ(list.GetCountPerPage(), (180 - kScrollBarSize) / 24);  // under the header, above the bar
}

TEST_F(ListOwnerDraw, AParentThatMeasuresKeepsTheListsMeasureItemOut)
{
    parent.measuredHeight = 20;
    Make(list_test::kGridStyle, 10);
    EXPECT_EQ(list.measureCalls, 0);
    CRect rect;
    ASSERT_TRUE(list.GetItemRect(1, &rect, LVIR_BOUNDS));
    EXPECT_EQ(rect.Height(), 20);
}

TEST_F(ListOwnerDraw, ANewFontKeepsTheMeasuredHeightANewSizeAsksAgain)
{
    parent.measuredHeight = 20;
    Make(list_test::kGridStyle, 10);
    CFont big;
    ASSERT_TRUE(big.CreatePointFont(200, "Big"));
    parent.measuredHeight = 30;
    list.SetFont(&big);
    EXPECT_EQ(parent.CountMessage(WM_MEASUREITEM), 1);
    CRect rect;
    ASSERT_TRUE(list.GetItemRect(1, &rect, LVIR_BOUNDS));
    EXPECT_EQ(rect.Height(), 20);

    list.MoveWindow(kListArea.left, kListArea.top, kListArea.Width(), kListArea.Height() + 10);
    EXPECT_EQ(parent.CountMessage(WM_MEASUREITEM), 2);
    ASSERT_TRUE(list.GetItemRect(1, &rect, LVIR_BOUNDS));
    EXPECT_EQ(rect.Height(), 30);
}

TEST_F(ListOwnerDraw, EachLineShownIsDrawnOnceAndNothingPastTheCount)
{
    Make(list_test::kGridStyle, 5);
    const auto drawn = Repaint();
    ASSERT_EQ(drawn.size(), 5u);
    for (UINT i = 0; i < 5; ++i) {
        const DRAWITEMSTRUCT& d = drawn[i];
        EXPECT_EQ(d.itemID, i);
        EXPECT_EQ(d.CtlType, ODT_LISTVIEW);
        EXPECT_EQ(d.CtlID, kListId);
        EXPECT_EQ(d.itemAction, ODA_DRAWENTIRE);
        EXPECT_EQ(d.itemState, 0u);
        EXPECT_EQ(d.hwndItem, list.GetSafeHwnd());
        EXPECT_NE(d.hDC, nullptr);
        CRect bounds;
        ASSERT_TRUE(list.GetItemRect(static_cast<int>(i), &bounds, LVIR_BOUNDS));
        EXPECT_EQ(CRect(d.rcItem), bounds);
    }
    // What DrawItem painted is on screen; below the last line is background.
    EXPECT_EQ(Pixel(50, kHeaderHeight + 2 * kLineHeight + 3), Color(DrawnList::ColorOf(2)));
    EXPECT_EQ(Pixel(50, kHeaderHeight + 5 * kLineHeight + 3), Color(GetSysColor(COLOR_WINDOW)));
}

TEST_F(ListOwnerDraw, AFullListDrawsOnlyThePageIncludingTheCutLine)
{
    Make(list_test::kGridStyle, 10000);
    auto drawn = Repaint();
    ASSERT_EQ(drawn.size(), static_cast<size_t>(kPage + 1));
    EXPECT_EQ(drawn.back().itemID, static_cast<UINT>(kPage));

    list.EnsureVisible(9999, FALSE);
    drawn = Repaint();
    ASSERT_EQ(drawn.size(), static_cast<size_t>(kPage));
    std::set<UINT> ids;
    for (const auto& d : drawn) ids.insert(d.itemID);
    EXPECT_EQ(*ids.begin(), static_cast<UINT>(10000 - kPage));
    EXPECT_EQ(*ids.rbegin(), 9999u);
    EXPECT_EQ(ids.size(), drawn.size());
}

TEST_F(ListOwnerDraw, ItemStateCarriesSelectionAndFocus)
{
    Make(list_test::kGridStyle, 6);
    list.SetItemState(2, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    auto drawn = Repaint();
    ASSERT_EQ(drawn.size(), 6u);
    // Without the keyboard focus: selection shows (LVS_SHOWSELALWAYS), the focus mark does not.
    EXPECT_EQ(drawn[2].itemState, static_cast<UINT>(ODS_SELECTED));
    EXPECT_EQ(drawn[1].itemState, 0u);

    list.SetFocus();
    drawn = Repaint();
    ASSERT_EQ(drawn.size(), 6u);
    EXPECT_EQ(drawn[2].itemState, static_cast<UINT>(ODS_SELECTED | ODS_FOCUS));
    EXPECT_EQ(drawn[3].itemState, 0u);
}

TEST_F(ListOwnerDraw, SelectionHidesWithoutFocusUnlessAlwaysShown)
{
    Make(LVS_REPORT | LVS_OWNERDATA | LVS_OWNERDRAWFIXED | LVS_SINGLESEL, 3);
    list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    auto drawn = Repaint();
    ASSERT_EQ(drawn.size(), 3u);
    EXPECT_EQ(drawn[1].itemState, 0u);
    list.SetFocus();
    drawn = Repaint();
    ASSERT_EQ(drawn.size(), 3u);
    EXPECT_EQ(drawn[1].itemState, static_cast<UINT>(ODS_SELECTED));
}

TEST_F(ListOwnerDraw, RedrawItemsRepaintsOnlyTheLinesNamed)
{
    Make(list_test::kGridStyle, 10);
    list.drawn.clear();
    ASSERT_TRUE(list.RedrawItems(3, 4));
    Paint::UpdateAllWindows();
    ASSERT_EQ(list.drawn.size(), 2u);
    EXPECT_EQ(list.drawn[0].itemID, 3u);
    EXPECT_EQ(list.drawn[1].itemID, 4u);
    // A selection change redraws the lines it touches, no others.
    list.drawn.clear();
    list.SetItemState(7, LVIS_SELECTED, LVIS_SELECTED);
    Paint::UpdateAllWindows();
    ASSERT_EQ(list.drawn.size(), 1u);
    EXPECT_EQ(list.drawn[0].itemID, 7u);
}

namespace {

std::vector<UINT> Ids(const std::vector<DRAWITEMSTRUCT>& drawn)
{
    std::vector<UINT> ids;
    for (const DRAWITEMSTRUCT& d : drawn) ids.push_back(d.itemID);
    return ids;
}

}  // namespace

TEST_F(ListOwnerDraw, RedrawItemsKeepsToTheLinesShown)
{
    Make(list_test::kGridStyle, 100);
    list.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 10));
    Paint::UpdateAllWindows();
    ASSERT_EQ(list.GetTopIndex(), 10);
    // Lines 10 to 20 show above the horizontal bar, the last one cut off.
    list.drawn.clear();
    ASSERT_TRUE(list.RedrawItems(0, 1000));
    Paint::UpdateAllWindows();
    std::vector<UINT> shown;
    for (UINT i = 10; i <= 20; ++i) shown.push_back(i);
    EXPECT_EQ(Ids(list.drawn), shown);
    list.drawn.clear();
    ASSERT_TRUE(list.RedrawItems(19, 30));
    Paint::UpdateAllWindows();
    EXPECT_EQ(Ids(list.drawn), (std::vector<UINT>{19, 20}));
    list.drawn.clear();
    ASSERT_TRUE(list.RedrawItems(2, 9));  // all above the page
    Paint::UpdateAllWindows();
    EXPECT_TRUE(list.drawn.empty());
}

TEST_F(ListOwnerDraw, ACountChangeWithoutInvalidatingAllRedrawsOnlyTheLinesThatChange)
{
    Make(list_test::kGridStyle, 5);
    list.drawn.clear();
    ASSERT_TRUE(list.SetItemCountEx(8, LVSICF_NOINVALIDATEALL));
    Paint::UpdateAllWindows();
    EXPECT_EQ(Ids(list.drawn), (std::vector<UINT>{5, 6, 7}));
    // Lines that go are cleared, with nothing left to draw on them.
    list.drawn.clear();
    ASSERT_TRUE(list.SetItemCountEx(6, LVSICF_NOINVALIDATEALL));
    Paint::UpdateAllWindows();
    EXPECT_TRUE(list.drawn.empty());
    EXPECT_EQ(Pixel(50, kHeaderHeight + 5 * kLineHeight + 3), Color(DrawnList::ColorOf(5)));
    EXPECT_EQ(Pixel(50, kHeaderHeight + 6 * kLineHeight + 3), Color(GetSysColor(COLOR_WINDOW)));
    // Without the flag every line is drawn again.
    list.drawn.clear();
    ASSERT_TRUE(list.SetItemCountEx(7, 0));
    Paint::UpdateAllWindows();
    EXPECT_EQ(Ids(list.drawn), (std::vector<UINT>{0, 1, 2, 3, 4, 5, 6}));
}

TEST_F(ListOwnerDraw, AParentThatDrawsKeepsTheListsDrawItemOut)
{
    parent.handleDrawItem = true;
    Make(list_test::kGridStyle, 4);
    parent.events.clear();
    const auto drawn = Repaint();
    EXPECT_TRUE(drawn.empty());
    EXPECT_EQ(parent.CountMessage(WM_DRAWITEM), 4);
}
