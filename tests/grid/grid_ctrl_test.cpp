// The grid control: lines over the row tree, expanding and collapsing, the
// current cell, keys, typed characters and clicks.
#include <cstring>
#include <memory>

#include "tests/grid/test_grid.h"

namespace {

using GridCtrlTest = GridFixture;

TEST_F(GridCtrlTest, CreatesHiddenEditorsAndMeasuresLinesWithTheSystemFont)
{
    EXPECT_FALSE(Editing());
    EXPECT_FALSE(Listing());
    EXPECT_EQ(grid.EditBox().GetDlgCtrlID(), 1020);
    EXPECT_EQ(grid.ComboBox().GetDlgCtrlID(), 1021);
    ASSERT_EQ(grid.ComboBox().GetCount(), 3);
    CString item;
    grid.ComboBox().GetLBText(2, item);
    EXPECT_STREQ(item, "HEX");

    AddRow("a");
    SyncCount();
    CRect bounds;
    ASSERT_TRUE(grid.GetItemRect(0, &bounds, LVIR_BOUNDS));
    EXPECT_EQ(bounds.Height(), 16);  // the system font's height, not the grid font's 12
    ASSERT_NE(grid.GetFont(), nullptr);
    EXPECT_EQ(grid.GetFont()->GetSafeHandle(), grid.GetGridFont()->GetSafeHandle());
}

TEST_F(GridCtrlTest, IsCreatableByItsClassName)
{
    std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("CGridCtrl"));
    ASSERT_NE(object, nullptr);
    ASSERT_TRUE(object->IsKindOf(RUNTIME_CLASS(CBCGPListCtrl)));
    auto* made = static_cast<CGridCtrl*>(object.get());
    ASSERT_TRUE(made->Create(kGridStyle, CRect(0, 0, 200, 100), &other, 102));
    EXPECT_EQ(made->EditBox().GetDlgCtrlID(), 1020);
    // The base grid finds no rows of its own.
    EXPECT_EQ(made->GetRowAt(0), nullptr);
}

// A pane that answers the list's height request through the grid, as the
// watch pane does.
class MeasuringPane : public TestPane {
public:
    CGridCtrl* grid = nullptr;
    int asked = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_MEASUREITEM && grid) {
            ++asked;
            grid->MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
            return TRUE;
        }
        return TestPane::WindowProc(message, wParam, lParam);
    }
};

TEST_F(GridCtrlTest, APaneMeasuringThroughTheGridIsAskedOnceAfterTheFontExists)
{
    MeasuringPane measuring;
    TestGrid measured;
    measuring.grid = &measured;
    ASSERT_TRUE(measuring.CreatePane(&host, CRect(0, 0, 300, 200)));
    ASSERT_TRUE(measured.Create(kGridStyle, CRect(0, 0, 300, 200), &measuring, 101));
    // Setting the grid font from inside the answer asks no more.
    EXPECT_EQ(measuring.asked, 1);
    ASSERT_NE(measured.GetFont(), nullptr);
    EXPECT_EQ(measured.GetFont()->GetSafeHandle(), measured.GetGridFont()->GetSafeHandle());
    measured.InsertColumn(0, "Name", LVCFMT_LEFT, 100);
    measured.SetItemCount(2);
    CRect line;
    ASSERT_TRUE(measured.GetItemRect(1, &line, LVIR_BOUNDS));
    EXPECT_EQ(line.Height(), 16);
}

TEST_F(GridCtrlTest, RowsAreFoundInDisplayOrderAndMissingLinesGiveNone)
{
    CGridRow* a = AddRow("a");
    CGridRow* b = AddRow("b");
    auto* child = new CGridRow;
    child->parent = a;
    child->level = 1;
    a->children.AddRow(child);
    a->SetFlags(GRF_PARENT | GRF_EXPANDED);
    SyncCount();
    EXPECT_EQ(grid.GetItemCount(), 3);
    EXPECT_EQ(grid.GetRowAt(0), a);
    EXPECT_EQ(grid.GetRowAt(1), child);
    EXPECT_EQ(grid.GetRowAt(2), b);
    EXPECT_EQ(grid.GetRowAt(3), nullptr);
    EXPECT_EQ(grid.GetRowAt(-1), nullptr);
    EXPECT_EQ(grid.GetSelectedRow(), nullptr);
    grid.SelectItem(1);
    EXPECT_EQ(grid.GetSelectedRow(), child);

    EXPECT_TRUE(grid.DeleteAllRows());
    EXPECT_EQ(grid.GetItemCount(), 0);
    EXPECT_EQ(grid.Rows().GetSize(), 0);
}

