// Focus watchers: told of each move of the focus once it has settled, after
// both windows have heard, and free to stop watching from inside the call.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "platform/core/focus_watch.h"
#include "platform/core/wnd.h"

namespace {

// Moves the focus on to `next` whenever it gains it, as a pane passes focus to its view.
class PassingWnd : public CWnd {
public:
    CWnd* next = nullptr;

protected:
    DECLARE_MESSAGE_MAP()
    void OnSetFocus(CWnd*)
    {
        if (next) next->SetFocus();
    }
};

BEGIN_MESSAGE_MAP(PassingWnd, CWnd)
    ON_WM_SETFOCUS()
END_MESSAGE_MAP()

class FocusWatchTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(parent.CreateEx(0, "FocusParent", "parent", WS_OVERLAPPED | WS_VISIBLE, CRect(0, 0, 200, 100), nullptr, 0));
        ASSERT_TRUE(a.Create("A", "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 50), &parent, 1));
        ASSERT_TRUE(b.Create("B", "", WS_CHILD | WS_VISIBLE, CRect(50, 0, 100, 50), &parent, 2));
        ::SetFocus(nullptr);
    }
    void TearDown() override
    {
        for (int cookie : cookies) FocusWatch::Remove(cookie);
    }

    void Watch()
    {
        cookies.push_back(FocusWatch::Add([this](HWND lost, HWND gained) {
            moves.emplace_back(lost, gained);
            focusWhenTold.push_back(::GetFocus());
        }));
    }

    CWnd parent;
    PassingWnd a;
    CWnd b;
    std::vector<int> cookies;
    std::vector<std::pair<HWND, HWND>> moves;
    std::vector<HWND> focusWhenTold;
};

TEST_F(FocusWatchTest, EachMoveIsToldOnceWithTheWindowsThatLostAndGained)
{
    Watch();
    a.SetFocus();
    b.SetFocus();
    b.SetFocus();  // no move
    ::SetFocus(nullptr);
    const std::vector<std::pair<HWND, HWND>> expected = {
        {nullptr, a.GetSafeHwnd()}, {a.GetSafeHwnd(), b.GetSafeHwnd()}, {b.GetSafeHwnd(), nullptr}};
    EXPECT_EQ(moves, expected);
    EXPECT_EQ(focusWhenTold, (std::vector<HWND>{a.GetSafeHwnd(), b.GetSafeHwnd(), nullptr}));
}

TEST_F(FocusWatchTest, AMoveMadeWhileGainingIsToldAsItsOwnAndTheFirstNotAtAll)
{
    a.next = &b;
    Watch();
    a.SetFocus();
    // The focus passed from a to b inside a's WM_SETFOCUS; watchers see where it settled.
    ASSERT_EQ(::GetFocus(), b.GetSafeHwnd());
    const std::vector<std::pair<HWND, HWND>> expected = {{a.GetSafeHwnd(), b.GetSafeHwnd()}};
    EXPECT_EQ(moves, expected);
    EXPECT_EQ(focusWhenTold, (std::vector<HWND>{b.GetSafeHwnd()}));
}

TEST_F(FocusWatchTest, AWatcherMayRemoveItselfAndOthersWhileBeingTold)
{
    int firstCalls = 0;
    int secondCalls = 0;
    int second = 0;
    int first = 0;
    first = FocusWatch::Add([&](HWND, HWND) {
        ++firstCalls;
        FocusWatch::Remove(first);
        FocusWatch::Remove(second);
    });
    second = FocusWatch::Add([&](HWND, HWND) { ++secondCalls; });
    cookies = {first, second};
    a.SetFocus();
    b.SetFocus();
    EXPECT_EQ(firstCalls, 1);
    EXPECT_EQ(secondCalls, 0);
}

}  // namespace
