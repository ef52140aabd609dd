// Docking bars into the frame's regions: where they go, what the central
// view keeps, and the calls the frame refuses.
#include "platform/docking/dock_layout.h"
#include "tests/docking/dock_frame_fixture.h"

namespace {

using docktest::DockFrameFixture;
using docktest::EditBar;
using namespace docklayout;

using FrameDocking = DockFrameFixture;

TEST_F(FrameDocking, EachRegionTakesItsBarsAndTheCentralViewFillsTheRest)
{
    EditBar& files = MakeBar("files");
    EditBar& output = MakeBar("output");
    EditBar& watch = MakeBar("watch");
    frame.DockControlBar(&files, DockRegion::Left);
    frame.DockControlBar(&watch, DockRegion::Right);
    frame.DockControlBar(&output, DockRegion::Bottom);

    const int left = frame.GetRegionSize(DockRegion::Left);
    const int right = frame.GetRegionSize(DockRegion::Right);
    const int bottom = frame.GetRegionSize(DockRegion::Bottom);
    EXPECT_EQ(BarRect(files), CRect(0, kCaptionHeight, left, kClient.cy));
    EXPECT_EQ(BarRect(watch), CRect(kClient.cx - right, kCaptionHeight, kClient.cx, kClient.cy));
    const int middleLeft = left + kSplitterSize;
    const int middleRight = kClient.cx - right - kSplitterSize;
    EXPECT_EQ(BarRect(output), CRect(middleLeft, kClient.cy - bottom + kCaptionHeight, middleRight, kClient.cy));
    EXPECT_EQ(BarRect(central), CRect(middleLeft, 0, middleRight, kClient.cy - bottom - kSplitterSize));
    // The bars lay their views out at the size they were moved to.
    EXPECT_EQ(files.GetLastSize(), CSize(left, kClient.cy - kCaptionHeight));

    // Captions sit right above the bars; the splitters between regions and centre.
    EXPECT_EQ(frame.CaptionRect(&output), CRect(middleLeft, kClient.cy - bottom, middleRight, kClient.cy - bottom + kCaptionHeight));
    EXPECT_EQ(frame.RegionSplitterRect(DockRegion::Left), CRect(left, 0, middleLeft, kClient.cy));
    EXPECT_EQ(frame.RegionSplitterRect(DockRegion::Bottom),
              CRect(middleLeft, kClient.cy - bottom - kSplitterSize, middleRight, kClient.cy - bottom));
}

TEST_F(FrameDocking, GroupsStackDownASideAndAcrossTheBottom)
{
    EditBar& a = MakeBar("a");
    EditBar& b = MakeBar("b");
    EditBar& c = MakeBar("c");
    EditBar& d = MakeBar("d");
    frame.DockControlBar(&a, DockRegion::Right);
    frame.DockControlBar(&b, DockRegion::Right);
    frame.DockControlBar(&c, DockRegion::Bottom);
    frame.DockControlBar(&d, DockRegion::Bottom);

    EXPECT_EQ(BarRect(a).left, BarRect(b).left);
    EXPECT_EQ(frame.GroupSplitterRect(DockRegion::Right, 0).top, BarRect(a).bottom);
    EXPECT_EQ(frame.CaptionRect(&b).top, frame.GroupSplitterRect(DockRegion::Right, 0).bottom);
    EXPECT_EQ(BarRect(b).bottom, kClient.cy);
    // Two groups of equal share, within a pixel of rounding.
    EXPECT_NEAR(BarRect(a).Height() + kCaptionHeight, BarRect(b).Height() + kCaptionHeight, 1);

    EXPECT_EQ(BarRect(c).top, BarRect(d).top);
    EXPECT_EQ(frame.GroupSplitterRect(DockRegion::Bottom, 0).left, BarRect(c).right);
    EXPECT_EQ(BarRect(d).left, frame.GroupSplitterRect(DockRegion::Bottom, 0).right);
    EXPECT_TRUE(frame.GroupSplitterRect(DockRegion::Bottom, 1).IsRectEmpty());
    EXPECT_TRUE(frame.GroupSplitterRect(DockRegion::Bottom, -1).IsRectEmpty());
    // No left region: the centre starts at the client's edge.
    EXPECT_EQ(BarRect(central).left, 0);
    EXPECT_TRUE(frame.RegionSplitterRect(DockRegion::Left).IsRectEmpty());
}

TEST_F(FrameDocking, ResizingTheFrameLaysEverythingOutAgain)
{
    EditBar& output = MakeBar("output");
    EditBar& files = MakeBar("files");
    frame.DockControlBar(&output, DockRegion::Bottom);
    frame.DockControlBar(&files, DockRegion::Left);
    frame.MoveWindow(0, 0, 600, 400);
    const int bottom = frame.GetRegionSize(DockRegion::Bottom);
    EXPECT_EQ(BarRect(output).bottom, 400);
    EXPECT_EQ(BarRect(output).right, 600);
    EXPECT_EQ(BarRect(output).top, 400 - bottom + kCaptionHeight);
    EXPECT_EQ(BarRect(files).bottom, 400);
    EXPECT_EQ(BarRect(central).bottom, 400 - bottom - kSplitterSize);
}

TEST_F(FrameDocking, RegionSizesAreClampedToLeaveTheCentreItsMinimum)
{
    EditBar& files = MakeBar("files");
    frame.DockControlBar(&files, DockRegion::Left);
    frame.SetRegionSize(DockRegion::Left, 5000);
    EXPECT_EQ(frame.GetRegionSize(DockRegion::Left), kClient.cx - kMinCentre - kSplitterSize);
    EXPECT_EQ(BarRect(central).Width(), kMinCentre);
    frame.SetRegionSize(DockRegion::Left, 1);
    EXPECT_EQ(frame.GetRegionSize(DockRegion::Left), kMinRegion);
    EXPECT_EQ(BarRect(files).Width(), kMinRegion);
    frame.SetRegionSize(static_cast<DockRegion>(7), 100);
    EXPECT_EQ(frame.GetRegionSize(static_cast<DockRegion>(7)), 0);
    EXPECT_EQ(BarRect(files).Width(), kMinRegion);
}

TEST_F(FrameDocking, AttachedBarsShareTheGroupsBodyAndOnlyOneShows)
{
    EditBar& first = MakeBar("first");
    EditBar& second = MakeBar("second");
    frame.DockControlBar(&first, DockRegion::Left);
    frame.AttachToTabs(&second, &first);
    EXPECT_TRUE(frame.IsTabShown(&first));
    EXPECT_FALSE(frame.IsTabShown(&second));
    EXPECT_TRUE(first.IsWindowVisible());
    EXPECT_FALSE(second.IsWindowVisible());
    EXPECT_EQ(BarRect(first), BarRect(second));
    EXPECT_EQ(BarRect(first).bottom, kClient.cy - kTabStripHeight);
    EXPECT_EQ(frame.CaptionRect(&first), frame.CaptionRect(&second));
    EXPECT_EQ(frame.TabRect(&first).right, frame.TabRect(&second).left);
    EXPECT_EQ(frame.TabRect(&first).bottom, kClient.cy);

    frame.ShowTab(&second);
    EXPECT_TRUE(frame.IsTabShown(&second));
    EXPECT_FALSE(frame.IsTabShown(&first));
    EXPECT_TRUE(second.IsWindowVisible());
    EXPECT_FALSE(first.IsWindowVisible());
}

TEST_F(FrameDocking, ADestroyedBarLeavesItsGroup)
{
    EditBar& first = MakeBar("first");
    EditBar& second = MakeBar("second");
    EditBar& other = MakeBar("other");
    frame.DockControlBar(&first, DockRegion::Left);
    frame.AttachToTabs(&second, &first);
    frame.DockControlBar(&other, DockRegion::Left);
    first.DestroyWindow();
    frame.RecalcLayout();
    // The tab left alone shows, without a tab strip, above the other group.
    EXPECT_TRUE(frame.IsTabShown(&second));
    EXPECT_TRUE(second.IsWindowVisible());
    EXPECT_TRUE(frame.TabRect(&second).IsRectEmpty());
    EXPECT_EQ(BarRect(second).bottom, frame.GroupSplitterRect(DockRegion::Left, 0).top);

    second.DestroyWindow();
    other.DestroyWindow();
    frame.RecalcLayout();
    EXPECT_TRUE(frame.RegionSplitterRect(DockRegion::Left).IsRectEmpty());
    EXPECT_EQ(BarRect(central).left, 0);
}

TEST_F(FrameDocking, BadCallsChangeNothing)
{
    EditBar& docked = MakeBar("docked");
    EditBar& loose = MakeBar("loose");
    EditBar notCreated;
    CBCGPFrameWnd otherFrame;
    ASSERT_TRUE(otherFrame.Create(nullptr, "other", WS_POPUP, CRect(0, 0, 300, 200)));
    EditBar foreign;
    ASSERT_TRUE(foreign.Create("foreign", &otherFrame, CRect(0, 0, 50, 50), 77));
    frame.DockControlBar(&docked, DockRegion::Left);
    const CRect dockedRect = BarRect(docked);
    const CRect centralRect = BarRect(central);
    const CRect looseRect = BarRect(loose);

    frame.DockControlBar(nullptr, DockRegion::Right);
    frame.DockControlBar(&notCreated, DockRegion::Right);
    frame.DockControlBar(&foreign, DockRegion::Right);
    frame.DockControlBar(&loose, static_cast<DockRegion>(3));
    frame.DockControlBar(&docked, DockRegion::Bottom);  // twice
    frame.AttachToTabs(&loose, &notCreated);
    frame.AttachToTabs(&loose, &loose);
    frame.AttachToTabs(&loose, nullptr);
    frame.AttachToTabs(nullptr, &docked);
    frame.AttachToTabs(&docked, &docked);
    frame.ShowTab(&loose);
    frame.ShowTab(nullptr);
    frame.ShowTab(&notCreated);
    frame.SetCentralView(&foreign);

    EXPECT_EQ(BarRect(docked), dockedRect);
    EXPECT_EQ(BarRect(central), centralRect);
    EXPECT_EQ(BarRect(loose), looseRect);
    EXPECT_TRUE(frame.RegionSplitterRect(DockRegion::Right).IsRectEmpty());
    EXPECT_TRUE(frame.RegionSplitterRect(DockRegion::Bottom).IsRectEmpty());
    EXPECT_TRUE(frame.TabRect(&docked).IsRectEmpty());
    EXPECT_FALSE(frame.IsTabShown(&loose));
    EXPECT_FALSE(frame.IsTabShown(nullptr));
    EXPECT_TRUE(frame.CaptionRect(&loose).IsRectEmpty());
    EXPECT_TRUE(frame.CaptionRect(nullptr).IsRectEmpty());
    EXPECT_TRUE(frame.TabRect(nullptr).IsRectEmpty());
    EXPECT_TRUE(frame.RegionSplitterRect(static_cast<DockRegion>(9)).IsRectEmpty());
    EXPECT_TRUE(loose.IsWindowVisible());

    // A frame never created docks nothing and answers empty rectangles.
    CBCGPFrameWnd unborn;
    unborn.DockControlBar(&loose, DockRegion::Left);
    unborn.RecalcLayout();
    EXPECT_TRUE(unborn.CaptionRect(&loose).IsRectEmpty());
    EXPECT_EQ(BarRect(loose), looseRect);
}

}  // namespace

namespace {

TEST_F(FrameDocking, AGroupsShareSplitsTheRegionInProportion)
{
    EditBar& build = MakeBar("build");
    EditBar& watch = MakeBar("watch");
    frame.DockControlBar(&build, DockRegion::Bottom);
    frame.DockControlBar(&watch, DockRegion::Bottom);
    const int both = BarRect(build).Width() + BarRect(watch).Width();

    frame.SetGroupShare(&build, 1);
    frame.SetGroupShare(&watch, 3);
    EXPECT_NEAR(BarRect(watch).Width(), both * 3 / 4, 1);
    EXPECT_EQ(BarRect(build).Width() + BarRect(watch).Width(), both);

    // A share of nothing, or a bar the frame has not docked, changes nothing.
    EditBar& loose = MakeBar("loose");
    frame.SetGroupShare(&watch, 0);
    frame.SetGroupShare(&loose, 50);
    frame.SetGroupShare(nullptr, 50);
    EXPECT_NEAR(BarRect(watch).Width(), both * 3 / 4, 1);
}

}  // namespace
