// What the tree paints, read back from the window's pixels.
#include "platform/gdi/font.h"
#include "tests/gdi/gdi_test_support.h"
#include "tree_test_support.h"

using tree_test::TreeFixture;

namespace {

class TreePaint : public TreeFixture {
protected:
    gdi_test::BoxGlyphs boxes;  // text as boxes: ink that does not depend on installed fonts

    // Whether pixels at x along [from, to) alternate between ink and the
    // window colour, and nothing else.
    ::testing::AssertionResult Dotted(int x, int from, int to, bool vertical)
    {
        const std::uint32_t ink = Sys(COLOR_GRAYTEXT), paper = Sys(COLOR_WINDOW);
        std::uint32_t previous = 0;
        for (int i = from; i < to; ++i) {
            const std::uint32_t p = vertical ? Pixel(x, i) : Pixel(i, x);
            if (p != ink && p != paper) return ::testing::AssertionFailure() << "foreign pixel at " << i;
            if (i > from && p == previous) return ::testing::AssertionFailure() << "no alternation at " << i;
            previous = p;
        }
        return ::testing::AssertionSuccess();
    }
};

}  // namespace

TEST_F(TreePaint, LinesAreDottedAndJoinSiblingsAndParents)
{
    Make(TVS_HASLINES | TVS_LINESATROOT);
    // A 13 px font makes rows 17 high, so the dots must keep their rhythm
    // across rows of odd height.
    CFont font;
    font.CreatePointFont(100, "SimSun");
    tree.SetFont(&font);
    ASSERT_EQ(tree.GetItemHeight(), 17);
    const HTREEITEM a = tree.InsertItem("a");
    tree.InsertItem("a1", a);
    tree.InsertItem("a2", a);
    tree.InsertItem("b");
    tree.Expand(a, TVE_EXPAND);
    Paint::UpdateAllWindows();
    // Rows: a [0,17), a1 [17,34), a2 [34,51), b [51,68), middles 8 rows
    // down. The root column's centre is x = 9, the children's x = 28.
    const std::uint32_t ink = Sys(COLOR_GRAYTEXT);
    EXPECT_TRUE(Dotted(9, 8, 60, true));  // from a's middle down to b's
    EXPECT_EQ(Count(ink, CRect(9, 0, 10, 8)), 0);  // nothing above the first root
    EXPECT_EQ(Count(ink, CRect(9, 60, 10, 68)), 0);  // nor below the last
    EXPECT_TRUE(Dotted(28, 17, 43, true));  // a1 and down to a2's middle
    EXPECT_EQ(Count(ink, CRect(28, 43, 29, 51)), 0);
    EXPECT_TRUE(Dotted(25, 28, 38, false));  // a1's branch to its label
    EXPECT_GE(Count(ink, CRect(28, 25, 38, 26)), 4);
    EXPECT_EQ(Count(ink, CRect(40, 0, 200, 160)), 0);  // labels carry no lines

    // Full-row selection has no lines.
    tree.ModifyStyle(0, TVS_FULLROWSELECT);
    Paint::UpdateAllWindows();
    EXPECT_EQ(Count(ink, CRect(0, 0, 40, 68)), 0);
    tree.SetFont(nullptr);
}

TEST_F(TreePaint, ButtonsShowPlusOrMinus)
{
    Make(TVS_HASBUTTONS | TVS_LINESATROOT);
    const HTREEITEM a = tree.InsertItem("a");
    tree.InsertItem("a1", a);
    const HTREEITEM b = tree.InsertItem("b");
    Paint::UpdateAllWindows();
    const std::uint32_t frame = Sys(COLOR_GRAYTEXT), paper = Sys(COLOR_WINDOW), sign = Sys(COLOR_WINDOWTEXT);
    // The 9 x 9 box centred on (9, 8).
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(Pixel(5 + i, 4), frame);
        EXPECT_EQ(Pixel(5 + i, 12), frame);
        EXPECT_EQ(Pixel(5, 4 + i), frame);
        EXPECT_EQ(Pixel(13, 4 + i), frame);
    }
    EXPECT_EQ(Pixel(4, 8), paper);
    EXPECT_EQ(Pixel(14, 8), paper);
    EXPECT_EQ(Count(sign, CRect(6, 5, 13, 12)), 9);  // a plus: 5 + 5 - 1
    EXPECT_EQ(Pixel(9, 6), sign);
    EXPECT_EQ(Pixel(7, 8), sign);
    EXPECT_EQ(Pixel(9, 5), paper);

    tree.Expand(a, TVE_EXPAND);
    Paint::UpdateAllWindows();
    EXPECT_EQ(Count(sign, CRect(6, 5, 13, 12)), 5);  // a minus
    EXPECT_EQ(Pixel(9, 6), paper);
    EXPECT_EQ(Pixel(11, 8), sign);
    // Leaves (b on the third row, a1 in the second column) have no box.
    const int bTop = ItemRect(b, false).top;
    EXPECT_EQ(Count(frame, CRect(0, bTop, 19, bTop + 16)), 0);
    EXPECT_EQ(Count(frame, CRect(19, 16, 38, 32)), 0);
}

