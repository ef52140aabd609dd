// What the control paints, read back from its pixels, and how it scrolls.
// Text is drawn as one hollow box per character cell: a narrow character at
// client x has its box's top edge at y = top + 1 from x to x + 5.
#include "tests/gdi/gdi_test_support.h"
#include "platform/core/window_frame.h"
#include "platform/gdi/font.h"
#include "rich_edit_test_support.h"

using rich_edit_test::kLeft;
using rich_edit_test::kLine;
using rich_edit_test::kNarrow;
using rich_edit_test::RichEditFixture;

namespace {

constexpr COLORREF kRed = RGB(200, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 160);

class RichEditPaint : public RichEditFixture {
protected:
    // The ink of the box of the narrow character at `column` of the row.
    std::uint32_t InkAt(int column, int row) const { return Pixel(kLeft + column * kNarrow + 2, row * kLine + 1); }
    // Inside that character's cell, off its box.
    std::uint32_t PaperAt(int column, int row) const { return Pixel(kLeft + column * kNarrow + 2, row * kLine + 5); }

    gdi_test::BoxGlyphs boxes;
};

class RichEditScroll : public RichEditPaint {};

}  // namespace

TEST_F(RichEditPaint, EachRunInItsColour)
{
    Make();
    edit.SetWindowText("abc\r\nde");
    Colour(0, 1, kRed);
    Colour(5, 6, kBlue);
    Paint::UpdateAllWindows();
    EXPECT_EQ(InkAt(0, 0), ColorRefToPixel(kRed));
    EXPECT_EQ(InkAt(1, 0), Sys(COLOR_WINDOWTEXT));
    EXPECT_EQ(InkAt(0, 1), Sys(COLOR_WINDOWTEXT));
    EXPECT_EQ(InkAt(1, 1), ColorRefToPixel(kBlue));
    EXPECT_EQ(PaperAt(0, 0), Sys(COLOR_WINDOW));
    // Nothing is drawn past the text.
    EXPECT_EQ(Count(Sys(COLOR_WINDOWTEXT), CRect(kLeft + 3 * kNarrow, 0, 200, kLine)), 0);
    EXPECT_EQ(Count(Sys(COLOR_WINDOWTEXT), CRect(0, 2 * kLine, 200, 100)), 0);

    // A new colour repaints without help.
    Colour(2, 3, kBlue);
    Paint::UpdateAllWindows();
    EXPECT_EQ(InkAt(2, 0), ColorRefToPixel(kBlue));

    EXPECT_EQ(edit.SetBackgroundColor(FALSE, RGB(255, 255, 224)), GetSysColor(COLOR_WINDOW));
    Paint::UpdateAllWindows();
    EXPECT_EQ(Pixel(150, 80), ColorRefToPixel(RGB(255, 255, 224)));
    EXPECT_EQ(PaperAt(0, 0), ColorRefToPixel(RGB(255, 255, 224)));
    EXPECT_EQ(edit.SetBackgroundColor(TRUE, 0), RGB(255, 255, 224));
    Paint::UpdateAllWindows();
    EXPECT_EQ(Pixel(150, 80), Sys(COLOR_WINDOW));
}

