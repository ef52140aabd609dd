// Message maps, default processing, reflection and command routing.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/core/cmd_target.h"
#include "platform/core/paint.h"
#include "platform/core/thread.h"
#include "platform/docking/frame_wnd.h"
#include "platform/input/input.h"

namespace {

std::vector<std::string> g_log;

class BaseWnd : public CWnd {
public:
    int creates = 0;

protected:
    DECLARE_MESSAGE_MAP()
    int OnCreate(LPCREATESTRUCT cs)
    {
        ++creates;
        return CWnd::OnCreate(cs);
    }
    void OnLButtonDown(UINT, CPoint point) { g_log.push_back("base down " + std::to_string(point.x)); }
    LRESULT OnCustom(WPARAM w, LPARAM) { return static_cast<LRESULT>(w * 2); }
};

BEGIN_MESSAGE_MAP(BaseWnd, CWnd)
    ON_WM_CREATE()
    ON_WM_LBUTTONDOWN()
    ON_MESSAGE(WM_USER + 7, &BaseWnd::OnCustom)
END_MESSAGE_MAP()

class DerivedWnd : public BaseWnd {
public:
    bool seekEnabled = false;

protected:
    DECLARE_MESSAGE_MAP()
    void OnLButtonDown(UINT flags, CPoint point)
    {
        g_log.push_back("derived down");
        BaseWnd::OnLButtonDown(flags, point);
    }
    void OnContextMenu(CWnd*, CPoint) { g_log.push_back("derived context"); }
    void OnSeek() { g_log.push_back("seek"); }
    void OnUpdateSeek(CCmdUI* ui) { ui->Enable(seekEnabled); }
    void OnHandledOnly() { g_log.push_back("handled"); }
    void OnReflected() { g_log.push_back("reflected"); }
};

BEGIN_MESSAGE_MAP(DerivedWnd, BaseWnd)
    ON_WM_LBUTTONDOWN()
    ON_COMMAND(100, &DerivedWnd::OnSeek)
    ON_UPDATE_COMMAND_UI(100, &DerivedWnd::OnUpdateSeek)
    ON_COMMAND(101, &DerivedWnd::OnHandledOnly)
    ON_CONTROL_REFLECT(5, &DerivedWnd::OnReflected)
    ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

// A parent that records what reaches it.
class RecordingParent : public CFrameWnd {
protected:
    DECLARE_MESSAGE_MAP()
    void OnChildCode() { g_log.push_back("parent handler"); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_CONTEXTMENU) g_log.push_back("parent context");
        if (message == WM_COMMAND) g_log.push_back("parent command " + std::to_string(LOWORD(wParam)));
        return CFrameWnd::WindowProc(message, wParam, lParam);
    }
};

BEGIN_MESSAGE_MAP(RecordingParent, CFrameWnd)
    ON_CONTROL(5, 42, &RecordingParent::OnChildCode)
    ON_CONTROL(6, 42, &RecordingParent::OnChildCode)
END_MESSAGE_MAP()

class MessageRouting : public ::testing::Test {
protected:
    void SetUp() override
    {
        g_log.clear();
        ASSERT_TRUE(parent.Create(nullptr, "parent", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 300, 200)));
        app.m_pMainWnd = &parent;
        ASSERT_TRUE(child.Create(nullptr, "child", WS_VISIBLE, CRect(10, 10, 110, 60), &parent, 42));
    }
    void TearDown() override { app.m_pMainWnd = nullptr; }

    CWinApp app;
    RecordingParent parent;
    DerivedWnd child;
};

TEST_F(MessageRouting, MapsChainToTheBaseAndDerivedEntriesWin)
{
    EXPECT_EQ(child.creates, 1);
    Input::Click(&child, CPoint(5, 6));
    EXPECT_EQ(g_log, (std::vector<std::string>{"derived down", "base down 5"}));
    EXPECT_EQ(child.SendMessage(WM_USER + 7, 21), 42);
    EXPECT_EQ(child.SendMessage(WM_USER + 8, 21), 0);  // nothing maps it: default processing
}

TEST_F(MessageRouting, RightButtonReleaseAsksForAContextMenuThatClimbsWhenUnhandled)
{
    Input::RightClick(&child, CPoint(3, 3));
    EXPECT_EQ(g_log, (std::vector<std::string>{"derived context"}));

    // A plain child without a handler passes the request to its parent.
    CWnd plain;
    ASSERT_TRUE(plain.Create(nullptr, "plain", WS_VISIBLE, CRect(150, 10, 200, 60), &parent, 43));
    g_log.clear();
    Input::RightClick(&plain, CPoint(3, 3));
    EXPECT_EQ(g_log, (std::vector<std::string>{"parent context"}));
}

TEST_F(MessageRouting, ControlNotificationsAreOfferedToTheControlFirst)
{
    // Code 5 is reflected and handled by the child: the parent's own handler is not run.
    parent.SendMessage(WM_COMMAND, MAKEWPARAM(42, 5), reinterpret_cast<LPARAM>(child.GetSafeHwnd()));
    EXPECT_EQ(g_log, (std::vector<std::string>{"parent command 42", "reflected"}));
    g_log.clear();
    parent.SendMessage(WM_COMMAND, MAKEWPARAM(42, 6), reinterpret_cast<LPARAM>(child.GetSafeHwnd()));
    EXPECT_EQ(g_log, (std::vector<std::string>{"parent command 42", "parent handler"}));
}

