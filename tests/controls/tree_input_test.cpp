// Mouse, focus, type-ahead and the notifications the parent receives.
#include "platform/text/gbk.h"
#include "tree_test_support.h"

using tree_test::TreeFixture;

namespace {

constexpr DWORD kClassic = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT;

// "folder" (with "inside") and "file"; rows 16 px high, roots at x = 19.
class TreeMouse : public TreeFixture {
protected:
    void Build(DWORD style)
    {
        Make(style);
        folder = tree.InsertItem("folder");
        inside = tree.InsertItem("inside", folder);
        file = tree.InsertItem("file");
    }
    CPoint OnLabel(HTREEITEM item) { return ItemRect(item, true).CenterPoint(); }

    HTREEITEM folder = nullptr;
    HTREEITEM inside = nullptr;
    HTREEITEM file = nullptr;
};

}  // namespace

TEST_F(TreeMouse, ClickOnLabelSelectsAndNotifiesInOrder)
{
    Build(kClassic);
    Input::Click(&tree, OnLabel(file));
    EXPECT_EQ(CWnd::GetFocus(), &tree);
    EXPECT_EQ(tree.GetSelectedItem(), file);
    ASSERT_EQ(parent.Codes(), (std::vector<UINT>{NM_SETFOCUS, TVN_SELCHANGING, TVN_SELCHANGED, NM_CLICK}));
    for (const tree_test::Event& e : parent.events) {
        EXPECT_EQ(e.from, tree.GetSafeHwnd());
        EXPECT_EQ(e.id, tree_test::kTreeId);
    }
    EXPECT_EQ(parent.events[1].action, TVC_BYMOUSE);
    EXPECT_EQ(parent.events[1].oldItem, nullptr);
    EXPECT_EQ(parent.events[1].newItem, file);
    EXPECT_EQ(tree.GetItemState(file, TVIS_SELECTED), TVIS_SELECTED);
    parent.SetFocus();
    EXPECT_EQ(parent.Codes().back(), NM_KILLFOCUS);

    // Another item: the old one loses the selected state.
    Input::Wait();
    parent.events.clear();
    Input::Click(&tree, OnLabel(folder));
    EXPECT_EQ(tree.GetSelectedItem(), folder);
    EXPECT_EQ(tree.GetItemState(file, TVIS_SELECTED), 0u);
    ASSERT_NE(parent.Last(TVN_SELCHANGING), nullptr);
    EXPECT_EQ(parent.Last(TVN_SELCHANGING)->oldItem, file);
}

TEST_F(TreeMouse, ClickAwayFromItemsKeepsTheSelection)
{
    Build(kClassic);
    tree.SelectItem(file);
    parent.events.clear();
    Input::Click(&tree, CPoint(100, 120));  // below the last row
    EXPECT_EQ(tree.GetSelectedItem(), file);
    Input::Wait();
    Input::Click(&tree, CPoint(150, 8));  // right of the folder's label
    EXPECT_EQ(tree.GetSelectedItem(), file);
    Input::Wait();
    Input::Click(&tree, CPoint(2, 24));  // left of the file, in its indent
    EXPECT_EQ(tree.GetSelectedItem(), file);
    EXPECT_EQ(parent.Count(TVN_SELCHANGING), 0);
    EXPECT_EQ(parent.Count(NM_CLICK), 3);
}

TEST_F(TreeMouse, FullRowSelectSelectsFromAnywhereInTheRow)
{
    Build(kClassic | TVS_FULLROWSELECT);
    Input::Click(&tree, CPoint(150, 24));  // far right of "file", the second row
    EXPECT_EQ(tree.GetSelectedItem(), file);
    Input::Wait();
    Input::Click(&tree, CPoint(150, 120));  // no row there
    EXPECT_EQ(tree.GetSelectedItem(), file);
}

TEST_F(TreeMouse, ButtonTogglesWithoutSelecting)
{
    Build(kClassic);
    tree.SelectItem(file);
    parent.events.clear();
    const int middle = ItemRect(folder, false).CenterPoint().y;
    Input::Click(&tree, CPoint(9, middle));
    EXPECT_EQ(tree.GetItemState(folder, TVIS_EXPANDED), TVIS_EXPANDED);
    EXPECT_EQ(tree.GetSelectedItem(), file);
    EXPECT_EQ(parent.Codes(), (std::vector<UINT>{NM_SETFOCUS, TVN_ITEMEXPANDING, TVN_ITEMEXPANDED, NM_CLICK}));
    Input::Wait();
    Input::Click(&tree, CPoint(9, middle));
    EXPECT_EQ(tree.GetItemState(folder, TVIS_EXPANDED), 0u);
}

