// Scroll bars: their geometry, the platform's rules for showing them, what a
// press, a click and a thumb drag send, how they look, and WM_MOUSELEAVE.
#include <gtest/gtest.h>

#include <vector>

#include "platform/core/input_state.h"
#include "platform/core/paint.h"
#include "platform/core/scroll_bar_geometry.h"
#include "platform/core/window_frame.h"
#include "platform/docking/frame_wnd.h"
#include "platform/gdi/sys_color.h"
#include "platform/input/input.h"
#include "tests/support/window_pixels.h"

namespace {

using scrollbar::LayoutBar;
using scrollbar::PartAt;

ScrollBarState Bar(int min, int max, UINT page, int pos)
{
    ScrollBarState s;
    s.min = min;
    s.max = max;
    s.page = page;
    s.pos = pos;
    return s;
}

TEST(ScrollBarGeometry, ArrowsAtTheEndsAndAThumbSizedByThePage)
{
    const CRect bar(0, 0, 16, 200);
    // 100 positions, a page of 25: the thumb is a quarter of the 168-pixel track.
    auto l = LayoutBar(bar, true, Bar(0, 99, 25, 0));
    EXPECT_TRUE(l.enabled);
    EXPECT_EQ(l.lineBefore, CRect(0, 0, 16, 16));
    EXPECT_EQ(l.lineAfter, CRect(0, 184, 16, 200));
    EXPECT_EQ(l.thumb, CRect(0, 16, 16, 16 + 42));
    EXPECT_TRUE(l.pageBefore.IsRectEmpty());
    EXPECT_EQ(l.pageAfter, CRect(0, 58, 16, 184));

    // At the last position the thumb touches the second arrow.
    l = LayoutBar(bar, true, Bar(0, 99, 25, 75));
    EXPECT_EQ(l.thumb.bottom, 184);
    // A position past the last one is drawn at the end, never beyond.
    l = LayoutBar(bar, true, Bar(0, 99, 25, 1000));
    EXPECT_EQ(l.thumb.bottom, 184);

    // A huge range keeps the thumb at its least length.
    l = LayoutBar(CRect(0, 0, 300, 16), false, Bar(0, 100'000'000, 10, 0));
    EXPECT_EQ(l.thumb.Width(), scrollbar::kMinThumb);
    EXPECT_EQ(l.lineBefore, CRect(0, 0, 16, 16));
}

TEST(ScrollBarGeometry, ShortOrIdleBarsHaveNoThumb)
{
    // Too short for two whole arrows: they share the length, no track.
    auto l = LayoutBar(CRect(0, 0, 16, 20), true, Bar(0, 99, 10, 0));
    EXPECT_EQ(l.lineBefore, CRect(0, 0, 16, 10));
    EXPECT_EQ(l.lineAfter, CRect(0, 10, 16, 20));
    EXPECT_TRUE(l.thumb.IsRectEmpty());
    // Nothing to scroll: greyed, no thumb, the track does nothing.
    l = LayoutBar(CRect(0, 0, 16, 200), true, Bar(0, 9, 10, 0));
    EXPECT_FALSE(l.enabled);
    EXPECT_TRUE(l.thumb.IsRectEmpty());
    EXPECT_EQ(PartAt(l, CPoint(8, 100)), scrollbar::kNoPart);
}

TEST(ScrollBarGeometry, HitPartsAndTheThumbRoundTrip)
{
    const ScrollBarState s = Bar(0, 999, 100, 400);
    const auto l = LayoutBar(CRect(0, 0, 216, 16), false, s);
    EXPECT_EQ(PartAt(l, CPoint(3, 8)), scrollbar::kLineBefore);
    EXPECT_EQ(PartAt(l, CPoint(210, 8)), scrollbar::kLineAfter);
    EXPECT_EQ(PartAt(l, CPoint(l.thumb.left + 1, 8)), scrollbar::kThumb);
    EXPECT_EQ(PartAt(l, CPoint(l.thumb.left - 1, 8)), scrollbar::kPageBefore);
    EXPECT_EQ(PartAt(l, CPoint(l.thumb.right, 8)), scrollbar::kPageAfter);
    EXPECT_EQ(PartAt(l, CPoint(300, 8)), scrollbar::kNoPart);
    // The thumb's own place gives back a position drawn at that place (a
    // pixel stands for several positions); the ends give the ends.
    const int back = scrollbar::PosForThumbAt(l, s, l.thumb.left);
    EXPECT_NEAR(back, 400, 900 / (216 - 32 - l.thumb.Width()));
    EXPECT_EQ(LayoutBar(l.bar, false, Bar(0, 999, 100, back)).thumb, l.thumb);
    EXPECT_EQ(scrollbar::PosForThumbAt(l, s, -1000), 0);
    EXPECT_EQ(scrollbar::PosForThumbAt(l, s, 1000), 900);
}

// A child window that counts its size changes and records its scroll requests.
class ScrollWnd : public CWnd {
public:
    struct Request {
        UINT message;
        UINT code;
        int pos;
    };
    std::vector<Request> requests;
    int sizes = 0;
    int clicks = 0;
    int leaves = 0;

protected:
    DECLARE_MESSAGE_MAP()
    void OnSize(UINT, int, int) { ++sizes; }
    void OnLButtonDown(UINT, CPoint) { ++clicks; }
    LRESULT OnVScroll(WPARAM wParam, LPARAM) { return Record(WM_VSCROLL, wParam); }
    LRESULT OnHScroll(WPARAM wParam, LPARAM) { return Record(WM_HSCROLL, wParam); }
    LRESULT OnMouseLeave(WPARAM, LPARAM)
    {
        ++leaves;
        return 0;
    }
    LRESULT Record(UINT message, WPARAM wParam)
    {
        requests.push_back({message, LOWORD(wParam), ScrollRequestPosition(m_hWnd, message, wParam)});
        return 0;
    }
};

BEGIN_MESSAGE_MAP(ScrollWnd, CWnd)
    ON_WM_SIZE()
    ON_WM_LBUTTONDOWN()
    ON_MESSAGE(WM_VSCROLL, &ScrollWnd::OnVScroll)
    ON_MESSAGE(WM_HSCROLL, &ScrollWnd::OnHScroll)
    ON_MESSAGE(WM_MOUSELEAVE, &ScrollWnd::OnMouseLeave)
END_MESSAGE_MAP()

// A 200 x 100 window with both bars at (10, 10) in a frame.
class ScrollBars : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 300, 200)));
        ASSERT_TRUE(wnd.Create(nullptr, "bars", WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL, CRect(10, 10, 210, 110), &frame, 1));
        Paint::UpdateAllWindows();
        Input::Wait();
    }
    void TearDown() override
    {
        wnd.DestroyWindow();
        frame.DestroyWindow();
    }
    void SetBar(int bar, int max, UINT page, int pos)
    {
        SCROLLINFO info;
        info.fMask = SIF_ALL;
        info.nMin = 0;
        info.nMax = max;
        info.nPage = page;
        info.nPos = pos;
        wnd.SetScrollInfo(bar, &info);
    }
    CRect Client() const
    {
        CRect client;
        wnd.GetClientRect(&client);
        return client;
    }
    CFrameWnd frame;
    ScrollWnd wnd;
};

