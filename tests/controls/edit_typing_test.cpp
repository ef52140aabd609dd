// Typing into the edit control: characters, the limit, double-byte
// characters, deleting, and the notifications and modified flag that follow.
#include "edit_test_support.h"

using edit_test::EditFixture;

namespace {

class EditTyping : public EditFixture {};

}  // namespace

TEST_F(EditTyping, TypedCharactersGoInAtTheCaretOneChangeEach)
{
    Make();
    EXPECT_FALSE(edit.GetModify());
    Input::Type("abc 12");
    EXPECT_EQ(Text(), "abc 12");
    EXPECT_EQ(Sel(), std::make_pair(6, 6));
    EXPECT_EQ(parent.Count(EN_CHANGE), 6);
    EXPECT_EQ(parent.Count(EN_UPDATE), 6);
    EXPECT_EQ(parent.from, edit.GetSafeHwnd());
    EXPECT_EQ(parent.id, edit_test::kEditId);
    EXPECT_TRUE(edit.GetModify());
    Input::Key(VK_HOME);
    Input::Type("X");
    EXPECT_EQ(Text(), "Xabc 12");
    // Keys that only move the caret change nothing.
    parent.codes.clear();
    Input::Key(VK_END);
    Input::Key(VK_LEFT, Input::kShift);
    Input::Key(VK_RETURN);
    Input::Key(VK_TAB);
    EXPECT_EQ(parent.Count(EN_CHANGE), 0);
    EXPECT_EQ(Sel(), std::make_pair(6, 7));
}

TEST_F(EditTyping, TheLimitStopsTypingButNotSetText)
{
    Make();
    EXPECT_EQ(edit.GetLimitText(), 30000u);
    edit.SetLimitText(5);
    Input::Type("abcdefg");
    EXPECT_EQ(Text(), "abcde");
    EXPECT_EQ(parent.Count(EN_CHANGE), 5);
    EXPECT_EQ(parent.Count(EN_MAXTEXT), 2);
    // Replacing a selection frees its room first.
    edit.SetSel(1, 3);
    Input::Type("XY");
    EXPECT_EQ(Text(), "aXYde");
    edit.SetWindowText("longer than five");
    EXPECT_EQ(Text(), "longer than five");
    edit.LimitText(0);
    EXPECT_EQ(edit.GetLimitText(), 0x7FFFFFFEu);
}

TEST_F(EditTyping, DoubleByteCharactersArriveWholeAndFitWhole)
{
    Make();
    const std::string zhong = GBK(u8"中");
    const std::string wen = GBK(u8"文");
    Input::Type("a" + zhong + wen);
    EXPECT_EQ(Text(), "a" + zhong + wen);
    // One change per character, not per byte.
    EXPECT_EQ(parent.Count(EN_CHANGE), 3);

    edit.SetWindowText("");
    edit.SetLimitText(4);
    parent.codes.clear();
    Input::Type("a" + zhong + wen);
    // Two bytes are needed and one is left: the character stays out whole.
    EXPECT_EQ(Text(), "a" + zhong);
    EXPECT_EQ(parent.Count(EN_CHANGE), 2);
    EXPECT_EQ(parent.Count(EN_MAXTEXT), 1);
}

TEST_F(EditTyping, BackspaceAndDeleteTakeWholeCharacters)
{
    Make();
    const std::string zhong = GBK(u8"中");
    edit.SetWindowText(("a" + zhong + "b" + zhong).c_str());
    edit.SetSel(6, 6);
    parent.codes.clear();
    Input::Key(VK_BACK);
    EXPECT_EQ(Text(), "a" + zhong + "b");
    Input::Key(VK_LEFT);
    Input::Key(VK_BACK);
    EXPECT_EQ(Text(), "ab");
    EXPECT_EQ(Sel(), std::make_pair(1, 1));
    EXPECT_EQ(parent.Count(EN_CHANGE), 2);
    Input::Key(VK_DELETE);
    Input::Key(VK_DELETE);  // nothing after the caret: no change
    EXPECT_EQ(Text(), "a");
    Input::Key(VK_HOME);
    Input::Key(VK_BACK);  // nothing before it either
    EXPECT_EQ(parent.Count(EN_CHANGE), 3);
}

