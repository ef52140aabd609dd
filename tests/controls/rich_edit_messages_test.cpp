// Selection, line queries, colour runs and copying, through the messages.
#include <cstring>

#include "platform/ole/clipboard.h"
#include "rich_edit_test_support.h"

using test_clipboard::ClipboardText;
using rich_edit_test::RichEditFixture;

namespace {

constexpr COLORREF kRed = RGB(200, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 160);
constexpr COLORREF kGreen = RGB(0, 128, 0);

class RichEditSelection : public RichEditFixture {};
class RichEditLines : public RichEditFixture {};
class RichEditFormat : public RichEditFixture {};

// Leaves the clipboard closed and empty whatever a test did.
class RichEditClipboard : public RichEditFixture {
protected:
    void SetUp() override { test_clipboard::CleanClipboard(); }
    void TearDown() override
    {
        test_clipboard::CleanClipboard();
        RichEditFixture::TearDown();
    }
};

}  // namespace

// ---------------------------------------------------------------- selection

TEST_F(RichEditSelection, RangesAreClampedAndOrderedAsOnThePlatform)
{
    Make();
    edit.SetWindowText("0123456789abcdefg");  // 17 characters
    struct Case {
        LONG min, max;
        LRESULT returned;
        LONG start, end;
    };
    // Each case starts from the selection the one before left.
    const Case cases[] = {
        {5, 10, 10, 5, 10},   {0, 100, 17, 0, 17},  {5, 5, 5, 5, 5},     {-1, 0, 5, 5, 5},    {2, 9, 9, 2, 9},
        {-1, 3, 9, 9, 9},     {-1, -1, 17, 17, 17}, {-4, -5, 17, 17, 17}, {0, -1, 17, 0, 17}, {12, -3, 17, 12, 17},
        {15, 8, 15, 8, 15},   {30, 40, 17, 17, 17},
    };
    for (const Case& c : cases) {
        CHARRANGE range{c.min, c.max};
        EXPECT_EQ(edit.SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range)), c.returned) << c.min << ", " << c.max;
        EXPECT_EQ(Sel().cpMin, c.start) << c.min << ", " << c.max;
        EXPECT_EQ(Sel().cpMax, c.end) << c.min << ", " << c.max;
    }
    // EM_SETSEL agrees, and a start past the end is the caret: the selection
    // (15, 8) runs backwards, so its caret is at 8 on the first line.
    edit.SetSel(15, 8);
    EXPECT_EQ(edit.SendMessage(EM_LINEINDEX, static_cast<WPARAM>(-1)), 0);
    DWORD start = 0, end = 0;
    EXPECT_EQ(edit.SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end)), MAKELONG(8, 15));
    EXPECT_EQ(start, 8u);
    EXPECT_EQ(end, 15u);
}

TEST_F(RichEditSelection, ReplaceSelReplacesAcrossLinesAndLeavesTheCaretAfter)
{
    Make(rich_edit_test::kOutputStyle | ES_READONLY);  // programs may still write
    edit.SetWindowText("one\r\ntwo\r\nthree");
    edit.SetSel(2, 9);  // "e\rtwo\rt"
    edit.ReplaceSel("E\r\nT");
    EXPECT_EQ(Range(0, -1), "onE\rThree");
    EXPECT_EQ(Sel().cpMin, 5);
    EXPECT_EQ(Sel().cpMax, 5);
    EXPECT_EQ(edit.GetLineCount(), 2);
    // Past the end of a long text, GetSel's packed answer gives up.
    Append(std::string(70000, 'x'));
    DWORD end = 0;
    EXPECT_EQ(edit.SendMessage(EM_GETSEL, 0, reinterpret_cast<LPARAM>(&end)), -1);
    EXPECT_EQ(end, 70009u);
}

// ---------------------------------------------------------------- lines