// A tree far deeper than the call stack could follow: a chain of rows, each
// the only child of the one above, all expanded.
TEST_F(GridCtrlTest, AVeryDeepChainIsCountedWalkedCopiedAndFreed)
{
    constexpr int kDepth = 200000;
    CGridRow* top = AddRow("top");
    CGridRow* deepest = top;
    for (int level = 1; level < kDepth; ++level) {
        deepest->SetFlags(GRF_PARENT | GRF_EXPANDED);
        auto* child = new CGridRow;
        child->parent = deepest;
        child->level = static_cast<std::uint32_t>(level);
        deepest->children.AddRow(child);
        deepest = child;
    }
    deepest->text = "deepest";
    deepest->record = new GridRowRecord{};
    deepest->record->bytes[0] = std::byte{42};
    AddRow("after");
    SyncCount();
    EXPECT_EQ(grid.GetItemCount(), kDepth + 1);
    EXPECT_EQ(grid.GetRowAt(kDepth - 1), deepest);
    ASSERT_NE(grid.GetRowAt(kDepth), nullptr);
    EXPECT_STREQ(grid.GetRowAt(kDepth)->text, "after");
    EXPECT_EQ(grid.GetRowAt(kDepth + 1), nullptr);

    // Collapsed halfway down: the lines below it go.
    CGridRow* middle = grid.GetRowAt(kDepth / 2);
    ASSERT_NE(middle, nullptr);
    EXPECT_EQ(middle->Level(), (kDepth / 2) & 0xFF);
    middle->SetFlags(GRF_PARENT | GRF_COLLAPSED);
    EXPECT_EQ(grid.CountVisibleRows(grid.Rows()), kDepth / 2 + 2);
    EXPECT_STREQ(grid.GetRowAt(kDepth / 2 + 1)->text, "after");
    middle->SetFlags(GRF_PARENT | GRF_EXPANDED);

    auto copy = std::make_unique<CGridRow>(*top);
    int depth = 1;
    int wrong = 0;  // copied rows with a wrong parent or level, or shared with the source
    const CGridRow* row = copy.get();
    for (const CGridRow* source = top; row->children.GetSize() > 0; ++depth) {
        const CGridRow* child = row->children.GetRow(0);
        source = source->children.GetRow(0);
        wrong += child->parent != row || child->level != source->level || child == source;
        row = child;
    }
    EXPECT_EQ(depth, kDepth);
    EXPECT_EQ(wrong, 0);
    EXPECT_STREQ(row->text, "deepest");
    ASSERT_NE(row->record, nullptr);
    EXPECT_NE(row->record, deepest->record);
    EXPECT_EQ(row->record->bytes[0], std::byte{42});

    EXPECT_TRUE(grid.DeleteAllRows());
    EXPECT_EQ(grid.GetItemCount(), 0);
    EXPECT_EQ(grid.Rows().GetSize(), 0);
    copy.reset();
}

TEST_F(GridCtrlTest, ExpandAsksForChildrenOnceAndCountsTheirLines)
{
    CGridRow* a = AddRow("a");
    AddRow("b");
    a->SetFlags(GRF_PARENT | GRF_COLLAPSED);
    SyncCount();
    grid.childrenToMake = 3;
    grid.childFlags = GRF_SUBPARENT | GRF_EXPANDED;  // put back to collapsed on expand
    grid.ToggleExpand(0);
    EXPECT_EQ(grid.fills, 1);
    EXPECT_EQ(a->Flags() & (GRF_EXPANDED | GRF_COLLAPSED), GRF_EXPANDED);
    EXPECT_EQ(grid.GetItemCount(), 5);
    ASSERT_EQ(grid.updates.size(), 3u);
    EXPECT_FALSE(grid.updates[0].second);  // just created
    for (int i = 0; i < 3; ++i) EXPECT_EQ(a->children.GetRow(i)->Flags() & (GRF_EXPANDED | GRF_COLLAPSED), GRF_COLLAPSED);

    grid.ToggleExpand(0);  // collapse
    EXPECT_EQ(grid.GetItemCount(), 2);
    EXPECT_EQ(a->Flags() & (GRF_EXPANDED | GRF_COLLAPSED), GRF_COLLAPSED);

    grid.updates.clear();
    grid.ToggleExpand(0);  // children exist: no request, refreshed
    EXPECT_EQ(grid.fills, 1);
    ASSERT_EQ(grid.updates.size(), 3u);
    EXPECT_TRUE(grid.updates[0].second);
    EXPECT_EQ(grid.updates[0].first, a->children.GetRow(0));
    EXPECT_EQ(grid.GetItemCount(), 5);
}

