// Message boxes a user answers: drawn over their owner, they wait in a
// nested loop for the keys and clicks queued behind the call that shows them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/core/message_box_layout.h"
#include "platform/core/thread.h"
#include "platform/core/window_registry.h"
#include "platform/docking/frame_wnd.h"
#include "platform/gdi/sys_color.h"
#include "platform/input/input.h"
#include "platform/text/gbk.h"
#include "tests/support/watched_events.h"
#include "tests/support/window_pixels.h"

namespace {

// Logs the clicks that reach it.
class ClickLog : public CFrameWnd {
public:
    std::vector<std::string> log;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_LBUTTONDOWN) log.push_back("down");
        if (message == WM_LBUTTONUP) log.push_back("up");
        return CFrameWnd::WindowProc(message, wParam, lParam);
    }
};

class MessageBoxesAtAScreen : public ::testing::Test {
protected:
    void SetUp() override
    {
        MessageBoxes::Reset();
        MessageBoxes::SetInteractive(true);
        ASSERT_TRUE(owner.Create(nullptr, "owner", WS_POPUP | WS_VISIBLE, CRect(100, 80, 600, 480)));
        windowsBefore = WindowRegistry::TopLevelWindows().size();
        Input::Wait();
    }
    void TearDown() override
    {
        MessageBoxes::SetInteractive(false);
        MessageBoxes::Reset();
        EXPECT_FALSE(Input::PlayNext());
        owner.DestroyWindow();
    }

    // Shows a box; what the box left of the queue is played afterwards, as
    // the outer loop would.
    int Show(const char* text, UINT type)
    {
        const int answer = MessageBoxA(owner.GetSafeHwnd(), text, "Build", type);
        Input::PlayQueued();
        return answer;
    }

    // A button's middle, in the owner's client coordinates, where the box
    // puts it.
    CPoint ButtonPoint(const char* text, UINT type, int id)
    {
        const MessageBoxRecord record{owner.GetSafeHwnd(), "Build", text, type};
        CRect over;
        owner.GetWindowRect(&over);
        const MessageBoxLayout layout = MessageBoxGeometry::LayOut(record, over, &MessageBoxGeometry::DialogFontWidth);
        for (const MessageBoxButton& button : layout.buttons) {
            if (button.id != id) continue;
            POINT point = button.rect.CenterPoint();
            point.x += layout.window.left;
            point.y += layout.window.top;
            owner.ScreenToClient(&point);
            return point;
        }
        ADD_FAILURE() << "no button " << id;
        return CPoint();
    }

    ClickLog owner;
    size_t windowsBefore = 0;
};

TEST_F(MessageBoxesAtAScreen, EnterPressesTheDefaultButtonOfABoxCentredOverItsOwner)
{
    CRect box;
    WatchedEvents watch([&] {
        CRect ownerRect;
        owner.GetWindowRect(&ownerRect);
        const HWND over = WindowFromPoint(ownerRect.CenterPoint());
        if (over != owner.GetSafeHwnd()) ::GetWindowRect(over, &box);
    });
    Input::Gesture().Key(VK_RETURN).Queue();
    EXPECT_EQ(Show("Save the project?", MB_OKCANCEL | MB_ICONQUESTION), IDOK);

    CRect ownerRect;
    owner.GetWindowRect(&ownerRect);
    ASSERT_FALSE(box.IsRectEmpty());
    EXPECT_LE(std::abs(box.CenterPoint().x - ownerRect.CenterPoint().x), 1);
    EXPECT_LE(std::abs(box.CenterPoint().y - ownerRect.CenterPoint().y), 1);
    EXPECT_EQ(WindowRegistry::TopLevelWindows().size(), windowsBefore);  // the box is gone
    ASSERT_EQ(MessageBoxes::Shown().size(), 1u);
    EXPECT_EQ(MessageBoxes::Shown()[0].text, "Save the project?");
}

TEST_F(MessageBoxesAtAScreen, EscapeAnswersNoCancelOrOk)
{
    Input::Gesture().Key(VK_ESCAPE).Queue();
    EXPECT_EQ(Show(GBK(u8"删除全部断点?").c_str(), MB_YESNO), IDNO);
    Input::Gesture().Key(VK_ESCAPE).Queue();
    EXPECT_EQ(Show("Stop?", MB_OKCANCEL), IDCANCEL);
    Input::Gesture().Key(VK_ESCAPE).Queue();
    EXPECT_EQ(Show("Done.", MB_OK | MB_ICONINFORMATION), IDOK);
    EXPECT_EQ(WindowRegistry::TopLevelWindows().size(), windowsBefore);
}

