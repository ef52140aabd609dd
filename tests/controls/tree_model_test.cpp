// The tree's items: insertion order, relations, deletion, handles that no
// longer name an item, and the item data messages.
#include <chrono>
#include <cstring>

#include "platform/core/message_spy.h"
#include "platform/text/gbk.h"
#include "tree_test_support.h"

using tree_test::TreeFixture;

namespace {

class TreeModel : public TreeFixture {
protected:
    void SetUp() override { Make(TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT); }

    std::vector<std::string> RootTexts()
    {
        std::vector<std::string> texts;
        for (HTREEITEM h = tree.GetRootItem(); h; h = tree.GetNextSiblingItem(h)) texts.push_back(tree.GetItemText(h).str());
        return texts;
    }
};

}  // namespace

TEST_F(TreeModel, InsertPositionsAndSiblingLinks)
{
    const HTREEITEM a = tree.InsertItem("a");
    const HTREEITEM b = tree.InsertItem("b");
    const HTREEITEM c = tree.InsertItem("c", TVI_ROOT, TVI_FIRST);
    const HTREEITEM d = tree.InsertItem("d", TVI_ROOT, a);
    const HTREEITEM e = tree.InsertItem("e", TVI_ROOT, b);  // after the last one: becomes last
    EXPECT_EQ(RootTexts(), (std::vector<std::string>{"c", "a", "d", "b", "e"}));
    EXPECT_EQ(tree.GetCount(), 5u);
    EXPECT_EQ(tree.GetPrevSiblingItem(c), nullptr);
    EXPECT_EQ(tree.GetPrevSiblingItem(d), a);
    EXPECT_EQ(tree.GetPrevSiblingItem(e), b);
    EXPECT_EQ(tree.GetNextSiblingItem(e), nullptr);
    EXPECT_EQ(tree.GetChildItem(nullptr), c);
    EXPECT_EQ(tree.GetChildItem(TVI_ROOT), c);
    EXPECT_EQ(tree.GetParentItem(c), nullptr);

    const HTREEITEM x = tree.InsertItem("x", a);
    const HTREEITEM y = tree.InsertItem("y", a, TVI_FIRST);
    EXPECT_EQ(tree.GetChildItem(a), y);
    EXPECT_EQ(tree.GetNextSiblingItem(y), x);
    EXPECT_EQ(tree.GetParentItem(x), a);
    EXPECT_TRUE(tree.ItemHasChildren(a));
    EXPECT_FALSE(tree.ItemHasChildren(x));
    EXPECT_EQ(tree.GetCount(), 7u);
}

TEST_F(TreeModel, InsertRejectsBadParentAndPosition)
{
    const HTREEITEM a = tree.InsertItem("a");
    const HTREEITEM child = tree.InsertItem("child", a);
    const HTREEITEM b = tree.InsertItem("b");
    // `after` must be a child of the parent given.
    EXPECT_EQ(tree.InsertItem("z", b, child), nullptr);
    EXPECT_EQ(tree.InsertItem("z", TVI_ROOT, child), nullptr);
    tree.DeleteItem(b);
    EXPECT_EQ(tree.InsertItem("z", b), nullptr);
    EXPECT_EQ(tree.InsertItem("z", TVI_ROOT, b), nullptr);
    EXPECT_EQ(tree.InsertItem(reinterpret_cast<const TVINSERTSTRUCT*>(0)), nullptr);
    EXPECT_EQ(tree.GetCount(), 2u);
}

TEST_F(TreeModel, DeleteRemovesSubtreeAndKeepsNeighboursLinked)
{
    const auto roots = Fill(3);
    const HTREEITEM child = tree.InsertItem("child", roots[1]);
    const HTREEITEM grandchild = tree.InsertItem("grandchild", child);
    EXPECT_EQ(tree.GetCount(), 5u);
    tree.Expand(roots[1], TVE_EXPAND);
    EXPECT_EQ(tree.HitTest(CPoint(50, 40)), child);  // the grandchild stays hidden
    EXPECT_EQ(tree.HitTest(CPoint(30, 40 + 16)), roots[2]);
    EXPECT_TRUE(tree.DeleteItem(roots[1]));
    EXPECT_EQ(tree.GetCount(), 2u);
    EXPECT_EQ(tree.HitTest(CPoint(30, 24)), roots[2]);
    EXPECT_EQ(tree.HitTest(CPoint(30, 40)), nullptr);
    EXPECT_EQ(tree.GetNextSiblingItem(roots[0]), roots[2]);
    EXPECT_EQ(tree.GetPrevSiblingItem(roots[2]), roots[0]);
    for (HTREEITEM gone : {roots[1], child, grandchild}) {
        EXPECT_EQ(tree.GetItemText(gone), "");
        EXPECT_FALSE(tree.SetItemText(gone, "again"));
        EXPECT_FALSE(tree.DeleteItem(gone));
    }
    // Deleting the last child leaves a parent without children.
    const HTREEITEM only = tree.InsertItem("only", roots[0]);
    EXPECT_TRUE(tree.DeleteItem(only));
    EXPECT_FALSE(tree.ItemHasChildren(roots[0]));
    const HTREEITEM again = tree.InsertItem("again", roots[0]);
    EXPECT_EQ(tree.GetChildItem(roots[0]), again);
    EXPECT_EQ(tree.GetNextSiblingItem(again), nullptr);
}

