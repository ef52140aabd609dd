// Drawing of the grid's lines, read back as pixels: the current cell, the
// changed colour, icons, expand boxes and tree lines, and text fitting.
#include <string>

#include "grid/grid_text_fit.h"
#include "platform/gdi/font.h"
#include "platform/gdi/sys_color.h"
#include "tests/grid/test_grid.h"
#include "tests/support/window_pixels.h"

namespace {

class GridDrawTest : public GridFixture {
protected:
    // Line geometry of the test grid: 16-pixel lines, so U = 8 and Q = 4.
    static constexpr int kUnit = 8;
    static constexpr int kQuarter = 4;

    void Paint()
    {
        grid.Invalidate(FALSE);
        Paint::UpdateAllWindows();
    }

    COLORREF Pixel(int x, int y) { return WindowPixels(grid).At(x, y); }
    int Count(COLORREF colour, const CRect& area) { return WindowPixels(grid).Count(colour, area); }

    CRect Line(int item)
    {
        CRect r;
        grid.GetItemRect(item, &r, LVIR_BOUNDS);
        return r;
    }

    CRect Cell(int item, int column)
    {
        CRect r;
        grid.GetSubItemRect(item, column, LVIR_LABEL, r);
        return r;
    }

    // The expand box of a level on a line, in client coordinates.
    CRect Box(int item, int level)
    {
        const CRect line = Line(item);
        const int left = line.left + kUnit * level + kUnit / 2;
        return CRect(left, line.top + kQuarter, left + kUnit, line.top + kQuarter + kUnit);
    }

    // A spot of the cell that no text or icon covers.
    CPoint EmptySpot(int item, int column)
    {
        const CRect c = Cell(item, column);
        return CPoint(c.right - 3, c.top + 2);
    }

