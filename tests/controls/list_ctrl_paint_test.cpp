// Cell texts and headings, read back from the pixels with box glyphs: each
// character is a 6 x 12 cell whose ink leaves out its top and bottom rows.
#include "list_ctrl_test_support.h"
#include "tests/gdi/gdi_test_support.h"

using namespace list_test;

namespace {

constexpr DWORD kTextStyle = LVS_REPORT | LVS_OWNERDATA;

class ListPaint : public ListFixture {
protected:
    gdi_test::BoxGlyphs boxes;

    // Bounds of the pixels of one colour inside an area; empty when none.
    CRect InkBounds(std::uint32_t ink, const CRect& area)
    {
        CRect box;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x)
                if (Pixel(x, y) == ink) box.UnionRect(box, CRect(x, y, x + 1, y + 1));
        return box;
    }
    void SetFormat(int column, int format)
    {
        LVCOLUMN change;
        change.mask = LVCF_FMT;
        change.fmt = format;
        ASSERT_TRUE(list.SetColumn(column, &change));
    }
    // The first line, across one column's extent.
    static CRect FirstLine(int left, int right) { return CRect(left, kHeaderHeight, right, kHeaderHeight + kLineHeight); }
    // Ink rows of a line of text centred in the first line.
    static constexpr int kInkTop = kHeaderHeight + 3;
    static constexpr int kInkBottom = kHeaderHeight + 13;
};

}  // namespace

TEST_F(ListPaint, CellsAlignAsTheirHeadingsButTheFirstColumnStaysLeft)
{
    Make(kTextStyle, 3);
    parent.cellTexts = {"ab", "ab", "ab"};
    SetFormat(0, LVCFMT_RIGHT);
    SetFormat(1, LVCFMT_RIGHT);
    SetFormat(2, LVCFMT_CENTER);
    Paint::UpdateAllWindows();
    // Columns start at 0, 100 and 180; text keeps 6 pixels from either edge.
    const std::uint32_t text = Color(GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(InkBounds(text, FirstLine(0, 100)), CRect(6, kInkTop, 18, kInkBottom));
    EXPECT_EQ(InkBounds(text, FirstLine(100, 180)), CRect(162, kInkTop, 174, kInkBottom));
    EXPECT_EQ(InkBounds(text, FirstLine(180, 300)), CRect(249, kInkTop, 261, kInkBottom));  // centred in [186, 324)

    // Every heading follows its format, the first one too. The areas leave
    // out the buttons' edges.
    const std::uint32_t heading = Color(GetSysColor(COLOR_BTNTEXT));
    EXPECT_EQ(InkBounds(heading, CRect(2, 2, 98, 18)), CRect(52, 5, 94, 15));       // "Address"
    EXPECT_EQ(InkBounds(heading, CRect(102, 2, 178, 18)), CRect(144, 5, 174, 15));  // "Value"
    EXPECT_EQ(InkBounds(heading, CRect(182, 2, 300, 18)), CRect(243, 5, 267, 15));  // "Name"
}

TEST_F(ListPaint, TextTooWideForItsCellStaysInside)
{
    Make(kTextStyle, 1);
    parent.cellTexts = {"a", "abcdef", "a"};
    SetFormat(1, LVCFMT_RIGHT);
    ASSERT_TRUE(list.SetColumnWidth(1, 16));  // room for text: [106, 110)
    Paint::UpdateAllWindows();
    // Even the ellipsis is wider than the room: it is cut at both sides.
    const CRect ink = InkBounds(Color(GetSysColor(COLOR_WINDOWTEXT)), FirstLine(100, 116));
    ASSERT_FALSE(ink.IsRectEmpty());
    EXPECT_GE(ink.left, 106);
    EXPECT_LE(ink.right, 110);
}
