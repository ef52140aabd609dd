// Text storage: line ends, the line index after edits, double-byte
// characters and what comes back out of the control.
#include <cstring>
#include <random>

#include "rich_edit_test_support.h"

using rich_edit_test::RichEditFixture;

namespace {

class RichEditText : public RichEditFixture {
protected:
    // Every line's start and length, and the line of every position, as
    // the control reports them, against text with "\r" line ends.
    ::testing::AssertionResult IndexMatches(const std::string& model)
    {
        if (Range(0, -1) != model) return ::testing::AssertionFailure() << "text differs";
        int line = 0;
        long lineStart = 0;
        for (long pos = 0; pos <= static_cast<long>(model.size()); ++pos) {
            if (edit.LineFromChar(pos) != line) return ::testing::AssertionFailure() << "line of " << pos;
            if (pos == static_cast<long>(model.size()) || model[static_cast<size_t>(pos)] == '\r') {
                if (edit.LineIndex(line) != lineStart) return ::testing::AssertionFailure() << "start of line " << line;
                if (edit.LineLength(static_cast<int>(lineStart)) != pos - lineStart)
                    return ::testing::AssertionFailure() << "length of line " << line;
                ++line;
                lineStart = pos + 1;
            }
        }
        if (edit.GetLineCount() != line) return ::testing::AssertionFailure() << "line count " << edit.GetLineCount();
        if (edit.LineIndex(line) != -1) return ::testing::AssertionFailure() << "a line past the end";
        return ::testing::AssertionSuccess();
    }
};

}  // namespace

TEST_F(RichEditText, EveryLineEndIsOneCharacterAndGetTextGivesCrLf)
{
    Make();
    edit.SetWindowText("ab\r\ncd\nef\rgh");
    EXPECT_EQ(edit.GetLineCount(), 4);
    EXPECT_EQ(Range(0, -1), "ab\rcd\ref\rgh");
    EXPECT_EQ(Text(), "ab\r\ncd\r\nef\r\ngh");
    EXPECT_EQ(edit.GetTextLength(), 14);
    EXPECT_EQ(edit.GetTextLengthEx(GTL_DEFAULT), 11);
    EXPECT_EQ(edit.GetTextLengthEx(GTL_USECRLF), 14);
    EXPECT_TRUE(IndexMatches("ab\rcd\ref\rgh"));

    // "\r\n" given to EM_REPLACESEL is one break too.
    edit.SetSel(2, 3);
    edit.ReplaceSel("\r\n\r\n");
    EXPECT_EQ(Range(0, -1), "ab\r\rcd\ref\rgh");
    EXPECT_EQ(Sel().cpMin, 4);
}

TEST_F(RichEditText, LineIndexFollowsRandomEdits)
{
    Make();
    std::string model;  // the text with "\r" line ends
    std::mt19937 random(7);
    const char* pieces[] = {"x", "hello", "\r\n", "\n", "a\r\nb", "\r\n\r\n", "line\r\n", "", "\xD6\xD0\xCE\xC4"};
    for (int step = 0; step < 400; ++step) {
        const long length = static_cast<long>(model.size());
        long from = static_cast<long>(random() % static_cast<unsigned>(length + 1));
        long to = std::min(length, from + static_cast<long>(random() % 3));
        if (step % 5 == 0) from = to = 0;  // prepends
        if (step % 7 == 0) from = to = length;  // appends
        // Keep the ends off the middle of a double-byte character.
        const auto snap = [&](long pos) {
            long start = 0;
            for (long p = 0; p < pos;) {
                start = p;
                p += static_cast<unsigned char>(model[static_cast<size_t>(p)]) >= 0x81 ? 2 : 1;
                if (p <= pos) start = p;
            }
            return start;
        };
        from = snap(from);
        to = std::max(from, snap(to));
        const std::string piece = pieces[random() % std::size(pieces)];
        edit.SetSel(from, to);
        edit.ReplaceSel(piece.c_str());
        std::string stored;
        for (size_t i = 0; i < piece.size(); ++i) {
            if (piece[i] == '\r' && i + 1 < piece.size() && piece[i + 1] == '\n') continue;
            stored += piece[i] == '\n' ? '\r' : piece[i];
        }
        model.replace(static_cast<size_t>(from), static_cast<size_t>(to - from), stored);
        ASSERT_EQ(Sel().cpMin, from + static_cast<long>(stored.size())) << "step " << step;
        ASSERT_TRUE(IndexMatches(model)) << "step " << step;
    }
}

