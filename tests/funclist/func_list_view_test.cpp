// The function list view, driven by host messages and simulated input.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "funclist/func_list_tree_ctrl.h"
#include "platform/core/message_box.h"
#include "platform/core/message_spy.h"
#include "platform/input/input.h"
#include "platform/menu/menu_driver.h"
#include "platform/text/gbk.h"
#include "siblings/orv_project_misc.h"
#include "tests/support/allocation_count.h"
#include "tests/support/test_host.h"
#include "tests/support/test_pane.h"

namespace {

class FuncListView : public ::testing::Test {
protected:
    void SetUp() override
    {
        MessageBoxes::Reset();
        MenuDriver::Reset();
        OrvProjectMisc::SetListener([this](std::string_view routine, int) { siblingCalls.emplace_back(routine); });
        pane.view = &view;
        pane.onContextMenu = [this](CPoint point) { view.ShowMenu(point); };
        ASSERT_TRUE(pane.CreatePane(&host, CRect(0, 0, 0, 0)));
        ASSERT_TRUE(view.Create(&pane));
        pane.MoveWindow(0, 0, 300, 400);
    }
    void TearDown() override
    {
        OrvProjectMisc::SetListener({});
        MenuDriver::Reset();
        MessageBoxes::Reset();
    }

    // A list of functions named as given, at lines 10, 20, 30...
    std::unique_ptr<CFuncSeekItems> Functions(const std::vector<std::string>& names, const char* type = "void")
    {
        auto list = std::make_unique<CFuncSeekItems>();
        int line = 10;
        for (const std::string& name : names) {
            auto* item = new CFuncSeekItem;
            item->typeText = type;
            item->name = name.c_str();
            item->paramText = "(void)";
            item->line = line;
            line += 10;
            list->Add(item);
        }
        return list;
    }
    std::unique_ptr<CFuncSeekItems> Many(int count)
    {
        std::vector<std::string> names;
        for (int i = 0; i < count; ++i) names.push_back("f" + std::to_string(i));
        return Functions(names);
    }

    void Show(const char* file, CFuncSeekItems* list) { view.SendMessage(UWM_REFRESH_VIEW, reinterpret_cast<WPARAM>(file), reinterpret_cast<LPARAM>(list)); }
    void ShowFile(const char* file, CFuncSeekItems* list) { view.SendMessage(UWM_FUNCLIST_SHOW_FILE, reinterpret_cast<WPARAM>(file), reinterpret_cast<LPARAM>(list)); }

    std::vector<HTREEITEM> Lines() const
    {
        std::vector<HTREEITEM> lines;
        for (HTREEITEM line = view.GetRootItem(); line; line = view.GetNextSiblingItem(line)) lines.push_back(line);
        return lines;
    }
    std::string SelectedText() const
    {
        const HTREEITEM selected = view.GetSelectedItem();
        return selected ? std::string(view.GetItemText(selected)) : std::string("<none>");
    }
    CPoint LabelPoint(int index) const
    {
        CRect rect;
        view.GetItemRect(Lines()[static_cast<size_t>(index)], &rect, TRUE);
        return rect.CenterPoint();
    }