TEST_F(RichEditPaint, SelectionShowsWhenFocusedOrNotHidden)
{
    Make();
    edit.SetWindowText("abcd\r\nef");
    Colour(1, 2, kRed);
    edit.SetSel(1, 3);
    Paint::UpdateAllWindows();
    const std::uint32_t highlight = Sys(COLOR_HIGHLIGHT);
    EXPECT_EQ(PaperAt(1, 0), Sys(COLOR_WINDOW));  // unfocused: hidden
    EXPECT_EQ(InkAt(1, 0), ColorRefToPixel(kRed));

    edit.HideSelection(FALSE, FALSE);
    Paint::UpdateAllWindows();
    EXPECT_EQ(PaperAt(1, 0), highlight);
    EXPECT_EQ(PaperAt(2, 0), highlight);
    EXPECT_EQ(InkAt(1, 0), Sys(COLOR_HIGHLIGHTTEXT));  // the run's colour gives way
    EXPECT_EQ(PaperAt(0, 0), Sys(COLOR_WINDOW));
    EXPECT_EQ(PaperAt(3, 0), Sys(COLOR_WINDOW));

    edit.HideSelection(TRUE, FALSE);
    Paint::UpdateAllWindows();
    EXPECT_EQ(Count(highlight, CRect(0, 0, 200, 100)), 0);

    edit.SetFocus();
    Paint::UpdateAllWindows();
    EXPECT_EQ(PaperAt(2, 0), highlight);
    parent.SetFocus();
    Paint::UpdateAllWindows();
    EXPECT_EQ(PaperAt(2, 0), Sys(COLOR_WINDOW));

    // Shown for good, the selection outlasts the focus. A selected line end
    // is a narrow highlighted cell after the line.
    edit.HideSelection(FALSE, TRUE);
    EXPECT_TRUE(edit.GetStyle() & ES_NOHIDESEL);
    edit.SetFocus();
    parent.SetFocus();
    edit.SetSel(2, 6);
    Paint::UpdateAllWindows();
    EXPECT_EQ(PaperAt(4, 0), highlight);
    EXPECT_EQ(PaperAt(5, 0), Sys(COLOR_WINDOW));
    EXPECT_EQ(PaperAt(0, 1), highlight);
    EXPECT_EQ(PaperAt(1, 1), Sys(COLOR_WINDOW));
}

TEST_F(RichEditPaint, CaretIsDrawnOnlyWithTheFocus)
{
    Make();
    edit.SetWindowText("abc");
    edit.SetSel(2, 2);
    Paint::UpdateAllWindows();
    const int x = kLeft + 2 * kNarrow;
    const std::uint32_t paper = Sys(COLOR_WINDOW);
    const std::uint32_t inverted = ~paper & 0xFFFFFFu;
    EXPECT_EQ(Pixel(x, 0), paper);
    EXPECT_EQ(Pixel(x, kLine - 1), paper);
    Input::Click(&edit, CPoint(x, 5));
    EXPECT_EQ(Sel().cpMin, 2);
    EXPECT_EQ(Pixel(x, 0), inverted);
    EXPECT_EQ(Pixel(x, kLine - 1), inverted);
    EXPECT_EQ(Pixel(x + 1, 0), paper);
    // Moving the caret clears its old place.
    Input::Key(VK_LEFT);
    EXPECT_EQ(Pixel(x, 0), paper);
    EXPECT_EQ(Pixel(x - kNarrow, 0), inverted);
    // No caret over a selection, nor without the focus.
    Input::Key(VK_RIGHT, Input::kShift);
    EXPECT_EQ(Count(inverted, CRect(0, 0, 200, 1)), 0);
    Input::Key(VK_LEFT);
    parent.SetFocus();
    Paint::UpdateAllWindows();
    EXPECT_EQ(Count(inverted, CRect(0, 0, 200, 1)), 0);
}

TEST_F(RichEditScroll, CaretStaysInViewSideways)
{
    Make();
    // 60 characters: 360 px across a view 199 px wide.
    const std::string line(60, 'x');
    edit.SetWindowText((line + "\r\nshort").c_str());
    Input::Click(&edit, CPoint(5, 5));
    Input::Key(VK_END);
    const CPoint caret = edit.GetCharPos(60);
    EXPECT_GE(caret.x, kLeft);
    EXPECT_LT(caret.x, 200);
    EXPECT_LT(edit.GetCharPos(0).x, kLeft);
    // The last character shows where GetCharPos says.
    EXPECT_EQ(Pixel(edit.GetCharPos(59).x + 2, 1), Sys(COLOR_WINDOWTEXT));
    // Down to the short line brings its end into view.
    Input::Key(VK_DOWN);
    EXPECT_EQ(Sel().cpMin, 66);
    EXPECT_GE(edit.GetCharPos(66).x, kLeft);
    Input::Key(VK_HOME, Input::kControl);
    EXPECT_EQ(edit.GetCharPos(0).x, kLeft);

    // Typing on past the edge keeps the caret visible too.
    Input::Key(VK_END);
    Input::Type(std::string(40, 'y'));
    const CPoint typed = edit.GetCharPos(Sel().cpMin);
    EXPECT_GE(typed.x, kLeft);
    EXPECT_LT(typed.x, 200);
}

