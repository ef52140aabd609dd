// Row geometry, hit testing, scrolling and keyboard navigation.
#include <algorithm>

#include "platform/controls/tree_layout.h"
#include "platform/core/window_frame.h"
#include "platform/gdi/font.h"
#include "tree_test_support.h"

using tree_test::kImageCx;
using tree_test::kImageCy;
using tree_test::TreeFixture;

namespace {

constexpr DWORD kClassic = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT;

class TreeGeometry : public TreeFixture {
protected:
    UINT Flags(int x, int y)
    {
        UINT flags = 0xDEAD;
        tree.HitTest(CPoint(x, y), &flags);
        return flags;
    }
};

}  // namespace

TEST_F(TreeGeometry, ItemHeightFollowsFontAndImages)
{
    Make(kClassic);
    EXPECT_EQ(tree.GetIndent(), 19u);
    EXPECT_EQ(tree.GetItemHeight(), 16);  // 12 px font + 4
    CImageList images;
    tree_test::MakeImages(images, {RGB(255, 0, 0)});
    EXPECT_EQ(tree.SetImageList(&images, TVSIL_NORMAL), nullptr);
    ASSERT_NE(tree.GetImageList(TVSIL_NORMAL), nullptr);
    EXPECT_EQ(tree.GetImageList(TVSIL_NORMAL)->GetSafeHandle(), images.GetSafeHandle());
    EXPECT_EQ(tree.GetImageList(TVSIL_STATE), nullptr);
    EXPECT_EQ(tree.GetItemHeight(), kImageCy + 1);
    CFont big;
    big.CreatePointFont(180, "SimSun");  // 24 px
    tree.SetFont(&big);
    EXPECT_EQ(tree.GetItemHeight(), 28);
    CImageList* previous = tree.SetImageList(nullptr, TVSIL_NORMAL);
    ASSERT_NE(previous, nullptr);
    EXPECT_EQ(previous->GetSafeHandle(), images.GetSafeHandle());
    big.DeleteObject();  // a deleted font falls back to the default
    EXPECT_EQ(tree.GetItemHeight(), 16);
}

TEST_F(TreeGeometry, RowPartsAreLaidOutLeftToRight)
{
    Make(kClassic);
    CImageList images;
    tree_test::MakeImages(images, {RGB(255, 0, 0)});
    tree.SetImageList(&images, TVSIL_NORMAL);
    const HTREEITEM root = tree.InsertItem("root");
    const HTREEITEM child = tree.InsertItem("child", root);
    tree.Expand(root, TVE_EXPAND);

    // Root: its button column, the image, a 3-pixel gap, then the text with
    // 2 pixels either side (6 px per character).
    EXPECT_EQ(ItemRect(root, true), CRect(19 + kImageCx + 3, 0, 19 + kImageCx + 3 + 4 * 6 + 4, 18));
    EXPECT_EQ(ItemRect(child, true), CRect(38 + kImageCx + 3, 18, 38 + kImageCx + 3 + 5 * 6 + 4, 36));
    EXPECT_EQ(ItemRect(child, false), CRect(0, 18, 200, 36));

    // Without lines at root the roots start at the left edge.
    tree.ModifyStyle(TVS_LINESATROOT, 0);
    EXPECT_EQ(ItemRect(root, true).left, kImageCx + 3);
    tree.SetImageList(nullptr, TVSIL_NORMAL);
    EXPECT_EQ(ItemRect(root, true), CRect(0, 0, 28, 16));
}

