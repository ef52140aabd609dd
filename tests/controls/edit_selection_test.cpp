// Selection and caret of the edit control: positions snap to whole
// characters, keys and the mouse select, the clipboard takes and gives text,
// and scrolling keeps the caret in view.
#include "edit_test_support.h"
#include "platform/core/paint_dc.h"
#include "platform/gdi/bitmap.h"
#include "platform/gdi/dc.h"
#include "tests/support/clipboard_text.h"

using edit_test::EditFixture;
using edit_test::kCharWidth;

namespace {

class EditSelection : public EditFixture {};

}  // namespace

TEST_F(EditSelection, PositionsNeverLandInsideADoubleByteCharacter)
{
    Make();
    const std::string zhong = GBK(u8"中");
    edit.SetWindowText(("a" + zhong + "b").c_str());
    edit.SetSel(2, 2);
    EXPECT_EQ(Sel(), std::make_pair(1, 1));
    edit.SetSel(0, 2);
    EXPECT_EQ(Sel(), std::make_pair(0, 1));
    edit.SetSel(1, 1);
    Input::Key(VK_RIGHT);
    EXPECT_EQ(Sel(), std::make_pair(3, 3));
    Input::Key(VK_LEFT, Input::kShift);
    EXPECT_EQ(Sel(), std::make_pair(1, 3));
    // Out of range and negative ends mean the end of the text.
    edit.SetSel(2, 99);
    EXPECT_EQ(Sel(), std::make_pair(1, 4));
    edit.SetSel(0, -1);
    EXPECT_EQ(Sel(), std::make_pair(0, 4));
    edit.SetSel(-1, 0);  // removes the selection, keeps the caret
    EXPECT_EQ(Sel(), std::make_pair(4, 4));
    EXPECT_EQ(edit.GetSel(), static_cast<DWORD>(MAKELONG(4, 4)));
}

TEST_F(EditSelection, ShortBuffersGetWholeCharactersAndNeverOverflow)
{
    Make();
    const std::string zhong = GBK(u8"中");
    edit.SetWindowText(("a" + zhong + "b").c_str());
    char buffer[8];
    std::memset(buffer, '#', sizeof buffer);
    EXPECT_EQ(edit.GetWindowText(buffer, 3), 1);  // the character needs 2 of the 2 left and the end
    EXPECT_STREQ(buffer, "a");
    EXPECT_EQ(buffer[3], '#');
    EXPECT_EQ(edit.GetWindowText(buffer, 4), 3);
    EXPECT_EQ(std::string(buffer), "a" + zhong);
    EXPECT_EQ(edit.GetWindowText(nullptr, 5), 0);
    EXPECT_EQ(edit.GetWindowTextLength(), 4);
}

TEST_F(EditSelection, HomeEndShiftAndSelectAll)
{
    Make();
    edit.SetWindowText("one two");
    edit.SetSel(4, 4);
    Input::Key(VK_END, Input::kShift);
    EXPECT_EQ(Sel(), std::make_pair(4, 7));
    Input::Key(VK_LEFT);  // collapses to the selection's start
    EXPECT_EQ(Sel(), std::make_pair(4, 4));
    Input::Key(VK_HOME, Input::kShift);
    EXPECT_EQ(Sel(), std::make_pair(0, 4));
    Input::Key(VK_RIGHT, Input::kControl);
    EXPECT_EQ(Sel(), std::make_pair(4, 4));
    Input::Key('A', Input::kControl);
    EXPECT_EQ(Sel(), std::make_pair(0, 7));
    parent.codes.clear();
    Input::Type("x");
    EXPECT_EQ(Text(), "x");
    EXPECT_EQ(parent.Count(EN_CHANGE), 1);
}

TEST_F(EditSelection, WordsAreRunsOfWholeCharactersBetweenSpaces)
{
    Make();
    // "\xB0 " is one double-byte character whose second byte is a space, so
    // "\xB0 cd" is one word. Every character here is as wide as its bytes.
    const std::string text = "ab " + GBK(u8"中文") + "  \xB0 cd";
    edit.SetWindowText(text.c_str());
    ASSERT_EQ(text.size(), 13u);
    edit.SetSel(0, 0);
    Input::Key(VK_RIGHT, Input::kControl);
    EXPECT_EQ(Sel(), std::make_pair(3, 3));
    Input::Key(VK_RIGHT, Input::kControl);
    EXPECT_EQ(Sel(), std::make_pair(9, 9));
    Input::Key(VK_RIGHT, Input::kControl);
    EXPECT_EQ(Sel(), std::make_pair(13, 13));
    Input::Key(VK_LEFT, Input::kControl);
    EXPECT_EQ(Sel(), std::make_pair(9, 9));
    Input::Key(VK_LEFT, Input::kControl | Input::kShift);
    EXPECT_EQ(Sel(), std::make_pair(3, 9));
    Input::Key(VK_LEFT, Input::kControl | Input::kShift);
    EXPECT_EQ(Sel(), std::make_pair(0, 9));

    // A double click takes the word with the spaces after it.
    CRect rect;
    edit.GetRect(&rect);
    Input::DoubleClick(&edit, CPoint(rect.left + 5 * kCharWidth + 2, rect.top + 4));  // on 文
    EXPECT_EQ(Sel(), std::make_pair(3, 9));
    Input::Wait();
    Input::DoubleClick(&edit, CPoint(rect.left + 12 * kCharWidth + 2, rect.top + 4));  // on d
    EXPECT_EQ(Sel(), std::make_pair(9, 13));
}

