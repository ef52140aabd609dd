// The bookmark view driven by a host and by simulated user input.
#include <climits>
#include <cstring>

#include "marks/bookmark_tree_ctrl.h"
#include "tests/marks/mark_view_fixture.h"
#include "tests/support/window_pixels.h"

namespace {

using BookmarkView = MarkViewFixture<CBookMarkListTreeCtrl, CBookMarkList>;

TEST_F(BookmarkView, ShowsOneNodePerBookmarkInListOrder)
{
    AddGroup("a.c", {7, 2});
    AddGroup(GBK(u8"源\\主程序.c"), {30});
    EXPECT_EQ(Refresh(), 0);
    EXPECT_EQ(Texts(), (std::vector<std::string>{NodeText("a.c", 2), NodeText("a.c", 7), NodeText(GBK(u8"源\\主程序.c"), 30)}));
    // Low 16 bits the file index, high 16 bits the entry index.
    EXPECT_EQ(Data(), (std::vector<DWORD>{0x00000000, 0x00010000, 0x00000001}));
    EXPECT_EQ(Images(), (std::vector<int>{4, 4, 4}));
    EXPECT_EQ(host.Count(UWM_GET_APP_DATA), 1);
    EXPECT_EQ(host.Count(UWM_GET_PROJECT_PATH), 1);
    EXPECT_STREQ(view.GetBaseDirectory(), "C:\\work\\demo");
}

TEST_F(BookmarkView, PaddingCountsGbkBytes)
{
    // "(文件:" + "测试.c" + ", 行:7)": 6 + 6 + 7 = 19 bytes, so 6 spaces follow.
    AddGroup(GBK(u8"测试.c"), {7});
    // A position of 25 bytes or more is not padded.
    AddGroup("a_rather_long_name.c", {123456});
    Refresh();
    const auto texts = Texts();
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0], GBK(u8"(文件:测试.c, 行:7)") + std::string(6, ' ') + "text");
    EXPECT_EQ(texts[1], GBK(u8"(文件:a_rather_long_name.c, 行:123456)") + "text");
}

TEST_F(BookmarkView, EmptyGroupsTakeAFileIndexAndAnEmptyListClearsTheView)
{
    AddGroup("a.c", {1});
    AddGroup("b.c", {});
    AddGroup("c.c", {5});
    Refresh();
    EXPECT_EQ(Data(), (std::vector<DWORD>{0x0000, 0x0002}));
    list->ReleaseAllItems();
    Refresh();
    EXPECT_TRUE(Nodes().empty());
}

TEST_F(BookmarkView, RefreshReusesNodesByPositionAndWritesOnlyWhatDiffers)
{
    Group* group = AddGroup("a.c", {10, 20, 30});
    Refresh();
    const auto before = Nodes();
    SetItemCounter texts(view, TVIF_TEXT);
    SetItemCounter data(view, TVIF_PARAM);
    MessageSpy::Counter inserts(view, TVM_INSERTITEM);
    MessageSpy::Counter deletes(view, TVM_DELETEITEM);

    Refresh();  // nothing changed: nothing written
    EXPECT_EQ(texts.Count() + data.Count() + inserts.Count() + deletes.Count(), 0);

    group->OrdAdd(NewMark(5));  // before the others: three rewrites and an append
    Refresh();
    EXPECT_EQ(texts.Count(), 3);
    EXPECT_EQ(data.Count(), 1);  // only the appended node's data is new
    EXPECT_EQ(inserts.Count(), 1);
    const auto after = Nodes();
    ASSERT_EQ(after.size(), 4u);
    EXPECT_TRUE(std::equal(before.begin(), before.end(), after.begin()));
    EXPECT_EQ(Texts()[0], NodeText("a.c", 5));

    delete group->ItemAt(3);
    group->RemoveAt(3);
    Refresh();
    EXPECT_EQ(deletes.Count(), 1);
    EXPECT_EQ(Nodes().size(), 3u);
}

