// The one-pixel frame each pane draws just around its view.
#include "panes/dock_bar_book_mark.h"
#include "panes/dock_bar_brkpnt.h"
#include "panes/dock_bar_watch.h"
#include "platform/gdi/sys_color.h"
#include "tests/panes/pane_fixture.h"
#include "tests/support/window_pixels.h"

namespace {

using PaneFrame = PaneFixture;

// Pixels of the shadow colour along the outline of a rectangle, corners once.
int ShadowOnOutline(const WindowPixels& pixels, const CRect& r)
{
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    int n = pixels.Count(shadow, CRect(r.left, r.top, r.right, r.top + 1)) +
            pixels.Count(shadow, CRect(r.left, r.bottom - 1, r.right, r.bottom));
    n += pixels.Count(shadow, CRect(r.left, r.top + 1, r.left + 1, r.bottom - 1)) +
         pixels.Count(shadow, CRect(r.right - 1, r.top + 1, r.right, r.bottom - 1));
    return n;
}

constexpr int OutlineLength(int cx, int cy) { return 2 * cx + 2 * (cy - 2); }

TEST_F(PaneFrame, BookmarkPaneFramesItsViewAtTheClientEdge)
{
    CDockBarBookMark bookmarks;
    ASSERT_TRUE(CreatePane(bookmarks));
    Paint::UpdateAllWindows();
    const WindowPixels pixels(bookmarks);
    ASSERT_TRUE(pixels.Valid());
    EXPECT_EQ(ShadowOnOutline(pixels, CRect(0, 0, 200, 100)), OutlineLength(200, 100));
    // Inside the frame is the view's own background, not more frame.
    EXPECT_NE(pixels.At(1, 1), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_NE(pixels.At(100, 50), GetSysColor(COLOR_BTNSHADOW));
}

// The frame is drawn around the view, wherever the last size put it.
TEST_F(PaneFrame, FrameFollowsTheViewNotTheClient)
{
    CDockBarBrkpnt breakpoints;
    ASSERT_TRUE(CreatePane(breakpoints));
    breakpoints.SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(150, 80));
    breakpoints.Invalidate();
    Paint::UpdateAllWindows();
    const WindowPixels pixels(breakpoints);
    EXPECT_EQ(ShadowOnOutline(pixels, CRect(0, 0, 150, 80)), OutlineLength(150, 80));
    EXPECT_NE(pixels.At(199, 99), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_NE(pixels.At(175, 0), GetSysColor(COLOR_BTNSHADOW));
}

TEST_F(PaneFrame, WatchPaneFramesItsGrid)
{
    CDockBarWatch watch;
    ASSERT_TRUE(CreatePane(watch, CRect(10, 20, 410, 220)));
    Paint::UpdateAllWindows();
    const WindowPixels pixels(watch);
    EXPECT_EQ(ShadowOnOutline(pixels, CRect(0, 0, 400, 200)), OutlineLength(400, 200));
}

}  // namespace