TEST_F(TreeModel, StaleAndForeignHandlesFailWithoutEffect)
{
    const HTREEITEM keep = tree.InsertItem("keep");
    const HTREEITEM gone = tree.InsertItem("gone");
    tree.DeleteItem(gone);
    const HTREEITEM reuse = tree.InsertItem("reuse");  // likely takes the freed place
    EXPECT_NE(reuse, gone);

    CTreeCtrl other;
    ASSERT_TRUE(other.Create(WS_CHILD | WS_VISIBLE, CRect(220, 10, 390, 100), &parent, 2));
    const HTREEITEM foreign = other.InsertItem("foreign");
    other.InsertItem("foreign 2");

    const HTREEITEM bogus = reinterpret_cast<HTREEITEM>(static_cast<std::uintptr_t>(0x12345));
    for (HTREEITEM bad : {gone, foreign, bogus, TVI_FIRST, TVI_LAST}) {
        TVITEM item;
        item.mask = TVIF_TEXT | TVIF_PARAM;
        item.hItem = bad;
        char buffer[8] = "intact";
        item.pszText = buffer;
        item.cchTextMax = sizeof buffer;
        EXPECT_FALSE(tree.GetItem(&item));
        EXPECT_STREQ(buffer, "intact");
        EXPECT_FALSE(tree.SetItem(&item));
        EXPECT_FALSE(tree.SetItemData(bad, 7));
        EXPECT_EQ(tree.GetItemData(bad), 0u);
        EXPECT_FALSE(tree.Expand(bad, TVE_EXPAND));
        EXPECT_FALSE(tree.SelectItem(bad));
        EXPECT_FALSE(tree.EnsureVisible(bad));
        EXPECT_FALSE(tree.DeleteItem(bad));
        CRect rect;
        EXPECT_FALSE(tree.GetItemRect(bad, &rect, TRUE));
        EXPECT_EQ(tree.GetNextSiblingItem(bad), nullptr);
        EXPECT_EQ(tree.GetNextItem(bad, TVGN_NEXTVISIBLE), nullptr);
        EXPECT_EQ(tree.InsertItem("child", bad), nullptr);
        TreeItemPeek peek;
        peek.data = 42;
        EXPECT_FALSE(tree.PeekItem(bad, peek));
        EXPECT_EQ(peek.data, 42);
    }
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    EXPECT_EQ(tree.GetCount(), 2u);
    EXPECT_EQ(tree.GetItemText(keep), "keep");
    EXPECT_EQ(other.GetItemText(foreign), "foreign");
    EXPECT_FALSE(tree.GetItem(nullptr));
    EXPECT_FALSE(tree.GetItemRect(keep, nullptr, FALSE));
    EXPECT_EQ(tree.HitTest(nullptr), nullptr);
}

TEST_F(TreeModel, DeleteAllInvalidatesEveryOldHandle)
{
    const auto old = Fill(4);
    tree.SelectItem(old[2]);
    EXPECT_TRUE(tree.DeleteAllItems());
    EXPECT_EQ(tree.GetCount(), 0u);
    EXPECT_EQ(tree.GetRootItem(), nullptr);
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    const auto fresh = Fill(4);
    for (HTREEITEM h : old) EXPECT_EQ(tree.GetItemText(h), "");
    EXPECT_EQ(tree.GetItemText(fresh[3]), "item 3");
}

