// Focus given to a pane goes on to its view; the watch pane also tells the
// host which watch the user is in, unless it mirrors a fixed list.
#include "panes/dock_bar_brkpnt.h"
#include "panes/dock_bar_search.h"
#include "panes/dock_bar_watch.h"
#include "panes/dock_bar_workspace1.h"
#include "tests/panes/pane_fixture.h"

namespace {

using PaneFocus = PaneFixture;

// A value the panes never write, to see whether anything was written.
constexpr std::int32_t kUntouched = 77;

TEST_F(PaneFocus, FocusOnAPaneGoesToItsView)
{
    CDockBarBrkpnt breakpoints;
    CDockBarSearch search;
    CDockBarWorkspace1 files;
    ASSERT_TRUE(CreatePane(breakpoints));
    ASSERT_TRUE(CreatePane(search));
    ASSERT_TRUE(CreatePane(files));
    breakpoints.SetFocus();
    EXPECT_EQ(::GetFocus(), breakpoints.GetViewHwnd());
    search.SetFocus();
    EXPECT_EQ(::GetFocus(), search.GetViewHwnd());
    files.SetFocus();
    EXPECT_EQ(::GetFocus(), files.GetViewHwnd());
}

class WatchPaneFocus : public PaneFixture {
protected:
    void SetUp() override
    {
        PaneFixture::SetUp();
        host.appData.context = &host.context;
        host.context.activeWatch = kUntouched;
        ASSERT_TRUE(CreatePane(watch));
        ASSERT_TRUE(CreatePane(other, CRect(0, 100, 200, 200)));
        grid = ViewOf<CWatchGridCtrl>(watch);
        ASSERT_NE(grid, nullptr);
    }

    // Focus arrives from another window, as when the user clicks the pane.
    void FocusWatch()
    {
        other.SetFocus();
        watch.SetFocus();
    }

    CDockBarWatch watch;
    CDockBarBrkpnt other;
    CWatchGridCtrl* grid = nullptr;
};

TEST_F(WatchPaneFocus, FixedListWatchNeverWritesTheActiveWatch)
{
    watch.SetWatchNumb(-1);
    EXPECT_TRUE(grid->fixedRows);
    FocusWatch();
    EXPECT_EQ(::GetFocus(), grid->GetSafeHwnd());
    EXPECT_EQ(host.context.activeWatch, kUntouched);
}

TEST_F(WatchPaneFocus, NumberedWatchWritesItsNumberOnFocus)
{
    watch.SetWatchNumb(-1);
    watch.SetWatchNumb(2);
    EXPECT_FALSE(grid->fixedRows);
    FocusWatch();
    EXPECT_EQ(::GetFocus(), grid->GetSafeHwnd());
    EXPECT_EQ(host.context.activeWatch, 2);

    watch.SetWatchNumb(5);
    FocusWatch();
    EXPECT_EQ(host.context.activeWatch, 5);
}

TEST_F(WatchPaneFocus, UnnumberedWatchCountsAsTheFirstEditableOne)
{
    EXPECT_FALSE(grid->fixedRows);
    FocusWatch();
    EXPECT_EQ(host.context.activeWatch, 0);
}

TEST_F(WatchPaneFocus, MissingHostDataLeavesTheActiveWatchAlone)
{
    watch.SetWatchNumb(3);
    host.answersAppData = false;
    FocusWatch();
    EXPECT_EQ(host.context.activeWatch, kUntouched);

    host.answersAppData = true;
    host.appData.context = nullptr;
    FocusWatch();
    EXPECT_EQ(host.context.activeWatch, kUntouched);
    EXPECT_EQ(::GetFocus(), grid->GetSafeHwnd());
}

TEST_F(WatchPaneFocus, MeasureRequestsGetTheGridsLineHeight)
{
    MEASUREITEMSTRUCT expected{};
    expected.CtlType = ODT_LISTVIEW;
    expected.CtlID = static_cast<UINT>(grid->GetDlgCtrlID());
    MEASUREITEMSTRUCT measure = expected;
    grid->MeasureItem(&expected);
    ASSERT_GT(expected.itemHeight, 0u);

    watch.SendMessage(WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
    EXPECT_EQ(measure.itemHeight, expected.itemHeight);

    // The pane's only owner-drawn child is the grid, whatever id a request names.
    MEASUREITEMSTRUCT unnamed{};
    unnamed.CtlType = ODT_LISTVIEW;
    unnamed.CtlID = measure.CtlID + 1;
    watch.SendMessage(WM_MEASUREITEM, unnamed.CtlID, reinterpret_cast<LPARAM>(&unnamed));
    EXPECT_EQ(unnamed.itemHeight, expected.itemHeight);
}

}  // namespace
