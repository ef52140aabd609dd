// The user's mouse and keys: caret placement, selecting, typing, and what a
// read-only control refuses.
#include <set>

#include "rich_edit_test_support.h"

using rich_edit_test::kLeft;
using rich_edit_test::kLine;
using rich_edit_test::kNarrow;
using rich_edit_test::RichEditFixture;

namespace {

class RichEditMouse : public RichEditFixture {
protected:
    // On the left part of the narrow character at `column` of `line`: a
    // click there puts the caret before it.
    static CPoint At(int column, int line) { return CPoint(kLeft + column * kNarrow + 1, line * kLine + kLine / 2); }
};

class RichEditKeys : public RichEditFixture {
protected:
    void SetUp() override { test_clipboard::CleanClipboard(); }
    void TearDown() override
    {
        test_clipboard::CleanClipboard();
        RichEditFixture::TearDown();
    }
};

}  // namespace

// ---------------------------------------------------------------- mouse

TEST_F(RichEditMouse, ClickPutsTheCaretAtTheNearestBoundaryNeverInsideACharacter)
{
    Make(rich_edit_test::kOutputStyle | ES_READONLY);
    edit.SetWindowText(("ab" + GBK(u8"中文") + "\r\nsecond").c_str());  // 中 at x 12..24, 文 24..36
    Input::Click(&edit, CPoint(kLeft + 17, 5));  // the left half of 中
    EXPECT_EQ(CWnd::GetFocus(), &edit);
    EXPECT_EQ(Sel().cpMin, 2);
    Input::Wait();
    Input::Click(&edit, CPoint(kLeft + 18, 5));  // its right half
    EXPECT_EQ(Sel().cpMin, 4);

    // Anywhere along the line the caret lands on a boundary, moving right.
    const std::set<long> boundaries = {0, 1, 2, 4, 6};
    long previous = 0;
    for (int x = 0; x < 60; x += 1) {
        Input::Wait();
        Input::Click(&edit, CPoint(x, 5));
        const CHARRANGE sel = Sel();
        ASSERT_EQ(sel.cpMin, sel.cpMax);
        ASSERT_TRUE(boundaries.count(sel.cpMin)) << "x " << x << " gave " << sel.cpMin;
        ASSERT_GE(sel.cpMin, previous);
        previous = sel.cpMin;
    }
    // Past the end of a line, and below the last line.
    Input::Wait();
    Input::Click(&edit, CPoint(150, kLine + 5));
    EXPECT_EQ(Sel().cpMin, 13);
    Input::Wait();
    Input::Click(&edit, CPoint(20, 90));
    EXPECT_EQ(edit.LineFromChar(Sel().cpMin), 1);
}

TEST_F(RichEditMouse, ShiftClickAndDragSelect)
{
    Make();
    edit.SetWindowText("first line\r\nsecond line\r\nthird");
    Input::Click(&edit, At(2, 0));
    Input::Wait();
    Input::Click(&edit, At(3, 1), Input::kShift);
    EXPECT_EQ(Sel().cpMin, 2);
    EXPECT_EQ(Sel().cpMax, 14);

    // Dragging from line 2 up to line 0: the caret follows the pointer.
    Input::Wait();
    Input::MouseDown(&edit, At(4, 2));
    Input::MouseMove(&edit, At(6, 1));
    EXPECT_EQ(Sel().cpMin, 17);
    EXPECT_EQ(Sel().cpMax, 27);
    Input::MouseMove(&edit, At(1, 0));
    Input::MouseUp(&edit, At(1, 0));
    EXPECT_EQ(Sel().cpMin, 1);
    EXPECT_EQ(Sel().cpMax, 27);
    EXPECT_EQ(edit.LineIndex(-1), 0);
    // Moving without the button changes nothing.
    Input::MouseMove(&edit, At(5, 2));
    EXPECT_EQ(Sel().cpMin, 1);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
}

TEST_F(RichEditMouse, DoubleClickSelectsAWordWithTheSpacesAfterIt)
{
    Make(rich_edit_test::kOutputStyle | ES_READONLY);
    edit.SetWindowText(("main.c(12): error C141\r\n" + GBK(u8"中文") + " ab").c_str());
    Input::DoubleClick(&edit, At(14, 0));
    EXPECT_EQ(edit.GetSelText().str(), "error ");
    Input::DoubleClick(&edit, At(1, 0));
    EXPECT_EQ(edit.GetSelText().str(), "main");
    Input::DoubleClick(&edit, At(4, 0));
    EXPECT_EQ(edit.GetSelText().str(), ".");
    Input::DoubleClick(&edit, CPoint(kLeft + 18, kLine + 5));  // on 文
    EXPECT_EQ(edit.GetSelText().str(), GBK(u8"中文") + " ");
}

// ---------------------------------------------------------------- keys