TEST_F(TreePaint, ImagesAreDrawnThroughTheirMask)
{
    Make(TVS_HASBUTTONS);
    CImageList images;
    tree_test::MakeImages(images, {RGB(255, 0, 0), RGB(0, 0, 255)});
    tree.SetImageList(&images, TVSIL_NORMAL);
    const HTREEITEM a = tree.InsertItem("a", 0, 1);
    tree.InsertItem("b", 0, 1);
    Paint::UpdateAllWindows();
    // The first image sits at the left edge, one pixel row to spare in 18.
    const CRect square = tree_test::kImageSquare;
    EXPECT_EQ(Count(0xFF0000, CRect(0, 0, 18, 18)), square.Width() * square.Height());
    EXPECT_EQ(Count(0xFF0000, square), square.Width() * square.Height());
    EXPECT_EQ(Pixel(1, 1), Sys(COLOR_WINDOW));
    EXPECT_EQ(Count(0xFF0000, CRect(0, 18, 18, 36)), square.Width() * square.Height());

    // Selected and focused, on a full-row highlight: the selected image, and
    // the highlight shows through the transparent part.
    tree.ModifyStyle(0, TVS_FULLROWSELECT);
    tree.SelectItem(a);
    tree.SetFocus();
    Paint::UpdateAllWindows();
    EXPECT_EQ(Count(0x0000FF, square), square.Width() * square.Height());
    EXPECT_EQ(Count(0xFF0000, CRect(0, 0, 18, 18)), 0);
    EXPECT_EQ(Pixel(1, 1), Sys(COLOR_HIGHLIGHT));
    EXPECT_EQ(Pixel(16, 16), Sys(COLOR_HIGHLIGHT));
}

TEST_F(TreePaint, SelectionColoursDependOnFocusAndStyle)
{
    Make(TVS_HASLINES);
    const HTREEITEM a = tree.InsertItem("alpha");
    tree.InsertItem("beta");
    tree.SelectItem(a);
    const CRect label = ItemRect(a, true);
    const CPoint padding(label.left + 1, label.CenterPoint().y);  // between focus frame and text
    const CRect row = ItemRect(a, false);

    tree.SetFocus();
    Paint::UpdateAllWindows();
    EXPECT_EQ(Pixel(padding.x, padding.y), Sys(COLOR_HIGHLIGHT));
    EXPECT_GT(Count(Sys(COLOR_HIGHLIGHTTEXT), label), 0);
    EXPECT_EQ(Count(Sys(COLOR_WINDOWTEXT), label), 0);
    EXPECT_EQ(Pixel(label.right + 3, padding.y), Sys(COLOR_WINDOW));  // the label only
    // The focus frame is dotted over the highlight's edge.
    EXPECT_GT(Count(Sys(COLOR_HIGHLIGHT), CRect(label.left, label.top, label.right, label.top + 1)), 0);
    EXPECT_LT(Count(Sys(COLOR_HIGHLIGHT), CRect(label.left, label.top, label.right, label.top + 1)), label.Width());

    parent.SetFocus();
    Paint::UpdateAllWindows();
    EXPECT_EQ(Count(Sys(COLOR_HIGHLIGHT), row), 0);
    EXPECT_EQ(Count(Sys(COLOR_BTNFACE), row), 0);
    EXPECT_GT(Count(Sys(COLOR_WINDOWTEXT), label), 0);

    tree.ModifyStyle(0, TVS_SHOWSELALWAYS);
    Paint::UpdateAllWindows();
    EXPECT_EQ(Pixel(padding.x, padding.y), Sys(COLOR_BTNFACE));
    EXPECT_EQ(Pixel(label.left, label.top), Sys(COLOR_BTNFACE));  // no focus frame
    EXPECT_GT(Count(Sys(COLOR_WINDOWTEXT), label), 0);
    EXPECT_EQ(Count(Sys(COLOR_HIGHLIGHTTEXT), label), 0);

    // A drop target takes the highlight, focused or not, from the selection.
    const HTREEITEM b = tree.GetNextSiblingItem(a);
    EXPECT_TRUE(tree.Select(b, TVGN_DROPHILITE));
    EXPECT_EQ(tree.GetNextItem(nullptr, TVGN_DROPHILITE), b);
    tree.SetFocus();
    Paint::UpdateAllWindows();
    EXPECT_EQ(Count(Sys(COLOR_HIGHLIGHT), row), 0);
    EXPECT_EQ(Count(Sys(COLOR_BTNFACE), row), 0);
    const CRect bLabel = ItemRect(b, true);
    EXPECT_EQ(Pixel(bLabel.left + 1, bLabel.CenterPoint().y), Sys(COLOR_HIGHLIGHT));
}

