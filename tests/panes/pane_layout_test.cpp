// Where each pane puts its view: by its client rectangle, by the size the
// message carries, or through the watch grid's own layout; and what creation
// does when there is no view yet or the view cannot be made.
#include "panes/dock_bar_book_mark.h"
#include "panes/dock_bar_brkpnt.h"
#include "panes/dock_bar_debug_message.h"
#include "panes/dock_bar_func_list.h"
#include "panes/dock_bar_message.h"
#include "panes/dock_bar_search.h"
#include "panes/dock_bar_watch.h"
#include "panes/dock_bar_workspace1.h"
#include "panes/dock_bar_workspace2.h"
#include "tests/panes/pane_fixture.h"

namespace {

using PaneLayout = PaneFixture;

// Sends a size that disagrees with the pane's client rectangle, as a frame
// may while it is still moving its bars.
template <class Pane>
void SendSize(Pane& pane, int cx, int cy)
{
    pane.SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(cx, cy));
}

TEST_F(PaneLayout, ClientRectanglePanesFollowTheirClientWhateverTheMessageSays)
{
    CDockBarBookMark bookmarks;
    CDockBarMessage messages;
    CDockBarWorkspace1 files;
    ASSERT_TRUE(CreatePane(bookmarks));
    ASSERT_TRUE(CreatePane(messages, CRect(0, 100, 300, 250)));
    ASSERT_TRUE(CreatePane(files, CRect(300, 0, 420, 60)));

    EXPECT_EQ(ViewRect(bookmarks), CRect(1, 1, 199, 99));
    EXPECT_EQ(ViewRect(messages), CRect(1, 1, 299, 149));
    EXPECT_EQ(ViewRect(files), CRect(1, 1, 119, 59));

    SendSize(bookmarks, 50, 40);
    EXPECT_EQ(ViewRect(bookmarks), CRect(1, 1, 199, 99));

    bookmarks.MoveWindow(0, 0, 260, 130);
    EXPECT_EQ(ViewRect(bookmarks), CRect(1, 1, 259, 129));
}

TEST_F(PaneLayout, MessageSizePanesFollowTheSizeTheyAreSent)
{
    CDockBarBrkpnt breakpoints;
    CDockBarFuncList functions;
    ASSERT_TRUE(CreatePane(breakpoints, CRect(0, 0, 300, 150)));
    ASSERT_TRUE(CreatePane(functions, CRect(0, 150, 300, 300)));
    EXPECT_EQ(ViewRect(breakpoints), CRect(1, 1, 299, 149));

    SendSize(breakpoints, 200, 100);
    SendSize(functions, 200, 100);
    EXPECT_EQ(ViewRect(breakpoints), CRect(1, 1, 199, 99));
    EXPECT_EQ(ViewRect(functions), CRect(1, 1, 199, 99));
}

TEST_F(PaneLayout, WatchPaneLaysTheGridOutInsideItsClient)
{
    CDockBarWatch watch;
    ASSERT_TRUE(CreatePane(watch, CRect(0, 0, 500, 200)));
    EXPECT_EQ(ViewRect(watch), CRect(1, 1, 499, 199));

    // The last column takes what the others leave of the client's width.
    auto* grid = ViewOf<CWatchGridCtrl>(watch);
    ASSERT_NE(grid, nullptr);
    watch.MoveWindow(0, 0, 700, 200);
    EXPECT_EQ(ViewRect(watch), CRect(1, 1, 699, 199));
    int columns = 0;
    for (int c = 0; c < 4; ++c) columns += grid->GetColumnWidth(c);
    EXPECT_EQ(columns, 700);
}

