// The screen a display shows: top-level windows composed in z-order, and the
// area that changed since the display last took it.
#include <gtest/gtest.h>

#include "platform/core/paint.h"
#include "platform/core/paint_dc.h"
#include "platform/docking/frame_wnd.h"
#include "platform/gdi/surface.h"
#include "platform/gdi/sys_color.h"

namespace {

class FilledWnd : public CWnd {
public:
    explicit FilledWnd(COLORREF colour) : m_colour(colour) {}
    COLORREF m_colour;

protected:
    DECLARE_MESSAGE_MAP()
    void OnPaint()
    {
        CPaintDC dc(this);
        CRect client;
        GetClientRect(&client);
        dc.FillSolidRect(&client, m_colour);
    }
};

BEGIN_MESSAGE_MAP(FilledWnd, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

CRect ScreenRectOf(CWnd& window, const CRect& client)
{
    CRect rect = client;
    window.ClientToScreen(&rect);
    return rect;
}

// A frame with a child at a known place, and a popup over part of the frame.
class Screen : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_VISIBLE, CRect(0, 0, 200, 100)));
        ASSERT_TRUE(child.Create(nullptr, "child", WS_VISIBLE, CRect(10, 10, 60, 40), &frame, 1));
        ASSERT_TRUE(popup.CreateEx(0, "ScreenTest", "popup", WS_POPUP | WS_VISIBLE, CRect(150, 50, 250, 90), nullptr, 0));
        Paint::UpdateAllWindows();
        Paint::TakeDirtyScreenArea();
    }
    void TearDown() override
    {
        popup.DestroyWindow();
        child.DestroyWindow();
        frame.DestroyWindow();
        Paint::TakeDirtyScreenArea();
    }
    static COLORREF At(const Surface& surface, int x, int y) { return PixelToColorRef(surface.GetPixel(x, y)); }

    CFrameWnd frame;
    FilledWnd child{RGB(255, 0, 0)};
    FilledWnd popup{RGB(0, 0, 255)};
};

}  // namespace

TEST_F(Screen, NothingChangedLeavesNothingDirty)
{
    EXPECT_TRUE(Paint::TakeDirtyScreenArea().IsRectEmpty());
    Paint::UpdateAllWindows();  // nothing invalid: nothing painted
    EXPECT_TRUE(Paint::TakeDirtyScreenArea().IsRectEmpty());
}

TEST_F(Screen, PaintingMarksTheAreaPaintedOnceAndUnionsSeveral)
{
    const CRect part(5, 5, 15, 12);
    child.InvalidateRect(&part);
    Paint::UpdateAllWindows();
    EXPECT_EQ(Paint::TakeDirtyScreenArea(), ScreenRectOf(child, part));
    EXPECT_TRUE(Paint::TakeDirtyScreenArea().IsRectEmpty());  // taken

    const CRect other(40, 20, 50, 30);
    child.InvalidateRect(&part);
    Paint::UpdateAllWindows();
    child.InvalidateRect(&other);
    Paint::UpdateAllWindows();
    CRect both;
    both.UnionRect(ScreenRectOf(child, part), ScreenRectOf(child, other));
    EXPECT_EQ(Paint::TakeDirtyScreenArea(), both);
}

TEST_F(Screen, DrawingThroughAClientDcMarksAllItMayDrawOn)
{
    {
        CClientDC dc(&child);
    }
    CRect client;
    child.GetClientRect(&client);
    EXPECT_EQ(Paint::TakeDirtyScreenArea(), ScreenRectOf(child, client));
}

TEST_F(Screen, ATopLevelWindowMovedHiddenOrDestroyedDirtiesWhereItWasAndIs)
{
    CRect before;
    popup.GetWindowRect(&before);
    popup.MoveWindow(CRect(20, 70, 60, 90));
    Paint::UpdateAllWindows();
    CRect expected;
    expected.UnionRect(before, CRect(20, 70, 60, 90));
    EXPECT_EQ(Paint::TakeDirtyScreenArea(), expected);

    popup.ShowWindow(SW_HIDE);
    Paint::UpdateAllWindows();
    EXPECT_EQ(Paint::TakeDirtyScreenArea(), CRect(20, 70, 60, 90));

    popup.ShowWindow(SW_SHOW);
    Paint::UpdateAllWindows();
    Paint::TakeDirtyScreenArea();
    popup.DestroyWindow();
    EXPECT_EQ(Paint::TakeDirtyScreenArea(), CRect(20, 70, 60, 90));
}

TEST_F(Screen, ComposesTopLevelWindowsInZOrderOverTheDesktop)
{
    const CRect area(140, 40, 260, 100);  // the frame's corner, the popup, desktop right of the frame
    Surface screen(area.Width(), area.Height());
    Paint::ComposeScreen(area, screen, POINT{0, 0});
    const COLORREF desktop = GetSysColor(COLOR_BACKGROUND);
    EXPECT_EQ(At(screen, 20, 20), RGB(0, 0, 255));    // (160, 60): the popup, over the frame
    EXPECT_EQ(At(screen, 115, 55), desktop);          // (255, 95): nothing there
    EXPECT_NE(At(screen, 5, 5), RGB(0, 0, 255));      // (145, 45): the frame, left of the popup
    EXPECT_NE(At(screen, 5, 5), desktop);
}

TEST_F(Screen, ComposingIntoAPlaceOfATargetClipsToTheTarget)
{
    const CRect childRect = ScreenRectOf(child, CRect(0, 0, 50, 30));
    const std::uint32_t marker = 0x123456;
    Surface target(40, 20, marker);
    // The area's corner lands at (30, 15): only a 10 x 5 piece fits.
    Paint::ComposeScreen(childRect, target, POINT{30, 15});
    EXPECT_EQ(At(target, 30, 15), RGB(255, 0, 0));
    EXPECT_EQ(At(target, 39, 19), RGB(255, 0, 0));
    EXPECT_EQ(target.GetPixel(29, 15), marker);
    EXPECT_EQ(target.GetPixel(30, 14), marker);

    // Wholly outside, or starting left of the target: nothing written out of it.
    Paint::ComposeScreen(childRect, target, POINT{40, 0});
    Paint::ComposeScreen(childRect, target, POINT{-45, -25});
    EXPECT_EQ(At(target, 0, 0), RGB(255, 0, 0));  // the child's last 5 x 5 pixels
    EXPECT_EQ(At(target, 4, 4), RGB(255, 0, 0));
    EXPECT_EQ(target.GetPixel(5, 5), marker);
}
