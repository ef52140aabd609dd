// Real key and mouse events: keys whose text arrives apart, and double
// clicks timed by the events' own clock.
#include <gtest/gtest.h>

#include <vector>

#include "platform/core/input_state.h"
#include "platform/core/message_spy.h"
#include "platform/docking/frame_wnd.h"
#include "platform/input/input.h"
#include "platform/input/real_input.h"
#include "platform/input/screen_input.h"

namespace {

struct Seen {
    UINT message;
    WPARAM wParam;
    bool operator==(const Seen&) const = default;
};

// A focused window that records its key, character and left-button messages.
class RealInput : public ::testing::Test {
protected:
    void SetUp() override
    {
        InputState::ResetKeys();
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_VISIBLE, CRect(0, 0, 200, 100)));
        ASSERT_TRUE(target.Create(nullptr, "target", WS_VISIBLE, CRect(0, 0, 200, 100), &frame, 1));
        target.SetFocus();
        spy = MessageSpy::Add([this](HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
            const bool recorded = message == WM_KEYDOWN || message == WM_KEYUP || message == WM_CHAR ||
                                  message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
            if (hwnd == target.GetSafeHwnd() && recorded) seen.push_back(Seen{message, wParam});
        });
    }
    void TearDown() override
    {
        MessageSpy::Remove(spy);
        Input::Real::UseSimulatedClock();
        Input::Wait();
        InputState::ResetKeys();
        target.DestroyWindow();
        frame.DestroyWindow();
    }
    // A left click at a screen point over the target, at a real time.
    void ClickAt(DWORD time, POINT at)
    {
        Input::Real::SetTime(time);
        Input::Screen::Button(at, false, true, Input::kNone);
        Input::Screen::Button(at, false, false, Input::kNone);
    }
    int Count(UINT message) const
    {
        int n = 0;
        for (const Seen& s : seen) n += s.message == message ? 1 : 0;
        return n;
    }

    CFrameWnd frame;
    CWnd target;
    std::vector<Seen> seen;
    int spy = 0;
};

}  // namespace

TEST_F(RealInput, PrintableKeysTypeNothingTheirTextComesApart)
{
    Input::Real::Key('A', true);
    Input::Real::Char('a');
    Input::Real::Key('A', false);
    Input::Real::Key(VK_SPACE, true);
    Input::Real::Key(VK_SPACE, false);
    const std::vector<Seen> expected = {{WM_KEYDOWN, 'A'}, {WM_CHAR, 'a'}, {WM_KEYUP, 'A'}, {WM_KEYDOWN, VK_SPACE}, {WM_KEYUP, VK_SPACE}};
    EXPECT_EQ(seen, expected);
}

TEST_F(RealInput, ControlCharactersStillFollowTheirKeys)
{
    for (const UINT key : {VK_RETURN, VK_BACK, VK_ESCAPE, VK_TAB}) {
        Input::Real::Key(key, true);
        Input::Real::Key(key, false);
    }
    // Ctrl+C, Ctrl+V: the controls copy and paste on these characters.
    Input::Real::Key(VK_CONTROL, true);
    Input::Real::Key('C', true);
    Input::Real::Key('C', false);
    Input::Real::Key('V', true);
    Input::Real::Key(VK_RETURN, true);  // Ctrl+Enter types nothing
    Input::Real::Key(VK_CONTROL, false);
    std::vector<WPARAM> chars;
    for (const Seen& s : seen) {
        if (s.message == WM_CHAR) chars.push_back(s.wParam);
    }
    EXPECT_EQ(chars, (std::vector<WPARAM>{'\r', '\b', 0x1B, '\t', 0x03, 0x16}));
    EXPECT_FALSE(IsKeyDown(VK_CONTROL));
    EXPECT_TRUE(IsKeyDown('V'));  // never released: the state says so
}

TEST_F(RealInput, DoubleClicksFollowTheEventsTimes)
{
    POINT at{50, 50};
    frame.ClientToScreen(&at);
    ClickAt(100000, at);
    ClickAt(100000 + Input::kDoubleClickTime, at);  // just in time
    EXPECT_EQ(Count(WM_LBUTTONDBLCLK), 1);
    ClickAt(200000, at);
    ClickAt(200000 + Input::kDoubleClickTime + 1, at);  // too late
    EXPECT_EQ(Count(WM_LBUTTONDBLCLK), 1);
    EXPECT_EQ(Count(WM_LBUTTONDOWN), 3);
}

TEST_F(RealInput, TheSimulatedClockMovesOnAgainAfterRealTime)
{
    POINT at{50, 50};
    frame.ClientToScreen(&at);
    Input::Real::SetTime(300000);
    Input::Real::UseSimulatedClock();
    // Each event moves the simulated clock a step: enough moves between two
    // clicks in place outlast the double-click time.
    Input::Screen::Button(at, false, true, Input::kNone);
    Input::Screen::Button(at, false, false, Input::kNone);
    for (unsigned t = 0; t < Input::kDoubleClickTime; t += Input::kEventSpacing) Input::Screen::Move(at, Input::kNone);
    Input::Screen::Button(at, false, true, Input::kNone);
    Input::Screen::Button(at, false, false, Input::kNone);
    EXPECT_EQ(Count(WM_LBUTTONDBLCLK), 0);
    EXPECT_EQ(Count(WM_LBUTTONDOWN), 2);
}
