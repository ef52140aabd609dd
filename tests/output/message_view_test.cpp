// The message view, driven by host records and simulated input.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include "host/resource_ids.h"
#include "output/message_edit_ctrl.h"
#include "platform/core/paint.h"
#include "platform/input/input.h"
#include "platform/menu/menu_driver.h"
#include "platform/text/gbk.h"
#include "platform/ole/global_memory.h"
#include "siblings/orv_project_misc.h"
#include "tests/support/test_host.h"
#include "tests/support/clipboard_text.h"
#include "tests/support/test_pane.h"
#include "tests/support/window_pixels.h"

namespace {

MessageLineRecord Record(const std::string& text, int level = 1, const char* file = nullptr, int line = 0)
{
    MessageLineRecord record{};
    record.level = level;
    std::snprintf(record.text, sizeof record.text, "%s\r\n", text.c_str());
    if (file) {
        record.located = 1;
        std::snprintf(record.file, sizeof record.file, "%s", file);
        record.line = line;
    }
    return record;
}

class MessageView : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override
    {
        MenuDriver::Reset();
        OrvProjectMisc::SetListener([this](std::string_view routine, int) { siblingCalls.emplace_back(routine); });
        view.SetGotoMode(GetParam());
        pane.view = &view;
        pane.onContextMenu = [this](CPoint point) { view.ShowMenu(point); };
        ASSERT_TRUE(pane.CreatePane(&host, CRect(0, 0, 0, 0)));
        ASSERT_TRUE(view.Create(&pane));
        pane.MoveWindow(0, 0, 500, 300);
    }
    void TearDown() override
    {
        OrvProjectMisc::SetListener({});
        MenuDriver::Reset();
    }

    void Append(const MessageLineRecord& record, WPARAM keep = 1) { view.SendMessage(UWM_MSGVIEW_APPEND, keep, reinterpret_cast<LPARAM>(&record)); }
    void Prepend(const MessageLineRecord& record, WPARAM keep = 1) { view.SendMessage(UWM_MSGVIEW_PREPEND, keep, reinterpret_cast<LPARAM>(&record)); }

    std::string Text() const
    {
        CString text;
        view.GetWindowText(text);
        return std::string(text);
    }
    // A point on text line `line`, in the view's client coordinates.
    CPoint LinePoint(int line) const
    {
        const CPoint at = view.GetCharPos(view.LineIndex(line));
        return CPoint(at.x + 3, at.y + 4);
    }
    COLORREF ColourAt(long position)
    {
        CHARRANGE saved{};
        view.SendMessage(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&saved));
        view.SetSel(position, position + 1);
        CHARFORMAT format{};
        format.cbSize = sizeof format;
        view.GetSelectionCharFormat(format);
        view.SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&saved));
        return (format.dwEffects & CFE_AUTOCOLOR) ? CMessageEditCtrl::kAutomaticColour : format.crTextColor;
    }

    std::vector<std::string> siblingCalls;
    TestHost host;
    TestPane pane;
    CMessageEditCtrl view;
};

using MessagePane = MessageView;

TEST_P(MessagePane, IndentationAppliesToAppendsOnly)
{
    Append(Record("two", 2));
    Append(Record("minus", -1));
    Append(Record("zero", 0));
    Prepend(Record("top", 3));
    EXPECT_EQ(Text(), "top\r\n      two\r\nminus\r\nzero\r\n");
    EXPECT_EQ(view.GetMessageCount(), 4);
    // A huge level is shown at the deepest indentation, not allocated.
    Append(Record("deep", 0x7FFFFFFF));
    EXPECT_EQ(view.LineLength(view.LineIndex(4)), kBlanksPerLevel * kMaxIndentLevel + 4);
}

TEST_P(MessagePane, StartNewFlagsClearOnLevelZeroOnly)
{
    Append(Record("a"));
    Append(Record("b", 0), 0);  // starts a new output
    EXPECT_EQ(Text(), "b\r\n");
    Append(Record("c", 0), 1);
    Append(Record("d", 1), 0);
    EXPECT_EQ(Text(), "b\r\nc\r\n   d\r\n");
    Prepend(Record("e", 0), 0);
    EXPECT_EQ(Text(), "e\r\n");
    EXPECT_EQ(view.GetMessageCount(), 1);
}

