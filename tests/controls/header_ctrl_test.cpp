// The header on its own: where items lie and what a point is on.
#include <gtest/gtest.h>

#include "platform/controls/header_ctrl.h"

namespace {

class HeaderHitTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(parent.CreateEx(0, "HeaderTestParent", "parent", WS_OVERLAPPED | WS_VISIBLE, CRect(50, 40, 450, 340), nullptr, 0));
        ASSERT_TRUE(header.Create(WS_CHILD | WS_VISIBLE | HDS_HORZ | HDS_BUTTONS, CRect(0, 0, 200, 20), &parent, 1));
        // Items at [0, 50), [50, 50) (dragged down to nothing) and [50, 90).
        for (const int width : {50, 0, 40}) {
            HDITEM item;
            item.mask = HDI_WIDTH;
            item.cxy = width;
            ASSERT_GE(header.InsertItem(header.GetItemCount(), &item), 0);
        }
    }
    void TearDown() override
    {
        header.DestroyWindow();
        parent.DestroyWindow();
    }
    // The item hit and the flags, for a point.
    std::pair<int, UINT> Hit(int x, int y = 10)
    {
        HDHITTESTINFO info;
        info.pt = CPoint(x, y);
        const int item = header.HitTest(&info);
        EXPECT_EQ(info.iItem, item);
        return {item, info.flags};
    }

    CWnd parent;
    CHeaderCtrl header;
};

using Result = std::pair<int, UINT>;

}  // namespace

TEST_F(HeaderHitTest, DividersWithinTheGripComeBeforeButtons)
{
    CRect rect;
    ASSERT_TRUE(header.GetItemRect(2, &rect));
    EXPECT_EQ(rect, CRect(50, 0, 90, 20));
    ASSERT_TRUE(header.GetItemRect(1, &rect));
    EXPECT_EQ(rect, CRect(50, 0, 50, 20));

    EXPECT_EQ(Hit(20), Result(0, HHT_ONHEADER));
    EXPECT_EQ(Hit(46), Result(0, HHT_ONHEADER));   // 4 short of the edge: past the grip
    EXPECT_EQ(Hit(47), Result(0, HHT_ONDIVIDER));  // left of the shared edge: the first item's
    // On or right of an edge two items share, the later one's: the empty
    // column can be pulled open again.
    EXPECT_EQ(Hit(50), Result(1, HHT_ONDIVIDER));
    EXPECT_EQ(Hit(52), Result(1, HHT_ONDIVIDER));
    // Past the grip, the button under the point; the empty column has none.
    EXPECT_EQ(Hit(60), Result(2, HHT_ONHEADER));
    EXPECT_EQ(Hit(93), Result(2, HHT_ONDIVIDER));
    EXPECT_EQ(Hit(96), Result(-1, HHT_NOWHERE));

    EXPECT_EQ(Hit(20, -1), Result(-1, HHT_ABOVE));
    EXPECT_EQ(Hit(200, 25), Result(-1, HHT_TORIGHT | HHT_BELOW));
}