TEST_F(RichEditLines, QueriesByLineAndByPosition)
{
    Make();
    edit.SetWindowText("alpha\r\nbe\r\n\r\ngamma");  // starts 0, 6, 9, 10
    EXPECT_EQ(edit.GetLineCount(), 4);
    EXPECT_EQ(edit.LineIndex(3), 10);
    EXPECT_EQ(edit.LineIndex(4), -1);
    EXPECT_EQ(edit.SendMessage(EM_LINEINDEX, static_cast<WPARAM>(-7)), -1);
    EXPECT_EQ(edit.LineLength(7), 2);
    EXPECT_EQ(edit.LineLength(16), 0);  // past the end
    EXPECT_EQ(edit.LineFromChar(5), 0);  // the end of "alpha"
    EXPECT_EQ(edit.LineFromChar(999), 3);
    EXPECT_EQ(edit.SendMessage(EM_LINEFROMCHAR, 9), 2);

    // -1: the caret's line; with a selection, where it starts.
    edit.SetSel(7, 12);
    EXPECT_EQ(edit.LineIndex(-1), 10);  // the caret ends the selection
    EXPECT_EQ(edit.LineFromChar(-1), 1);
    // Unselected characters on the selection's lines: "b" and "mma".
    EXPECT_EQ(edit.LineLength(-1), 4);
}

TEST_F(RichEditLines, GetLineWritesNoMoreThanTheSizeInItsFirstWord)
{
    Make();
    edit.SetWindowText(("ab" + GBK(u8"中") + "\r\nlast").c_str());
    struct Case {
        int line;
        WORD size;
        std::string copied;
        bool terminated;
    };
    const Case cases[] = {
        {0, 40, "ab" + GBK(u8"中") + "\r", true},
        {0, 5, "ab" + GBK(u8"中") + "\r", false},
        {0, 3, "ab", true},  // the double-byte character does not fit whole
        {0, 2, "ab", false},
        {0, 1, "a", false},
        {0, 0, "", false},
        {1, 40, "last", true},  // the last line has no "\r"
        {2, 40, "", false},
    };
    for (const Case& c : cases) {
        char buffer[48];
        std::memset(buffer, '#', sizeof buffer);
        std::memcpy(buffer, &c.size, sizeof c.size);
        const int n = edit.GetLine(c.line, buffer);
        ASSERT_EQ(n, static_cast<int>(c.copied.size())) << c.line << "/" << c.size;
        EXPECT_EQ(std::string(buffer, static_cast<size_t>(n)), c.copied) << c.line << "/" << c.size;
        const size_t next = static_cast<size_t>(n);
        if (c.terminated) {
            EXPECT_EQ(buffer[next], '\0');
        }
        // Nothing beyond the copy (and its zero byte) is touched.
        const size_t untouched = std::max<size_t>({next + (c.terminated ? 1 : 0), c.size, sizeof(WORD)});
        for (size_t i = untouched; i < sizeof buffer; ++i) ASSERT_EQ(buffer[i], '#') << c.line << "/" << c.size << " at " << i;
    }
    // A one-byte buffer through the member function: one byte written.
    char pair[2] = {'#', '#'};
    EXPECT_EQ(edit.GetLine(1, pair, 1), 1);
    EXPECT_EQ(pair[0], 'l');
    EXPECT_EQ(pair[1], '#');
}

// ---------------------------------------------------------------- formats

TEST_F(RichEditFormat, RunsKeepTheirColoursThroughEdits)
{
    Make();
    edit.SetWindowText("red\r\nblue");
    EXPECT_TRUE(Colour(0, 3, kRed));
    EXPECT_TRUE(Colour(4, 8, kBlue));
    EXPECT_EQ(ColourAt(2), kRed);
    EXPECT_EQ(ColourAt(3), CLR_DEFAULT);  // the line end was not coloured
    EXPECT_EQ(ColourAt(4), kBlue);
    // Joining the lines keeps each half's colour.
    edit.SetSel(3, 4);
    edit.ReplaceSel("");
    EXPECT_EQ(Range(0, -1), "redblue");
    EXPECT_EQ(ColourAt(2), kRed);
    EXPECT_EQ(ColourAt(3), kBlue);
    // Splitting a run leaves both parts coloured.
    edit.SetSel(5, 5);
    edit.ReplaceSel("\r\n");
    EXPECT_EQ(ColourAt(4), kBlue);
    EXPECT_EQ(ColourAt(6), kBlue);
    // Colouring inside a run splits it in three.
    EXPECT_TRUE(Colour(1, 2, kGreen));
    EXPECT_EQ(ColourAt(0), kRed);
    EXPECT_EQ(ColourAt(1), kGreen);
    EXPECT_EQ(ColourAt(2), kRed);
}