TEST_F(TreePaint, FullRowSelectHighlightsTheWholeRow)
{
    Make(TVS_HASLINES | TVS_FULLROWSELECT);
    const HTREEITEM a = tree.InsertItem("alpha");
    const HTREEITEM b = tree.InsertItem("beta");
    tree.SelectItem(b);
    tree.SetFocus();
    Paint::UpdateAllWindows();
    const CRect row = ItemRect(b, false);
    EXPECT_EQ(Pixel(row.right - 2, row.CenterPoint().y), Sys(COLOR_HIGHLIGHT));
    EXPECT_EQ(Pixel(1, row.CenterPoint().y), Sys(COLOR_HIGHLIGHT));
    const CRect other = ItemRect(a, false);
    EXPECT_EQ(Count(Sys(COLOR_HIGHLIGHT), other), 0);
    // Without the style only the label is highlighted.
    tree.ModifyStyle(TVS_FULLROWSELECT, 0);
    Paint::UpdateAllWindows();
    EXPECT_EQ(Pixel(row.right - 2, row.CenterPoint().y), Sys(COLOR_WINDOW));
}

TEST_F(TreePaint, SetRedrawHoldsPaintingBack)
{
    Make(TVS_HASLINES);
    const std::uint32_t text = Sys(COLOR_WINDOWTEXT);
    tree.SetRedraw(FALSE);
    const HTREEITEM a = tree.InsertItem("alpha");
    Paint::UpdateAllWindows();
    EXPECT_EQ(Count(text, CRect(0, 0, 200, 16)), 0);
    tree.SetRedraw(TRUE);
    Paint::UpdateAllWindows();
    EXPECT_GT(Count(text, ItemRect(a, true)), 0);
    // Turning drawing back on repaints even when nothing changed meanwhile.
    CRect pending;
    EXPECT_FALSE(tree.GetUpdateRect(&pending));
    tree.SetRedraw(FALSE);
    tree.SetRedraw(TRUE);
    EXPECT_TRUE(tree.GetUpdateRect(&pending));
}

TEST_F(TreePaint, ChangesInvalidateOnlyWhatTheyChange)
{
    Make(TVS_HASLINES);
    const auto items = Fill(5);
    Paint::UpdateAllWindows();
    CRect pending;
    EXPECT_FALSE(tree.GetUpdateRect(&pending));
    tree.SetItemText(items[2], "renamed");
    ASSERT_TRUE(tree.GetUpdateRect(&pending));
    EXPECT_EQ(pending, ItemRect(items[2], false));
    Paint::UpdateAllWindows();
    EXPECT_GT(Count(Sys(COLOR_WINDOWTEXT), ItemRect(items[2], true)), 0);
    EXPECT_EQ(ItemRect(items[2], true).Width(), 7 * 6 + 4);

    // Selecting repaints the rows that change, not the others.
    tree.SelectItem(items[1]);
    Paint::UpdateAllWindows();
    tree.SelectItem(items[3]);
    ASSERT_TRUE(tree.GetUpdateRect(&pending));
    CRect both;
    both.UnionRect(ItemRect(items[1], false), ItemRect(items[3], false));
    EXPECT_EQ(pending, both);
}

TEST_F(TreePaint, ScrollingPaintsTheRowsThatComeIntoView)
{
    Make(TVS_HASLINES, CRect(10, 10, 210, 42));  // two rows
    const auto items = Fill(4);
    Paint::UpdateAllWindows();
    const CRect firstLabel = ItemRect(items[0], true);
    EXPECT_GT(Count(Sys(COLOR_WINDOWTEXT), firstLabel), 0);
    tree.EnsureVisible(items[3]);
    Paint::UpdateAllWindows();
    EXPECT_EQ(tree.GetFirstVisibleItem(), items[2]);
    EXPECT_EQ(ItemRect(items[3], true).top, 16);
    EXPECT_GT(Count(Sys(COLOR_WINDOWTEXT), ItemRect(items[3], true)), 0);
    // The first row now shows "item 2", as wide as "item 0" was.
    EXPECT_EQ(ItemRect(items[2], true), firstLabel);
}
