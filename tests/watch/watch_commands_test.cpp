// The watch menu's enable rules and commands, and the keys that reach them.
#include <map>

#include "host/resource_ids.h"
#include "platform/menu/menu_driver.h"
#include "tests/watch/watch_fixture.h"

namespace {

class WatchCommandsTest : public WatchFixture {
protected:
    void SetUp() override
    {
        WatchFixture::SetUp();
        MenuDriver::Reset();
        for (const char* name : {"x", "y", "z"}) service.Define(name, MakeRecord(3, WS_DATA, name[0], 1, 10));
        WatchRecord s = MakeRecord(32, WS_DATA, 0x40, 3);
        s.typeRef = 7;
        s.count = 2;
        service.Define("s", s);
        WatchRecord a = MakeRecord(WT_ARRAY, WS_DATA, 0x40, 2);
        a.typeRef = 8;  // expanded member by member
        a.count = 1;
        std::strcpy(a.name, "a");
        WatchRecord element = MakeRecord(32, WS_DATA, 0x40, 2);
        element.typeRef = 9;
        element.count = 1;
        std::strcpy(element.name, "[03]");
        WatchRecord x = MakeRecord(WT_INT, WS_DATA, 0x40, 2, 12);
        std::strcpy(x.name, "x");
        WatchRecord b = MakeRecord(3, WS_DATA, 0x42, 1, 3);
        std::strcpy(b.name, "b");
        service.DefineMembers(7, {a, b});
        service.DefineMembers(8, {element});
        service.DefineMembers(9, {x});
        for (const char* name : {"x", "y", "z"}) Add(name);
    }

    void Add(const std::string& gbk) { grid.SendMessage(UWM_WATCH_ADD_EXPRESSION, reinterpret_cast<WPARAM>(gbk.c_str()), 0); }

    // The enabled state of each command of the menu, opened on the selection.
    std::map<UINT, bool> MenuStates()
    {
        MenuDriver::Dismiss();
        grid.ShowMenu(CPoint(10, 10));
        std::map<UINT, bool> states;
        const ShownMenu* menu = MenuDriver::LastShown();
        for (UINT id = ID_WATCH_DELETE; id <= ID_WATCH_MOVE_UP; ++id) {
            if (const ShownMenuItem* item = menu ? menu->Find(id) : nullptr) states[id] = item->enabled;
        }
        return states;
    }