TEST_F(TreeModel, VisibleRelationsFollowExpansion)
{
    const HTREEITEM a = tree.InsertItem("a");
    const HTREEITEM a1 = tree.InsertItem("a1", a);
    const HTREEITEM a2 = tree.InsertItem("a2", a);
    const HTREEITEM a21 = tree.InsertItem("a21", a2);
    const HTREEITEM b = tree.InsertItem("b");

    EXPECT_EQ(tree.GetNextVisibleItem(a), b);
    EXPECT_EQ(tree.GetNextItem(nullptr, TVGN_LASTVISIBLE), b);
    EXPECT_EQ(tree.GetNextVisibleItem(a1), nullptr);  // hidden items have no visible neighbours
    EXPECT_FALSE(tree.GetItemRect(a1, CRect(), FALSE));

    tree.Expand(a, TVE_EXPAND);
    tree.Expand(a2, TVE_EXPAND);
    EXPECT_EQ(tree.GetNextVisibleItem(a), a1);
    EXPECT_EQ(tree.GetNextVisibleItem(a1), a2);
    EXPECT_EQ(tree.GetNextVisibleItem(a2), a21);
    EXPECT_EQ(tree.GetNextVisibleItem(a21), b);
    EXPECT_EQ(tree.GetPrevVisibleItem(b), a21);
    EXPECT_EQ(tree.GetPrevVisibleItem(a1), a);
    EXPECT_EQ(tree.GetPrevVisibleItem(a), nullptr);
    EXPECT_EQ(tree.GetFirstVisibleItem(), a);
    EXPECT_EQ(tree.GetItemState(a, TVIS_EXPANDED), TVIS_EXPANDED);

    tree.Expand(a, TVE_TOGGLE);
    EXPECT_EQ(tree.GetItemState(a, TVIS_EXPANDED), 0u);
    EXPECT_EQ(tree.GetItemState(a2, TVIS_EXPANDED), TVIS_EXPANDED);  // inner state is kept
    EXPECT_EQ(tree.GetNextVisibleItem(a), b);
    EXPECT_EQ(tree.GetNextItem(nullptr, TVGN_LASTVISIBLE), b);
    EXPECT_FALSE(tree.Expand(b, TVE_EXPAND));  // nothing to expand

    // Rows follow insertions under an open parent, and ignore them under a closed one.
    tree.Expand(a, TVE_EXPAND);
    EXPECT_EQ(tree.HitTest(CPoint(45, 4 * 16 + 8)), b);
    tree.InsertItem("hidden", a1);
    const HTREEITEM a3 = tree.InsertItem("a3", a);
    EXPECT_EQ(tree.HitTest(CPoint(45, 4 * 16 + 8)), a3);
    EXPECT_EQ(ItemRect(a3, false).top, 4 * 16);
    EXPECT_EQ(ItemRect(b, false).top, 5 * 16);
}

TEST_F(TreeModel, ExpansionNotifiesAndCanBeVetoed)
{
    const HTREEITEM a = tree.InsertItem("a");
    const HTREEITEM child = tree.InsertItem("child", a);
    parent.answers[TVN_ITEMEXPANDING] = TRUE;
    EXPECT_FALSE(tree.Expand(a, TVE_EXPAND));
    EXPECT_EQ(tree.GetItemState(a, TVIS_EXPANDED), 0u);
    EXPECT_EQ(parent.Count(TVN_ITEMEXPANDED), 0);

    parent.answers.clear();
    parent.events.clear();
    EXPECT_TRUE(tree.Expand(a, TVE_EXPAND));
    ASSERT_EQ(parent.Codes(), (std::vector<UINT>{TVN_ITEMEXPANDING, TVN_ITEMEXPANDED}));
    EXPECT_EQ(parent.events[0].action, TVE_EXPAND);
    EXPECT_EQ(parent.events[0].newItem, a);
    EXPECT_EQ(parent.events[0].newState & TVIS_EXPANDED, 0u);
    EXPECT_EQ(parent.events[1].newState & TVIS_EXPANDED, TVIS_EXPANDED);

    // Collapsing around the caret moves the caret to the collapsed item.
    tree.SelectItem(child);
    parent.events.clear();
    EXPECT_TRUE(tree.Expand(a, TVE_COLLAPSE));
    EXPECT_EQ(tree.GetSelectedItem(), a);
    const tree_test::Event* changed = parent.Last(TVN_SELCHANGED);
    ASSERT_NE(changed, nullptr);
    EXPECT_EQ(changed->action, TVC_UNKNOWN);
    EXPECT_EQ(changed->oldItem, child);
}

