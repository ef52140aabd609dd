// The frame's geometry on its own: where regions, groups and their parts lie,
// and how the sizes asked for are fitted into small clients.
#include <gtest/gtest.h>

#include "platform/docking/dock_layout.h"

namespace {

using namespace docklayout;

LayoutRequest RequestWith(CSize client, int left, int right, int bottom)
{
    LayoutRequest request;
    request.client = client;
    request.thickness = {200, 150, 120};
    for (int i = 0; i < left; ++i) request.groups[Index(DockRegion::Left)].push_back({100, 1});
    for (int i = 0; i < right; ++i) request.groups[Index(DockRegion::Right)].push_back({100, 1});
    for (int i = 0; i < bottom; ++i) request.groups[Index(DockRegion::Bottom)].push_back({100, 1});
    return request;
}

const RegionRects& RegionOf(const Layout& layout, DockRegion region)
{
    return layout.regions[Index(region)];
}

TEST(DockLayout, GroupsShareTheirRegionByWeightWithSplittersBetween)
{
    LayoutRequest request = RequestWith(CSize(800, 600), 3, 0, 2);
    request.groups[Index(DockRegion::Left)][1].weight = 200;
    const Layout layout = Compute(request);
    const std::vector<GroupRects>& left = RegionOf(layout, DockRegion::Left).groups;
    ASSERT_EQ(left.size(), 3u);
    const int room = 600 - 2 * kSplitterSize;
    EXPECT_EQ(left[0].group, CRect(0, 0, 200, room / 4));
    EXPECT_EQ(left[0].splitter, CRect(0, room / 4, 200, room / 4 + kSplitterSize));
    EXPECT_EQ(left[1].group.Height(), room / 2);
    EXPECT_EQ(left[1].group.top, left[0].splitter.bottom);
    EXPECT_EQ(left[2].group.bottom, 600);  // the last takes what rounding left
    EXPECT_TRUE(left[2].splitter.IsRectEmpty());

    // The bottom region stacks across, left to right.
    const std::vector<GroupRects>& bottom = RegionOf(layout, DockRegion::Bottom).groups;
    ASSERT_EQ(bottom.size(), 2u);
    EXPECT_EQ(bottom[0].group.top, bottom[1].group.top);
    EXPECT_EQ(bottom[0].splitter.right, bottom[1].group.left);
    EXPECT_EQ(bottom[1].group.right, RegionOf(layout, DockRegion::Bottom).region.right);
}

TEST(DockLayout, TabsShareTheStripUpToAWidthAndHitTestingAgrees)
{
    const CRect strip(10, 100, 610, 120);
    EXPECT_EQ(TabRect(strip, 3, 0), CRect(10, 100, 10 + kMaxTabWidth, 120));
    EXPECT_EQ(TabRect(strip, 3, 2), CRect(10 + 2 * kMaxTabWidth, 100, 10 + 3 * kMaxTabWidth, 120));
    const CRect narrow(0, 0, 90, 20);
    EXPECT_EQ(TabRect(narrow, 3, 1), CRect(30, 0, 60, 20));
    for (int i = 0; i < 3; ++i) {
        const CRect tab = TabRect(narrow, 3, i);
        EXPECT_EQ(TabAt(narrow, 3, CPoint(tab.left, 5)), i);
        EXPECT_EQ(TabAt(narrow, 3, CPoint(tab.right - 1, 5)), i);
    }
    // Past the last tab, outside the strip, or asked for nonsense: nothing.
    EXPECT_EQ(TabAt(strip, 3, CPoint(10 + 3 * kMaxTabWidth, 105)), -1);
    EXPECT_EQ(TabAt(strip, 3, CPoint(20, 99)), -1);
    EXPECT_TRUE(TabRect(strip, 3, 3).IsRectEmpty());
    EXPECT_TRUE(TabRect(strip, 3, -1).IsRectEmpty());
    EXPECT_TRUE(TabRect(strip, 0, 0).IsRectEmpty());
    EXPECT_TRUE(TabRect(CRect(0, 0, 2, 20), 3, 0).IsRectEmpty());
}

TEST(DockLayout, ThicknessIsClampedSoTheCentreKeepsItsMinimum)
{
    const LayoutRequest request = RequestWith(CSize(800, 600), 1, 1, 1);
    const int sideRoom = 800 - kMinCentre - 2 * kSplitterSize;
    EXPECT_EQ(ClampThickness(request, DockRegion::Left, 10000), sideRoom - 150);
    EXPECT_EQ(ClampThickness(request, DockRegion::Right, 10000), sideRoom - 200);
    EXPECT_EQ(ClampThickness(request, DockRegion::Bottom, 10000), 600 - kMinCentre - kSplitterSize);
    EXPECT_EQ(ClampThickness(request, DockRegion::Left, 3), kMinRegion);
    EXPECT_EQ(ClampThickness(request, DockRegion::Bottom, -50), kMinRegion);
    EXPECT_EQ(ClampThickness(request, DockRegion::Left, 321), 321);
}

TEST(DockLayout, ASmallClientShrinksRegionsNeverInvertsARectangle)
{
    for (const CSize client : {CSize(100, 80), CSize(20, 10), CSize(0, 0), CSize(-5, -5)}) {
        LayoutRequest request = RequestWith(client, 2, 2, 2);
        request.groups[Index(DockRegion::Bottom)][0].bars = 2;
        const Layout layout = Compute(request);
        const auto sane = [](const CRect& r) { return r.left <= r.right && r.top <= r.bottom; };
        EXPECT_TRUE(sane(layout.centre)) << client.cx;
        for (const RegionRects& region : layout.regions) {
            EXPECT_TRUE(sane(region.region)) << client.cx;
            EXPECT_LE(region.region.right, std::max<int>(client.cx, 0));
            for (const GroupRects& g : region.groups) {
                EXPECT_TRUE(sane(g.caption) && sane(g.body) && sane(g.tabStrip) && sane(g.group)) << client.cx;
                EXPECT_LE(g.group.bottom, std::max<int>(client.cy, 0));
            }
        }
    }
    // Where there is room for the centre's minimum, the left region gives way last.
    const Layout tight = Compute(RequestWith(CSize(250, 600), 1, 1, 0));
    EXPECT_EQ(RegionOf(tight, DockRegion::Left).region.Width(), 250 - kMinCentre - 2 * kSplitterSize);
    EXPECT_EQ(RegionOf(tight, DockRegion::Right).region.Width(), 0);
    EXPECT_EQ(tight.centre.Width(), kMinCentre);
}

}  // namespace