TEST_F(TreeMouse, ParentCanVetoTheSelection)
{
    Build(kClassic);
    tree.SelectItem(folder);
    parent.answers[TVN_SELCHANGING] = TRUE;
    parent.events.clear();
    Input::Click(&tree, OnLabel(file));
    EXPECT_EQ(tree.GetSelectedItem(), folder);
    EXPECT_EQ(parent.Count(TVN_SELCHANGED), 0);
    EXPECT_FALSE(tree.SelectItem(file));
    EXPECT_FALSE(tree.SelectItem(nullptr));
    parent.answers.clear();
    EXPECT_TRUE(tree.SelectItem(nullptr));
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    EXPECT_EQ(tree.GetItemState(folder, TVIS_SELECTED), 0u);
}

TEST_F(TreeMouse, DoubleClickTogglesUnlessTheParentTakesIt)
{
    Build(kClassic);
    Input::DoubleClick(&tree, OnLabel(folder));
    EXPECT_EQ(tree.GetItemState(folder, TVIS_EXPANDED), TVIS_EXPANDED);
    EXPECT_EQ(parent.Count(NM_DBLCLK), 1);
    EXPECT_EQ(parent.Count(NM_CLICK), 1);  // the double click's own release is no click

    parent.answers[NM_DBLCLK] = 1;
    Input::DoubleClick(&tree, OnLabel(folder));
    EXPECT_EQ(tree.GetItemState(folder, TVIS_EXPANDED), TVIS_EXPANDED);
    EXPECT_EQ(parent.Count(NM_DBLCLK), 2);

    // A leaf has nothing to toggle.
    parent.answers.clear();
    Input::DoubleClick(&tree, OnLabel(file));
    EXPECT_EQ(tree.GetItemState(file, TVIS_EXPANDED), 0u);
    EXPECT_EQ(tree.GetSelectedItem(), file);
}

TEST_F(TreeMouse, RightClickAsksTheParentThenTheContextMenu)
{
    Build(kClassic);
    const CPoint at = OnLabel(file);
    Input::RightClick(&tree, at);
    EXPECT_EQ(CWnd::GetFocus(), &tree);
    ASSERT_EQ(parent.Codes(), (std::vector<UINT>{NM_SETFOCUS, NM_RCLICK, 0}));
    const tree_test::Event& menu = parent.events[2];
    EXPECT_EQ(menu.message, WM_CONTEXTMENU);
    EXPECT_EQ(menu.from, tree.GetSafeHwnd());
    POINT screen = at;
    tree.ClientToScreen(&screen);
    EXPECT_EQ(CPoint(menu.point), CPoint(screen));

    parent.answers[NM_RCLICK] = 1;
    parent.events.clear();
    Input::RightClick(&tree, at);
    EXPECT_EQ(parent.Codes(), (std::vector<UINT>{NM_RCLICK}));
}

TEST_F(TreeMouse, DeletingTheCaretMovesTheSelection)
{
    Build(kClassic);
    const HTREEITEM last = tree.InsertItem("last");
    tree.SelectItem(file);
    parent.events.clear();
    tree.DeleteItem(file);
    EXPECT_EQ(tree.GetSelectedItem(), last);  // the next sibling
    const tree_test::Event* changed = parent.Last(TVN_SELCHANGED);
    ASSERT_NE(changed, nullptr);
    EXPECT_EQ(changed->action, TVC_UNKNOWN);
    tree.DeleteItem(last);
    EXPECT_EQ(tree.GetSelectedItem(), folder);  // the previous one
    tree.SelectItem(inside);
    tree.DeleteItem(inside);
    EXPECT_EQ(tree.GetSelectedItem(), folder);  // the parent
    // Deleting an ancestor of the caret moves it out of the subtree too.
    const HTREEITEM deep = tree.InsertItem("deep", tree.InsertItem("mid", folder));
    tree.SelectItem(deep);
    tree.DeleteItem(folder);
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    EXPECT_EQ(tree.GetCount(), 0u);
}

TEST_F(TreeMouse, HandlersMayDestroyTheTreeOrItsItems)
{
    Build(kClassic);
    // The handler deletes the item being selected.
    parent.onNotify = [&](const NMHDR& header) {
        if (header.code == TVN_SELCHANGING) tree.DeleteItem(file);
    };
    EXPECT_FALSE(tree.SelectItem(file));
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    EXPECT_EQ(tree.GetCount(), 2u);

    // The handler destroys the whole control in the middle of a click.
    parent.onNotify = [&](const NMHDR& header) {
        if (header.code == TVN_ITEMEXPANDING) tree.DestroyWindow();
    };
    Input::Click(&tree, CPoint(9, 8));
    EXPECT_FALSE(IsWindow(tree.GetSafeHwnd()));
    EXPECT_EQ(tree.GetCount(), 0u);
    EXPECT_EQ(tree.GetItemText(folder), "");
}