TEST_F(RichEditScroll, LinesScrollOnRequestAndWithTheCaret)
{
    Make();
    std::string text;
    for (int i = 0; i < 100; ++i) text += "line " + std::to_string(i) + "\r\n";
    text += std::string(100, 'w');
    edit.SetWindowText(text.c_str());  // 101 lines, the last 600 px wide
    // Both bars show, leaving a client of 184 x 84: seven whole lines, and
    // 183 px of text across.
    constexpr int kPage = 7;
    constexpr int kView = 200 - kScrollBarSize - kLeft;
    ASSERT_TRUE(edit.GetStyle() & WS_VSCROLL);
    ASSERT_TRUE(edit.GetStyle() & WS_HSCROLL);

    // Without the focus the selection is hidden, and moving it scrolls nothing.
    edit.SetSel(edit.LineIndex(50), edit.LineIndex(50));
    EXPECT_EQ(edit.GetFirstVisibleLine(), 0);
    edit.SendMessage(EM_SCROLLCARET);
    EXPECT_EQ(edit.GetFirstVisibleLine(), 50 - kPage + 1);  // the caret's line is the last whole one
    edit.LineScroll(-10);
    EXPECT_EQ(edit.GetFirstVisibleLine(), 50 - kPage + 1 - 10);
    edit.LineScroll(1000);  // stops once the last line is at the bottom
    EXPECT_EQ(edit.GetFirstVisibleLine(), 101 - kPage);
    edit.LineScroll(-1000);
    EXPECT_EQ(edit.GetFirstVisibleLine(), 0);

    // Sideways by characters, no further than shows the longest line's end.
    edit.LineScroll(0, 5);
    EXPECT_EQ(edit.GetCharPos(0).x, kLeft - 5 * kNarrow);
    edit.LineScroll(0, 1000);
    EXPECT_EQ(edit.GetCharPos(0).x, kLeft - (600 + 1 - kView));
    edit.LineScroll(0, -1000);
    EXPECT_EQ(edit.GetCharPos(0).x, kLeft);

    // The wheel moves three lines a notch, and stops at the last page.
    Input::Wheel(&edit, CPoint(50, 50), -120 * 40);
    EXPECT_EQ(edit.GetFirstVisibleLine(), 101 - kPage);
    Input::Wheel(&edit, CPoint(50, 50), 120);
    EXPECT_EQ(edit.GetFirstVisibleLine(), 101 - kPage - 3);
    // Half notches add up to a whole one.
    Input::Wheel(&edit, CPoint(50, 50), 60);
    EXPECT_EQ(edit.GetFirstVisibleLine(), 101 - kPage - 3);
    Input::Wheel(&edit, CPoint(50, 50), 60);
    EXPECT_EQ(edit.GetFirstVisibleLine(), 101 - kPage - 6);
}

TEST_F(RichEditScroll, AppendingFollowsTheEndOnlyWhileTheSelectionShows)
{
    Make(rich_edit_test::kOutputStyle | ES_READONLY);
    for (int i = 0; i < 20; ++i) Append("quiet " + std::to_string(i) + "\r\n");
    EXPECT_EQ(edit.GetFirstVisibleLine(), 0);
    edit.SetFocus();
    for (int i = 0; i < 20; ++i) Append("loud " + std::to_string(i) + "\r\n");
    // The caret is on the empty 41st line, the last whole one in view.
    EXPECT_EQ(edit.GetFirstVisibleLine(), 40 - 8 + 1);

    // What shows is the lines from the first visible one on: line 33 red.
    Colour(edit.LineIndex(33), edit.LineIndex(34) - 1, kRed);
    edit.SetSel(-1, -1);
    Paint::UpdateAllWindows();
    EXPECT_EQ(edit.GetFirstVisibleLine(), 33);
    EXPECT_EQ(InkAt(0, 0), ColorRefToPixel(kRed));
    EXPECT_EQ(InkAt(0, 1), Sys(COLOR_WINDOWTEXT));
}