TEST_F(ScrollBars, ShownBarsTakeTheirRoomAndRangesShowOrHideThem)
{
    EXPECT_EQ(Client(), CRect(0, 0, 200 - kScrollBarSize, 100 - kScrollBarSize));
    wnd.sizes = 0;
    // A range that fits its page hides the bar, and the client grows.
    SetBar(SB_VERT, 9, 10, 0);
    EXPECT_FALSE(wnd.GetStyle() & WS_VSCROLL);
    EXPECT_EQ(Client(), CRect(0, 0, 200, 100 - kScrollBarSize));
    EXPECT_EQ(wnd.sizes, 1);
    // One that does not shows it again.
    SetBar(SB_VERT, 10, 10, 0);
    EXPECT_TRUE(wnd.GetStyle() & WS_VSCROLL);
    EXPECT_EQ(wnd.sizes, 2);
    // Setting the same again changes nothing.
    SetBar(SB_VERT, 10, 10, 0);
    EXPECT_EQ(wnd.sizes, 2);
    // SIF_DISABLENOSCROLL keeps a shown bar, greyed.
    SCROLLINFO keep;
    keep.fMask = SIF_RANGE | SIF_PAGE | SIF_DISABLENOSCROLL;
    keep.nMax = 5;
    keep.nPage = 10;
    wnd.SetScrollInfo(SB_VERT, &keep);
    EXPECT_TRUE(wnd.GetStyle() & WS_VSCROLL);
    // ShowScrollBar hides both at once, with one size change.
    wnd.sizes = 0;
    wnd.ShowScrollBar(SB_BOTH, FALSE);
    EXPECT_EQ(Client(), CRect(0, 0, 200, 100));
    EXPECT_EQ(wnd.sizes, 1);
}