TEST_F(GridCtrlTest, ExpandReCollapsesSubParentsWithTheirGrandchildren)
{
    CGridRow* a = AddRow("a");
    a->SetFlags(GRF_PARENT | GRF_COLLAPSED);
    auto* sub = new CGridRow;
    sub->parent = a;
    sub->level = 1;
    sub->SetFlags(GRF_SUBPARENT | GRF_EXPANDED);
    for (int i = 0; i < 4; ++i) {
        auto* grandchild = new CGridRow;
        grandchild->parent = sub;
        grandchild->level = 2;
        sub->children.AddRow(grandchild);
    }
    a->children.AddRow(sub);
    SyncCount();
    grid.ToggleExpand(0);
    EXPECT_EQ(grid.GetItemCount(), 2);  // the sub-parent's four lines are gone
    EXPECT_TRUE(sub->Flags() & GRF_COLLAPSED);
}

TEST_F(GridCtrlTest, ExpandWithoutChildrenOrFlagLeavesTheCount)
{
    CGridRow* a = AddRow("a");
    CGridRow* plain = AddRow("plain");
    a->SetFlags(GRF_SUBPARENT | GRF_COLLAPSED);
    SyncCount();
    grid.ToggleExpand(0);  // the derived class makes none
    EXPECT_EQ(grid.fills, 1);
    EXPECT_TRUE(a->Flags() & GRF_EXPANDED);
    EXPECT_EQ(grid.GetItemCount(), 2);
    grid.ToggleExpand(1);  // no children flag: nothing at all
    grid.ExpandRow(plain, 1);
    grid.CollapseRow(plain, 1);
    EXPECT_EQ(grid.fills, 1);
    EXPECT_EQ(plain->Flags(), GRF_CREATED);
    grid.ToggleExpand(7);  // no row there
    grid.AdjustItemCount(TRUE, 3);
    EXPECT_EQ(grid.GetItemCount(), 5);
    grid.AdjustItemCount(FALSE, 3);
    EXPECT_EQ(grid.GetItemCount(), 2);
}

TEST_F(GridCtrlTest, LeftAndRightMoveTheCurrentColumnWithinTheHeader)
{
    AddRow("a");
    AddRow("b");
    SyncCount();
    grid.SetFocus();
    Input::Key(VK_RIGHT);  // nothing selected
    EXPECT_EQ(grid.GetCurrentColumn(), 0);
    grid.SelectItem(0);
    Input::Key(VK_LEFT);
    EXPECT_EQ(grid.GetCurrentColumn(), 0);
    Input::Key(VK_RIGHT);
    Input::Key(VK_RIGHT);
    Input::Key(VK_RIGHT);
    EXPECT_EQ(grid.GetCurrentColumn(), 2);
    Input::Key(VK_DOWN);
    EXPECT_EQ(grid.GetSelectedItem(), 1);
    EXPECT_EQ(grid.GetCurrentColumn(), 2);
    EXPECT_EQ(pane.inputs, 6);  // one for each key the grid handled
}

TEST_F(GridCtrlTest, HookKeysReachTheDerivedClassEvenWhileEditing)
{
    AddRow("a");
    AddRow("b");
    SyncCount();
    grid.SetFocus();
    grid.SelectItem(0);
    Input::Key(VK_INSERT);
    Input::Key(VK_DELETE);
    Input::Key(VK_UP, Input::kShift);
    Input::Key(VK_DOWN, Input::kShift);
    EXPECT_EQ(grid.inserts, 1);
    EXPECT_EQ(grid.deletes, 1);
    EXPECT_EQ(grid.moveUps, 1);
    EXPECT_EQ(grid.moveDowns, 1);
    EXPECT_EQ(grid.GetSelectedItem(), 0);  // Shift+Down did not move the selection

    Input::Key(VK_RETURN);
    ASSERT_TRUE(Editing());
    Input::Key(VK_UP, Input::kShift);
    EXPECT_EQ(grid.moveUps, 2);

    grid.m_menuLoop = TRUE;  // a menu loop: Shift+Up is left alone
    Input::Key(VK_UP, Input::kShift);
    EXPECT_EQ(grid.moveUps, 2);
}