TEST_F(TreeGeometry, HitTestNamesEachZone)
{
    Make(kClassic);
    CImageList images;
    tree_test::MakeImages(images, {RGB(255, 0, 0)});
    tree.SetImageList(&images, TVSIL_NORMAL);
    const HTREEITEM root = tree.InsertItem("root");
    const HTREEITEM child = tree.InsertItem("child", root);
    tree.Expand(root, TVE_EXPAND);

    for (HTREEITEM item : {root, child}) {
        const CRect label = ItemRect(item, true);
        const int y = label.CenterPoint().y;
        UINT flags = 0;
        EXPECT_EQ(tree.HitTest(CPoint(label.left, y), &flags), item);
        EXPECT_EQ(flags, TVHT_ONITEMLABEL);
        EXPECT_EQ(Flags(label.right - 1, y), TVHT_ONITEMLABEL);
        EXPECT_EQ(Flags(label.left - 1, y), TVHT_ONITEMICON);
        EXPECT_EQ(Flags(label.left - 3 - kImageCx, y), TVHT_ONITEMICON);
        EXPECT_EQ(tree.HitTest(CPoint(label.right, y), &flags), item);
        EXPECT_EQ(flags, TVHT_ONITEMRIGHT);
        EXPECT_EQ(Flags(199, y), TVHT_ONITEMRIGHT);
    }
    // The root's column holds its button; the child has none, so its columns
    // are indent.
    EXPECT_EQ(Flags(9, 9), TVHT_ONITEMBUTTON);
    EXPECT_EQ(Flags(0, 9), TVHT_ONITEMBUTTON);
    EXPECT_EQ(Flags(9, 27), TVHT_ONITEMINDENT);
    EXPECT_EQ(Flags(37, 27), TVHT_ONITEMINDENT);
    // Without the button style a button column is indent too.
    tree.ModifyStyle(TVS_HASBUTTONS, 0);
    EXPECT_EQ(Flags(9, 9), TVHT_ONITEMINDENT);

    UINT flags = 0;
    EXPECT_EQ(tree.HitTest(CPoint(50, 36), &flags), nullptr);
    EXPECT_EQ(flags, TVHT_NOWHERE);
    EXPECT_EQ(tree.HitTest(CPoint(-1, 5), &flags), nullptr);
    EXPECT_EQ(flags, TVHT_TOLEFT);
    EXPECT_EQ(tree.HitTest(CPoint(5, -1), &flags), nullptr);
    EXPECT_EQ(flags, TVHT_ABOVE);
    EXPECT_EQ(Flags(200, 5), TVHT_TORIGHT);
    EXPECT_EQ(Flags(5, 160), TVHT_BELOW);
    EXPECT_EQ(Flags(-3, 400), TVHT_TOLEFT | TVHT_BELOW);

    TVHITTESTINFO info;
    info.pt = CPoint(ItemRect(child, true).left + 2, 20);
    EXPECT_EQ(tree.HitTest(&info), child);
    EXPECT_EQ(info.hItem, child);
    EXPECT_EQ(info.flags, TVHT_ONITEMLABEL);

    // Full-row selection selects from the whole row but still names the zones.
    tree.ModifyStyle(0, TVS_FULLROWSELECT);
    EXPECT_EQ(Flags(199, 27), TVHT_ONITEMRIGHT);
    EXPECT_EQ(Flags(9, 27), TVHT_ONITEMINDENT);
    EXPECT_EQ(Flags(ItemRect(child, true).left, 27), TVHT_ONITEMLABEL);
}

TEST_F(TreeGeometry, StateImagesGetTheirOwnZone)
{
    Make(kClassic);
    CImageList states;
    tree_test::MakeImages(states, {RGB(0, 0, 0), RGB(0, 255, 0)});
    const HTREEITEM item = tree.InsertItem("item");
    EXPECT_EQ(Flags(25, 8), TVHT_ONITEMLABEL);  // no state images yet
    tree.SetImageList(&states, TVSIL_STATE);
    EXPECT_EQ(ItemRect(item, true).left, 19 + kImageCx);
    EXPECT_EQ(Flags(19, 8), TVHT_ONITEMSTATEICON);
    EXPECT_EQ(Flags(19 + kImageCx - 1, 8), TVHT_ONITEMSTATEICON);
    EXPECT_EQ(Flags(19 + kImageCx, 8), TVHT_ONITEMLABEL);
}

// ---------------------------------------------------------------- scrolling

namespace {

// 100 items in a window five rows high.
class TreeScrolling : public TreeFixture {
protected:
    // The vertical bar shows, and full rows end at it.
    static constexpr int kWidthBesideBar = 200 - kScrollBarSize;
    void SetUp() override
    {
        Make(kClassic, CRect(10, 10, 210, 90));
        items = Fill(100);
    }
    // Index of an item among the roots filled in; -1 for any other.
    int IndexOf(HTREEITEM handle) const
    {
        const auto at = std::find(items.begin(), items.end(), handle);
        return at == items.end() ? -1 : static_cast<int>(at - items.begin());
    }
    int FirstVisible() { return IndexOf(tree.GetFirstVisibleItem()); }
    int Selected() { return IndexOf(tree.GetSelectedItem()); }
    std::vector<HTREEITEM> items;
};

}  // namespace