TEST_F(TreeModel, ChildrenCanBeAddedWhileExpanding)
{
    // A button before there are children: filled in when the user opens it.
    const HTREEITEM lazy = tree.InsertItem(TVIF_TEXT | TVIF_CHILDREN, "lazy", 0, 0, 0, 0, 0, TVI_ROOT, TVI_LAST);
    TVITEM probe;
    probe.mask = TVIF_CHILDREN;
    probe.hItem = lazy;
    ASSERT_TRUE(tree.GetItem(&probe));
    EXPECT_EQ(probe.cChildren, 0);

    TVINSERTSTRUCT insert;
    insert.hParent = TVI_ROOT;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_CHILDREN;
    insert.item.pszText = const_cast<char*>("folder");
    insert.item.cChildren = 1;
    const HTREEITEM folder = tree.InsertItem(&insert);
    probe.hItem = folder;
    ASSERT_TRUE(tree.GetItem(&probe));
    EXPECT_EQ(probe.cChildren, 1);

    parent.onNotify = [&](const NMHDR& header) {
        if (header.code == TVN_ITEMEXPANDING) tree.InsertItem("loaded", folder);
    };
    EXPECT_TRUE(tree.Expand(folder, TVE_EXPAND));
    const HTREEITEM loaded = tree.GetChildItem(folder);
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(tree.GetNextVisibleItem(folder), loaded);
}

TEST_F(TreeModel, GetItemCopiesTextWithinTheBuffer)
{
    const std::string chinese = GBK(u8"中文a");  // 2 + 2 + 1 bytes
    const HTREEITEM h = tree.InsertItem(chinese.c_str());
    struct Case {
        int size;
        std::string expected;
    };
    const std::vector<Case> cases = {
        {1, ""}, {2, ""}, {3, chinese.substr(0, 2)}, {4, chinese.substr(0, 2)}, {5, chinese.substr(0, 4)}, {6, chinese}, {7, chinese},
    };
    for (const Case& c : cases) {
        char buffer[16];
        std::memset(buffer, 'X', sizeof buffer);
        TVITEM item;
        item.mask = TVIF_TEXT;
        item.hItem = h;
        item.pszText = buffer;
        item.cchTextMax = c.size;
        ASSERT_TRUE(tree.GetItem(&item)) << c.size;
        EXPECT_EQ(std::string(buffer), c.expected) << c.size;
        for (int i = c.size; i < static_cast<int>(sizeof buffer); ++i) EXPECT_EQ(buffer[i], 'X') << "byte " << i << " of size " << c.size;
    }
    // No buffer, or no room: nothing is written and nothing breaks.
    TVITEM item;
    item.mask = TVIF_TEXT | TVIF_PARAM;
    item.hItem = h;
    item.pszText = nullptr;
    item.cchTextMax = 100;
    EXPECT_TRUE(tree.GetItem(&item));
    char untouched[2] = {'Q', 'Q'};
    item.pszText = untouched;
    item.cchTextMax = 0;
    EXPECT_TRUE(tree.GetItem(&item));
    item.cchTextMax = -5;
    EXPECT_TRUE(tree.GetItem(&item));
    EXPECT_EQ(untouched[0], 'Q');
}

TEST_F(TreeModel, GetItemTextReturnsLongTextWhole)
{
    std::string text;
    for (int i = 0; text.size() < 100000; ++i) text += GBK(u8"长") + std::to_string(i);
    const HTREEITEM h = tree.InsertItem(text.c_str());
    EXPECT_EQ(tree.GetItemText(h).str(), text);
    // A double-byte character straddling the end of the first buffer tried.
    const std::string edge = std::string(254, 'a') + GBK(u8"字");
    tree.SetItemText(h, edge.c_str());
    EXPECT_EQ(tree.GetItemText(h).str(), edge);
}

TEST_F(TreeModel, PeekReadsWhatTheMessagesReadWithoutSendingAny)
{
    const HTREEITEM first = tree.InsertItem(GBK(u8"第一").c_str(), 3, 4);
    const HTREEITEM child = tree.InsertItem("child", first);
    const HTREEITEM second = tree.InsertItem("second");
    tree.SetItemData(first, 0xFEED);
    MessageSpy::Counter gets(tree.GetSafeHwnd(), TVM_GETITEM);
    MessageSpy::Counter walks(tree.GetSafeHwnd(), TVM_GETNEXTITEM);

    TreeItemPeek peek;
    ASSERT_TRUE(tree.PeekItem(first, peek));
    EXPECT_EQ(peek.text, GBK(u8"第一"));
    EXPECT_EQ(peek.data, 0xFEED);
    EXPECT_EQ(peek.image, 3);
    EXPECT_EQ(peek.selectedImage, 4);
    EXPECT_EQ(peek.nextSibling, second);  // the sibling, not the child
    ASSERT_TRUE(tree.PeekItem(child, peek));
    EXPECT_EQ(peek.nextSibling, nullptr);
    ASSERT_TRUE(tree.PeekItem(second, peek));
    EXPECT_EQ(peek.nextSibling, nullptr);
    EXPECT_EQ(gets.Count() + walks.Count(), 0);

    // A renamed item shows its new text; a deleted one is no longer found.
    tree.SetItemText(first, "renamed");
    ASSERT_TRUE(tree.PeekItem(first, peek));
    EXPECT_EQ(peek.text, "renamed");
    tree.DeleteItem(second);
    EXPECT_FALSE(tree.PeekItem(second, peek));
    ASSERT_TRUE(tree.PeekItem(first, peek));
    EXPECT_EQ(peek.nextSibling, nullptr);
}

