// Dragging the frame's splitters with the mouse: the strip between a region
// and the centre, and the one between two groups of a region. Both sides
// follow the mouse while the button is held and stop at their minimum.
#include "platform/docking/dock_layout.h"
#include "tests/docking/dock_frame_fixture.h"

namespace {

using docktest::Centre;
using docktest::EditBar;
using namespace docklayout;

class FrameSplitters : public docktest::DockFrameFixture {
protected:
    void SetUp() override
    {
        DockFrameFixture::SetUp();
        files = &MakeBar("files");
        symbols = &MakeBar("symbols");
        output = &MakeBar("output");
        frame.DockControlBar(files, DockRegion::Left);
        frame.DockControlBar(symbols, DockRegion::Left);
        frame.DockControlBar(output, DockRegion::Bottom);
        Paint::UpdateAllWindows();
    }

    EditBar* files = nullptr;
    EditBar* symbols = nullptr;
    EditBar* output = nullptr;
};

TEST_F(FrameSplitters, DraggingTheLeftSplitterResizesRegionAndCentreLive)
{
    const int before = frame.GetRegionSize(DockRegion::Left);
    const CRect centralBefore = BarRect(central);
    const CPoint grip = Centre(frame.RegionSplitterRect(DockRegion::Left));

    Input::MouseDown(&frame, grip);
    EXPECT_EQ(CWnd::GetCapture(), &frame);
    Input::MouseMove(&frame, grip + CPoint(40, 7));
    // Live: both sides have moved before the button is released.
    EXPECT_EQ(frame.GetRegionSize(DockRegion::Left), before + 40);
    EXPECT_EQ(BarRect(*files).Width(), before + 40);
    EXPECT_EQ(BarRect(*symbols).Width(), before + 40);
    EXPECT_EQ(BarRect(central).left, centralBefore.left + 40);
    EXPECT_EQ(BarRect(central).right, centralBefore.right);
    EXPECT_EQ(BarRect(*output).left, centralBefore.left + 40);
    Input::MouseUp(&frame, grip + CPoint(25, 0));
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    EXPECT_EQ(frame.GetRegionSize(DockRegion::Left), before + 25);

    // Once released, moving the mouse moves nothing.
    Input::MouseMove(&frame, grip + CPoint(100, 0));
    EXPECT_EQ(frame.GetRegionSize(DockRegion::Left), before + 25);
}

TEST_F(FrameSplitters, RegionDragsStopAtTheMinimumsOnBothSides)
{
    const CPoint grip = Centre(frame.RegionSplitterRect(DockRegion::Left));
    Input::Drag(&frame, grip, CPoint(kClient.cx - 1, grip.y));
    EXPECT_EQ(BarRect(central).Width(), kMinCentre);
    EXPECT_EQ(BarRect(central).right, kClient.cx);

    const CPoint back = Centre(frame.RegionSplitterRect(DockRegion::Left));
    Input::Drag(&frame, back, CPoint(0, back.y));
    EXPECT_EQ(frame.GetRegionSize(DockRegion::Left), kMinRegion);
    EXPECT_EQ(BarRect(*files).Width(), kMinRegion);
}

TEST_F(FrameSplitters, DraggingTheBottomSplitterUpGrowsTheBottomAndShrinksTheCentre)
{
    const int before = frame.GetRegionSize(DockRegion::Bottom);
    const int centralBottom = BarRect(central).bottom;
    const CPoint grip = Centre(frame.RegionSplitterRect(DockRegion::Bottom));
    Input::MouseDown(&frame, grip);
    Input::MouseMove(&frame, grip - CPoint(0, 60));
    EXPECT_EQ(frame.GetRegionSize(DockRegion::Bottom), before + 60);
    EXPECT_EQ(BarRect(central).bottom, centralBottom - 60);
    EXPECT_EQ(BarRect(*output).top, kClient.cy - before - 60 + kCaptionHeight);
    // Far above the client: the centre keeps its minimum height.
    Input::MouseMove(&frame, CPoint(grip.x, -500));
    Input::MouseUp(&frame, CPoint(grip.x, -500));
    EXPECT_EQ(BarRect(central).Height(), kMinCentre);
    EXPECT_EQ(BarRect(central).top, 0);
}

TEST_F(FrameSplitters, AGroupSplitterMovesTheBoundaryBetweenItsTwoGroups)
{
    const CRect filesBefore = BarRect(*files);
    const CRect symbolsBefore = BarRect(*symbols);
    const CPoint grip = Centre(frame.GroupSplitterRect(DockRegion::Left, 0));
    Input::MouseDown(&frame, grip);
    Input::MouseMove(&frame, grip + CPoint(0, 50));
    EXPECT_EQ(BarRect(*files).bottom, filesBefore.bottom + 50);
    EXPECT_EQ(frame.CaptionRect(symbols).top, frame.GroupSplitterRect(DockRegion::Left, 0).bottom);
    EXPECT_EQ(BarRect(*symbols).top, symbolsBefore.top + 50);
    EXPECT_EQ(BarRect(*symbols).bottom, symbolsBefore.bottom);
    Input::MouseUp(&frame, grip + CPoint(0, 50));

    // Dragged past the lower group, it keeps a caption and a sliver.
    const CPoint again = Centre(frame.GroupSplitterRect(DockRegion::Left, 0));
    Input::Drag(&frame, again, CPoint(again.x, kClient.cy + 100));
    EXPECT_EQ(kClient.cy - frame.CaptionRect(symbols).top, kMinGroup);
    EXPECT_EQ(BarRect(*symbols).bottom, kClient.cy);
    // The region's own width was never touched.
    EXPECT_EQ(BarRect(*files).Width(), filesBefore.Width());
}

TEST_F(FrameSplitters, AGroupsShareSurvivesAFrameResize)
{
    const CPoint grip = Centre(frame.GroupSplitterRect(DockRegion::Left, 0));
    Input::Drag(&frame, grip, grip - CPoint(0, 100));
    const double share = static_cast<double>(frame.CaptionRect(symbols).top) / kClient.cy;
    frame.MoveWindow(0, 0, kClient.cx, kClient.cy * 2);
    const double after = static_cast<double>(frame.CaptionRect(symbols).top) / (kClient.cy * 2);
    EXPECT_NEAR(after, share, 0.02);
}

TEST_F(FrameSplitters, ACaptureTakenAwayEndsTheDrag)
{
    const int before = frame.GetRegionSize(DockRegion::Left);
    const CPoint grip = Centre(frame.RegionSplitterRect(DockRegion::Left));
    Input::MouseDown(&frame, grip);
    central.SetCapture();
    Input::MouseMove(&frame, grip + CPoint(30, 0));
    ::ReleaseCapture();
    Input::MouseMove(&frame, grip + CPoint(30, 0));
    EXPECT_EQ(frame.GetRegionSize(DockRegion::Left), before);
}

TEST_F(FrameSplitters, ABarDestroyedMidDragEndsTheDragAndFreesTheMouse)
{
    const CPoint grip = Centre(frame.GroupSplitterRect(DockRegion::Left, 0));
    Input::MouseDown(&frame, grip);
    ASSERT_EQ(CWnd::GetCapture(), &frame);
    symbols->DestroyWindow();
    frame.RecalcLayout();
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    Input::MouseMove(&frame, grip + CPoint(0, 40));
    Input::MouseUp(&frame, grip + CPoint(0, 40));
    // The group left alone has the whole region.
    EXPECT_EQ(BarRect(*files), CRect(0, kCaptionHeight, frame.GetRegionSize(DockRegion::Left), kClient.cy));
    EXPECT_TRUE(frame.GroupSplitterRect(DockRegion::Left, 0).IsRectEmpty());
}

}  // namespace