TEST_P(MessagePane, GoingToALocatedLineMarksItRedAndTellsTheHostByMode)
{
    Append(Record("plain"));
    Append(Record("first error", 1, "C:\\p\\main.c", 12));
    Append(Record("second error", 1, "C:\\p\\timer.c", 40));
    Input::DoubleClick(&view, LinePoint(1));
    const long second = view.LineIndex(1);
    EXPECT_EQ(ColourAt(second), RGB(255, 0, 0));
    EXPECT_EQ(view.GetMarkedLine(), second);

    Input::Wait();
    Input::DoubleClick(&view, LinePoint(2));
    EXPECT_EQ(ColourAt(second), CMessageEditCtrl::kAutomaticColour);
    EXPECT_EQ(ColourAt(view.LineIndex(2)), RGB(255, 0, 0));

    const UINT expected = GetParam() == kGotoSendsMessageViewGoto ? UWM_MSGVIEW_GOTO
                        : GetParam() == kGotoSendsGotoSource      ? UWM_GOTO_SOURCE
                                                                  : 0;
    const int sent = host.Count(UWM_MSGVIEW_GOTO) + host.Count(UWM_GOTO_SOURCE);
    if (expected == 0) {
        EXPECT_EQ(sent, 0);
    } else {
        ASSERT_EQ(host.Count(expected), 2);
        EXPECT_EQ(sent, 2);
        EXPECT_EQ(host.Received(expected)[0].text, "C:\\p\\main.c");
        EXPECT_EQ(host.Received(expected)[0].lParam, 12);
        EXPECT_EQ(host.Received(expected)[1].lParam, 40);
    }

    // A line without a location changes nothing, not even the mark.
    host.Clear();
    Input::Wait();
    Input::DoubleClick(&view, LinePoint(0));
    EXPECT_EQ(ColourAt(view.LineIndex(2)), RGB(255, 0, 0));
    EXPECT_TRUE(host.Received(UWM_MSGVIEW_GOTO).empty());
    EXPECT_TRUE(host.Received(UWM_GOTO_SOURCE).empty());
}

TEST_P(MessagePane, TheHostAsksForTheFirstLocatedLine)
{
    Append(Record("a"));
    Append(Record("b"));
    view.SendMessage(UWM_MSGVIEW_GOTO);  // none located: nothing happens
    EXPECT_EQ(view.GetMarkedLine(), -1);
    Append(Record("c", 1, "C:\\p\\c.c", 7));
    view.SendMessage(UWM_MSGVIEW_GOTO);
    EXPECT_EQ(view.LineFromChar(view.LineIndex(-1)), 2);
    EXPECT_EQ(ColourAt(view.LineIndex(2)), RGB(255, 0, 0));
    if (GetParam() == kGotoSendsMessageViewGoto) {
        ASSERT_EQ(host.Count(UWM_MSGVIEW_GOTO), 1);
        EXPECT_EQ(host.Received(UWM_MSGVIEW_GOTO)[0].lParam, 7);
    }
}

TEST_P(MessagePane, ClearForgetsTheMarkAndDisablesGoTo)
{
    Append(Record("e", 1, "C:\\p\\e.c", 3));
    Input::DoubleClick(&view, LinePoint(0));
    Input::Wait();
    MenuDriver::Choose(ID_MESSAGE_CLEAR);
    Input::RightClick(&view, LinePoint(0));
    EXPECT_EQ(view.GetMessageCount(), 0);
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(view.GetMarkedLine(), -1);
    MenuDriver::Dismiss();
    Input::Wait();
    Input::RightClick(&view, CPoint(5, 5));
    const ShownMenu* menu = MenuDriver::LastShown();
    ASSERT_NE(menu, nullptr);
    EXPECT_FALSE(menu->Find(ID_MESSAGE_SEEK)->enabled);
    EXPECT_TRUE(menu->Find(ID_MESSAGE_COPY)->enabled);
    EXPECT_TRUE(menu->Find(ID_MESSAGE_STOP)->enabled);
    ASSERT_EQ(menu->items.size(), 6u);
    EXPECT_TRUE(menu->items[1].separator);
    EXPECT_TRUE(menu->items[3].separator);
}