TEST_F(TreeScrolling, KeysMoveTheCaretAndKeepItInView)
{
    EXPECT_EQ(tree.GetVisibleCount(), 5u);
    tree.SetFocus();
    Input::Key(VK_DOWN);  // no caret yet: the first row shown becomes it
    EXPECT_EQ(Selected(), 0);
    for (int i = 0; i < 10; ++i) Input::Key(VK_DOWN);
    EXPECT_EQ(Selected(), 10);
    EXPECT_EQ(FirstVisible(), 6);
    Input::Key(VK_END);
    EXPECT_EQ(Selected(), 99);
    EXPECT_EQ(FirstVisible(), 95);
    Input::Key(VK_DOWN);
    EXPECT_EQ(Selected(), 99);
    Input::Key(VK_PRIOR);
    EXPECT_EQ(Selected(), 95);
    EXPECT_EQ(FirstVisible(), 95);
    Input::Key(VK_PRIOR);
    EXPECT_EQ(Selected(), 91);
    EXPECT_EQ(FirstVisible(), 91);
    Input::Key(VK_HOME);
    EXPECT_EQ(Selected(), 0);
    EXPECT_EQ(FirstVisible(), 0);
    Input::Key(VK_NEXT);
    EXPECT_EQ(Selected(), 4);
    EXPECT_EQ(FirstVisible(), 0);
    Input::Key(VK_NEXT);
    EXPECT_EQ(Selected(), 8);
    EXPECT_EQ(FirstVisible(), 4);
    Input::Key(VK_UP);
    EXPECT_EQ(Selected(), 7);
    EXPECT_EQ(FirstVisible(), 4);
    // With Control the view moves and the caret stays.
    Input::Key(VK_DOWN, Input::kControl);
    EXPECT_EQ(Selected(), 7);
    EXPECT_EQ(FirstVisible(), 5);
    Input::Key(VK_END, Input::kControl);
    EXPECT_EQ(FirstVisible(), 95);
    EXPECT_EQ(Selected(), 7);
}

TEST_F(TreeScrolling, KeyNotificationsPrecedeTheSelectionChange)
{
    tree.SelectItem(items[3]);
    tree.SetFocus();
    parent.events.clear();
    Input::Key(VK_DOWN);
    ASSERT_EQ(parent.Codes(), (std::vector<UINT>{TVN_KEYDOWN, TVN_SELCHANGING, TVN_SELCHANGED}));
    EXPECT_EQ(parent.events[0].key, VK_DOWN);
    EXPECT_EQ(parent.events[1].action, TVC_BYKEYBOARD);
    EXPECT_EQ(parent.events[1].oldItem, items[3]);
    EXPECT_EQ(parent.events[1].newItem, items[4]);
    EXPECT_EQ(parent.events[2].newState & TVIS_SELECTED, TVIS_SELECTED);
    parent.events.clear();
    Input::Key(VK_RETURN);
    EXPECT_EQ(parent.Codes(), (std::vector<UINT>{TVN_KEYDOWN, NM_RETURN}));
    EXPECT_EQ(tree.SendMessage(WM_GETDLGCODE), static_cast<LRESULT>(DLGC_WANTARROWS | DLGC_WANTCHARS));
}

TEST_F(TreeScrolling, WheelAndScrollMessagesMoveTheView)
{
    tree.SetFocus();
    Input::Wheel(&tree, CPoint(20, 20), -120);
    EXPECT_EQ(FirstVisible(), 3);
    Input::Wheel(&tree, CPoint(20, 20), -60);
    EXPECT_EQ(FirstVisible(), 3);  // half a notch waits for the other half
    Input::Wheel(&tree, CPoint(20, 20), -60);
    EXPECT_EQ(FirstVisible(), 6);
    Input::Wheel(&tree, CPoint(20, 20), 240);
    EXPECT_EQ(FirstVisible(), 0);

    tree.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_BOTTOM, 0));
    EXPECT_EQ(FirstVisible(), 95);
    tree.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 0));  // already at the end
    EXPECT_EQ(FirstVisible(), 95);
    tree.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEUP, 0));
    EXPECT_EQ(FirstVisible(), 94);
    tree.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 10));
    EXPECT_EQ(FirstVisible(), 10);
    tree.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    EXPECT_EQ(FirstVisible(), 15);
    tree.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_TOP, 0));
    EXPECT_EQ(FirstVisible(), 0);
    EXPECT_TRUE(tree.Select(items[40], TVGN_FIRSTVISIBLE));
    EXPECT_EQ(FirstVisible(), 40);
    EXPECT_EQ(Selected(), -1);
    // Scrolled rows move the item rectangles and the hit test with them.
    EXPECT_EQ(ItemRect(items[41], false).top, 16);
    EXPECT_EQ(tree.HitTest(CPoint(20, 20)), items[41]);
}

