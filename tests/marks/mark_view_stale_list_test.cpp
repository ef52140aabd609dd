// Both mark views after the host has freed the list they last showed: a
// click never reads it, and only the host's current list is followed.
#include "marks/bookmark_tree_ctrl.h"
#include "marks/breakpoint_tree_ctrl.h"
#include "tests/marks/mark_view_fixture.h"

namespace {

template <class ViewType, class ListType>
struct ViewOf {
    using View = ViewType;
    using List = ListType;
};

template <class Kind>
class StaleMarkList : public MarkViewFixture<typename Kind::View, typename Kind::List> {
protected:
    // The host puts a new, empty list in place of the shown one and returns
    // the old one, which it still owns.
    std::unique_ptr<typename Kind::List> Republish()
    {
        auto old = std::make_unique<typename Kind::List>();
        std::swap(old, this->list);
        this->AttachList(this->host.context, this->list.get());
        return old;
    }

    void ClickNode(size_t index)
    {
        Input::Wait();
        Input::Click(&this->view, this->LabelPoint(this->Nodes()[index]));
    }
};

using MarkViews = ::testing::Types<ViewOf<CBookMarkListTreeCtrl, CBookMarkList>, ViewOf<CBreakPointListTreeCtrl, CBreakPointList>>;
TYPED_TEST_SUITE(StaleMarkList, MarkViews);

TYPED_TEST(StaleMarkList, AClickAfterTheProjectClosedSendsNothing)
{
    this->AddGroup("a.c", {7, 9});
    this->Refresh();
    const auto texts = this->Texts();

    // The host closes its project: no context, the list freed, then a refresh.
    this->host.appData.context = nullptr;
    this->list.reset();
    this->Refresh();
    EXPECT_EQ(this->Texts(), texts);  // the view keeps what it showed
    this->ClickNode(1);
    EXPECT_EQ(this->host.Count(UWM_GOTO_SOURCE), 0);
    EXPECT_EQ(this->view.GetSelectedItem(), this->Nodes()[1]);
}

TYPED_TEST(StaleMarkList, AClickAfterTheListWasDroppedSendsNothing)
{
    this->AddGroup("a.c", {7});
    this->Refresh();

    // The context stays, without a list of this kind.
    this->AttachList(this->host.context, static_cast<typename TypeParam::List*>(nullptr));
    this->list.reset();
    this->Refresh();
    ASSERT_EQ(this->Nodes().size(), 1u);
    this->ClickNode(0);
    EXPECT_EQ(this->host.Count(UWM_GOTO_SOURCE), 0);

    // A new project's list is followed again, once it is published.
    this->list = std::make_unique<typename TypeParam::List>();
    this->AttachList(this->host.context, this->list.get());
    this->AddGroup("b.c", {12});
    this->ClickNode(0);
    ASSERT_EQ(this->host.Count(UWM_GOTO_SOURCE), 1);
    EXPECT_EQ(this->host.Received(UWM_GOTO_SOURCE)[0].text, "C:\\work\\demo\\b.c");
    EXPECT_EQ(this->host.Received(UWM_GOTO_SOURCE)[0].lParam, 12);
}

TYPED_TEST(StaleMarkList, AHeldRefreshChangesNoNodeAndTheFreedListIsNeverRead)
{
    this->AddGroup("a.c", {7, 9});
    this->AddGroup("b.c", {3});
    this->Refresh(1);
    const auto texts = this->Texts();
    const auto images = this->Images();

    // Held: the host publishes a smaller list, refreshes (ignored), frees the old one.
    auto old = this->Republish();
    this->AddGroup("c.c", {20, 21});
    this->Refresh(1);
    old.reset();
    EXPECT_EQ(this->Texts(), texts);
    EXPECT_EQ(this->Images(), images);

    // A node whose place is in the host's current list goes there; one whose
    // file index is gone sends nothing.
    this->ClickNode(1);
    this->ClickNode(2);
    const auto sent = this->host.Received(UWM_GOTO_SOURCE);
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].text, "C:\\work\\demo\\c.c");
    EXPECT_EQ(sent[0].lParam, 21);

    // Releasing the hold shows the current list.
    this->Refresh(0);
    EXPECT_EQ(this->Texts(), (std::vector<std::string>{this->NodeText("c.c", 20), this->NodeText("c.c", 21)}));
}

TYPED_TEST(StaleMarkList, ARefreshOverHolesKeepsNoNodeOfWhatWasFreed)
{
    auto* first = this->AddGroup("a.c", {1, 2, 3});
    this->AddGroup("b.c", {4});
    this->Refresh();
    ASSERT_EQ(this->Nodes().size(), 4u);

    // The host frees a mark and a group, leaves their slots empty, adds a file.
    delete first->ItemAt(1);
    first->SetAt(1, nullptr);
    auto* second = this->list->GroupAt(1);
    second->ReleaseAllItems();
    delete second;
    this->list->SetAt(1, nullptr);
    this->AddGroup("c.c", {9});
    this->Refresh();

    // The hole ends a.c's marks and the empty slot is skipped: the nodes of
    // the freed marks and of the marks past the hole are gone.
    EXPECT_EQ(this->Texts(), (std::vector<std::string>{this->NodeText("a.c", 1), this->NodeText("c.c", 9)}));
    EXPECT_EQ(this->Data(), (std::vector<DWORD>{EncodeMarkData(0, 0), EncodeMarkData(2, 0)}));
    this->ClickNode(1);
    ASSERT_EQ(this->host.Count(UWM_GOTO_SOURCE), 1);
    EXPECT_EQ(this->host.Received(UWM_GOTO_SOURCE)[0].text, "C:\\work\\demo\\c.c");
}

}  // namespace
