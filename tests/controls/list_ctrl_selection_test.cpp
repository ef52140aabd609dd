// The runs of selected indexes behind an owner-data list's selection.
#include <gtest/gtest.h>

#include <limits>

#include "platform/controls/list_ctrl_selection.h"

using listview::Selection;

TEST(ListSelection, RunsMergeWhenTheyTouchAndSplitWhenCut)
{
    Selection s;
    s.AddRange(10, 20);
    s.AddRange(20, 25);  // touching: one run
    s.Add(5);
    EXPECT_EQ(s.Count(), 16);
    EXPECT_TRUE(s.Contains(24));
    EXPECT_FALSE(s.Contains(25));
    EXPECT_FALSE(s.Contains(9));
    s.RemoveRange(12, 14);
    EXPECT_EQ(s.Count(), 14);
    EXPECT_TRUE(s.Contains(11));
    EXPECT_FALSE(s.Contains(12));
    EXPECT_TRUE(s.Contains(14));
    s.AddRange(4, 30);  // swallows everything
    EXPECT_EQ(s.Count(), 26);
    s.Remove(4);
    s.Remove(29);
    EXPECT_EQ(s.Count(), 24);
    EXPECT_FALSE(s.Contains(29));
}

TEST(ListSelection, NextAfterWalksInOrder)
{
    Selection s;
    EXPECT_EQ(s.NextAfter(-1), -1);
    s.AddRange(3, 5);
    s.Add(9);
    EXPECT_EQ(s.NextAfter(-1), 3);
    EXPECT_EQ(s.NextAfter(3), 4);
    EXPECT_EQ(s.NextAfter(4), 9);
    EXPECT_EQ(s.NextAfter(9), -1);
    EXPECT_EQ(s.NextAfter(-50), 3);
    EXPECT_EQ(s.NextAfter(std::numeric_limits<int>::max()), -1);
}

TEST(ListSelection, TruncateDropsWhatIsPastTheCount)
{
    Selection s;
    s.AddRange(0, 100'000'000);
    EXPECT_EQ(s.Count(), 100'000'000);
    s.Truncate(50);
    EXPECT_EQ(s.Count(), 50);
    EXPECT_TRUE(s.Contains(49));
    EXPECT_FALSE(s.Contains(50));
    s.AddRange(7, 7);  // empty ranges change nothing
    s.RemoveRange(9, 3);
    EXPECT_EQ(s.Count(), 50);
    s.Clear();
    EXPECT_TRUE(s.Empty());
}
