// The host's mark containers: sorted insertion, ownership, release.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <memory>
#include <vector>

#include "marks/mark_lists.h"

namespace {

template <class Item>
Item* NewMark(int line)
{
    auto* item = new Item;
    item->line = line;
    return item;
}

template <class Group>
std::vector<int> Lines(const Group& group)
{
    std::vector<int> lines;
    for (int i = 0; i < group.GetSize(); ++i) lines.push_back(group.ItemAt(i)->line);
    return lines;
}

template <class Group>
class MarkGroupTest : public ::testing::Test {};
using GroupTypes = ::testing::Types<CBookMarkItems, CBreakPointItems>;
TYPED_TEST_SUITE(MarkGroupTest, GroupTypes);

TYPED_TEST(MarkGroupTest, OrdAddKeepsAscendingUniqueLines)
{
    using Item = typename TypeParam::ItemType;
    TypeParam group;
    group.OrdAdd(NewMark<Item>(30));
    EXPECT_EQ(Lines(group), std::vector<int>({30}));
    group.OrdAdd(NewMark<Item>(10));
    group.OrdAdd(NewMark<Item>(20));
    EXPECT_EQ(Lines(group), std::vector<int>({10, 20, 30}));
    group.OrdAdd(NewMark<Item>(40));
    group.OrdAdd(NewMark<Item>(-5));
    group.OrdAdd(NewMark<Item>(0));
    group.OrdAdd(NewMark<Item>(INT_MIN));
    group.OrdAdd(NewMark<Item>(INT_MAX));
    EXPECT_EQ(Lines(group), std::vector<int>({INT_MIN, -5, 0, 10, 20, 30, 40, INT_MAX}));
}

TYPED_TEST(MarkGroupTest, OrdAddRefusesADuplicateLineAndLeavesItToTheCaller)
{
    using Item = typename TypeParam::ItemType;
    TypeParam group;
    Item* first = NewMark<Item>(10);
    group.OrdAdd(first);
    group.OrdAdd(NewMark<Item>(20));
    std::unique_ptr<Item> duplicate(NewMark<Item>(10));
    group.OrdAdd(duplicate.get());
    EXPECT_EQ(group.GetSize(), 2);
    EXPECT_EQ(group.ItemAt(0), first);
    for (int i = 0; i < group.GetSize(); ++i) EXPECT_NE(group.ItemAt(i), duplicate.get());
}

TYPED_TEST(MarkGroupTest, OrdAddSkipsNullEntriesAndIgnoresNullMarks)
{
    using Item = typename TypeParam::ItemType;
    TypeParam group;
    group.Add(NewMark<Item>(5));
    group.Add(nullptr);  // a host that left a hole
    group.OrdAdd(NewMark<Item>(7));  // the hole is passed over; 7 goes after 5
    group.OrdAdd(nullptr);
    ASSERT_EQ(group.GetSize(), 3);
    EXPECT_EQ(group.ItemAt(0)->line, 5);
    ASSERT_NE(group.ItemAt(1), nullptr);
    EXPECT_EQ(group.ItemAt(1)->line, 7);
    EXPECT_EQ(group.ItemAt(2), nullptr);
    group.OrdAdd(NewMark<Item>(6));
    ASSERT_NE(group.ItemAt(1), nullptr);
    EXPECT_EQ(group.ItemAt(1)->line, 6);
    EXPECT_EQ(group.GetSize(), 4);
}

TEST(MarkItems, FreshMarksAreEmptyAndCopiesTakeEveryByte)
{
    CBookMarkItem bookmark;
    EXPECT_EQ(bookmark.text[0], '\0');
    EXPECT_EQ(bookmark.hostTag, 0);
    EXPECT_EQ(bookmark.hostFlag, 0);
    EXPECT_EQ(bookmark.hostData, 0);
    CBreakPointItem breakpoint;
    EXPECT_EQ(breakpoint.active, 0);
    EXPECT_EQ(breakpoint.text[0], '\0');
    EXPECT_EQ(breakpoint.hostTag, 0);

    breakpoint.line = 42;
    breakpoint.active = 1;
    breakpoint.hostData = 7;
    std::memset(breakpoint.text, 'x', sizeof breakpoint.text);  // no terminator
    CBreakPointItem copy;
    copy = breakpoint;
    EXPECT_EQ(std::memcmp(&copy, &breakpoint, sizeof copy), 0);
}

// Counts constructions and destructions of groups through the virtual destructor.
int g_liveGroups = 0;
class CountedGroup : public CBookMarkItems {
public:
    CountedGroup() { ++g_liveGroups; }
    ~CountedGroup() override { --g_liveGroups; }
};

TEST(MarkList, ReleaseAllItemsFreesGroupsAndMarksAndCanRepeat)
{
    g_liveGroups = 0;
    CBookMarkList list;
    for (int g = 0; g < 2; ++g) {
        auto* group = new CountedGroup;
        for (int line = 1; line <= 3; ++line) group->OrdAdd(NewMark<CBookMarkItem>(line));
        list.Add(group);
    }
    list.Add(nullptr);
    EXPECT_EQ(g_liveGroups, 2);
    list.ReleaseAllItems();
    EXPECT_EQ(g_liveGroups, 0);
    EXPECT_EQ(list.GetSize(), 0);
    list.ReleaseAllItems();
    EXPECT_EQ(list.GetSize(), 0);
}

TEST(MarkList, DestroyingAListFreesEverything)
{
    // The sanitizer build reports a leak if any group or mark survives.
    g_liveGroups = 0;
    {
        auto list = std::make_unique<CBreakPointList>();
        auto* group = new CBreakPointItems;
        group->file = "C:\\p\\a.c";
        group->OrdAdd(NewMark<CBreakPointItem>(1));
        list->Add(group);
        auto* counted = new CountedGroup;
        counted->OrdAdd(NewMark<CBookMarkItem>(1));
        CBookMarkList bookmarks;
        bookmarks.Add(counted);
        EXPECT_EQ(g_liveGroups, 1);
    }
    EXPECT_EQ(g_liveGroups, 0);
}

}  // namespace