    void Choose(UINT id)
    {
        MenuDriver::Choose(id);
        grid.ShowMenu(CPoint(10, 10));
    }
};

TEST_F(WatchCommandsTest, TheMenuFollowsTheSelection)
{
    grid.SelectItem(0);
    auto states = MenuStates();
    ASSERT_EQ(states.size(), 9u);
    EXPECT_TRUE(states[ID_WATCH_DELETE]);
    EXPECT_TRUE(states[ID_WATCH_CLEAR]);
    EXPECT_TRUE(states[ID_WATCH_EDIT]);
    EXPECT_TRUE(states[ID_WATCH_SHOW_IN_MEMORY]);
    EXPECT_FALSE(states[ID_WATCH_MOVE_UP]);  // the first line
    EXPECT_TRUE(states[ID_WATCH_MOVE_DOWN]);
    EXPECT_TRUE(states[ID_WATCH_FORMAT_HEX]);

    grid.SelectItem(2);  // just above the input row
    states = MenuStates();
    EXPECT_TRUE(states[ID_WATCH_MOVE_UP]);
    EXPECT_FALSE(states[ID_WATCH_MOVE_DOWN]);

    grid.SelectItem(3);  // the input row
    states = MenuStates();
    EXPECT_FALSE(states[ID_WATCH_DELETE]);
    EXPECT_FALSE(states[ID_WATCH_MOVE_UP]);
    EXPECT_TRUE(states[ID_WATCH_SHOW_IN_MEMORY]);  // the input row has a record too
    grid.SetCurrentColumn(1);  // the input row's value cannot be edited
    EXPECT_FALSE(MenuStates()[ID_WATCH_EDIT]);

    grid.fixedRows = TRUE;
    grid.SelectItem(1);
    grid.SetCurrentColumn(1);
    states = MenuStates();
    EXPECT_FALSE(states[ID_WATCH_DELETE]);
    EXPECT_FALSE(states[ID_WATCH_CLEAR]);
    EXPECT_TRUE(states[ID_WATCH_EDIT]);  // values can still be written
    EXPECT_TRUE(states[ID_WATCH_SHOW_IN_MEMORY]);
    // Shown enabled, but they do nothing in a fixed list.
    EXPECT_TRUE(states[ID_WATCH_MOVE_UP]);
    EXPECT_TRUE(states[ID_WATCH_MOVE_DOWN]);
    Choose(ID_WATCH_MOVE_UP);
    Choose(ID_WATCH_MOVE_DOWN);
    grid.SetFocus();
    Input::Key(VK_DELETE);
    Input::Key(VK_UP, Input::kShift);
    EXPECT_EQ(Lines(), (Texts{"x", "y", "z", Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), 1);
}

TEST_F(WatchCommandsTest, DeleteTakesTopLevelRowsOnlyAndNeverTheInputRow)
{
    grid.SetFocus();
    grid.SelectItem(1);
    Input::Key(VK_DELETE);
    EXPECT_EQ(Lines(), (Texts{"x", "z", Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), 1);

    grid.SelectItem(2);
    Input::Key(VK_DELETE);
    Choose(ID_WATCH_DELETE);
    EXPECT_EQ(Lines(), (Texts{"x", "z", Prompt()}));

    Add("s");
    grid.ToggleExpand(2);
    grid.SelectItem(3);  // the member a of s: enabled, deletes nothing
    EXPECT_TRUE(MenuStates()[ID_WATCH_DELETE]);
    Choose(ID_WATCH_DELETE);
    EXPECT_EQ(grid.GetItemCount(), 6);

    // An expanded row goes with its shown lines.
    grid.SelectItem(2);
    Input::Key(VK_DELETE);
    EXPECT_EQ(Lines(), (Texts{"x", "z", Prompt()}));
}

TEST_F(WatchCommandsTest, ClearFromTheMenuGivesTheInputRowBack)
{
    Choose(ID_WATCH_CLEAR);
    EXPECT_EQ(Lines(), (Texts{Prompt()}));
}

TEST_F(WatchCommandsTest, ShiftArrowsMoveTopLevelRowsWithTheirChildren)
{
    Add("s");
    grid.ToggleExpand(3);
    ASSERT_EQ(Lines(), (Texts{"x", "y", "z", "s", "a", "b", Prompt()}));
    grid.SetFocus();

    grid.SelectItem(0);
    Input::Key(VK_DOWN, Input::kShift);
    EXPECT_EQ(Lines(), (Texts{"y", "x", "z", "s", "a", "b", Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), 1);

    // An expanded row moves below the next top-level row, children included.
    grid.SelectItem(3);
    Input::Key(VK_UP, Input::kShift);
    EXPECT_EQ(Lines(), (Texts{"y", "x", "s", "a", "b", "z", Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), 2);
    Input::Key(VK_DOWN, Input::kShift);
    EXPECT_EQ(Lines(), (Texts{"y", "x", "z", "s", "a", "b", Prompt()}));
    EXPECT_EQ(grid.GetSelectedItem(), 3);

    // On a member, and above the input row, only the selection moves.
    grid.SelectItem(4);
    Input::Key(VK_UP, Input::kShift);
    EXPECT_EQ(grid.GetSelectedItem(), 3);
    grid.SelectItem(5);
    Input::Key(VK_DOWN, Input::kShift);
    EXPECT_EQ(grid.GetSelectedItem(), 6);
    Input::Key(VK_UP, Input::kShift);
    EXPECT_EQ(grid.GetSelectedItem(), 5);
    EXPECT_EQ(Lines(), (Texts{"y", "x", "z", "s", "a", "b", Prompt()}));
}

TEST_F(WatchCommandsTest, OneFormatForEveryShownLine)
{
    Add("s");
    grid.ToggleExpand(3);
    grid.ToggleExpand(4);  // a, whose element [03] stays collapsed
    ASSERT_EQ(Lines(), (Texts{"x", "y", "z", "s", "a", "[03]", "b", Prompt()}));
    const CGridRow* hidden = grid.GetRowAt(5)->children.GetSize() ? nullptr : grid.GetRowAt(5);
    ASSERT_NE(hidden, nullptr);
    Choose(ID_WATCH_FORMAT_BIN);
    EXPECT_EQ(Cell(0, 1), "00001010");
    EXPECT_EQ(Cell(6, 1), "00000011");
    EXPECT_EQ(grid.GetRowAt(6)->Cell(2)->value, WF_BINARY);
    // The attribute is not rewritten, and the input row is left alone but for its format.
    EXPECT_EQ(Cell(0, 3), "data:0078, unsigned char");
    EXPECT_EQ(grid.GetRowAt(7)->format, WF_BINARY);
    EXPECT_EQ(grid.GetRowAt(7)->Cell(2)->kind, 0u);

    // A member made later keeps the default its creation gave it.
    grid.ToggleExpand(5);
    EXPECT_EQ(Cell(6, 1), "12");

    // One row's own list changes that row only.
    Choose(ID_WATCH_FORMAT_DEC);
    grid.SelectItem(0);
    grid.SetCurrentColumn(2);
    grid.SetFocus();
    Input::Key(VK_RETURN);
    ASSERT_TRUE(grid.ComboBox().IsWindowVisible());
    grid.ComboBox().SetCurSel(2);
    Input::Key(VK_RETURN);
    EXPECT_EQ(Cell(0, 1), "0A");
    EXPECT_EQ(Cell(1, 1), "10");
}

TEST_F(WatchCommandsTest, TheMemoryViewGetsThePathThroughTheAncestors)
{
    Add("s");
    grid.ToggleExpand(3);
    grid.ToggleExpand(4);
    grid.ToggleExpand(5);
    ASSERT_EQ(Lines(), (Texts{"x", "y", "z", "s", "a", "[03]", "x", "b", Prompt()}));
    service.ClearRequests();
    grid.SetFocus();
    grid.SelectItem(6);
    Input::Key('M', Input::kControl);
    grid.SelectItem(7);
    Choose(ID_WATCH_SHOW_IN_MEMORY);
    ASSERT_EQ(service.requests.size(), 2u);
    EXPECT_EQ(service.requests[0].code, static_cast<unsigned>(DRQ_SHOW_MEMORY));
    EXPECT_EQ(service.requests[0].text, "s.a[03].x");
    EXPECT_EQ(service.requests[1].text, "s.b");

    // An element of a top-level array follows its array directly.
    WatchRecord arr = MakeRecord(WT_ARRAY, WS_DATA, 0x50, 3);
    arr.count = 3;
    service.Define("arr", arr);
    service.DefineElements(WS_DATA, 0x50, {MakeRecord(3, WS_DATA, 0x50, 1), {1, 2, 3}, {1, 1, 1}});
    Add("arr");
    const int line = grid.GetItemCount() - 2;
    grid.ToggleExpand(line);
    grid.SelectItem(line + 3);
    service.ClearRequests();
    Input::Key('M', Input::kControl);
    ASSERT_EQ(service.requests.size(), 1u);
    EXPECT_EQ(service.requests[0].text, "arr[02]");
}

}  // namespace
