// Rows, cells and row arrays: links, ownership, copies and the cell setters.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "grid/grid_row.h"

namespace {

CGridRow* NewRow(const char* text, std::uint32_t level = 0)
{
    auto* row = new CGridRow;
    row->text = text;
    row->level = level;
    return row;
}

// Texts of the array's rows, and checks that every link matches its neighbours.
std::vector<std::string> TextsAndCheckLinks(const CGridRowArray& rows)
{
    std::vector<std::string> texts;
    for (int i = 0; i < rows.GetSize(); ++i) {
        const CGridRow* row = rows.GetRow(i);
        EXPECT_EQ(row->prev, rows.GetRow(i - 1)) << "previous link of row " << i;
        EXPECT_EQ(row->next, rows.GetRow(i + 1)) << "next link of row " << i;
        texts.emplace_back(static_cast<const char*>(row->text));
    }
    return texts;
}

using Texts = std::vector<std::string>;

TEST(GridRowArray, AddInsertAndRemoveKeepNeighboursLinked)
{
    CGridRowArray rows;
    rows.AddRow(NewRow("a"));
    rows.AddRow(NewRow("c"));
    rows.InsertRow(1, NewRow("b"));
    rows.InsertRow(0, NewRow("first"));
    rows.InsertRow(4, NewRow("last"));  // at the end: linked as AddRow does
    EXPECT_EQ(TextsAndCheckLinks(rows), (Texts{"first", "a", "b", "c", "last"}));

    CGridRow* middle = rows.GetRow(2);
    rows.RemoveRow(2);
    EXPECT_EQ(TextsAndCheckLinks(rows), (Texts{"first", "a", "c", "last"}));
    const std::unique_ptr<CGridRow> last(rows.GetRow(3));  // removed rows are not freed
    rows.RemoveRow(3);  // the last one: the new last row has no next row
    EXPECT_EQ(TextsAndCheckLinks(rows), (Texts{"first", "a", "c"}));
    rows.RemoveRow(3);  // past the end: nothing
    rows.RemoveRow(-1);
    EXPECT_EQ(rows.GetSize(), 3);

    // Removed rows are not freed; they can be added again.
    rows.InsertRow(0, middle);
    EXPECT_EQ(TextsAndCheckLinks(rows), (Texts{"b", "first", "a", "c"}));
}

TEST(GridRowArray, DeleteRowsStopsAtTheEnd)
{
    CGridRowArray rows;
    for (const char* t : {"a", "b", "c", "d", "e"}) rows.AddRow(NewRow(t));
    rows.GetRow(2)->record = new GridRowRecord{};
    rows.DeleteRows(5, 1);  // at the size: nothing
    rows.DeleteRows(9, 3);
    EXPECT_EQ(rows.GetSize(), 5);
    rows.DeleteRows(1, 2);
    EXPECT_EQ(TextsAndCheckLinks(rows), (Texts{"a", "d", "e"}));
    rows.DeleteRows(1, 100);
    EXPECT_EQ(TextsAndCheckLinks(rows), (Texts{"a"}));
    rows.DeleteAll();
    EXPECT_EQ(rows.GetSize(), 0);
}

TEST(GridRow, ResetEmptiesCellsAndChildrenOnly)
{
    CGridRowArray siblings;
    siblings.AddRow(NewRow("before"));
    CGridRow* row = NewRow("expr", 3);
    siblings.AddRow(row);
    EXPECT_EQ(row->Flags(), GRF_CREATED);
    EXPECT_EQ(row->format, kGridDefaultFormat);
    row->format = 0;
    row->SetFlags(GRF_PARENT | GRF_EXPANDED);
    row->record = new GridRowRecord{};
    row->SetCellTextEdit(1, TRUE, 10);
    row->SetCellText(1, "value");
    row->children.AddRow(NewRow("child", 4));

    row->Reset();
    EXPECT_EQ(row->Flags(), GRF_CREATED);
    EXPECT_EQ(row->Cell(1)->kind, 0u);
    EXPECT_EQ(row->Cell(1)->limit, 0u);
    EXPECT_EQ(row->CellText(1), "");
    EXPECT_EQ(row->children.GetSize(), 0);
    EXPECT_EQ(row->Level(), 3);
    EXPECT_STREQ(row->text, "expr");
    EXPECT_NE(row->record, nullptr);
    EXPECT_EQ(row->format, 0u);
    EXPECT_EQ(row->prev, siblings.GetRow(0));
}

TEST(GridRow, CopyIsDeepWithOwnRecordAndReparentedChildren)
{
    CGridRow source;
    source.text = "s";
    source.level = 1;
    source.changed = TRUE;
    source.SetFlags(GRF_PARENT | GRF_EXPANDED);
    source.format = 1;
    source.record = new GridRowRecord{};
    source.record->bytes[83] = std::byte{77};
    source.SetCellNumberEdit(2, TRUE, 4);
    source.SetCellText(2, "12");
    auto* child = NewRow("child", 2);
    child->parent = &source;
    child->record = new GridRowRecord{};
    child->children.AddRow(NewRow("grandchild", 3));
    child->children.GetRow(0)->parent = child;
    source.children.AddRow(child);
    source.children.AddRow(NewRow("child2", 2));

    CGridRow copy;
    copy.children.AddRow(NewRow("old"));
    copy = source;

    EXPECT_EQ(copy.Flags(), source.Flags());
    EXPECT_EQ(copy.Level(), 1);
    EXPECT_TRUE(copy.changed);
    EXPECT_EQ(copy.format, 1u);
    EXPECT_EQ(copy.Cell(2)->kind, GCF_NUMBER_EDIT);
    EXPECT_EQ(copy.CellText(2), "12");
    ASSERT_NE(copy.record, nullptr);
    EXPECT_NE(copy.record, source.record);
    EXPECT_EQ(copy.record->bytes[83], std::byte{77});
    EXPECT_EQ(TextsAndCheckLinks(copy.children), (Texts{"child", "child2"}));
    const CGridRow* copiedChild = copy.children.GetRow(0);
    EXPECT_NE(copiedChild, child);
    EXPECT_EQ(copiedChild->parent, &copy);
    EXPECT_EQ(copiedChild->Level(), 2);
    ASSERT_NE(copiedChild->record, nullptr);
    EXPECT_NE(copiedChild->record, child->record);
    ASSERT_EQ(copiedChild->children.GetSize(), 1);
    EXPECT_EQ(copiedChild->children.GetRow(0)->parent, copiedChild);
    EXPECT_EQ(copiedChild->children.GetRow(0)->Level(), 3);
    EXPECT_EQ(copy.prev, nullptr);  // links are not copied
}

// A row copied from its own descendant or into its own descendant gets the
// source as it stood before the copy, and nothing freed is read.
TEST(GridRow, CopyWithinItsOwnTreeCopiesTheSourceAsItWas)
{
    CGridRow row;
    row.text = "top";
    CGridRow* child = NewRow("child", 1);
    child->parent = &row;
    CGridRow* grandchild = NewRow("grandchild", 2);
    grandchild->parent = child;
    child->children.AddRow(grandchild);
    row.children.AddRow(child);

    row = *child;  // the child goes with the row's old children
    EXPECT_STREQ(row.text, "child");
    EXPECT_EQ(row.Level(), 1);
    ASSERT_EQ(row.children.GetSize(), 1);
    CGridRow* inner = row.children.GetRow(0);
    EXPECT_STREQ(inner->text, "grandchild");
    EXPECT_EQ(inner->parent, &row);
    EXPECT_EQ(inner->children.GetSize(), 0);

    *inner = row;  // into its own child: the row's tree as it was
    EXPECT_STREQ(inner->text, "child");
    ASSERT_EQ(inner->children.GetSize(), 1);
    EXPECT_STREQ(inner->children.GetRow(0)->text, "grandchild");
    EXPECT_EQ(inner->children.GetRow(0)->parent, inner);
    EXPECT_EQ(inner->children.GetRow(0)->children.GetSize(), 0);
}

TEST(GridRow, CellSettersAndLevel)
{
    CGridRow row;
    row.SetCellList(3, TRUE);
    row.SetCellIcon(3, 2);
    EXPECT_EQ(row.Cell(3)->kind, GCF_LIST_EDIT | GCF_ICON);
    EXPECT_EQ(row.Cell(3)->value, 2u);
    row.SetCellList(3, FALSE);
    EXPECT_EQ(row.Cell(3)->kind, GCF_ICON);

    row.SetCellTextEdit(3, TRUE, -1);  // -1: no limit; other kind bits go
    EXPECT_EQ(row.Cell(3)->kind, GCF_TEXT_EDIT);
    EXPECT_EQ(row.Cell(3)->limit, 0u);
    EXPECT_EQ(row.Cell(3)->value, 0u);
    row.SetCellNumberEdit(3, FALSE, 8);
    EXPECT_EQ(row.Cell(3)->kind, 0u);
    EXPECT_EQ(row.Cell(3)->limit, 8u);

    row.level = 0x1FF;  // only the low 8 bits are read
    EXPECT_EQ(row.Level(), 0xFF);
}

}  // namespace