TEST_F(EditTyping, SetTextAndReplaceSelTellTheParentAndSetTheFlagTheirWay)
{
    Make();
    edit.SetWindowText("hello world");
    EXPECT_EQ(parent.Count(EN_CHANGE), 1);
    EXPECT_FALSE(edit.GetModify());
    EXPECT_EQ(Sel(), std::make_pair(0, 0));
    edit.SetSel(0, 5);
    EXPECT_EQ(parent.Count(EN_CHANGE), 1);
    edit.ReplaceSel("bye");
    EXPECT_EQ(Text(), "bye world");
    EXPECT_EQ(Sel(), std::make_pair(3, 3));
    EXPECT_EQ(parent.Count(EN_CHANGE), 2);
    EXPECT_TRUE(edit.GetModify());
    edit.SetModify(FALSE);
    EXPECT_FALSE(edit.GetModify());
    edit.ReplaceSel("");  // nothing selected, nothing given: no change
    EXPECT_EQ(parent.Count(EN_CHANGE), 2);
    edit.ReplaceSel(nullptr);
    EXPECT_EQ(Text(), "bye world");
    // Within the limit, as typing.
    edit.SetLimitText(12);
    edit.ReplaceSel("12345");
    EXPECT_EQ(Text(), "bye123 world");
    EXPECT_EQ(parent.Count(EN_MAXTEXT), 1);
}

TEST_F(EditTyping, FocusChangesAreToldToTheParent)
{
    Make();
    other.SetFocus();
    EXPECT_EQ(parent.Count(EN_KILLFOCUS), 1);
    EXPECT_EQ(parent.Count(EN_SETFOCUS), 0);
    Input::Click(&edit, CPoint(5, 5));
    EXPECT_EQ(parent.Count(EN_SETFOCUS), 1);
    EXPECT_EQ(CWnd::GetFocus(), &edit);
    // A lead byte left waiting when the focus goes is dropped.
    const std::string zhong = GBK(u8"中");
    Input::Type(std::string(1, zhong[0]));
    other.SetFocus();
    edit.SetFocus();
    Input::Type("z");
    EXPECT_EQ(Text(), "z");
}

TEST_F(EditTyping, StylesFilterWhatMayBeTyped)
{
    Make(ES_AUTOHSCROLL | ES_NUMBER);
    Input::Type("a1b2");
    EXPECT_EQ(Text(), "12");
    edit.SetReadOnly(TRUE);
    Input::Type("3");
    Input::Key(VK_BACK);
    Input::Key(VK_DELETE);
    EXPECT_EQ(Text(), "12");
    edit.SetReadOnly(FALSE);
    Input::Type("3");
    EXPECT_EQ(Text(), "123");
    EXPECT_EQ(edit.SendMessage(WM_GETDLGCODE), 0x0001 | 0x0008 | 0x0080);
}

TEST_F(EditTyping, WithoutAutoScrollTheTextStopsAtTheEdge)
{
    // 60 pixels wide: 56 for text, less one for the caret: 6 characters.
    Make(0, CRect(10, 10, 70, 34));
    Input::Type("abcdefgh");
    EXPECT_EQ(Text(), "abcdef");
    EXPECT_EQ(parent.Count(EN_MAXTEXT), 2);
}

TEST_F(EditTyping, UndoPutsTheLastChangeBack)
{
    Make();
    Input::Type("ab");
    edit.SetSel(0, -1);
    Input::Type("z");
    EXPECT_TRUE(edit.CanUndo());
    Input::Key('Z', Input::kControl);
    EXPECT_EQ(Text(), "ab");
    EXPECT_EQ(Sel(), std::make_pair(0, 2));
    edit.EmptyUndoBuffer();
    EXPECT_FALSE(edit.Undo());
    EXPECT_EQ(Text(), "ab");
}