    std::vector<std::string> siblingCalls;
    TestHost host;
    TestPane pane;
    CFuncListTreeCtrl view;
};

TEST_F(FuncListView, ShowsEntriesInPlaceWithTheirTextsImagesAndLines)
{
    auto list = Functions({"main", "start"});
    list->ItemAt(1)->typeText = "";
    list->ItemAt(1)->paramText = "()";
    Show("C:\\p\\main.c", list.get());
    const auto lines = Lines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(std::string(view.GetItemText(lines[0])), "void main(void)");
    EXPECT_EQ(std::string(view.GetItemText(lines[1])), "start()");
    EXPECT_EQ(view.GetItemData(lines[1]), 20u);
    int image = 0;
    int selected = 0;
    view.GetItemImage(lines[0], image, selected);
    EXPECT_EQ(image, 1);
    EXPECT_EQ(selected, 1);
    EXPECT_STREQ(view.GetCurrentFile(), "C:\\p\\main.c");
    EXPECT_TRUE(host.Received().empty());  // showing tells the host nothing
}

TEST_F(FuncListView, TheCapShowsThreeThousandLinesAndWarnsOncePerContainer)
{
    auto exact = Many(3000);
    Show("a.c", exact.get());
    EXPECT_EQ(Lines().size(), 3000u);
    EXPECT_TRUE(MessageBoxes::Shown().empty());

    auto over = Many(3001);
    Show("a.c", over.get());
    EXPECT_EQ(Lines().size(), 3000u);
    ASSERT_EQ(MessageBoxes::Shown().size(), 1u);
    const MessageBoxRecord& box = MessageBoxes::Shown()[0];
    EXPECT_EQ(box.caption, GBK(u8"错误"));
    EXPECT_EQ(box.text, GBK(u8"函数列表已超过3000，只显示前3000个！"));
    EXPECT_EQ(box.owner, host.GetSafeHwnd());
    EXPECT_EQ(box.type, MB_OK | MB_ICONERROR);

    auto* extra = new CFuncSeekItem;
    over->Add(extra);
    Show("a.c", over.get());  // the same container again, however large: no box
    EXPECT_EQ(MessageBoxes::Shown().size(), 1u);
}

TEST_F(FuncListView, ShowFileSkipsTheFileAlreadyShownIgnoringCase)
{
    auto first = Functions({"alpha"});
    auto second = Functions({"beta", "gamma"});
    ShowFile("C:\\A.C", first.get());
    ShowFile("c:\\a.c", second.get());
    EXPECT_EQ(Lines().size(), 1u);
    EXPECT_EQ(view.GetShownList(), first.get());
    Show("c:\\a.c", second.get());
    EXPECT_EQ(Lines().size(), 2u);
    ShowFile(nullptr, first.get());  // a null path is ignored
    EXPECT_EQ(Lines().size(), 2u);
    EXPECT_STREQ(view.GetCurrentFile(), "c:\\a.c");
    Show("b.c", nullptr);
    EXPECT_TRUE(Lines().empty());
    EXPECT_STREQ(view.GetCurrentFile(), "b.c");
}

TEST_F(FuncListView, ARefreshKeepsCaseOnlyChangesButTakesNewLineNumbers)
{
    auto list = Functions({"Main"});
    Show("a.c", list.get());
    MessageSpy::Counter setItems(view, TVM_SETITEM);
    list->ItemAt(0)->name = "MAIN";
    list->ItemAt(0)->line = 99;
    Show("a.c", list.get());
    EXPECT_EQ(std::string(view.GetItemText(Lines()[0])), "void Main(void)");
    EXPECT_EQ(view.GetItemData(Lines()[0]), 99u);
    EXPECT_EQ(setItems.Count(), 1);  // the data only
}

TEST_F(FuncListView, AnUnchangedShowAllocatesNothingPerLine)
{
    SKIP_WITHOUT_ALLOCATION_COUNT();
    const auto unchangedShow = [this](CFuncSeekItems* list) {
        Show("a.c", list);
        const long before = AllocationCount::Total();
        Show("a.c", list);
        return AllocationCount::Total() - before;
    };
    const auto few = Many(10);
    const auto many = Many(1000);
    const long forFew = unchangedShow(few.get());
    const long forMany = unchangedShow(many.get());
    EXPECT_EQ(Lines().size(), 1000u);
    EXPECT_EQ(forMany, forFew);
}

TEST_F(FuncListView, LetterSearchStepsThroughInitials)
{
    auto list = Functions({"apple", "avocado", "banana", "cherry"}, "");
    Show("a.c", list.get());
    view.SetSelItem(0);
    view.SetFocus();
    const auto press = [&](UINT key, unsigned modifiers = Input::kNone) {
        Input::Key(key, modifiers);
        return SelectedText();
    };
    EXPECT_EQ(press('A'), "avocado(void)");
    EXPECT_EQ(press('A'), "apple(void)");
    EXPECT_EQ(press('C'), "cherry(void)");
    EXPECT_EQ(press('B'), "banana(void)");
    EXPECT_EQ(press('D'), "banana(void)");
    EXPECT_EQ(press('A', Input::kShift), "apple(void)");
    // Every typed character reports the selected line.
    const auto selections = host.Received(UWM_FUNCLIST_SELECTED);
    ASSERT_EQ(selections.size(), 6u);
    EXPECT_EQ(selections[0].lParam, 20);
    EXPECT_EQ(selections[0].text, "a.c");

    auto two = Functions({"apple", "cherry"}, "");
    Show("b.c", two.get());
    view.SetSelItem(0);
    EXPECT_EQ(press('B'), "apple(void)");
}

// The letter search alone answers a typed character: the tree's own
// type-ahead would move first and the search would then step once more.
TEST_F(FuncListView, ATypedCharacterMovesOnceToTheNextEntryWithThatInitial)
{
    auto list = Functions({"_a", "_b", "_c", "x1", "x2"}, "");
    Show("a.c", list.get());
    view.SetSelItem(0);
    view.SetFocus();
    // As an input method types it: WM_CHAR alone.
    const auto type = [&](const char* text) {
        Input::Type(text);
        return SelectedText();
    };
    EXPECT_EQ(type("_"), "_b(void)");
    EXPECT_EQ(type("_"), "_c(void)");
    EXPECT_EQ(type("_"), "_a(void)");
    // As a keyboard types it: the key down ("_" is Shift and the minus key), then WM_CHAR.
    const auto keyboard = [&](UINT key, char ch) {
        MSG down{};
        down.hwnd = view.GetSafeHwnd();
        down.message = WM_KEYDOWN;
        down.wParam = key;
        Input::Deliver(down);
        MSG typed = down;
        typed.message = WM_CHAR;
        typed.wParam = static_cast<unsigned char>(ch);
        Input::Deliver(typed);
        return SelectedText();
    };
    constexpr UINT kMinusKey = 0xBD;
    EXPECT_EQ(keyboard(kMinusKey, '_'), "_b(void)");
    EXPECT_EQ(keyboard(kMinusKey, '_'), "_c(void)");
    EXPECT_EQ(type("x"), "x1(void)");
    EXPECT_EQ(type("x"), "x2(void)");
    EXPECT_EQ(host.Count(UWM_FUNCLIST_SELECTED), 7);
}

TEST_F(FuncListView, ClicksSelectAndReport)
{
    auto list = Functions({"one", "two"});
    Show("a.c", list.get());
    Input::Click(&view, LabelPoint(1));
    ASSERT_EQ(host.Count(UWM_FUNCLIST_SELECTED), 1);
    EXPECT_EQ(host.Received(UWM_FUNCLIST_SELECTED)[0].lParam, 20);

    // Beside the label: the selection is cleared, nothing is sent, Go to is off.
    CRect label;
    view.GetItemRect(Lines()[0], &label, TRUE);
    Input::Wait();
    Input::Click(&view, CPoint(label.right + 40, label.CenterPoint().y));
    EXPECT_EQ(view.GetSelectedItem(), nullptr);
    EXPECT_EQ(host.Count(UWM_FUNCLIST_SELECTED), 1);
    MenuDriver::Dismiss();
    CPoint screen(5, 5);
    view.ClientToScreen(&screen);
    view.ShowMenu(screen);
    ASSERT_NE(MenuDriver::LastShown(), nullptr);
    EXPECT_FALSE(MenuDriver::LastShown()->Find(32058)->enabled);

    // A right click selects and reports; the menu's Go to then opens the file.
    MenuDriver::Choose(32058);
    Input::Wait();
    Input::RightClick(&view, LabelPoint(0));
    EXPECT_EQ(host.Count(UWM_FUNCLIST_SELECTED), 2);
    ASSERT_EQ(host.Count(UWM_GOTO_SOURCE), 1);
    EXPECT_EQ(host.Received(UWM_GOTO_SOURCE)[0].lParam, 10);

    Input::Wait();
    Input::DoubleClick(&view, LabelPoint(1));
    EXPECT_EQ(host.Count(UWM_GOTO_SOURCE), 2);
    EXPECT_EQ(host.Received(UWM_GOTO_SOURCE)[1].lParam, 20);
}

TEST_F(FuncListView, KeysNavigateSilentlyAndEnterGoes)
{
    auto list = Functions({"one", "two", "three"});
    Show("a.c", list.get());
    Input::Click(&view, LabelPoint(0));
    host.Clear();
    Input::Key(VK_DOWN);
    Input::Key(VK_DOWN);
    EXPECT_TRUE(host.Received().empty());
    Input::Key(VK_RETURN);
    ASSERT_EQ(host.Count(UWM_GOTO_SOURCE), 1);
    EXPECT_EQ(host.Received(UWM_GOTO_SOURCE)[0].lParam, 30);
    Input::Key(VK_ESCAPE);
    Input::Key(VK_F5);
    EXPECT_EQ(siblingCalls, (std::vector<std::string>{"CleanTerminate", "KeyF5RefreshWnd"}));
    siblingCalls.clear();
    MenuDriver::Queue([](const ShownMenu&) {
        Input::Key(VK_ESCAPE);
        return 0u;
    });
    Input::RightClick(&view, LabelPoint(0));
    EXPECT_TRUE(siblingCalls.empty());
}

TEST_F(FuncListView, SeekLineSelectsTheUpperOfTwoAndTellsNobody)
{
    auto list = Functions({"a", "b", "c"});
    list->ItemAt(2)->line = 20;
    Show("a.c", list.get());
    view.SendMessage(UWM_FUNCLIST_SEEK_LINE, 20, 0);
    EXPECT_EQ(view.GetSelAbsoult(nullptr), 1);
    view.SendMessage(UWM_FUNCLIST_SEEK_LINE, 12345, 0);
    EXPECT_EQ(view.GetSelAbsoult(nullptr), 1);
    EXPECT_TRUE(host.Received().empty());
}

TEST_F(FuncListView, BadInputIsHarmless)
{
    auto list = Functions({"a", "b"});
    list->InsertAt(1, nullptr);  // a null slot uses no line
    Show(std::string(300, 'x').c_str(), list.get());
    EXPECT_EQ(Lines().size(), 2u);
    EXPECT_EQ(std::string(view.GetCurrentFile()).size(), 255u);
    view.SetFocus();
    // The search maps line positions to slots: "b" sits in slot 2, which has
    // no line 2, so nothing is selected and nothing is reported.
    Input::Key('B');
    EXPECT_EQ(view.GetSelectedItem(), nullptr);
    EXPECT_EQ(host.Count(UWM_FUNCLIST_SELECTED), 0);
    Show("a.c", nullptr);
    Input::Key('A');
    Input::Key(VK_RETURN);
    EXPECT_EQ(host.Count(UWM_GOTO_SOURCE), 0);
}

}  // namespace