TEST_F(TreeModel, SetItemChangesWhatTheMaskNames)
{
    const HTREEITEM h = tree.InsertItem("x", 1, 2);
    MessageSpy::Counter setItems(tree.GetSafeHwnd(), TVM_SETITEM);
    EXPECT_TRUE(tree.SetItemText(h, "renamed"));
    EXPECT_EQ(setItems.Count(), 1);
    EXPECT_TRUE(tree.SetItemData(h, 0xBEEF));
    EXPECT_TRUE(tree.SetItemImage(h, 5, 6));
    EXPECT_EQ(setItems.Count(), 3);
    EXPECT_EQ(tree.GetItemText(h), "renamed");
    EXPECT_EQ(tree.GetItemData(h), 0xBEEFu);
    int image = 0, selected = 0;
    EXPECT_TRUE(tree.GetItemImage(h, image, selected));
    EXPECT_EQ(image, 5);
    EXPECT_EQ(selected, 6);

    // Only the state bits in the mask change, and a state change is no
    // expansion by the user: nothing is notified.
    const HTREEITEM child = tree.InsertItem("child", h);
    TVITEM item;
    item.mask = TVIF_STATE;
    item.hItem = h;
    item.state = TVIS_EXPANDED | 0x0100;
    item.stateMask = TVIS_EXPANDED;
    parent.events.clear();
    ASSERT_TRUE(tree.SetItem(&item));
    EXPECT_EQ(tree.GetItemState(h, 0xFFFF), TVIS_EXPANDED);
    EXPECT_EQ(tree.GetNextVisibleItem(h), child);
    EXPECT_TRUE(parent.events.empty());
    EXPECT_EQ(tree.GetItemText(h), "renamed");
    EXPECT_TRUE(tree.SetItemText(h, nullptr));
    EXPECT_EQ(tree.GetItemText(h), "");
}

TEST_F(TreeModel, LargeTreeOperationsStayCheap)
{
    // Each operation here must not walk the whole tree; at 100,000 items a
    // walk per operation would take minutes.
    const auto start = std::chrono::steady_clock::now();
    constexpr int kCount = 100000;
    const HTREEITEM folder = tree.InsertItem("folder");
    tree.Expand(folder, TVE_EXPAND);
    std::vector<HTREEITEM> items;
    items.reserve(kCount);
    for (int i = 0; i < kCount; ++i) items.push_back(tree.InsertItem("x", folder));
    tree.Expand(folder, TVE_EXPAND);
    EXPECT_EQ(tree.GetCount(), static_cast<UINT>(kCount + 1));
    EXPECT_TRUE(tree.EnsureVisible(items.back()));
    EXPECT_EQ(tree.HitTest(CPoint(50, 150)), items.back());
    for (int i = 0; i < kCount; ++i) {
        tree.SetItemText(items[static_cast<size_t>(i)], "y");
        tree.SetItemData(items[static_cast<size_t>(i)], static_cast<DWORD_PTR>(i));
        if (i + 1 < kCount) {
            ASSERT_EQ(tree.GetNextSiblingItem(items[static_cast<size_t>(i)]), items[static_cast<size_t>(i) + 1]);
        }
    }
    Paint::UpdateAllWindows();
    EXPECT_EQ(tree.GetNextItem(nullptr, TVGN_LASTVISIBLE), items.back());
    for (int i = 0; i < kCount; i += 2) ASSERT_TRUE(tree.DeleteItem(items[static_cast<size_t>(i)]));
    EXPECT_EQ(tree.GetCount(), static_cast<UINT>(kCount / 2 + 1));
    EXPECT_EQ(tree.GetChildItem(folder), items[1]);
    EXPECT_EQ(tree.GetItemData(items[kCount - 1]), static_cast<DWORD_PTR>(kCount - 1));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}
