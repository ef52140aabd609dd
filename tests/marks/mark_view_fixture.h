// A mark view hosted the way the panes host it, over a test host and a list
// the test fills. Helpers read the nodes and click them through the input
// layer.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/core/message_spy.h"
#include "platform/core/paint.h"
#include "platform/gdi/surface.h"
#include "platform/input/input.h"
#include "platform/menu/menu_driver.h"
#include "platform/text/gbk.h"
#include "siblings/orv_project_misc.h"
#include "tests/support/test_host.h"
#include "tests/support/test_pane.h"

template <class View, class List>
class MarkViewFixture : public ::testing::Test {
protected:
    using Group = typename List::GroupType;
    using Item = typename Group::ItemType;

    void SetUp() override
    {
        MenuDriver::Reset();
        OrvProjectMisc::SetListener([this](std::string_view routine, int argument) {
            siblingCalls.push_back(std::string(routine) + "(" + std::to_string(argument) + ")");
        });
        list = std::make_unique<List>();
        AttachList(host.context, list.get());
        pane.view = &view;
        pane.onContextMenu = [this](CPoint point) { view.ShowMenu(point); };
        ASSERT_TRUE(pane.CreatePane(&host, CRect(0, 0, 400, 300)));
        ASSERT_TRUE(view.Create(&pane));
        pane.MoveWindow(0, 0, 400, 301);
        pane.MoveWindow(0, 0, 400, 300);
    }

    void TearDown() override
    {
        OrvProjectMisc::SetListener({});
        MenuDriver::Reset();
    }

    static void AttachList(ProjectContext& context, CBookMarkList* marks) { context.bookMarkList = marks; }
    static void AttachList(ProjectContext& context, CBreakPointList* marks) { context.breakPointList = marks; }

    // A group for a file under the project directory, with marks at the lines.
    Group* AddGroup(const std::string& file, const std::vector<int>& lines, const std::string& text = "text")
    {
        auto* group = new Group;
        group->file = ("C:\\work\\demo\\" + file).c_str();
        for (int line : lines) group->OrdAdd(NewMark(line, text));
        list->Add(group);
        return group;
    }

    static Item* NewMark(int line, const std::string& text = "text")
    {
        auto* item = new Item;
        item->line = line;
        text.copy(item->text, sizeof item->text - 1);
        return item;
    }

    LRESULT Refresh(WPARAM hold = 0) { return view.SendMessage(UWM_REFRESH_VIEW, hold, 0); }

    std::vector<HTREEITEM> Nodes() const
    {
        std::vector<HTREEITEM> nodes;
        for (HTREEITEM node = view.GetRootItem(); node; node = view.GetNextSiblingItem(node)) nodes.push_back(node);
        return nodes;
    }
    std::vector<std::string> Texts() const
    {
        std::vector<std::string> texts;
        for (HTREEITEM node : Nodes()) texts.emplace_back(view.GetItemText(node));
        return texts;
    }
    std::vector<DWORD> Data() const
    {
        std::vector<DWORD> data;
        for (HTREEITEM node : Nodes()) data.push_back(static_cast<DWORD>(view.GetItemData(node)));
        return data;
    }
    std::vector<int> Images() const
    {
        std::vector<int> images;
        for (HTREEITEM node : Nodes()) {
            int normal = -1;
            int selected = -1;
            view.GetItemImage(node, normal, selected);
            EXPECT_EQ(normal, selected);
            images.push_back(normal);
        }
        return images;
    }

    // Centre of a node's label, in the view's client coordinates.
    CPoint LabelPoint(HTREEITEM node) const
    {
        CRect rect;
        view.GetItemRect(node, &rect, TRUE);
        return rect.CenterPoint();
    }
    CPoint EmptyPoint() const
    {
        CRect client;
        view.GetClientRect(&client);
        return CPoint(client.Width() / 2, client.bottom - 3);
    }

    // The expected text of a node: the position padded to 25 bytes, then the text.
    static std::string NodeText(const std::string& relativeFile, int line, const std::string& text = "text")
    {
        std::string position = GBK(u8"(文件:") + relativeFile + GBK(u8", 行:") + std::to_string(line) + ")";
        if (position.size() < 25) position.append(25 - position.size(), ' ');
        return position + text;
    }

    // Shows the context menu at a node (or empty space) and returns what the
    // menu offered, choosing `choose` if nonzero.
    ShownMenu RightClickMenu(CPoint point, UINT choose = 0)
    {
        if (choose) MenuDriver::Choose(choose);
        else MenuDriver::Dismiss();
        const int before = MenuDriver::ShownCount();
        Input::Wait();
        Input::RightClick(&view, point);
        EXPECT_EQ(MenuDriver::ShownCount(), before + 1);
        return MenuDriver::LastShown() ? *MenuDriver::LastShown() : ShownMenu{};
    }

    std::vector<std::string> siblingCalls;
    TestHost host;
    std::unique_ptr<List> list;
    TestPane pane;
    View view;
};

// Counts TVM_SETITEM messages to a window that change one kind of field.
class SetItemCounter {
public:
    SetItemCounter(HWND hwnd, UINT mask)
        : m_cookie(MessageSpy::Add([this, hwnd, mask](HWND target, UINT message, WPARAM, LPARAM lParam) {
              if (target == hwnd && message == TVM_SETITEM && lParam &&
                  (reinterpret_cast<const TVITEM*>(lParam)->mask & mask))
                  ++m_count;
          }))
    {
    }
    ~SetItemCounter() { MessageSpy::Remove(m_cookie); }
    int Count() const { return m_count; }

private:
    int m_cookie;
    int m_count = 0;
};
