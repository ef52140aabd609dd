// The source view driven as a host and a user drive it: GoToLine, clicks,
// keys, the wheel and the scroll bars; checked by its scroll bars, its
// caret line and its pixels.
#include <gtest/gtest.h>

#include <climits>

#include "demo/views/source_marks.h"
#include "demo/views/source_view.h"
#include "platform/core/input_state.h"
#include "platform/input/input.h"
#include "tests/demo_views/view_fixture.h"
#include "tests/support/window_pixels.h"

namespace demo_views_test {
namespace {

constexpr int kRowHeight = 14;  // the view font's 12 pixels and the row gap

class SourceViewTest : public ViewFixture<CSourceView> {
protected:
    int FullLines() const { return Client().Height() / kRowHeight; }
    int Top() const { return Scroll(SB_VERT).nPos; }
    // The caret background's pixels in the row a line is drawn in, or -1 when it is off screen.
    int CaretPixelsInRow(int line) const
    {
        const int row = line - 1 - Top();
        if (row < 0 || row >= FullLines()) return -1;
        const CRect client = Client();
        return WindowPixels(view).Count(CSourceView::kCaretLineBack, CRect(0, row * kRowHeight, client.right, (row + 1) * kRowHeight));
    }
    int CaretPixelsInView() const { return WindowPixels(view).Count(CSourceView::kCaretLineBack, Client()); }
};

TEST_F(SourceViewTest, GoToLineScrollsAFarLineToAThirdFromTheTopAndHighlightsIt)
{
    view.ShowFile("main.c", NumberedLines(1000));
    EXPECT_EQ(view.Path(), "main.c");
    EXPECT_EQ(view.CaretLine(), 1);
    EXPECT_EQ(Top(), 0);
    const SCROLLINFO bar = Scroll(SB_VERT);
    EXPECT_EQ(bar.nMax - bar.nMin + 1, 1000);
    EXPECT_EQ(static_cast<int>(bar.nPage), FullLines());

    view.GoToLine(500);
    Paint::UpdateAllWindows();
    EXPECT_EQ(view.CaretLine(), 500);
    EXPECT_EQ(Top(), 499 - FullLines() / 3);
    // The highlight runs across the row and nowhere else.
    const int rowPixels = CaretPixelsInRow(500);
    EXPECT_GT(rowPixels, Client().Width() * kRowHeight / 2);
    EXPECT_EQ(CaretPixelsInView(), rowPixels);
}

TEST_F(SourceViewTest, GoToLineOfAVisibleLineDoesNotScroll)
{
    view.ShowFile("main.c", NumberedLines(1000));
    view.GoToLine(300);
    const int top = Top();
    view.GoToLine(top + 2);
    Paint::UpdateAllWindows();
    EXPECT_EQ(Top(), top);
    EXPECT_GT(CaretPixelsInRow(top + 2), 0);
    EXPECT_EQ(CaretPixelsInRow(300), 0);
}

TEST_F(SourceViewTest, GoToLineClampsToTheFileAndIsIgnoredWithoutOne)
{
    view.GoToLine(10);
    Paint::UpdateAllWindows();
    EXPECT_EQ(view.CaretLine(), 0);
    EXPECT_EQ(CaretPixelsInView(), 0);

    view.ShowFile("main.c", NumberedLines(200));
    view.GoToLine(5000);
    Paint::UpdateAllWindows();
    EXPECT_EQ(view.CaretLine(), 200);
    EXPECT_EQ(Top(), 200 - FullLines());  // the last line at the bottom, not beyond
    EXPECT_GT(CaretPixelsInRow(200), 0);

    view.GoToLine(-7);
    EXPECT_EQ(view.CaretLine(), 1);
    EXPECT_EQ(Top(), 0);
    view.GoToLine(INT_MAX);
    EXPECT_EQ(view.CaretLine(), 200);
    view.GoToLine(INT_MIN);
    EXPECT_EQ(view.CaretLine(), 1);
}

TEST_F(SourceViewTest, AClickSetsTheCaretLineOfTheRowClicked)
{
    view.ShowFile("main.c", NumberedLines(1000));
    view.GoToLine(400);
    const int top = Top();
    Input::Click(&view, CPoint(150, 3 * kRowHeight + 5));
    EXPECT_EQ(view.CaretLine(), top + 4);
    EXPECT_EQ(Top(), top);
    EXPECT_GT(CaretPixelsInRow(top + 4), 0);
    EXPECT_EQ(CWnd::GetFocus(), &view);

    // Below the last line of a short file: the last line.
    view.ShowFile("short.c", NumberedLines(3));
    Input::Wait();
    Input::Click(&view, CPoint(150, 10 * kRowHeight));
    EXPECT_EQ(view.CaretLine(), 3);
}

TEST_F(SourceViewTest, KeysMoveTheCaretAndKeepItInView)
{
    view.ShowFile("main.c", NumberedLines(1000));
    Input::Click(&view, CPoint(150, 5));
    ASSERT_EQ(view.CaretLine(), 1);
    const int full = FullLines();

    Input::Key(VK_UP);
    EXPECT_EQ(view.CaretLine(), 1);
    Input::Key(VK_DOWN);
    Input::Key(VK_DOWN);
    EXPECT_EQ(view.CaretLine(), 3);
    EXPECT_EQ(Top(), 0);
    Input::Key(VK_NEXT);
    EXPECT_EQ(view.CaretLine(), 3 + full);
    EXPECT_EQ(Top(), 3 + full - full);  // scrolled just enough: the caret on the bottom row
    EXPECT_GT(CaretPixelsInRow(3 + full), 0);
    Input::Key(VK_PRIOR);
    EXPECT_EQ(view.CaretLine(), 3);
    EXPECT_EQ(Top(), 2);
    Input::Key(VK_END);
    EXPECT_EQ(view.CaretLine(), 1000);
    EXPECT_EQ(Top(), 1000 - full);
    Input::Key(VK_DOWN);
    EXPECT_EQ(view.CaretLine(), 1000);
    Input::Key(VK_HOME);
    EXPECT_EQ(view.CaretLine(), 1);
    EXPECT_EQ(Top(), 0);
}

TEST_F(SourceViewTest, TheWheelAndTheBarScrollWithoutMovingTheCaret)
{
    view.ShowFile("main.c", NumberedLines(1000));
    Input::Click(&view, CPoint(150, 5));
    Input::Wheel(&view, CPoint(150, 50), -WHEEL_DELTA);
    EXPECT_EQ(Top(), kWheelScrollLines);
    Input::Wheel(&view, CPoint(150, 50), 2 * WHEEL_DELTA);
    EXPECT_EQ(Top(), 0);

    view.SendMessage(WM_VSCROLL, SB_PAGEDOWN);
    EXPECT_EQ(Top(), FullLines());
    view.SendMessage(WM_VSCROLL, SB_BOTTOM);
    EXPECT_EQ(Top(), 1000 - FullLines());
    view.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 123));
    EXPECT_EQ(Top(), 123);
    EXPECT_EQ(view.CaretLine(), 1);
    Paint::UpdateAllWindows();
    EXPECT_EQ(CaretPixelsInView(), 0);  // the caret line is scrolled away
}