TEST_F(BookmarkView, HoldIgnoresNonzeroRequestsUntilAZeroOne)
{
    AddGroup("a.c", {1});
    const int asks[] = {1, 1, 2, 3};  // requests 1, 1, 0, 0: the second is ignored
    const WPARAM holds[] = {1, 1, 0, 0};
    for (int i = 0; i < 4; ++i) {
        Refresh(holds[i]);
        EXPECT_EQ(host.Count(UWM_GET_APP_DATA), asks[i]) << "request " << i;
    }
    EXPECT_EQ(view.GetHoldFlag(), 0);
}

TEST_F(BookmarkView, ClickOnALabelGoesToTheBookmarkAndEmptySpaceClears)
{
    AddGroup("a.c", {7, 9});
    Refresh();
    Input::Click(&view, LabelPoint(Nodes()[1]));
    ASSERT_EQ(host.Count(UWM_GOTO_SOURCE), 1);
    EXPECT_EQ(host.Received(UWM_GOTO_SOURCE)[0].text, "C:\\work\\demo\\a.c");
    EXPECT_EQ(host.Received(UWM_GOTO_SOURCE)[0].lParam, 9);
    EXPECT_EQ(view.GetSelectedItem(), Nodes()[1]);

    Input::Wait();
    Input::Click(&view, EmptyPoint());
    EXPECT_EQ(view.GetSelectedItem(), nullptr);
    EXPECT_EQ(host.Count(UWM_GOTO_SOURCE), 1);
}

TEST_F(BookmarkView, DoubleClickGoesOnceAndKeysMoveWithoutSending)
{
    AddGroup("a.c", {1, 2, 3});
    Refresh();
    Input::DoubleClick(&view, LabelPoint(Nodes()[0]));
    EXPECT_EQ(host.Count(UWM_GOTO_SOURCE), 1);
    Input::Key(VK_DOWN);
    Input::Key(VK_DOWN);
    EXPECT_EQ(view.GetSelectedItem(), Nodes()[2]);
    Input::Key(VK_RETURN);
    EXPECT_EQ(host.Count(UWM_GOTO_SOURCE), 1);
}

TEST_F(BookmarkView, ContextMenuEnablesGoToOnlyWithASelection)
{
    AddGroup("a.c", {4});
    Refresh();
    ShownMenu menu = RightClickMenu(LabelPoint(Nodes()[0]));
    EXPECT_EQ(CWnd::GetFocus(), &view);
    EXPECT_EQ(view.GetSelectedItem(), Nodes()[0]);
    ASSERT_EQ(menu.items.size(), 2u);
    EXPECT_EQ(menu.items[0].text, GBK(u8"定位到"));
    EXPECT_EQ(menu.items[1].text, GBK(u8"清除所有书签(&K)"));
    EXPECT_TRUE(menu.Find(32056)->enabled);
    EXPECT_TRUE(menu.Find(32014)->enabled);

    menu = RightClickMenu(EmptyPoint());
    EXPECT_EQ(view.GetSelectedItem(), nullptr);
    EXPECT_FALSE(menu.Find(32056)->enabled);
    EXPECT_TRUE(menu.Find(32014)->enabled);
    EXPECT_EQ(host.Count(UWM_GOTO_SOURCE), 0);
}

TEST_F(BookmarkView, MenuCommandsReachTheViewAndTheHost)
{
    AddGroup("a.c", {4});
    Refresh();
    RightClickMenu(LabelPoint(Nodes()[0]), 32056);
    ASSERT_EQ(host.Count(UWM_GOTO_SOURCE), 1);
    EXPECT_EQ(host.Received(UWM_GOTO_SOURCE)[0].lParam, 4);
    RightClickMenu(LabelPoint(Nodes()[0]), 32014);
    EXPECT_EQ(host.Commands(), std::vector<UINT>{32014});
    EXPECT_EQ(Nodes().size(), 1u);  // the view waits for the host's refresh
}