    const COLORREF kTree = GetSysColor(COLOR_WINDOWTEXT);
};

TEST_F(GridDrawTest, CurrentCellIsHighlightedWithOrWithoutFocus)
{
    AddRow("a");
    AddRow("b");
    SyncCount();
    grid.SetFocus();
    grid.SelectItem(0);
    Input::Key(VK_RIGHT);
    Paint();
    CPoint spot = EmptySpot(0, 1);
    EXPECT_EQ(Pixel(spot.x, spot.y), GetSysColor(COLOR_HIGHLIGHT));
    spot = EmptySpot(0, 0);
    EXPECT_EQ(Pixel(spot.x, spot.y), RGB(255, 255, 255));  // other cells of the selected line stay plain
    spot = EmptySpot(1, 1);
    EXPECT_EQ(Pixel(spot.x, spot.y), RGB(255, 255, 255));

    other.SetFocus();
    Paint();
    spot = EmptySpot(0, 1);
    EXPECT_EQ(Pixel(spot.x, spot.y), GetSysColor(COLOR_INACTIVECAPTION));
}

TEST_F(GridDrawTest, IconOnlyCellShowsFocusRectangleWithoutHighlight)
{
    CGridRow* row = AddRow("a");
    AddRow("b");
    SyncCount();
    grid.SetFocus();
    grid.SelectItem(0);
    Input::Key(VK_RIGHT);
    Input::Key(VK_RIGHT);
    Paint();
    const CPoint spot = EmptySpot(0, 2);
    EXPECT_EQ(Pixel(spot.x, spot.y), GetSysColor(COLOR_HIGHLIGHT));  // 0x300: filled

    row->SetCellList(2, FALSE);  // leaves the icon alone
    Paint();
    EXPECT_EQ(Pixel(spot.x, spot.y), RGB(255, 255, 255));
    const CRect c = Cell(0, 2);
    const CRect focus(c.left + 1, c.top + 1, c.right - 1, c.bottom - 1);
    EXPECT_GT(Count(RGB(255, 255, 255), CRect(focus.left, focus.top, focus.right, focus.top + 1)) , 0);
    EXPECT_LT(Count(RGB(255, 255, 255), CRect(focus.left, focus.top, focus.right, focus.top + 1)), focus.Width());
}

TEST_F(GridDrawTest, FormatIconsSitLeftOfTheCellCentre)
{
    CGridRow* row = AddRow("a");
    SyncCount();
    const CRect c = Cell(0, 2);
    const int left = c.left + c.Width() / 2 - 16;
    const CRect letter(left, c.top + 2, left + 16, c.bottom);
    for (int value : {0, 1, 2}) {
        row->SetCellIcon(2, value);
        Paint();
        EXPECT_GT(Count(RGB(255, 255, 255), letter), 0);
        EXPECT_LT(Count(RGB(255, 255, 255), letter), letter.Width() * letter.Height()) << "value " << value;
        EXPECT_EQ(Count(RGB(255, 255, 255), CRect(c.left + c.Width() / 2 + 1, c.top, c.right - 1, c.bottom)),
                  (c.Width() / 2 - 2 + c.Width() % 2) * c.Height());
    }
    row->SetCellIcon(2, 7);  // no such icon: nothing drawn
    Paint();
    EXPECT_EQ(Count(RGB(255, 255, 255), letter), letter.Width() * letter.Height());
}

TEST_F(GridDrawTest, ChangedValueIsRedOnlyInColumnOne)
{
    CGridRow* row = AddRow("a", GCF_NUMBER_EDIT, "1234");
    row->SetCellText(2, "5678");
    row->SetCellKind(2, 0);
    SyncCount();
    Paint();
    EXPECT_EQ(Count(RGB(255, 0, 0), Cell(0, 1)), 0);
    const int black = Count(RGB(0, 0, 0), Cell(0, 1));
    EXPECT_GT(black, 0);

    row->changed = TRUE;
    Paint();
    EXPECT_EQ(Count(RGB(255, 0, 0), Cell(0, 1)), black);
    EXPECT_EQ(Count(RGB(255, 0, 0), Cell(0, 2)), 0);

    // As the current cell: red on the highlight.
    grid.SetFocus();
    grid.SelectItem(0);
    Input::Key(VK_RIGHT);
    Paint();
    EXPECT_EQ(Count(RGB(255, 0, 0), Cell(0, 1)), black);
    const CPoint spot = EmptySpot(0, 1);
    EXPECT_EQ(Pixel(spot.x, spot.y), GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(GridDrawTest, TopLevelRowsShowBoxesAndLinesOnlyWithChildren)
{
    CGridRow* a = AddRow("a");
    AddRow("plain");
    a->SetFlags(GRF_PARENT | GRF_COLLAPSED);
    SyncCount();
    Paint();
    const CRect indent1(0, Line(1).top, kUnit * 2, Line(1).bottom);
    EXPECT_EQ(Count(kTree, indent1), 0);

    const CRect box = Box(0, 0);
    EXPECT_EQ(Pixel(box.left, box.top), kTree);
    EXPECT_EQ(Pixel(box.right - 1, box.bottom - 1), kTree);
    const int midX = box.left + box.Width() / 2, midY = box.top + box.Height() / 2;
    EXPECT_EQ(Pixel(box.left + 2, midY), kTree);
    EXPECT_EQ(Pixel(midX, box.top + 2), kTree);  // plus: collapsed
    EXPECT_EQ(Pixel(box.right - 2, midY), RGB(255, 255, 255));  // strokes stop a pixel short
    EXPECT_EQ(Pixel(midX, Line(0).bottom - 1), RGB(255, 255, 255));

    grid.childrenToMake = 2;
    grid.ToggleExpand(0);
    Paint();
    EXPECT_EQ(Pixel(midX, box.top + 2), RGB(255, 255, 255));  // minus: expanded
    EXPECT_EQ(Pixel(box.left + 2, midY), kTree);
    EXPECT_EQ(Pixel(midX, box.bottom), kTree);  // down towards the children
    EXPECT_EQ(Pixel(midX, Line(0).bottom - 1), kTree);
}

TEST_F(GridDrawTest, ChildLinesJoinTheParentAndStopAtTheLastSibling)
{
    CGridRow* a = AddRow("a");
    a->SetFlags(GRF_PARENT | GRF_COLLAPSED);
    SyncCount();
    grid.childrenToMake = 2;
    grid.ToggleExpand(0);
    Paint();
    const int xp = Box(1, 0).left + kUnit / 2;
    const int xb = Box(1, 1).left + kUnit / 2;
    const int yb1 = Box(1, 1).top + kUnit / 2;
    // First child: across to its own box centre, parent's line through the whole line.
    EXPECT_EQ(Pixel(xp, Line(1).top), kTree);
    EXPECT_EQ(Pixel(xp, Line(1).bottom - 1), kTree);
    EXPECT_EQ(Pixel(xb - 1, yb1), kTree);
    EXPECT_EQ(Pixel(xb, yb1), RGB(255, 255, 255));
    // Last child: the parent's line stops at its connector.
    const int yb2 = Box(2, 1).top + kUnit / 2;
    EXPECT_EQ(Pixel(xp, yb2 - 1), kTree);
    EXPECT_EQ(Pixel(xp, yb2 + 1), RGB(255, 255, 255));
}

TEST_F(GridDrawTest, DeepRowsKeepTheLinesOfAncestorsWithFurtherSiblings)
{
    // a > (b > (c > d), e): d's line also shows b's line, since b has a next sibling.
    CGridRow* a = AddRow("a");
    auto make = [](CGridRow* parent, const char* text) {
        auto* row = new CGridRow;
        row->text = text;
        row->parent = parent;
        row->level = parent->level + 1;
        row->SetFlags(GRF_PARENT | GRF_EXPANDED);
        parent->children.AddRow(row);
        return row;
    };
    a->SetFlags(GRF_PARENT | GRF_EXPANDED);
    CGridRow* b = make(a, "b");
    CGridRow* c = make(b, "c");
    CGridRow* d = make(c, "d");
    d->SetFlags(GRF_CREATED);
    make(a, "e")->SetFlags(GRF_CREATED);
    SyncCount();
    ASSERT_EQ(grid.GetRowAt(3), d);
    Paint();
    const int xb = Box(3, 0).left + kUnit / 2;  // the line of b, level 1, sits under a's box
    EXPECT_EQ(Pixel(xb, Line(3).top), kTree);
    EXPECT_EQ(Pixel(xb, Line(3).bottom - 1), kTree);
    const int xc = Box(3, 1).left + kUnit / 2;  // c has no next sibling: no line of its own
    EXPECT_EQ(Pixel(xc, Line(3).top + 1), RGB(255, 255, 255));
}

// However deep a row, what column 0 draws for it (highlight, box, lines,
// text) stays inside column 0; column 1 of its line keeps the background.
TEST_F(GridDrawTest, DeepIndentationIsClippedToColumnZero)
{
    CGridRow* row = AddRow("deep", GCF_NUMBER_EDIT, "");
    row->SetFlags(GRF_PARENT | GRF_COLLAPSED);
    AddRow("b");
    SyncCount();
    grid.SetFocus();
    grid.SelectItem(0);  // column 0 is the current cell
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    const COLORREF white = RGB(255, 255, 255);
    auto expectColumnOneBlank = [&](const char* what) {
        const CRect c = Cell(0, 1);
        EXPECT_EQ(Count(highlight, c), 0) << what;
        EXPECT_EQ(Count(white, c), c.Width() * c.Height()) << what;
    };

    row->level = 1;  // the text still starts inside column 0
    Paint();
    EXPECT_GT(Count(highlight, Cell(0, 0)), 0);
    expectColumnOneBlank("level 1");

    row->level = 20;  // indented past column 0's 120 pixels
    Paint();
    expectColumnOneBlank("level 20");

    row->level = 4;
    grid.SetColumnWidth(0, 40);
    Paint();
    expectColumnOneBlank("level 4, column 0 at 40 pixels");
    // The box straddles the edge: its part inside column 0 is still drawn.
    const CRect box = Box(0, 4);
    ASSERT_LT(box.left, Cell(0, 1).left);
    EXPECT_EQ(Pixel(box.left, box.top), kTree);
}

TEST_F(GridDrawTest, GridLinesOutlineCellsAndBackgroundFillsBelowTheLines)
{
    AddRow("a");
    SyncCount();
    grid.SetGridLines(TRUE);
    Paint();
    const CRect c = Cell(0, 1);
    EXPECT_EQ(Pixel(c.left - 1, c.top + 8), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(Pixel(c.left + 8, c.top), GetSysColor(COLOR_BTNFACE));
    grid.SetBkColor(RGB(0, 0, 255));  // the grid erases with its own background
    grid.Invalidate(TRUE);
    Paint::UpdateAllWindows();
    CRect client;
    grid.GetClientRect(&client);
    EXPECT_EQ(Count(RGB(255, 255, 255), CRect(0, Line(0).bottom, client.right, client.bottom)),
              client.right * (client.bottom - Line(0).bottom));
}

TEST_F(GridDrawTest, ScrolledSidewaysLinesFollowTheColumns)
{
    CGridRow* row = AddRow("a", GCF_NUMBER_EDIT, "1234");
    SyncCount();
    for (int c = 3; c < 8; ++c) grid.InsertColumn(c, "x", LVCFMT_LEFT, 100);  // wider than the grid
    Paint();
    const int before = Count(RGB(0, 0, 0), Cell(0, 1));
    ASSERT_GT(before, 0);
    grid.SendMessage(WM_HSCROLL, 1, 0);
    grid.SendMessage(WM_HSCROLL, 1, 0);
    ASSERT_LT(Line(0).left, 0);
    Paint();
    EXPECT_EQ(Count(RGB(0, 0, 0), Cell(0, 1)), before);
    row->changed = TRUE;
    Paint();
    EXPECT_EQ(Count(RGB(255, 0, 0), Cell(0, 1)), before);
}

TEST_F(GridDrawTest, BadCellContentDrawsWithinItsLine)
{
    CGridRow* row = AddRow("a");
    row->SetCellText(1, std::string(400, 'W'));  // more than a cell holds
    row->level = 0x100;  // only the low 8 bits: top level
    SyncCount();
    for (int c = 3; c < 40; ++c) grid.InsertColumn(c, "x", LVCFMT_LEFT, 10);  // more columns than cells
    Paint();
    EXPECT_GT(Count(RGB(0, 0, 0), Cell(0, 1)), 0);
    EXPECT_EQ(Count(kTree, CRect(0, Line(0).top, kUnit * 2, Line(0).bottom)), 0);
}

// Text fitting, measured with the grid font: 6 pixels a byte, 12 a double-byte character.
class GridTextFitTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(font.CreatePointFont(90, "\xCB\xCE\xCC\xE5"));
        dc.CreateCompatibleDC(nullptr);
        dc.SelectObject(&font);
    }
    std::string Fit(const std::string& text, int width) { return std::string(FitCellText(dc, text, width)); }

    CFont font;
    CDC dc;
};

TEST_F(GridTextFitTest, TextMustLeaveMoreThanThePadding)
{
    EXPECT_EQ(Fit("123456789012345", 96), "123456789012345");  // 90 + 5 < 96
    EXPECT_EQ(Fit("123456789012345", 95), "1234567890123.");  // exactly width - 5: cut
    EXPECT_EQ(Fit("1234567890123", 42), "12345.");
    EXPECT_EQ(Fit("1234567890123", 41), "1234.");
    EXPECT_EQ(Fit("abc", 1), "a.");  // nothing fits: one byte and the period
    EXPECT_EQ(Fit("ab", 1), "a.");
    EXPECT_EQ(Fit("", 1), "");
}

TEST_F(GridTextFitTest, DoubleByteCharactersAreCutWhole)
{
    const std::string mixed = "a" + GBK(u8"中") + "b";
    EXPECT_EQ(Fit(mixed, 20), "a.");
    EXPECT_EQ(Fit(GBK(u8"中文字"), 30), GBK(u8"中") + ".");
    EXPECT_EQ(Fit(GBK(u8"中"), 5), ".");
}

}  // namespace