TEST_F(RichEditScroll, LinesAreAsTallAsTheFont)
{
    Make();
    edit.SetWindowText(("ab\r\n" + GBK(u8"中") + "c").c_str());
    EXPECT_EQ(edit.GetCharPos(4).y, kLine);
    CFont big;
    ASSERT_TRUE(big.CreatePointFont(120, "\xCB\xCE\xCC\xE5"));  // 16 px
    edit.SetFont(&big);
    EXPECT_EQ(edit.GetFont()->GetSafeHandle(), big.GetSafeHandle());
    EXPECT_EQ(edit.GetCharPos(4).y, 16);
    // 中 is 16 px wide now: positions either side of it, never inside.
    EXPECT_EQ(edit.GetCharPos(5).x, kLeft + 16);
    EXPECT_EQ(edit.CharFromPos(CPoint(kLeft + 7, 20)), 3);
    EXPECT_EQ(edit.CharFromPos(CPoint(kLeft + 9, 20)), 5);
    edit.SetFont(nullptr);
}

TEST_F(RichEditScroll, ALongLogScrollsDownByDraggingTheThumbAndPagesOnTheTrack)
{
    Make();
    EXPECT_FALSE(edit.GetStyle() & (WS_VSCROLL | WS_HSCROLL));  // empty: no bars
    std::string text;
    for (int i = 0; i < 200; ++i) text += "build line " + std::to_string(i) + "\r\n";
    edit.SetWindowText(text.c_str());
    Paint::UpdateAllWindows();
    ASSERT_TRUE(edit.GetStyle() & WS_VSCROLL);
    EXPECT_FALSE(edit.GetStyle() & WS_HSCROLL);  // no line is wider than the view
    CRect client;
    edit.GetClientRect(&client);
    EXPECT_EQ(client, CRect(0, 0, 200 - kScrollBarSize, 100));
    const int lastTop = edit.GetLineCount() - client.Height() / kLine;

    // The track below the thumb pages down by the lines that show.
    const int barX = client.right + kScrollBarSize / 2;
    Input::Click(&edit, CPoint(barX, client.bottom - kScrollBarSize - 4));
    EXPECT_EQ(edit.GetFirstVisibleLine(), client.Height() / kLine);
    // Dragging the thumb to the bottom shows the last page, and the bar agrees.
    SCROLLINFO info;
    ASSERT_TRUE(edit.GetScrollInfo(SB_VERT, &info));
    CRect window;
    edit.GetWindowRect(&window);
    const int thumbTop = kScrollBarSize + static_cast<int>((client.Height() - 2 * kScrollBarSize) * info.nPos / (info.nMax + 1));
    Input::Wait();
    Input::MouseDown(&edit, CPoint(barX, thumbTop + 2));
    Input::MouseMove(&edit, CPoint(barX, client.bottom + 200));
    EXPECT_EQ(edit.GetFirstVisibleLine(), lastTop);  // the view follows while dragging
    Input::MouseUp(&edit, CPoint(barX, client.bottom + 200));
    EXPECT_EQ(edit.GetFirstVisibleLine(), lastTop);
    EXPECT_EQ(edit.GetScrollPos(SB_VERT), lastTop);
    // The up arrow steps back one line.
    Input::Wait();
    Input::Click(&edit, CPoint(barX, 4));
    EXPECT_EQ(edit.GetFirstVisibleLine(), lastTop - 1);
}