TEST_P(MessagePane, EnterGoesAndEscapeStopsOutsideMenus)
{
    Append(Record("x"));
    Append(Record("y", 1, "C:\\p\\y.c", 9));
    Input::Click(&view, LinePoint(1));
    Input::Key(VK_RETURN);
    EXPECT_EQ(view.GetMarkedLine(), view.LineIndex(1));
    Input::Key(VK_ESCAPE);
    Input::Key(VK_F5);
    EXPECT_EQ(siblingCalls, (std::vector<std::string>{"CleanTerminate", "KeyF5RefreshWnd"}));
    siblingCalls.clear();
    MenuDriver::Queue([](const ShownMenu&) {
        Input::Key(VK_ESCAPE);
        Input::Key(VK_F5);
        return 0u;
    });
    Input::Wait();
    Input::RightClick(&view, LinePoint(0));
    EXPECT_TRUE(siblingCalls.empty());
    MenuDriver::Choose(ID_MESSAGE_STOP);
    Input::Wait();
    Input::RightClick(&view, LinePoint(0));
    EXPECT_EQ(siblingCalls, std::vector<std::string>{"CleanTerminate"});
}

TEST_P(MessagePane, CopyPutsTheSelectionOnTheClipboard)
{
    Append(Record("copy me", 0));
    view.SetSel(0, 4);
    MenuDriver::Choose(ID_MESSAGE_COPY);
    CPoint screen(10, 10);
    view.ClientToScreen(&screen);
    view.ShowMenu(screen);
    EXPECT_EQ(test_clipboard::ClipboardText(), "copy");
}

TEST_P(MessagePane, UnterminatedFieldsAreReadWithinThemAndNullRecordsIgnored)
{
    MessageLineRecord record{};
    std::memset(record.text, 'x', sizeof record.text);
    record.located = 1;
    std::memset(record.file, 'f', sizeof record.file);
    record.line = 5;
    std::memset(record.reserved1, 'r', sizeof record.reserved1);
    Append(record);
    EXPECT_EQ(view.GetTextLength(), 512);
    view.SendMessage(UWM_MSGVIEW_APPEND, 1, 0);
    view.SendMessage(UWM_MSGVIEW_PREPEND, 1, 0);
    EXPECT_EQ(view.GetMessageCount(), 1);
    view.SendMessage(UWM_MSGVIEW_GOTO);
    const UINT message = GetParam() == kGotoSendsGotoSource ? UWM_GOTO_SOURCE : UWM_MSGVIEW_GOTO;
    if (GetParam() != kGotoMarksOnly) {
        ASSERT_EQ(host.Count(message), 1);
        EXPECT_EQ(host.Received(message)[0].text, std::string(255, 'f'));
    }
}

TEST_P(MessagePane, TheRedLineShowsInPixels)
{
    Append(Record("warning here", 0, "C:\\p\\w.c", 1));
    Input::DoubleClick(&view, LinePoint(0));
    Paint::UpdateAllWindows();
    const WindowPixels pixels(view);
    ASSERT_TRUE(pixels.Valid());
    EXPECT_GT(pixels.Count(RGB(255, 0, 0), CRect(0, 0, 100, 16)), 10);
}

// The size comes from the sibling module as the user set it; one outside 1
// to 1000 points is taken as the nearer end.
TEST_P(MessagePane, TheDockFontSizeIsKeptWithinOneToAThousandPoints)
{
    const auto heightFor = [this](int points) {
        OrvProjectMisc::SetDockFont(GBK(u8"宋体").c_str(), points);
        view.SendMessage(UWM_DOCK_FONT_CHANGED);
        LOGFONT font{};
        return view.GetFont() && view.GetFont()->GetLogFont(&font) ? font.lfHeight : 0;
    };
    EXPECT_EQ(heightFor(12), -16);  // 12 points at 96 dots per inch
    const LONG largest = heightFor(1000);
    const LONG smallest = heightFor(1);
    EXPECT_LT(largest, -16);
    EXPECT_LT(smallest, 0);
    EXPECT_GT(smallest, -16);
    for (const int points : {1001, 429496730, INT_MAX}) EXPECT_EQ(heightFor(points), largest) << points;
    for (const int points : {0, -1, -2147483647, INT_MIN}) EXPECT_EQ(heightFor(points), smallest) << points;
    OrvProjectMisc::SetDockFont(GBK(u8"宋体").c_str(), 9);
}

INSTANTIATE_TEST_SUITE_P(GotoModes, MessagePane,
                         ::testing::Values(kGotoSendsMessageViewGoto, kGotoSendsGotoSource, kGotoMarksOnly));

}  // namespace