TEST_F(EditSelection, CopyCutAndPasteGoThroughTheClipboard)
{
    Make();
    edit.SetWindowText("copy me");
    edit.SetSel(0, 4);
    Input::Key('C', Input::kControl);
    EXPECT_EQ(test_clipboard::ClipboardText(), "copy");
    EXPECT_EQ(Text(), "copy me");
    edit.SetSel(4, 7);
    Input::Key('X', Input::kControl);
    EXPECT_EQ(test_clipboard::ClipboardText(), " me");
    EXPECT_EQ(Text(), "copy");
    Input::Key(VK_HOME);
    parent.codes.clear();
    Input::Key('V', Input::kControl);
    EXPECT_EQ(Text(), " mecopy");
    EXPECT_EQ(parent.Count(EN_CHANGE), 1);

    // One line takes what comes before the first line break, within the limit.
    test_clipboard::PutClipboardText(edit.GetSafeHwnd(), "first\r\nsecond");
    edit.SetWindowText("");
    edit.SetLimitText(3);
    edit.Paste();
    EXPECT_EQ(Text(), "fir");
    // A password is not handed out.
    edit.SetPasswordChar('*');
    edit.SetSel(0, -1);
    edit.Copy();
    EXPECT_EQ(test_clipboard::ClipboardText(), "first\r\nsecond");
}

TEST_F(EditSelection, ClickingAndDraggingPlaceTheCaretAndSelect)
{
    Make();
    edit.SetWindowText("abcdef");
    CRect rect;
    edit.GetRect(&rect);
    // Left of a character's middle is before it, right of it after.
    Input::Click(&edit, CPoint(rect.left + 2 * kCharWidth + 3, rect.top + 4));
    EXPECT_EQ(Sel(), std::make_pair(2, 2));
    Input::Wait();
    Input::Click(&edit, CPoint(rect.left + 2 * kCharWidth + 5, rect.top + 4));
    EXPECT_EQ(Sel(), std::make_pair(3, 3));
    Input::Wait();
    Input::MouseDown(&edit, CPoint(rect.left + kCharWidth, rect.top + 4));
    Input::MouseMove(&edit, CPoint(rect.left + 4 * kCharWidth, rect.top + 4));
    Input::MouseUp(&edit, CPoint(rect.left + 4 * kCharWidth, rect.top + 4));
    EXPECT_EQ(Sel(), std::make_pair(1, 4));
    EXPECT_EQ(edit.CharFromPos(CPoint(rect.left + 5 * kCharWidth, rect.top)), 5);
    EXPECT_EQ(edit.PosFromChar(6).x, rect.left + 6 * kCharWidth);
    EXPECT_EQ(edit.SendMessage(EM_POSFROMCHAR, 7), -1);
}

TEST_F(EditSelection, TheCaretStaysInViewWhileTypingPastTheEdge)
{
    Make();
    CRect rect;
    edit.GetRect(&rect);
    for (int i = 0; i < 40; ++i) Input::Type("m");
    const int caretX = edit.PosFromChar(40).x;
    EXPECT_GE(caretX, rect.left);
    EXPECT_LT(caretX, rect.right);
    EXPECT_LT(edit.PosFromChar(0).x, rect.left);  // the start scrolled out
    Input::Key(VK_HOME);
    EXPECT_EQ(edit.PosFromChar(0).x, rect.left);
}

TEST_F(EditSelection, SelectionAndCaretShowOnlyWithTheFocus)
{
    Make();
    edit.SetWindowText("shown");
    edit.SetSel(0, -1);
    Paint::UpdateAllWindows();
    EXPECT_GT(CountPixels(Sys(COLOR_HIGHLIGHT)), 0);
    other.SetFocus();
    Paint::UpdateAllWindows();
    EXPECT_EQ(CountPixels(Sys(COLOR_HIGHLIGHT)), 0);
    // The caret: a line of text colour where no text is.
    edit.SetFocus();
    edit.SetSel(5, 5);
    Paint::UpdateAllWindows();
    CRect rect;
    edit.GetRect(&rect);
    const int x = rect.left + 5 * kCharWidth;
    EXPECT_EQ(Pixel(x, rect.top + 1), Sys(COLOR_WINDOWTEXT));
    EXPECT_EQ(Pixel(x + 3, rect.top + 1), Sys(COLOR_WINDOW));
    other.SetFocus();
    Paint::UpdateAllWindows();
    EXPECT_EQ(Pixel(x, rect.top + 1), Sys(COLOR_WINDOW));
}