TEST(GridRowArray, DisplayOrderShowsOnlyExpandedChildren)
{
    CGridRowArray rows;
    CGridRow* a = NewRow("a");
    a->SetFlags(GRF_PARENT | GRF_EXPANDED);
    CGridRow* a1 = NewRow("a1", 1);
    a1->SetFlags(GRF_SUBPARENT | GRF_COLLAPSED);
    a1->children.AddRow(NewRow("hidden", 2));
    a->children.AddRow(a1);
    CGridRow* a2 = NewRow("a2", 1);
    a2->SetFlags(GRF_PARENT | GRF_EXPANDED);  // expanded without children: no lines
    a->children.AddRow(a2);
    rows.AddRow(a);
    rows.AddRow(NewRow("b"));

    Texts shown;
    for (int line = 0;; ++line) {
        int counter = 0;
        const CGridRow* row = FindRowInDisplayOrder(line, &rows, &counter);
        if (!row) break;
        shown.emplace_back(static_cast<const char*>(row->text));
    }
    EXPECT_EQ(shown, (Texts{"a", "a1", "a2", "b"}));
    int counter = 0;
    EXPECT_EQ(FindRowInDisplayOrder(-1, &rows, &counter), nullptr);
    // Counting from a later start: the array's first row is line 10.
    counter = 10;
    EXPECT_EQ(FindRowInDisplayOrder(11, &rows, &counter), a1);
    EXPECT_EQ(FindRowInDisplayOrder(0, nullptr, &counter), nullptr);
}