TEST_F(TreeScrolling, TheFirstRowShownStaysWhileRowsChange)
{
    tree.Select(items[50], TVGN_FIRSTVISIBLE);
    tree.InsertItem("new first", TVI_ROOT, TVI_FIRST);
    EXPECT_EQ(FirstVisible(), 50);
    tree.DeleteItem(items[50]);
    EXPECT_EQ(FirstVisible(), 51);
    tree.DeleteItem(items[10]);
    EXPECT_EQ(FirstVisible(), 51);
    // Collapsing a parent of the first row shown brings the parent to the top.
    const HTREEITEM child = tree.InsertItem("child", items[60]);
    tree.Expand(items[60], TVE_EXPAND);
    tree.Select(child, TVGN_FIRSTVISIBLE);
    tree.Expand(items[60], TVE_COLLAPSE);
    EXPECT_EQ(FirstVisible(), 60);
    // Near the end the last page stays full, also when the window grows.
    tree.Select(items[99], TVGN_FIRSTVISIBLE);
    // 99 rows are left; row 94 holds items[95].
    EXPECT_EQ(FirstVisible(), 95);
    tree.MoveWindow(10, 10, 200, 160);
    EXPECT_EQ(FirstVisible(), 90);
}

TEST_F(TreeScrolling, CollapsingOnTheLastPageRepaintsEveryRow)
{
    for (int i = 0; i < 3; ++i) tree.InsertItem("child", items[99]);
    tree.Expand(items[99], TVE_EXPAND);
    tree.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_BOTTOM, 0));
    EXPECT_EQ(FirstVisible(), 98);
    Paint::UpdateAllWindows();
    CRect pending;
    ASSERT_FALSE(tree.GetUpdateRect(&pending));
    // items[99] is the second row; with its children gone the view pulls
    // back three rows, so the rows above it change too.
    tree.Expand(items[99], TVE_COLLAPSE);
    ASSERT_TRUE(tree.GetUpdateRect(&pending));
    EXPECT_EQ(pending, CRect(0, 0, kWidthBesideBar, 80));
    EXPECT_EQ(FirstVisible(), 95);
    // Expanding only adds rows below the item.
    tree.Select(items[90], TVGN_FIRSTVISIBLE);
    Paint::UpdateAllWindows();
    tree.Expand(items[92], TVE_EXPAND);  // a leaf: nothing happens
    EXPECT_FALSE(tree.GetUpdateRect(&pending));
    tree.InsertItem("child", items[92]);
    Paint::UpdateAllWindows();
    tree.Expand(items[92], TVE_EXPAND);
    ASSERT_TRUE(tree.GetUpdateRect(&pending));
    EXPECT_EQ(pending, CRect(0, 32, kWidthBesideBar, 80));
}

TEST_F(TreeScrolling, EnsureVisibleExpandsAndScrolls)
{
    const HTREEITEM outer = tree.InsertItem("outer", items[70]);
    const HTREEITEM inner = tree.InsertItem("inner", outer);
    parent.events.clear();
    EXPECT_TRUE(tree.EnsureVisible(inner));
    EXPECT_EQ(parent.Count(TVN_ITEMEXPANDED), 2);
    EXPECT_EQ(tree.GetItemState(items[70], TVIS_EXPANDED), TVIS_EXPANDED);
    EXPECT_EQ(tree.GetItemState(outer, TVIS_EXPANDED), TVIS_EXPANDED);
    const CRect row = ItemRect(inner, false);
    EXPECT_EQ(row, CRect(0, 64, kWidthBesideBar, 80));  // the bottom row
    EXPECT_TRUE(tree.EnsureVisible(items[0]));
    EXPECT_EQ(FirstVisible(), 0);
}