TEST_F(ScrollBars, PositionsStayWhereAWholePageFits)
{
    SetBar(SB_VERT, 99, 10, 500);
    EXPECT_EQ(wnd.GetScrollPos(SB_VERT), 90);
    EXPECT_EQ(wnd.SetScrollPos(SB_VERT, -4), 90);
    EXPECT_EQ(wnd.GetScrollPos(SB_VERT), 0);
    // A page larger than the range is cut to it; max below min is raised.
    SetBar(SB_VERT, 9, 1000, 3);
    SCROLLINFO info;
    ASSERT_TRUE(wnd.GetScrollInfo(SB_VERT, &info));
    EXPECT_EQ(info.nPage, 10u);
    EXPECT_EQ(info.nPos, 0);
    // Bad bars and windows answer nothing.
    EXPECT_EQ(::SetScrollInfo(wnd, SB_CTL, &info, TRUE), 0);
    EXPECT_FALSE(::GetScrollInfo(nullptr, SB_VERT, &info));
    EXPECT_FALSE(::GetScrollInfo(wnd, SB_VERT, nullptr));
}

TEST_F(ScrollBars, ArrowsAndTrackSendLinesAndPagesNotClicks)
{
    SetBar(SB_VERT, 99, 10, 0);
    SetBar(SB_HORZ, 999, 100, 0);
    const CRect client = Client();
    // The down arrow is the bar's last 16 pixels, right of the client.
    Input::Click(&wnd, CPoint(client.right + 8, client.bottom - 4));
    Input::Wait();
    // The track below the thumb (at the top) pages down.
    Input::Click(&wnd, CPoint(client.right + 8, client.bottom / 2 + 10));
    Input::Wait();
    // The left arrow of the horizontal bar.
    Input::Click(&wnd, CPoint(4, client.bottom + 8));
    Input::Wait();
    // The corner between the bars does nothing.
    Input::Click(&wnd, CPoint(client.right + 8, client.bottom + 8));
    ASSERT_EQ(wnd.requests.size(), 6u);
    EXPECT_EQ(wnd.requests[0].code, SB_LINEDOWN);
    EXPECT_EQ(wnd.requests[1].code, SB_ENDSCROLL);
    EXPECT_EQ(wnd.requests[2].code, SB_PAGEDOWN);
    EXPECT_EQ(wnd.requests[4].message, static_cast<UINT>(WM_HSCROLL));
    EXPECT_EQ(wnd.requests[4].code, SB_LINEUP);
    EXPECT_EQ(wnd.clicks, 0);  // none of it reached the client
    Input::Click(&wnd, CPoint(5, 5));
    EXPECT_EQ(wnd.clicks, 1);
}

