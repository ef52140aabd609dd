#include <gtest/gtest.h>

#include "platform/input/input.h"
#include "platform/text/gbk.h"
#include "siblings/work_space_tree1.h"
#include "siblings/work_space_tree2.h"
#include "tests/support/test_host.h"

namespace {

HTREEITEM Node(CTreeCtrl& tree, const char* gbkText)
{
    for (HTREEITEM group = tree.GetRootItem(); group; group = tree.GetNextSiblingItem(group)) {
        if (std::string(tree.GetItemText(group)) == gbkText) return group;
        for (HTREEITEM child = tree.GetChildItem(group); child; child = tree.GetNextSiblingItem(child)) {
            if (std::string(tree.GetItemText(child)) == gbkText) return child;
        }
    }
    return nullptr;
}

CPoint LabelCentre(CTreeCtrl& tree, HTREEITEM node)
{
    CRect rect;
    tree.GetItemRect(node, &rect, TRUE);
    return rect.CenterPoint();
}

class WorkSpaceTreeTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        files.SetGroups(GBK("C:\\8051\\交通灯\\"), {{GBK("源文件"), {"main.c", GBK("驱动\\timer0.c")}}, {"Headers", {"lights.h"}}});
        ASSERT_TRUE(files.Create(&host));
        files.MoveWindow(CRect(0, 0, 300, 300));
        host.Clear();
    }

    TestHost host;
    CWorkSpaceTree1 files;
};

TEST_F(WorkSpaceTreeTest, DoubleClickOnAFileAsksTheHostToOpenItsFullPath)
{
    Input::DoubleClick(&files, LabelCentre(files, Node(files, GBK("驱动\\timer0.c").c_str())));
    const auto opened = host.Received(UWM_WORKSPACE_OPEN_FILE);
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened[0].text, GBK("C:\\8051\\交通灯\\驱动\\timer0.c"));
}

TEST_F(WorkSpaceTreeTest, DoubleClickOnAGroupOrBesideTheItemsOpensNothing)
{
    const HTREEITEM group = Node(files, GBK("源文件").c_str());
    Input::DoubleClick(&files, LabelCentre(files, group));
    Input::Wait();
    Input::DoubleClick(&files, CPoint(150, 290));
    EXPECT_EQ(host.Count(UWM_WORKSPACE_OPEN_FILE), 0);
    // The group's own double click still toggles it.
    EXPECT_FALSE(files.GetItemState(group, TVIS_EXPANDED) & TVIS_EXPANDED);
}

TEST_F(WorkSpaceTreeTest, NewGroupsReplaceTheShownOnes)
{
    files.SetGroups("D:\\", {{"Only", {"a.c"}}});
    EXPECT_EQ(files.GetCount(), 2u);
    Input::DoubleClick(&files, LabelCentre(files, Node(files, "a.c")));
    ASSERT_EQ(host.Count(UWM_WORKSPACE_OPEN_FILE), 1);
    EXPECT_EQ(host.Received(UWM_WORKSPACE_OPEN_FILE)[0].text, "D:\\a.c");
}

TEST(WorkSpaceTargetTree, ShowsEachTargetWithItsOptionsUnderIt)
{
    TestHost host;
    CWorkSpaceTree2 targets;
    targets.SetTargets({{"Debug", {"Model: small", "Optimise: size"}}, {"Release", {}}});
    ASSERT_TRUE(targets.Create(&host));
    const HTREEITEM debug = targets.GetRootItem();
    ASSERT_NE(debug, nullptr);
    EXPECT_EQ(std::string(targets.GetItemText(debug)), "Debug");
    const HTREEITEM option = targets.GetChildItem(debug);
    ASSERT_NE(option, nullptr);
    EXPECT_EQ(std::string(targets.GetItemText(option)), "Model: small");
    EXPECT_EQ(std::string(targets.GetItemText(targets.GetNextSiblingItem(option))), "Optimise: size");
    const HTREEITEM release = targets.GetNextSiblingItem(debug);
    ASSERT_NE(release, nullptr);
    EXPECT_EQ(targets.GetChildItem(release), nullptr);
}

}  // namespace
