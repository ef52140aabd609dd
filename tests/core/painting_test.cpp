// Invalidation, the paint pass, redraw control and window capture.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/core/paint.h"
#include "platform/core/paint_dc.h"
#include "platform/docking/frame_wnd.h"
#include "platform/gdi/png_io.h"
#include "platform/gdi/surface.h"

namespace {

class SolidWnd : public CWnd {
public:
    explicit SolidWnd(COLORREF colour) : m_colour(colour) {}
    int paints = 0;
    COLORREF m_colour;

protected:
    DECLARE_MESSAGE_MAP()
    void OnPaint()
    {
        ++paints;
        CPaintDC dc(this);
        CRect client;
        GetClientRect(&client);
        dc.FillSolidRect(&client, m_colour);
    }
};

BEGIN_MESSAGE_MAP(SolidWnd, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

COLORREF PixelAt(HWND hwnd, int x, int y)
{
    POINT origin;
    Surface* surface = Paint::SurfaceOf(hwnd, &origin);
    return surface ? PixelToColorRef(surface->GetPixel(origin.x + x, origin.y + y)) : CLR_INVALID;
}

class Painting : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 200, 100)));
        ASSERT_TRUE(parent.Create(nullptr, "parent", WS_VISIBLE, CRect(0, 0, 200, 100), &frame, 1));
        ASSERT_TRUE(child.Create(nullptr, "child", WS_VISIBLE, CRect(10, 10, 60, 40), &parent, 2));
        Paint::UpdateAllWindows();
    }
    CFrameWnd frame;
    SolidWnd parent{RGB(0, 0, 255)};
    SolidWnd child{RGB(255, 0, 0)};
};

TEST_F(Painting, ChildrenPaintOverTheirParentAndOnlyInvalidWindowsPaint)
{
    EXPECT_EQ(PixelAt(parent, 5, 5), RGB(0, 0, 255));
    EXPECT_EQ(PixelAt(parent, 15, 15), RGB(255, 0, 0));
    EXPECT_EQ(PixelAt(child, 0, 0), RGB(255, 0, 0));
    const int parentPaints = parent.paints;
    const int childPaints = child.paints;
    Paint::UpdateAllWindows();
    EXPECT_EQ(parent.paints, parentPaints);
    // A parent repainting under its child makes the child paint again on top.
    parent.Invalidate();
    Paint::UpdateAllWindows();
    EXPECT_EQ(parent.paints, parentPaints + 1);
    EXPECT_EQ(child.paints, childPaints + 1);
    EXPECT_EQ(PixelAt(parent, 15, 15), RGB(255, 0, 0));
}

TEST_F(Painting, RedrawOffAndLockedWindowsWaitUntilReleased)
{
    child.m_colour = RGB(0, 255, 0);
    child.SetRedraw(FALSE);
    child.Invalidate();
    Paint::UpdateAllWindows();
    EXPECT_EQ(PixelAt(child, 1, 1), RGB(255, 0, 0));
    child.SetRedraw(TRUE);
    Paint::UpdateAllWindows();
    EXPECT_EQ(PixelAt(child, 1, 1), RGB(0, 255, 0));

    ASSERT_TRUE(parent.LockWindowUpdate());
    child.m_colour = RGB(9, 9, 9);
    child.Invalidate();
    Paint::UpdateAllWindows();
    EXPECT_EQ(PixelAt(child, 1, 1), RGB(0, 255, 0));
    parent.UnlockWindowUpdate();
    Paint::UpdateAllWindows();
    EXPECT_EQ(PixelAt(child, 1, 1), RGB(9, 9, 9));
}

TEST_F(Painting, CaptureWritesTheWindowsPixels)
{
    const auto path = std::filesystem::temp_directory_path() / "dockpanes_capture_test.png";
    ASSERT_TRUE(Paint::CaptureWindow(child, path.c_str()));
    Surface read;
    ASSERT_TRUE(ReadPng(path.c_str(), read));
    EXPECT_EQ(read.Width(), 50);
    EXPECT_EQ(read.Height(), 30);
    EXPECT_EQ(PixelToColorRef(read.GetPixel(0, 0)), RGB(255, 0, 0));
    std::filesystem::remove(path);
    EXPECT_FALSE(Paint::CaptureWindow(nullptr, path.c_str()));
}

}  // namespace