// A long text of narrow and wide characters: positions and hits are counted
// from the text's start however far it is scrolled, and the part that shows
// is drawn exactly as the whole text drawn under the same clip would be.
TEST_F(EditSelection, ALongMixedTextMeasuresAndPaintsOnlyWhatShows)
{
    Make();
    const std::string zhong = GBK(u8"中");
    std::string text;
    for (int i = 0; i < 400; ++i) text += "a" + zhong;  // 1200 bytes, 9600 pixels
    edit.SetWindowText(text.c_str());
    edit.SetSel(-1, 0);
    Input::Key(VK_END);
    CRect rect;
    edit.GetRect(&rect);
    const int start = edit.PosFromChar(0).x;
    ASSERT_LT(start, rect.left - 9000);
    const int end = edit.PosFromChar(static_cast<UINT>(text.size())).x;
    EXPECT_GE(end, rect.left);
    EXPECT_LT(end, rect.right);
    EXPECT_EQ(end - start, 400 * 3 * kCharWidth);
    // Position 3k + 2 is inside a wide character: it snaps to its start.
    for (const int k : {0, 1, 250, 399}) {
        EXPECT_EQ(edit.PosFromChar(static_cast<UINT>(3 * k + 1)).x - start, 3 * k * kCharWidth + kCharWidth);
        EXPECT_EQ(edit.PosFromChar(static_cast<UINT>(3 * k + 2)).x - start, 3 * k * kCharWidth + kCharWidth);
    }
    // A hit left of a wide character's middle lands before it, right of it after.
    const int wide = static_cast<int>(text.size()) - 2;
    const int wideX = edit.PosFromChar(static_cast<UINT>(wide)).x;
    EXPECT_EQ(edit.CharFromPos(CPoint(wideX + kCharWidth - 1, rect.top)), wide);
    EXPECT_EQ(edit.CharFromPos(CPoint(wideX + kCharWidth + 1, rect.top)), wide + 2);

    // Drawn as the whole text under the same clip would be, wherever the
    // clip cuts a character.
    CRect client;
    edit.GetClientRect(&client);
    const auto expectPaintedAsWhole = [&](int caret) {
        edit.SetFocus();
        edit.SetSel(caret, caret);
        other.SetFocus();  // no caret: the text alone
        Paint::UpdateAllWindows();
        CClientDC like(&edit);
        CBitmap bitmap;
        CDC whole;
        ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&like, client.Width(), client.Height()));
        ASSERT_TRUE(whole.CreateCompatibleDC(&like));
        whole.SelectObject(&bitmap);
        whole.SelectStockObject(SYSTEM_FONT);
        whole.FillSolidRect(&client, GetSysColor(COLOR_WINDOW));
        whole.SetBkMode(TRANSPARENT);
        whole.SetTextColor(GetSysColor(COLOR_WINDOWTEXT));
        whole.IntersectClipRect(rect.left, client.top, rect.right, client.bottom);
        whole.TextOut(edit.PosFromChar(0).x, rect.top, text.c_str(), static_cast<int>(text.size()));
        int differing = 0;
        int ink = 0;
        for (int y = client.top; y < client.bottom; ++y) {
            for (int x = client.left; x < client.right; ++x) {
                differing += Pixel(x, y) != bitmap.GetSurface()->GetPixel(x, y);
                ink += Pixel(x, y) == Sys(COLOR_WINDOWTEXT);
            }
        }
        EXPECT_EQ(differing, 0) << "caret " << caret;
        EXPECT_GT(ink, 0) << "caret " << caret;
    };
    for (const int caret : {static_cast<int>(text.size()), 600, 301, 903, 1}) expectPaintedAsWhole(caret);

    // A change in the middle: what follows it is counted anew.
    edit.SetSel(600, 600);
    edit.ReplaceSel(zhong.c_str());
    EXPECT_EQ(edit.PosFromChar(601).x, edit.PosFromChar(600).x);  // inside the new wide character
    EXPECT_EQ(edit.PosFromChar(static_cast<UINT>(text.size() + 2)).x - edit.PosFromChar(0).x, (400 * 3 + 2) * kCharWidth);
    text.insert(600, zhong);
    expectPaintedAsWhole(603);
}