TEST_F(MessageRouting, CommandUpdateFollowsHandlersAndUpdateHandlers)
{
    CCmdUI withUpdate;
    withUpdate.m_nID = 100;
    withUpdate.DoUpdate(&child, TRUE);
    EXPECT_FALSE(withUpdate.IsEnabled());
    child.seekEnabled = true;
    withUpdate.DoUpdate(&child, TRUE);
    EXPECT_TRUE(withUpdate.IsEnabled());

    CCmdUI handlerOnly;
    handlerOnly.m_nID = 101;
    handlerOnly.DoUpdate(&child, TRUE);
    EXPECT_TRUE(handlerOnly.IsEnabled());

    CCmdUI neither;
    neither.m_nID = 102;
    neither.DoUpdate(&child, TRUE);
    EXPECT_FALSE(neither.IsEnabled());

    child.SendMessage(WM_COMMAND, 100, 0);
    EXPECT_EQ(g_log, (std::vector<std::string>{"seek"}));
}

// Keys go to the focus window after the pre-translation walk up to the main window.
class KeyEater : public CWnd {
public:
    std::vector<UINT> eaten;
    std::vector<UINT> chars;
    BOOL PreTranslateMessage(MSG* msg) override
    {
        if (msg->message == WM_KEYDOWN && msg->wParam == VK_F5) {
            eaten.push_back(VK_F5);
            return TRUE;
        }
        return FALSE;
    }

protected:
    DECLARE_MESSAGE_MAP()
    void OnChar(UINT ch, UINT, UINT) { chars.push_back(ch); }
};

BEGIN_MESSAGE_MAP(KeyEater, CWnd)
    ON_WM_CHAR()
END_MESSAGE_MAP()

TEST_F(MessageRouting, PreTranslationAndTypedCharacters)
{
    KeyEater eater;
    ASSERT_TRUE(eater.Create(nullptr, "keys", WS_VISIBLE, CRect(0, 100, 50, 150), &parent, 44));
    CWnd inner;
    ASSERT_TRUE(inner.Create(nullptr, "inner", WS_VISIBLE, CRect(0, 0, 10, 10), &eater, 45));
    inner.SetFocus();
    Input::Key(VK_F5);  // offered to inner, then to its parent, which takes it
    EXPECT_EQ(eater.eaten, std::vector<UINT>{VK_F5});
    eater.SetFocus();
    Input::Type("aB1");
    Input::Key('M', Input::kControl);
    EXPECT_EQ(eater.chars, (std::vector<UINT>{'a', 'B', '1', 13}));
}

TEST_F(MessageRouting, FocusMessagesNameTheOtherWindow)
{
    class FocusLog : public CWnd {
    public:
        std::vector<std::pair<std::string, HWND>> events;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_SETFOCUS) events.emplace_back("set", reinterpret_cast<HWND>(wParam));
            if (message == WM_KILLFOCUS) events.emplace_back("kill", reinterpret_cast<HWND>(wParam));
            return CWnd::WindowProc(message, wParam, lParam);
        }
    };
    FocusLog a;
    FocusLog b;
    ASSERT_TRUE(a.Create(nullptr, "a", WS_VISIBLE, CRect(0, 0, 5, 5), &parent, 1));
    ASSERT_TRUE(b.Create(nullptr, "b", WS_VISIBLE, CRect(5, 0, 10, 5), &parent, 2));
    a.SetFocus();
    b.SetFocus();
    EXPECT_EQ(a.events, (std::vector<std::pair<std::string, HWND>>{{"set", nullptr}, {"kill", b.GetSafeHwnd()}}));
    EXPECT_EQ(b.events, (std::vector<std::pair<std::string, HWND>>{{"set", a.GetSafeHwnd()}}));
    EXPECT_EQ(CWnd::GetFocus(), &b);
    b.DestroyWindow();
    EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(MessageRouting, CoordinatesAndRoutingOfClicks)
{
    // The frame has a one-pixel border, so its client area starts at (1, 1).
    POINT client{0, 0};
    parent.ClientToScreen(&client);
    EXPECT_EQ(client.x, 1);
    POINT point{0, 0};
    child.ClientToScreen(&point);
    EXPECT_EQ(point.x, client.x + 10);
    EXPECT_EQ(point.y, client.y + 10);
    child.ScreenToClient(&point);
    EXPECT_EQ(point.x, 0);
    EXPECT_EQ(WindowFromPoint(POINT{client.x + 15, client.y + 15}), child.GetSafeHwnd());
    EXPECT_EQ(WindowFromPoint(POINT{250, 150}), parent.GetSafeHwnd());
    child.ShowWindow(SW_HIDE);
    EXPECT_EQ(WindowFromPoint(POINT{client.x + 15, client.y + 15}), parent.GetSafeHwnd());
}

TEST_F(MessageRouting, StaleHandlesAreHarmless)
{
    const HWND gone = child.GetSafeHwnd();
    child.DestroyWindow();
    EXPECT_EQ(child.GetSafeHwnd(), nullptr);
    EXPECT_FALSE(IsWindow(gone));
    EXPECT_EQ(SendMessage(gone, WM_USER + 7, 1, 0), 0);
    EXPECT_EQ(CWnd::FromHandle(gone), nullptr);
    EXPECT_EQ(SetFocus(gone), nullptr);
}

}  // namespace