TEST_F(TreeMouse, HotTrackingFollowsTheMouse)
{
    Build(kClassic | TVS_TRACKSELECT);
    Paint::UpdateAllWindows();
    const CRect label = ItemRect(file, true);
    const std::uint32_t hot = Sys(COLOR_HOTLIGHT);
    EXPECT_EQ(Count(hot, label), 0);
    Input::MouseMove(&tree, label.CenterPoint());
    const int hotInk = Count(hot, label);
    EXPECT_GT(hotInk, 0);
    EXPECT_EQ(Count(Sys(COLOR_WINDOWTEXT), label), 0);
    // Underlined: one pixel row below the text is ink all along the text.
    bool underline = false;
    for (int y = label.top; y < label.bottom && !underline; ++y) {
        underline = true;
        for (int x = label.left + 2; x < label.right - 2 && underline; ++x) underline = Pixel(x, y) == hot;
    }
    EXPECT_TRUE(underline);
    Input::MouseMove(&tree, CPoint(150, 120));
    EXPECT_EQ(Count(hot, label), 0);
}

// ---------------------------------------------------------------- type-ahead

namespace {

class TreeTypeAhead : public TreeFixture {
protected:
    void SetUp() override
    {
        Make(kClassic);
        for (const char* text : {"apple", "Banana", "blueberry", "cherry", "bean"}) items.push_back(tree.InsertItem(text));
        chinese = tree.InsertItem(GBK(u8"中文").c_str());
        china = tree.InsertItem(GBK(u8"中国").c_str());
        tree.SetFocus();
    }
    std::vector<HTREEITEM> items;
    HTREEITEM chinese = nullptr;
    HTREEITEM china = nullptr;
};

}  // namespace

TEST_F(TreeTypeAhead, TypedTextSelectsTheNextMatch)
{
    Input::Type("b");
    EXPECT_EQ(tree.GetSelectedItem(), items[1]);  // Banana: letters fold
    Input::Type("l");
    EXPECT_EQ(tree.GetSelectedItem(), items[2]);  // "bl"
    Input::Type("x");
    EXPECT_EQ(tree.GetSelectedItem(), items[2]);  // no match: stays
    const tree_test::Event* changed = parent.Last(TVN_SELCHANGED);
    ASSERT_NE(changed, nullptr);
    EXPECT_EQ(changed->action, TVC_BYKEYBOARD);

    Input::Key(VK_HOME);  // a non-character key starts a new search
    Input::Type("C");
    EXPECT_EQ(tree.GetSelectedItem(), items[3]);

    // The parent's nonzero answer to the key keeps its character out.
    Input::Key(VK_HOME);
    parent.answers[TVN_KEYDOWN] = 1;
    Input::Type("c");
    EXPECT_EQ(tree.GetSelectedItem(), items[0]);
    parent.answers.clear();
    Input::Type("c");
    EXPECT_EQ(tree.GetSelectedItem(), items[3]);
}

TEST_F(TreeTypeAhead, RepeatingACharacterCyclesAndWraps)
{
    tree.SelectItem(items[2]);
    Input::Type("b");
    EXPECT_EQ(tree.GetSelectedItem(), items[4]);  // after the caret
    Input::Type("b");
    EXPECT_EQ(tree.GetSelectedItem(), items[1]);  // wrapped round
    Input::Type("b");
    EXPECT_EQ(tree.GetSelectedItem(), items[2]);
    Input::Wait();
    Input::Click(&tree, CPoint(150, 150));  // a click also ends the run
    Input::Type("a");
    EXPECT_EQ(tree.GetSelectedItem(), items[0]);
}

TEST_F(TreeTypeAhead, DoubleByteCharactersMatchWhole)
{
    Input::Type(GBK(u8"中"));
    EXPECT_EQ(tree.GetSelectedItem(), chinese);
    Input::Type(GBK(u8"国"));
    EXPECT_EQ(tree.GetSelectedItem(), china);
    // The second byte of a double-byte character is not a letter to fold.
    const HTREEITEM trap = tree.InsertItem("\xB0\x41");
    tree.SelectItem(items[0]);
    Input::Key(VK_ESCAPE);
    Input::Type("\xB0\x61");
    EXPECT_EQ(tree.GetSelectedItem(), items[0]);
    Input::Key(VK_ESCAPE);
    Input::Type("\xB0\x41");
    EXPECT_EQ(tree.GetSelectedItem(), trap);
}