TEST_F(RichEditKeys, ArrowsHomeEndMoveTheCaretAndShiftExtends)
{
    Make();
    // Line 0 "abc" (0-3), line 1 中文xyz (4-11), line 2 "long line here" (12-26).
    edit.SetWindowText(("abc\r\n" + GBK(u8"中文") + "xyz\r\nlong line here").c_str());
    Input::Click(&edit, CPoint(150, 90));
    Input::Key(VK_HOME, Input::kControl);
    EXPECT_EQ(Sel().cpMin, 0);
    Input::Key(VK_DOWN);
    EXPECT_EQ(Sel().cpMin, 4);
    Input::Key(VK_RIGHT);
    EXPECT_EQ(Sel().cpMin, 6);  // over 中 at once
    Input::Key(VK_RIGHT, Input::kShift);
    Input::Key(VK_RIGHT, Input::kShift);
    EXPECT_EQ(Sel().cpMin, 6);
    EXPECT_EQ(Sel().cpMax, 9);
    Input::Key(VK_LEFT);  // collapses to the selection's start
    EXPECT_EQ(Sel().cpMin, 6);
    EXPECT_EQ(Sel().cpMax, 6);
    Input::Key(VK_END, Input::kShift);
    EXPECT_EQ(Sel().cpMax, 11);
    Input::Key(VK_HOME, Input::kShift);  // the anchor stays
    EXPECT_EQ(Sel().cpMin, 4);
    EXPECT_EQ(Sel().cpMax, 6);
    Input::Key(VK_END);
    Input::Key(VK_RIGHT);  // over the line end
    EXPECT_EQ(Sel().cpMin, 12);
    Input::Key(VK_LEFT);
    EXPECT_EQ(Sel().cpMin, 11);

    // Up and down aim at the column they started from.
    Input::Key(VK_END, Input::kControl);
    EXPECT_EQ(Sel().cpMin, 26);
    Input::Key(VK_UP);
    EXPECT_EQ(Sel().cpMin, 11);
    Input::Key(VK_UP);
    EXPECT_EQ(Sel().cpMin, 3);
    Input::Key(VK_DOWN);
    Input::Key(VK_DOWN);
    EXPECT_EQ(Sel().cpMin, 26);

    // Words: to the next word's start, back to this word's start.
    Input::Key(VK_HOME);
    Input::Key(VK_RIGHT, Input::kControl);
    EXPECT_EQ(Sel().cpMin, 17);
    Input::Key(VK_END);
    Input::Key(VK_LEFT, Input::kControl | Input::kShift);
    EXPECT_EQ(Sel().cpMin, 22);
    EXPECT_EQ(Sel().cpMax, 26);
}

TEST_F(RichEditKeys, PageKeysMoveTheViewAndTheCaretByAPage)
{
    Make();
    std::string text;
    for (int i = 0; i < 50; ++i) text += "line " + std::to_string(i) + "\r\n";
    edit.SetWindowText(text.c_str());
    Input::Click(&edit, CPoint(20, 5));
    Input::Key(VK_NEXT);
    EXPECT_EQ(edit.GetFirstVisibleLine(), 8);
    EXPECT_EQ(edit.LineFromChar(Sel().cpMin), 8);
    Input::Key(VK_NEXT, Input::kShift);
    EXPECT_EQ(edit.LineFromChar(Sel().cpMin), 8);
    EXPECT_EQ(edit.LineFromChar(Sel().cpMax), 16);
    Input::Key(VK_PRIOR);
    EXPECT_EQ(edit.GetFirstVisibleLine(), 8);
    EXPECT_EQ(edit.LineFromChar(Sel().cpMax), 8);
}

TEST_F(RichEditKeys, TypingAndDeletingWorkInWholeCharacters)
{
    Make();
    Input::Click(&edit, CPoint(20, 5));
    Input::Type("ab" + GBK(u8"中"));
    EXPECT_EQ(Text(), "ab" + GBK(u8"中"));
    EXPECT_EQ(Sel().cpMin, 4);
    Input::Key(VK_BACK);
    EXPECT_EQ(Text(), "ab");
    Input::Key(VK_RETURN);
    Input::Type("c");
    EXPECT_EQ(Range(0, -1), "ab\rc");
    Input::Key(VK_LEFT);
    Input::Key(VK_LEFT);
    Input::Key(VK_DELETE);  // the line end: the lines join
    EXPECT_EQ(Text(), "abc");
    Input::Key(VK_HOME);
    Input::Key(VK_DELETE);
    EXPECT_EQ(Text(), "bc");
    // Ctrl+A and Ctrl+C type nothing; typing replaces the selection.
    Input::Key('A', Input::kControl);
    Input::Key('C', Input::kControl);
    EXPECT_EQ(Text(), "bc");
    EXPECT_EQ(test_clipboard::ClipboardText(), "bc");
    Input::Type("z");
    EXPECT_EQ(Text(), "z");
    Input::Key('V', Input::kControl);
    EXPECT_EQ(Text(), "zbc");
}

TEST_F(RichEditKeys, ReadOnlyControlMovesAndCopiesButDoesNotChange)
{
    Make(rich_edit_test::kOutputStyle | ES_READONLY);
    edit.SetWindowText("fixed\r\ntext");
    Input::Click(&edit, CPoint(kLeft + 2 * rich_edit_test::kNarrow, 5));
    Input::Type("xyz");
    Input::Type(GBK(u8"中"));
    for (UINT key : {VK_BACK, VK_DELETE, VK_RETURN}) Input::Key(key);
    Input::Key('V', Input::kControl);
    Input::Key('X', Input::kControl);
    Input::Key(VK_DELETE, Input::kShift);
    EXPECT_EQ(Text(), "fixed\r\ntext");
    Input::Key(VK_RIGHT);
    EXPECT_EQ(Sel().cpMin, 3);
    Input::Key(VK_DOWN, Input::kShift);
    EXPECT_EQ(Sel().cpMax, 9);
    Input::Key('C', Input::kControl);
    EXPECT_EQ(test_clipboard::ClipboardText(), "ed\r\ntex");
    Input::Key('A', Input::kControl);
    Input::Key(VK_INSERT, Input::kControl);
    EXPECT_EQ(test_clipboard::ClipboardText(), "fixed\r\ntext");
}