TEST_F(RichEditText, PositionsInsideDoubleByteCharactersMoveToTheirStart)
{
    Make();
    const std::string text = "a" + GBK(u8"中文") + "b";  // a, 中 at 1-2, 文 at 3-4, b
    edit.SetWindowText(text.c_str());
    edit.SetSel(2, 2);
    EXPECT_EQ(Sel().cpMin, 1);
    EXPECT_EQ(Sel().cpMax, 1);
    edit.SetSel(2, 4);
    EXPECT_EQ(Sel().cpMin, 1);
    EXPECT_EQ(Sel().cpMax, 3);
    EXPECT_EQ(edit.GetSelText().str(), GBK(u8"中"));
    // A range keeps only the characters wholly inside it.
    EXPECT_EQ(Range(2, 6), GBK(u8"文") + "b");
    EXPECT_EQ(Range(2, 4), "");
}

TEST_F(RichEditText, LeadBytesWithoutTheirSecondByteBecomeQuestionMarks)
{
    Make();
    // "\xD6" before a line break, at the very end, and before "\0".
    Append("x\xD6\r\ny\xD6");
    EXPECT_EQ(Range(0, -1), "x?\ry?");
    // Typed text after a stored character must not pair with it.
    edit.SetSel(1, 1);
    edit.ReplaceSel("z");
    EXPECT_EQ(Range(0, -1), "xz?\ry?");
    EXPECT_TRUE(IndexMatches("xz?\ry?"));
}

TEST_F(RichEditText, SingleLineControlKeepsTheFirstLine)
{
    Make(ES_AUTOHSCROLL);
    edit.SetWindowText("one\r\ntwo");
    Append("!\nthree");
    EXPECT_EQ(Text(), "one!");
}

TEST_F(RichEditText, BadArgumentsChangeNothingAndWriteNothingStray)
{
    Make();
    edit.SetWindowText("abc");
    edit.SetSel(1, 2);
    edit.SendMessage(EM_REPLACESEL, 0, 0);  // null text: deletes the selection
    EXPECT_EQ(Text(), "ac");
    edit.SendMessage(WM_SETTEXT, 0, 0);
    EXPECT_EQ(Text(), "");
    edit.SetWindowText(("x\r\n" + GBK(u8"中")).c_str());

    char buffer[8];
    std::memset(buffer, '#', sizeof buffer);
    EXPECT_EQ(edit.SendMessage(WM_GETTEXT, 0, reinterpret_cast<LPARAM>(buffer)), 0);
    EXPECT_EQ(buffer[0], '#');
    EXPECT_EQ(edit.SendMessage(WM_GETTEXT, 2, reinterpret_cast<LPARAM>(buffer)), 1);
    EXPECT_STREQ(buffer, "x");
    // "\r\n" and a double-byte character go whole or not at all.
    std::memset(buffer, '#', sizeof buffer);
    EXPECT_EQ(edit.SendMessage(WM_GETTEXT, 3, reinterpret_cast<LPARAM>(buffer)), 1);
    EXPECT_STREQ(buffer, "x");
    EXPECT_EQ(buffer[3], '#');
    EXPECT_EQ(edit.SendMessage(WM_GETTEXT, 5, reinterpret_cast<LPARAM>(buffer)), 3);
    EXPECT_STREQ(buffer, "x\r\n");
    EXPECT_EQ(edit.SendMessage(WM_GETTEXT, 0, 0), 0);

    TEXTRANGE range;
    range.lpstrText = buffer;
    for (const CHARRANGE chrg : {CHARRANGE{3, 1}, CHARRANGE{-2, 3}, CHARRANGE{9, 12}, CHARRANGE{2, 2}}) {
        std::memset(buffer, '#', sizeof buffer);
        range.chrg = chrg;
        EXPECT_EQ(edit.SendMessage(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range)), 0);
        EXPECT_EQ(buffer[0], '\0');
        EXPECT_EQ(buffer[1], '#');
    }
    EXPECT_EQ(edit.SendMessage(EM_GETTEXTRANGE, 0, 0), 0);
    range.lpstrText = nullptr;
    EXPECT_EQ(edit.SendMessage(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range)), 0);
    EXPECT_EQ(edit.SendMessage(EM_EXSETSEL, 0, 0), 0);
    EXPECT_EQ(edit.SendMessage(EM_GETLINE, 0, 0), 0);
}
