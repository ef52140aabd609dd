// Gestures: events queued, then played in order, with moves spread along
// the way and modifier keys held as real keys.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/core/input_state.h"
#include "platform/docking/frame_wnd.h"
#include "platform/input/input.h"

namespace {

// Logs the mouse messages it gets as "<what> <x>,<y> f<flags>".
class MouseLogWnd : public CWnd {
public:
    std::vector<std::string> log;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const char* what = message == WM_MOUSEMOVE     ? "move"
                           : message == WM_LBUTTONDOWN ? "down"
                           : message == WM_LBUTTONUP   ? "up"
                           : message == WM_RBUTTONDOWN ? "rdown"
                           : message == WM_RBUTTONUP   ? "rup"
                                                       : nullptr;
        if (what) {
            const CPoint p(lParam);
            log.push_back(std::string(what) + " " + std::to_string(p.x) + "," + std::to_string(p.y) + " f" +
                          std::to_string(wParam));
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class Gestures : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 300, 200)));
        ASSERT_TRUE(wnd.Create(nullptr, "log", WS_CHILD | WS_VISIBLE, CRect(10, 10, 210, 110), &frame, 1));
        Input::Wait();
    }
    void TearDown() override
    {
        EXPECT_FALSE(Input::PlayNext());
        EXPECT_FALSE(IsKeyDown(VK_LBUTTON));
        EXPECT_FALSE(IsKeyDown(VK_CONTROL));
        frame.DestroyWindow();
    }

    CFrameWnd frame;
    MouseLogWnd wnd;
};

TEST_F(Gestures, MovesAreSpreadEvenlyAndEventsArriveInOrder)
{
    Input::Gesture()
        .Press(&wnd, CPoint(0, 0))
        .MoveTo(&wnd, CPoint(40, 20), 4)
        .KeyDown(VK_CONTROL)
        .MoveTo(&wnd, CPoint(41, 20))
        .Release()
        .KeyUp(VK_CONTROL)
        .Play();
    EXPECT_EQ(wnd.log, (std::vector<std::string>{"down 0,0 f1", "move 10,5 f1", "move 20,10 f1", "move 30,15 f1",
                                                 "move 40,20 f1", "move 41,20 f9", "up 41,20 f8"}));
    // Input::Drag holds its modifiers from before the press to after the release.
    wnd.log.clear();
    Input::Wait();
    Input::Drag(&wnd, CPoint(5, 5), CPoint(25, 5), 2, Input::kControl);
    EXPECT_EQ(wnd.log, (std::vector<std::string>{"down 5,5 f9", "move 15,5 f9", "move 25,5 f9", "up 25,5 f8"}));
}

TEST_F(Gestures, QueuedEventsWaitToBePlayed)
{
    Input::Gesture().Press(&wnd, CPoint(1, 1), true).MoveTo(&wnd, CPoint(3, 1), 2).Release().Queue();
    EXPECT_TRUE(wnd.log.empty());
    ASSERT_TRUE(Input::PlayNext());
    EXPECT_EQ(wnd.log, std::vector<std::string>{"rdown 1,1 f2"});
    Input::PlayQueued();
    EXPECT_EQ(wnd.log.back(), "rup 3,1 f0");
    EXPECT_EQ(wnd.log.size(), 4u);
}

TEST_F(Gestures, OddStepCountsAndGoneWindowsAreSafe)
{
    // No steps or fewer: one move. A huge count is bounded.
    Input::Gesture().Press(&wnd, CPoint(0, 0)).MoveTo(&wnd, CPoint(8, 0), 0).MoveTo(&wnd, CPoint(9, 0), -3).Release().Play();
    EXPECT_EQ(wnd.log.size(), 4u);
    wnd.log.clear();
    Input::Wait();
    Input::Gesture().Press(&wnd, CPoint(0, 0)).MoveTo(&wnd, CPoint(100, 50), 1 << 30).Release().Play();
    EXPECT_LT(wnd.log.size(), 10'000u);
    EXPECT_EQ(wnd.log.back(), "up 100,50 f0");
    // A gone window adds nothing to a gesture: the events already added stay
    // where they were.
    wnd.log.clear();
    Input::Wait();
    CWnd gone;
    ASSERT_TRUE(gone.Create(nullptr, "gone", WS_CHILD | WS_VISIBLE, CRect(220, 10, 260, 50), &frame, 2));
    Input::Gesture gesture;
    gesture.Press(&wnd, CPoint(2, 2));
    gone.DestroyWindow();
    gesture.MoveTo(&gone, CPoint(1, 1)).Press(&gone, CPoint(1, 1)).Release().Play();
    EXPECT_EQ(wnd.log, (std::vector<std::string>{"down 2,2 f1", "up 2,2 f0"}));
    Input::Drag(&gone, CPoint(0, 0), CPoint(5, 5));
}

}  // namespace