TEST_F(GridCtrlTest, TypingStartsEditingOnlyWhereTheCellAcceptsTheCharacter)
{
    AddRow("a");
    AddRow("b");
    SyncCount();
    grid.SetFocus();
    grid.SelectItem(0);
    Input::Key(VK_RIGHT);  // the number cell
    Input::Type("a");
    EXPECT_FALSE(Editing());
    Input::Type("A");
    ASSERT_TRUE(Editing());
    EXPECT_STREQ(grid.GetEditText(), "A");
    EXPECT_EQ(CWnd::GetFocus(), &grid.EditBox());
    Input::Type("7");
    EXPECT_STREQ(grid.GetEditText(), "A7");
}

TEST_F(GridCtrlTest, TypingWithoutSelectionPicksTheLastLineUnlessFixed)
{
    AddRow("a");
    AddRow("b");
    SyncCount();
    grid.SetFocus();
    grid.fixedRows = TRUE;
    Input::Type("x");
    EXPECT_EQ(grid.GetSelectedItem(), -1);
    grid.fixedRows = FALSE;
    Input::Type("x");
    EXPECT_EQ(grid.GetSelectedItem(), 1);
    EXPECT_EQ(grid.GetCurrentColumn(), 0);
    ASSERT_TRUE(Editing());
    EXPECT_STREQ(grid.GetEditText(), "x");
}

TEST_F(GridCtrlTest, ControlLettersOnlyPasteAndShowInMemory)
{
    AddRow("a");
    SyncCount();
    grid.SetFocus();
    grid.SelectItem(0);
    Input::Key('K', Input::kControl);
    EXPECT_FALSE(Editing());
    Input::Key('M', Input::kControl);
    EXPECT_EQ(grid.showInMemory, 1);
    EXPECT_FALSE(Editing());

    grid.EditBox().SetWindowText("clip");  // put text on the clipboard through the edit box
    grid.EditBox().SetSel(0, -1);
    grid.EditBox().Copy();
    grid.EditBox().SetWindowText("");
    Input::Key('V', Input::kControl);
    ASSERT_TRUE(Editing());
    EXPECT_STREQ(grid.GetEditText(), "clip");
    int start = 0, end = 0;
    grid.EditBox().GetSel(start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 4);
}

TEST_F(GridCtrlTest, ClicksSelectThenMoveColumnThenEdit)
{
    AddRow("a");
    AddRow("b");
    SyncCount();
    ClickCell(1, 0);
    EXPECT_EQ(grid.GetSelectedItem(), 1);
    EXPECT_FALSE(Editing());
    ClickCell(0, 1);  // another column: moves the current cell, selects the line
    EXPECT_EQ(grid.GetCurrentColumn(), 1);
    EXPECT_EQ(grid.GetSelectedItem(), 0);
    EXPECT_FALSE(Editing());
    ClickCell(0, 1);  // the current cell again: edits
    ASSERT_TRUE(Editing());
    EXPECT_STREQ(grid.GetEditText(), "12");

    Input::Wait();
    Input::RightClick(&grid, CellCentre(1, 2));
    EXPECT_EQ(grid.GetCurrentColumn(), 2);
    EXPECT_EQ(grid.GetSelectedItem(), 1);
}

TEST_F(GridCtrlTest, ClickOnTheExpandZoneTogglesWithoutEditing)
{
    CGridRow* a = AddRow("a");
    a->SetFlags(GRF_PARENT | GRF_COLLAPSED);
    AddRow("b");
    SyncCount();
    grid.childrenToMake = 2;
    ClickCell(0, 0);
    EXPECT_EQ(grid.GetSelectedItem(), 0);
    Input::Wait();
    Input::Click(&grid, ExpandPoint(0));
    EXPECT_FALSE(Editing());
    EXPECT_EQ(grid.GetItemCount(), 4);
    Input::Wait();
    Input::Click(&grid, ExpandPoint(0));
    EXPECT_EQ(grid.GetItemCount(), 2);
    EXPECT_FALSE(Editing());
}

TEST_F(GridCtrlTest, DoubleClickEditsAndTellsTheParent)
{
    AddRow("a");
    SyncCount();
    Input::Wait();
    Input::DoubleClick(&grid, CellCentre(0, 0));  // the first click selects the line
    EXPECT_TRUE(Editing());
    EXPECT_STREQ(grid.GetEditText(), "a");
    EXPECT_EQ(pane.inputs, 1);
}

}  // namespace