TEST_F(PaneLayout, EveryPaneHasNoViewWindowUntilItIsCreated)
{
    CDockBarWorkspace1 files;
    CDockBarWorkspace2 targets;
    CDockBarBookMark bookmarks;
    CDockBarBrkpnt breakpoints;
    CDockBarFuncList functions;
    CDockBarMessage messages;
    CDockBarSearch search;
    CDockBarDebugMessage debug;
    CDockBarWatch watch;
    const HWND before[] = {files.GetViewHwnd(),     targets.GetViewHwnd(),  bookmarks.GetViewHwnd(),
                           breakpoints.GetViewHwnd(), functions.GetViewHwnd(), messages.GetViewHwnd(),
                           search.GetViewHwnd(),    debug.GetViewHwnd(),    watch.GetViewHwnd()};
    for (HWND view : before) EXPECT_EQ(view, nullptr);

    ASSERT_TRUE(CreatePane(files));
    ASSERT_TRUE(CreatePane(watch));
    EXPECT_EQ(::GetParent(files.GetViewHwnd()), files.GetSafeHwnd());
    EXPECT_EQ(::GetParent(watch.GetViewHwnd()), watch.GetSafeHwnd());
    EXPECT_EQ(files.GetPageCtrl()->GetSafeHwnd(), files.GetViewHwnd());
}

TEST_F(PaneLayout, MessagePanesSetTheirViewsGotoMode)
{
    CDockBarMessage messages;
    CDockBarSearch search;
    CDockBarDebugMessage debug;
    ASSERT_TRUE(CreatePane(messages));
    ASSERT_TRUE(CreatePane(search));
    ASSERT_TRUE(CreatePane(debug));
    EXPECT_EQ(ViewOf<CMessageEditCtrl>(messages)->GetGotoMode(), 0);
    EXPECT_EQ(ViewOf<CMessageEditCtrl>(search)->GetGotoMode(), 1);
    EXPECT_EQ(ViewOf<CMessageEditCtrl>(debug)->GetGotoMode(), 3);
}

// A view whose window already exists elsewhere cannot be created under the
// pane, which must then refuse to exist.
TEST_F(PaneLayout, AViewThatFailsToCreateFailsThePane)
{
    CDockBarWorkspace2 targets;
    ASSERT_TRUE(targets.GetPageCtrl()->Create(&host));
    const size_t hostChildren = GetDescendants(host.GetSafeHwnd()).size();

    EXPECT_FALSE(CreatePane(targets));
    EXPECT_EQ(targets.GetSafeHwnd(), nullptr);
    EXPECT_EQ(GetDescendants(host.GetSafeHwnd()).size(), hostChildren);
}

// Sends a size while handling its own creation, before the base pane makes
// the view: what a frame does when it sizes a bar from inside WM_CREATE.
template <class Pane>
class EarlySizedPane : public Pane {
public:
    CSize sizeWhileCreating{-1, -1};

protected:
    int OnCreate(LPCREATESTRUCT create)
    {
        this->SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(150, 70));
        sizeWhileCreating = this->GetLastSize();
        return Pane::OnCreate(create);
    }

    using ThisClass = EarlySizedPane;
    using TheBaseClass = Pane;
    static const AFX_MSGMAP* GetThisMessageMap()
    {
        static const AFX_MSGMAP_ENTRY entries[] = {ON_WM_CREATE(){0, 0, 0, 0, nullptr}};
        static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries};
        return &map;
    }
    const AFX_MSGMAP* GetMessageMap() const override { return GetThisMessageMap(); }
};

TEST_F(PaneLayout, ASizeBeforeTheViewExistsReachesOnlyTheBasePane)
{
    EarlySizedPane<CDockBarBrkpnt> breakpoints;
    EarlySizedPane<CDockBarBookMark> bookmarks;
    ASSERT_TRUE(CreatePane(breakpoints));
    ASSERT_TRUE(CreatePane(bookmarks));
    EXPECT_EQ(breakpoints.sizeWhileCreating, CSize(150, 70));
    EXPECT_EQ(bookmarks.sizeWhileCreating, CSize(150, 70));
    // The first real size after creation lays the views out as usual.
    EXPECT_EQ(ViewRect(breakpoints), CRect(1, 1, 199, 99));
    EXPECT_EQ(ViewRect(bookmarks), CRect(1, 1, 199, 99));
}

}  // namespace