TEST_F(RichEditFormat, InsertedTextTakesTheFormatAtTheInsertionPoint)
{
    Make();
    edit.SetWindowText("redblue\r\n");
    Colour(0, 3, kRed);
    Colour(3, 8, kBlue);  // with the line end
    const auto insertAt = [&](long pos, const char* text) {
        edit.SetSel(pos, pos);
        edit.ReplaceSel(text);
    };
    insertAt(3, "R");  // after "red": the character before
    EXPECT_EQ(ColourAt(3), kRed);
    insertAt(0, "S");  // at a line's start: the character after
    EXPECT_EQ(ColourAt(0), kRed);
    ASSERT_EQ(Range(0, -1), "SredRblue\r");
    insertAt(10, "x");  // at the start of the empty last line: its own end
    EXPECT_EQ(ColourAt(10), CLR_DEFAULT);
    // Replacing a selection keeps the format of its first character.
    edit.SetSel(5, 7);
    edit.ReplaceSel("BB");
    EXPECT_EQ(ColourAt(5), kBlue);
    EXPECT_EQ(ColourAt(6), kBlue);

    // Formatting an empty selection formats what is inserted there next...
    edit.SetSel(-1, -1);
    CHARFORMAT cf;
    cf.cbSize = sizeof cf;
    cf.dwMask = CFM_COLOR;
    cf.crTextColor = kGreen;
    EXPECT_TRUE(edit.SetSelectionCharFormat(cf));
    CHARFORMAT read;
    read.cbSize = sizeof read;
    edit.GetSelectionCharFormat(read);
    EXPECT_EQ(read.crTextColor, kGreen);
    edit.ReplaceSel("gg");
    EXPECT_EQ(ColourAt(11), kGreen);
    EXPECT_EQ(ColourAt(12), kGreen);
    // ...until the selection moves away.
    edit.SetSel(0, 0);
    edit.SetSelectionCharFormat(cf);
    edit.SetSel(1, 1);
    edit.ReplaceSel("t");
    EXPECT_EQ(ColourAt(1), kRed);
}

TEST_F(RichEditFormat, GetCharFormatReportsWhatIsTheSameThroughout)
{
    Make();
    edit.SetWindowText("abcd");
    Colour(0, 2, kRed);
    CHARFORMAT cf;
    cf.cbSize = sizeof cf;
    edit.SetSel(0, 2);
    DWORD mask = edit.GetSelectionCharFormat(cf);
    EXPECT_TRUE(mask & CFM_COLOR);
    EXPECT_FALSE(cf.dwEffects & CFE_AUTOCOLOR);
    EXPECT_EQ(cf.crTextColor, kRed);
    EXPECT_EQ(cf.yHeight, 12 * 15);  // the default font, in twips

    edit.SetSel(1, 3);  // red and automatic
    mask = edit.GetSelectionCharFormat(cf);
    EXPECT_FALSE(mask & CFM_COLOR);
    EXPECT_TRUE(mask & CFM_FACE);

    edit.SetSel(2, 4);
    mask = edit.GetSelectionCharFormat(cf);
    EXPECT_TRUE(mask & CFM_COLOR);
    EXPECT_TRUE(cf.dwEffects & CFE_AUTOCOLOR);
    EXPECT_EQ(cf.crTextColor, GetSysColor(COLOR_WINDOWTEXT));

    // A CHARFORMAT too small for the message is refused and left alone.
    CHARFORMAT small;
    small.cbSize = sizeof small - 1;
    small.dwMask = CFM_COLOR;
    small.crTextColor = kBlue;
    EXPECT_EQ(edit.GetSelectionCharFormat(small), 0u);
    EXPECT_EQ(small.crTextColor, kBlue);
    EXPECT_FALSE(edit.SetSelectionCharFormat(small));
    EXPECT_EQ(ColourAt(2), CLR_DEFAULT);
    EXPECT_EQ(edit.SendMessage(EM_SETCHARFORMAT, SCF_SELECTION, 0), FALSE);
}