TEST_F(SourceViewTest, AWideLineGivesAHorizontalRangeAndShortLinesNone)
{
    view.ShowFile("short.c", NumberedLines(5));
    EXPECT_EQ(Client().Height(), kViewRect.Height());  // no horizontal bar takes room

    const std::string wide(300, 'x');
    view.ShowFile("wide.c", "int a;\n" + wide + "\n");
    EXPECT_LT(Client().Height(), kViewRect.Height());
    const SCROLLINFO bar = Scroll(SB_HORZ);
    EXPECT_GE(bar.nMax - bar.nMin + 1, 300 * 6);
    EXPECT_LT(static_cast<int>(bar.nPage), Client().Width());
    view.SendMessage(WM_HSCROLL, SB_BOTTOM);
    EXPECT_EQ(Scroll(SB_HORZ).nPos, bar.nMax + 1 - static_cast<int>(bar.nPage));
    view.SendMessage(WM_HSCROLL, SB_LINEUP);
    EXPECT_LT(Scroll(SB_HORZ).nPos, bar.nMax + 1 - static_cast<int>(bar.nPage));
    view.SendMessage(WM_HSCROLL, SB_TOP);
    EXPECT_EQ(Scroll(SB_HORZ).nPos, 0);
}

TEST_F(SourceViewTest, MarksAreDrawnInTheGutterOfTheirLines)
{
    view.ShowFile("main.c", NumberedLines(50));
    view.SetLineMarks({{4, LineMark::Bookmark}, {2, LineMark::BreakpointOn}, {3, LineMark::BreakpointOff}, {60, LineMark::Error}});
    view.GoToLine(20);
    Paint::UpdateAllWindows();
    const WindowPixels pixels(view);
    const auto markCell = [](int line) { return CRect(0, (line - 1) * kRowHeight, 14, line * kRowHeight); };
    const COLORREF red = LineMarkColour(LineMark::BreakpointOn);
    const COLORREF blue = LineMarkColour(LineMark::Bookmark);

    EXPECT_GT(pixels.Count(red, markCell(2)), 50);  // a filled disc
    EXPECT_EQ(pixels.At(7, kRowHeight + 7), red);
    const int ring = pixels.Count(red, markCell(3));
    EXPECT_GT(ring, 10);
    EXPECT_LT(ring, pixels.Count(red, markCell(2)));
    EXPECT_NE(pixels.At(7, 2 * kRowHeight + 7), red);  // hollow
    EXPECT_GT(pixels.Count(blue, markCell(4)), 10);
    EXPECT_EQ(pixels.Count(red, markCell(1)) + pixels.Count(blue, markCell(1)) + pixels.Count(red, markCell(5)), 0);
    // Marks stay in the gutter.
    EXPECT_EQ(pixels.Count(red, CRect(14, 0, Client().right, Client().bottom)), 0);
}

TEST_F(SourceViewTest, AHundredThousandLineFileGoesAnywhereInIt)
{
    view.ShowFile("big.c", NumberedLines(100000));
    view.GoToLine(90000);
    Paint::UpdateAllWindows();
    EXPECT_EQ(Top(), 89999 - FullLines() / 3);
    EXPECT_GT(CaretPixelsInRow(90000), 0);
    view.GoToLine(100000);
    EXPECT_EQ(Top(), 100000 - FullLines());
}

}  // namespace
}  // namespace demo_views_test