TEST_F(BookmarkView, EscapeAndF5AreTakenOnlyOutsideMenuLoops)
{
    AddGroup("a.c", {4});
    Refresh();
    view.SetFocus();
    Input::Key(VK_ESCAPE);
    Input::Key(VK_F5);
    EXPECT_EQ(siblingCalls, (std::vector<std::string>{"CleanTerminate(1)", "KeyF5RefreshWnd(0)"}));
    siblingCalls.clear();
    MenuDriver::Queue([](const ShownMenu&) {
        Input::Key(VK_ESCAPE);
        Input::Key(VK_F5);
        return 0u;
    });
    Input::RightClick(&view, LabelPoint(Nodes()[0]));
    EXPECT_TRUE(siblingCalls.empty());
    Input::Key(VK_ESCAPE);
    EXPECT_EQ(siblingCalls, std::vector<std::string>{"CleanTerminate(1)"});
}

TEST_F(BookmarkView, MissingHostDataLeavesTheViewAsItWas)
{
    AddGroup("a.c", {1});
    Refresh();
    const auto texts = Texts();
    AddGroup("b.c", {2});
    host.answersAppData = false;
    Refresh();
    host.answersAppData = true;
    host.context.bookMarkList = nullptr;
    Refresh();
    host.appData.context = nullptr;
    Refresh();
    EXPECT_EQ(Texts(), texts);
    EXPECT_EQ(host.Count(UWM_GET_PROJECT_PATH), 1);  // not asked when there is nothing to show
}

TEST_F(BookmarkView, BadInputIsShownWithinBoundsAndNeverFollowed)
{
    Group* group = AddGroup("a.c", {INT_MIN, INT_MAX});
    group->Add(nullptr);  // a hole ends the group's pass
    group->Add(NewMark(INT_MAX - 1));
    list->Add(nullptr);
    Group* unterminated = AddGroup(std::string(300, 'p') + ".c", {3});
    std::memset(unterminated->ItemAt(0)->text, 'z', sizeof unterminated->ItemAt(0)->text);
    Refresh();
    const auto texts = Texts();
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[0], NodeText("a.c", INT_MIN));
    EXPECT_EQ(texts[1], NodeText("a.c", INT_MAX));
    // The relative path is cut to the 255 bytes it may have; the whole 2,052-byte text follows.
    EXPECT_EQ(texts[2].size(), std::string(GBK(u8"(文件:")).size() + 255 + std::string(GBK(u8", 行:3)")).size() + 2052);
    EXPECT_EQ(Data()[2], 0x0002u);

    // The host drops a group without refreshing: the stale node is ignored.
    delete unterminated;
    list->RemoveAt(2);
    Input::Click(&view, LabelPoint(Nodes()[2]));
    EXPECT_EQ(host.Count(UWM_GOTO_SOURCE), 0);
    Input::Wait();
    Input::Click(&view, LabelPoint(Nodes()[0]));
    EXPECT_EQ(host.Count(UWM_GOTO_SOURCE), 1);
}

TEST_F(BookmarkView, NodesShowTheBookmarkBadge)
{
    AddGroup("a.c", {1});
    Refresh();
    Paint::UpdateAllWindows();
    CRect label;
    view.GetItemRect(Nodes()[0], &label, TRUE);
    // The badge sits left of the label; look for its cyan disc.
    const WindowPixels pixels(view);
    ASSERT_TRUE(pixels.Valid());
    const CRect badge(std::max(0, static_cast<int>(label.left) - 24), label.top, label.left, label.bottom);
    EXPECT_GT(pixels.Count(RGB(0, 255, 255), badge), 20);
}

}  // namespace

namespace {

TEST_F(BookmarkView, MenuOpenedAfterALeftClickFollowsItsSelection)
{
    AddGroup("a.c", {4});
    Refresh();
    // A menu asked for from the keyboard opens where it is asked, without a right click.
    const auto menuNow = [this] {
        MenuDriver::Dismiss();
        CPoint point(10, 10);
        view.ClientToScreen(&point);
        view.ShowMenu(point);
        return *MenuDriver::LastShown();
    };
    Input::Click(&view, LabelPoint(Nodes()[0]));
    EXPECT_TRUE(menuNow().Find(32056)->enabled);
    Input::Wait();
    Input::Click(&view, EmptyPoint());
    EXPECT_FALSE(menuNow().Find(32056)->enabled);
}

}  // namespace