TEST_F(TreeScrolling, LeftRightAndKeypadKeysWalkTheHierarchy)
{
    const HTREEITEM folder = items[2];
    const HTREEITEM sub = tree.InsertItem("sub", folder);
    const HTREEITEM leaf = tree.InsertItem("leaf", sub);
    tree.SelectItem(folder);
    tree.SetFocus();
    Input::Key(VK_RIGHT);
    EXPECT_EQ(tree.GetItemState(folder, TVIS_EXPANDED), TVIS_EXPANDED);
    EXPECT_EQ(tree.GetSelectedItem(), folder);
    Input::Key(VK_RIGHT);
    EXPECT_EQ(tree.GetSelectedItem(), sub);
    Input::Key(VK_RIGHT);
    Input::Key(VK_RIGHT);
    EXPECT_EQ(tree.GetSelectedItem(), leaf);
    Input::Key(VK_RIGHT);  // a leaf: nothing to do
    EXPECT_EQ(tree.GetSelectedItem(), leaf);
    Input::Key(VK_LEFT);
    EXPECT_EQ(tree.GetSelectedItem(), sub);
    Input::Key(VK_LEFT);
    EXPECT_EQ(tree.GetItemState(sub, TVIS_EXPANDED), 0u);
    EXPECT_EQ(tree.GetSelectedItem(), sub);
    Input::Key(VK_BACK);
    EXPECT_EQ(tree.GetSelectedItem(), folder);
    Input::Key(VK_SUBTRACT);
    EXPECT_EQ(tree.GetItemState(folder, TVIS_EXPANDED), 0u);
    Input::Key(VK_MULTIPLY);
    EXPECT_EQ(tree.GetItemState(folder, TVIS_EXPANDED), TVIS_EXPANDED);
    EXPECT_EQ(tree.GetItemState(sub, TVIS_EXPANDED), TVIS_EXPANDED);
    Input::Key(VK_SUBTRACT);
    Input::Key(VK_ADD);
    EXPECT_EQ(tree.GetNextVisibleItem(folder), sub);
}

TEST_F(TreeFixture, ALongLabelScrollsSidewaysByDraggingTheThumb)
{
    Make(kClassic, CRect(10, 10, 210, 90));
    const HTREEITEM shortItem = tree.InsertItem("short");
    Paint::UpdateAllWindows();
    // Everything fits: no bars, the whole window is client.
    EXPECT_FALSE(tree.GetStyle() & (WS_HSCROLL | WS_VSCROLL));

    const HTREEITEM longItem = tree.InsertItem(std::string(60, 'w').c_str());
    Paint::UpdateAllWindows();
    ASSERT_TRUE(tree.GetStyle() & WS_HSCROLL);
    EXPECT_FALSE(tree.GetStyle() & WS_VSCROLL);  // two rows still fit above the bar
    CRect client;
    tree.GetClientRect(&client);
    EXPECT_EQ(client, CRect(0, 0, 200, 80 - kScrollBarSize));
    const CRect before = ItemRect(longItem, true);
    ASSERT_GT(before.right, client.right);

    // Drag the thumb from its place at the left all the way right.
    const CPoint grip(kScrollBarSize + 2, client.bottom + kScrollBarSize / 2);
    Input::MouseDown(&tree, grip);
    Input::MouseMove(&tree, CPoint(grip.x + 40, grip.y));
    Input::MouseMove(&tree, CPoint(grip.x + 1000, grip.y));
    Input::MouseUp(&tree, CPoint(grip.x + 1000, grip.y));
    const CRect after = ItemRect(longItem, true);
    EXPECT_EQ(after.right, client.right);  // the label's end shows at the edge
    EXPECT_EQ(after.Width(), before.Width());
    EXPECT_EQ(tree.GetScrollPos(SB_HORZ), before.right - client.right);
    // Hit testing and the other rows move with the view.
    TVHITTESTINFO hit;
    hit.pt = CPoint(client.right - 3, after.CenterPoint().y);
    EXPECT_EQ(tree.HitTest(&hit), longItem);
    EXPECT_TRUE(hit.flags & TVHT_ONITEMLABEL);
    EXPECT_EQ(ItemRect(shortItem, true).left, ItemRect(longItem, true).left);

    // The left arrow steps back; removing the long row ends the scrolling.
    Input::Wait();
    Input::Click(&tree, CPoint(3, grip.y));
    EXPECT_EQ(ItemRect(longItem, true).right, client.right + tree::kHorizontalLine);
    tree.DeleteItem(longItem);
    Paint::UpdateAllWindows();
    EXPECT_FALSE(tree.GetStyle() & WS_HSCROLL);
    EXPECT_EQ(tree.GetScrollPos(SB_HORZ), 0);
    EXPECT_GE(ItemRect(shortItem, true).left, 0);
}