TEST_F(RichEditFormat, DefaultFormatAndAllText)
{
    Make();
    CHARFORMAT cf;
    cf.cbSize = sizeof cf;
    cf.dwMask = CFM_COLOR;
    cf.crTextColor = kBlue;
    EXPECT_TRUE(edit.SetDefaultCharFormat(cf));
    edit.SetWindowText("set\r\nmore");
    EXPECT_EQ(ColourAt(1), kBlue);
    EXPECT_EQ(ColourAt(6), kBlue);

    // Automatic colour everywhere; the mask decides what changes.
    cf.dwEffects = CFE_AUTOCOLOR;
    EXPECT_TRUE(edit.SendMessage(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&cf)));
    EXPECT_EQ(ColourAt(6), CLR_DEFAULT);
    cf.dwMask = CFM_BOLD;
    cf.dwEffects = 0;
    EXPECT_TRUE(edit.SendMessage(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&cf)));
    EXPECT_EQ(ColourAt(6), CLR_DEFAULT);
}

// ---------------------------------------------------------------- clipboard

TEST_F(RichEditClipboard, CopyPutsTheSelectionAsCrLfText)
{
    Make(rich_edit_test::kOutputStyle | ES_READONLY);
    edit.SetWindowText(("x" + GBK(u8"中文") + "\r\nab\r\nc").c_str());
    const size_t blocks = GlobalMemory::BlockCount();
    edit.SetSel(1, 9);
    edit.Copy();
    EXPECT_EQ(ClipboardText(), GBK(u8"中文") + "\r\nab\r\n");
    EXPECT_EQ(GetClipboardOwner(), edit.GetSafeHwnd());
    // A second copy replaces the first, which is freed.
    edit.SetSel(7, 8);
    edit.SendMessage(WM_COPY);
    EXPECT_EQ(ClipboardText(), "b");
    EXPECT_EQ(GlobalMemory::BlockCount(), blocks + 1);
    // Copying nothing, or while another window holds the clipboard, leaves
    // it as it was and leaks nothing.
    edit.SetSel(3, 3);
    edit.Copy();
    EXPECT_EQ(ClipboardText(), "b");
    edit.SetSel(0, 4);
    ASSERT_TRUE(OpenClipboard(parent.GetSafeHwnd()));
    edit.Copy();
    CloseClipboard();
    EXPECT_EQ(ClipboardText(), "b");
    EXPECT_EQ(GlobalMemory::BlockCount(), blocks + 1);
}

TEST_F(RichEditClipboard, CutAndPasteChangeOnlyWritableText)
{
    Make();
    edit.SetWindowText("keep cut");
    edit.SetSel(4, 8);
    edit.SetReadOnly(TRUE);
    edit.Cut();
    EXPECT_EQ(Text(), "keep cut");
    EXPECT_EQ(ClipboardText(), "<none>");
    edit.SetReadOnly(FALSE);
    edit.Cut();
    EXPECT_EQ(Text(), "keep");
    EXPECT_EQ(ClipboardText(), " cut");

    // Pasted "\r\n" is one line break.
    test_clipboard::PutClipboardText(parent.GetSafeHwnd(), "1\r\n2\n3");
    edit.SetSel(0, 0);
    edit.Paste();
    EXPECT_EQ(Range(0, -1), "1\r2\r3keep");
    EXPECT_EQ(Sel().cpMin, 5);
}