TEST_F(MessageBoxesAtAScreen, AClickOnAButtonPressesIt)
{
    const CPoint cancel = ButtonPoint("Stop?", MB_OKCANCEL, IDCANCEL);
    Input::Gesture().Press(&owner, cancel).Release().Queue();
    EXPECT_EQ(Show("Stop?", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(WindowRegistry::TopLevelWindows().size(), windowsBefore);
    EXPECT_TRUE(owner.log.empty());
}

TEST_F(MessageBoxesAtAScreen, AReleaseAwayFromThePressedButtonPressesNothing)
{
    // Down on Cancel (which takes the focus), up on OK: still open, and
    // Enter then presses the focused Cancel.
    const CPoint cancel = ButtonPoint("Stop?", MB_OKCANCEL, IDCANCEL);
    const CPoint ok = ButtonPoint("Stop?", MB_OKCANCEL, IDOK);
    Input::Gesture().Press(&owner, cancel).MoveTo(&owner, ok).Release().Key(VK_RETURN).Queue();
    EXPECT_EQ(Show("Stop?", MB_OKCANCEL), IDCANCEL);
}

TEST_F(MessageBoxesAtAScreen, ClicksOutsideTheBoxAreSwallowed)
{
    Input::Gesture().Press(&owner, CPoint(5, 5)).Release().Key(VK_RETURN).Queue();
    EXPECT_EQ(Show("Done.", MB_OK), IDOK);
    EXPECT_TRUE(owner.log.empty());
}

TEST_F(MessageBoxesAtAScreen, TabAndArrowsMoveTheFocusAndItsFrame)
{
    const MessageBoxLayout layout = MessageBoxGeometry::LayOut({owner.GetSafeHwnd(), "Build", "Stop?", MB_YESNO}, CRect(),
                                                               &MessageBoxGeometry::DialogFontWidth);
    const CRect yesRect = layout.buttons[0].rect;
    const CRect noRect = layout.buttons[1].rect;
    // The top-left pixel of each button: the focused one's dark outer frame.
    std::vector<std::pair<COLORREF, COLORREF>> corners;
    WatchedEvents watch([&] {
        POINT at = ButtonPoint("Stop?", MB_YESNO, IDYES);
        owner.ClientToScreen(&at);
        const HWND box = WindowFromPoint(at);
        CWnd* wnd = CWnd::FromHandle(box);
        if (!wnd || box == owner.GetSafeHwnd()) return;
        const WindowPixels pixels(*wnd);
        corners.emplace_back(pixels.At(yesRect.left, yesRect.top), pixels.At(noRect.left, noRect.top));
    });
    Input::Gesture().Key(VK_TAB).Key(VK_RETURN).Queue();
    EXPECT_EQ(Show("Stop?", MB_YESNO), IDNO);
    ASSERT_GE(corners.size(), 1u);
    EXPECT_EQ(corners[0].first, GetSysColor(COLOR_BTNHIGHLIGHT));  // after Tab: Yes lost the focus
    EXPECT_EQ(corners[0].second, GetSysColor(COLOR_WINDOWFRAME));

    Input::Gesture().Key(VK_RIGHT).Key(VK_RIGHT).Key(VK_RETURN).Queue();  // wraps back to Yes
    EXPECT_EQ(Show("Stop?", MB_YESNO), IDYES);
    Input::Gesture().Key(VK_LEFT).Key(VK_SPACE).Queue();
    EXPECT_EQ(Show("Stop?", MB_YESNO), IDNO);
    Input::Gesture().Key('N').Queue();
    EXPECT_EQ(Show("Stop?", MB_YESNO), IDNO);
}

TEST_F(MessageBoxesAtAScreen, AnEventSourceThatRunsDryAnswersLikeEscape)
{
    EXPECT_EQ(Show("Stop?", MB_YESNO), IDNO);
    Input::Gesture().Press(&owner, CPoint(5, 5)).Queue();  // a press whose release never comes
    EXPECT_EQ(Show("Stop?", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(WindowRegistry::TopLevelWindows().size(), windowsBefore);
    Input::Gesture().Release(false).Play();
}

TEST_F(MessageBoxesAtAScreen, QueuedAnswersWinAndTheDefaultStaysHeadless)
{
    MessageBoxes::Queue([](const MessageBoxRecord&) { return IDNO; });
    EXPECT_EQ(Show("Stop?", MB_YESNO), IDNO);
    MessageBoxes::SetInteractive(false);
    Input::Gesture().Key(VK_ESCAPE).Queue();
    EXPECT_EQ(Show("Stop?", MB_YESNO), IDYES);  // answered at once: the Escape never reached it
    EXPECT_EQ(WindowRegistry::TopLevelWindows().size(), windowsBefore);
}

// A measure of 6 pixels a byte: a double-byte character is 12.
int FixedWidth(std::string_view text) { return static_cast<int>(text.size()) * 6; }

TEST(MessageBoxText, LinesBreakAtSpacesAndNewlinesAndFitTheWidth)
{
    const auto lines = MessageBoxGeometry::WrapText("the quick brown fox jumps\nover", 60, &FixedWidth);
    EXPECT_EQ(lines, (std::vector<std::string>{"the quick", "brown fox", "jumps", "over"}));
    for (const std::string& line : lines) EXPECT_LE(FixedWidth(line), 60) << line;
    EXPECT_EQ(MessageBoxGeometry::WrapText("a\r\nb", 60, &FixedWidth), (std::vector<std::string>{"a", "b"}));
    // A word longer than a line is cut where it overflows.
    EXPECT_EQ(MessageBoxGeometry::WrapText("abcdefghijkl", 30, &FixedWidth),
              (std::vector<std::string>{"abcde", "fghij", "kl"}));
}

TEST(MessageBoxText, DoubleByteTextBreaksBetweenCharactersNeverInside)
{
    const std::string text = GBK(u8"编译完成：零个错误，三个警告。请检查输出窗口。");
    const auto lines = MessageBoxGeometry::WrapText(text, 50, &FixedWidth);  // four characters a line
    ASSERT_GT(lines.size(), 1u);
    std::string joined;
    for (const std::string& line : lines) {
        EXPECT_LE(FixedWidth(line), 50);
        EXPECT_EQ(line.size() % 2, 0u) << "a character split";
        joined += line;
    }
    EXPECT_EQ(joined, text);
    // Mixed: the English word stays whole beside the characters.
    EXPECT_EQ(MessageBoxGeometry::WrapText(GBK(u8"文件main.c已保存"), 60, &FixedWidth),
              (std::vector<std::string>{GBK(u8"文件main.c"), GBK(u8"已保存")}));
}

TEST(MessageBoxText, BadInputGivesBoundedLines)
{
    EXPECT_EQ(MessageBoxGeometry::WrapText("", 60, &FixedWidth), (std::vector<std::string>{""}));
    EXPECT_EQ(MessageBoxGeometry::WrapText("abc", 0, &FixedWidth), (std::vector<std::string>{"a", "b", "c"}));
    const std::string many(1000, '\n');
    EXPECT_EQ(MessageBoxGeometry::WrapText(many, 60, &FixedWidth).size(), static_cast<size_t>(MessageBoxGeometry::kMaxLines));
    const std::string lone = std::string("ab") + '\xB1';  // a lead byte without its trail
    EXPECT_EQ(MessageBoxGeometry::WrapText(lone, 60, &FixedWidth), (std::vector<std::string>{lone}));
}

TEST(MessageBoxLayoutTest, ButtonsByTypeInsideTheBox)
{
    const CRect over(0, 0, 1000, 1000);
    for (const UINT type : {MB_OK, MB_OKCANCEL, MB_YESNO, 0x0Fu}) {
        const MessageBoxLayout layout =
            MessageBoxGeometry::LayOut({nullptr, "caption", "text", type | MB_ICONWARNING}, over, &FixedWidth);
        const CRect client(0, 0, layout.window.Width(), layout.window.Height());
        for (const MessageBoxButton& button : layout.buttons) {
            EXPECT_TRUE(client.PtInRect(button.rect.TopLeft()) && client.PtInRect(CPoint(button.rect.right - 1, button.rect.bottom - 1)));
            EXPECT_FALSE(CRect().IntersectRect(button.rect, layout.text)) << "a button over the text";
        }
        EXPECT_FALSE(layout.icon.IsRectEmpty());
    }
    const auto ids = [](UINT type) {
        std::vector<int> result;
        for (const MessageBoxButton& b : MessageBoxGeometry::LayOut({nullptr, "", "", type}, CRect(), &FixedWidth).buttons)
            result.push_back(b.id);
        return result;
    };
    EXPECT_EQ(ids(MB_OK), (std::vector<int>{IDOK}));
    EXPECT_EQ(ids(MB_OKCANCEL), (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_EQ(ids(MB_YESNO), (std::vector<int>{IDYES, IDNO}));
    EXPECT_EQ(ids(0x0F), (std::vector<int>{IDOK}));  // an unknown type is an OK box
}

}  // namespace
