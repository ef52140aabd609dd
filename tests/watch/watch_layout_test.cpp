// Column widths: set once by the first layout, then only the last column
// follows the pane.
#include "tests/watch/watch_fixture.h"

namespace {

class WatchLayoutTest : public ::testing::Test {
protected:
    std::vector<int> Widths()
    {
        std::vector<int> widths;
        for (int c = 0; c < 4; ++c) widths.push_back(grid.GetColumnWidth(c));
        return widths;
    }

    TestHost host;
    TestPane pane;
    CWatchGridCtrl grid;
};

TEST_F(WatchLayoutTest, TheFirstLayoutSetsTheWidthsAndTheLastColumnTakesTheRest)
{
    ASSERT_TRUE(pane.CreatePane(&host, CRect(0, 0, 700, 300)));
    ASSERT_TRUE(grid.Create(&pane));
    grid.Layout(0, 0, 700, 300);
    EXPECT_EQ(Widths(), (std::vector<int>{300, 120, 60, 220}));
    CRect r;
    grid.GetWindowRect(&r);
    pane.ScreenToClient(&r);
    EXPECT_EQ(r, CRect(1, 1, 699, 299));

    // The user's own widths survive a resize; the attribute column never
    // gets narrower than 100 pixels, even when the columns then overflow.
    grid.SetColumnWidth(0, 250);
    grid.Layout(0, 0, 500, 200);
    EXPECT_EQ(Widths(), (std::vector<int>{250, 120, 60, 100}));
    grid.Layout(10, 10, 910, 210);
    EXPECT_EQ(Widths(), (std::vector<int>{250, 120, 60, 470}));
}

TEST_F(WatchLayoutTest, AFirstLayoutAtFiveHundredPixelsOverflows)
{
    ASSERT_TRUE(pane.CreatePane(&host, CRect(0, 0, 500, 300)));
    ASSERT_TRUE(grid.Create(&pane));
    grid.Layout(0, 0, 500, 300);
    EXPECT_EQ(Widths(), (std::vector<int>{300, 120, 60, 100}));
}

TEST_F(WatchLayoutTest, TheHeadingsAreTheWatchsOwn)
{
    ASSERT_TRUE(pane.CreatePane(&host, CRect(0, 0, 500, 300)));
    ASSERT_TRUE(grid.Create(&pane));
    const std::u8string_view expected[] = {u8"表达式", u8"值", u8"格式", u8"属性"};
    for (int c = 0; c < 4; ++c) {
        char heading[32] = {};
        LVCOLUMN column{};
        column.mask = LVCF_TEXT;
        column.pszText = heading;
        column.cchTextMax = sizeof heading;
        ASSERT_TRUE(grid.GetColumn(c, &column));
        EXPECT_EQ(std::string(heading), GBK(expected[c])) << c;
    }
}

}  // namespace