TEST_F(ScrollBars, DraggingTheThumbTracksFullPositionsAndEndsOnRelease)
{
    // More positions than 16 bits hold: the track position carries them.
    SetBar(SB_VERT, 199'999, 10, 0);
    const CRect client = Client();
    const CPoint grip(client.right + 8, kScrollBarSize + 3);  // on the thumb, at the top
    Input::MouseDown(&wnd, grip);
    EXPECT_TRUE(wnd.requests.empty());  // a press on the thumb requests nothing yet
    Input::MouseMove(&wnd, CPoint(grip.x, grip.y + 20));
    Input::MouseMove(&wnd, CPoint(grip.x + 30, client.bottom + 50));  // beyond the end
    Input::MouseUp(&wnd, CPoint(grip.x + 30, client.bottom + 50));
    ASSERT_EQ(wnd.requests.size(), 4u);
    EXPECT_EQ(wnd.requests[0].code, SB_THUMBTRACK);
    EXPECT_GT(wnd.requests[0].pos, 70'000);  // 20 of the track's 44 free pixels
    EXPECT_EQ(wnd.requests[1].code, SB_THUMBTRACK);
    EXPECT_EQ(wnd.requests[1].pos, 199'990);
    EXPECT_EQ(wnd.requests[2].code, SB_THUMBPOSITION);
    EXPECT_EQ(wnd.requests[2].pos, 199'990);
    EXPECT_EQ(wnd.requests[3].code, SB_ENDSCROLL);
    // The window set no position, so the thumb returns to it; the drag is over.
    EXPECT_EQ(wnd.GetScrollPos(SB_VERT), 0);
    Input::Click(&wnd, CPoint(5, 5));
    EXPECT_EQ(wnd.clicks, 1);

    // A drag whose release was lost ends at the next press, and tracks no more.
    Input::Wait();
    Input::MouseDown(&wnd, grip);
    Input::MouseDown(&wnd, CPoint(5, 5));
    EXPECT_EQ(ScrollRequestPosition(wnd, WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 7)), 7);
    Input::MouseUp(&wnd, CPoint(5, 5));
    Input::Wait();
    Input::Click(&wnd, CPoint(5, 5));
    EXPECT_EQ(wnd.clicks, 2);
}

TEST_F(ScrollBars, TheClassicLookArrowsTrackThumbAndCorner)
{
    SetBar(SB_VERT, 99, 10, 0);
    SetBar(SB_HORZ, 9, 5, 0);
    Paint::UpdateAllWindows();
    const WindowPixels pixels(wnd);
    const CRect client = Client();
    const int barX = client.right;
    // The up arrow's glyph is a triangle in the button text colour.
    EXPECT_EQ(pixels.At(barX + 7, 7), GetSysColor(COLOR_BTNTEXT));
    EXPECT_EQ(pixels.At(barX + 2, 2), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(pixels.At(barX, 0), GetSysColor(COLOR_3DLIGHT));  // raised edge
    // The thumb under the arrow is a raised face; the track below it a dither.
    EXPECT_EQ(pixels.At(barX + 8, kScrollBarSize + 4), GetSysColor(COLOR_BTNFACE));
    const COLORREF a = pixels.At(barX + 8, 60);
    const COLORREF b = pixels.At(barX + 9, 60);
    EXPECT_NE(a, b);
    EXPECT_TRUE((a == GetSysColor(COLOR_BTNHIGHLIGHT) && b == GetSysColor(COLOR_BTNFACE)) ||
                (b == GetSysColor(COLOR_BTNHIGHLIGHT) && a == GetSysColor(COLOR_BTNFACE)));
    // The corner is plain face colour.
    EXPECT_EQ(pixels.At(barX + 8, client.bottom + 8), GetSysColor(COLOR_BTNFACE));
    // A press draws the arrow sunken: its glyph moves one pixel down and right.
    Input::MouseDown(&wnd, CPoint(barX + 8, client.bottom - 8));
    const WindowPixels pressed(wnd);
    EXPECT_EQ(pressed.At(barX + 15, client.bottom - 1), GetSysColor(COLOR_BTNSHADOW));
    Input::MouseUp(&wnd, CPoint(barX + 8, client.bottom - 8));
    EXPECT_EQ(WindowPixels(wnd).At(barX + 15, client.bottom - 1), GetSysColor(COLOR_3DDKSHADOW));
}

TEST_F(ScrollBars, TheMouseLeavingTheClientIsToldOnce)
{
    TRACKMOUSEEVENT track;
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = wnd;
    ASSERT_TRUE(TrackMouseEvent(&track));
    Input::MouseMove(&wnd, CPoint(5, 5));  // still inside
    EXPECT_EQ(wnd.leaves, 0);
    const CRect client = Client();
    Input::MouseMove(&wnd, CPoint(client.right + 4, 30));  // onto the bar
    EXPECT_EQ(wnd.leaves, 1);
    Input::MouseMove(&frame, CPoint(250, 150));
    EXPECT_EQ(wnd.leaves, 1);  // asked once, told once
    // A cancelled request is not answered; a gone window is not asked.
    ASSERT_TRUE(TrackMouseEvent(&track));
    track.dwFlags = TME_LEAVE | TME_CANCEL;
    ASSERT_TRUE(TrackMouseEvent(&track));
    Input::MouseMove(&wnd, CPoint(5, 5));
    Input::MouseMove(&frame, CPoint(250, 150));
    EXPECT_EQ(wnd.leaves, 1);
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = nullptr;
    EXPECT_FALSE(TrackMouseEvent(&track));
}

}  // namespace
