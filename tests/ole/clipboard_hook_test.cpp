// The clipboard sharing its CF_TEXT with another clipboard through a hook,
// as it does with the desktop's in a real window.
#include <optional>
#include <string>
#include <vector>

#include "platform/core/wnd.h"
#include "platform/ole/global_text.h"
#include "platform/text/gbk.h"
#include "tests/support/clipboard_text.h"

using test_clipboard::CleanClipboard;
using test_clipboard::ClipboardText;

namespace {

// The other clipboard: what was published to it, and what it holds.
class OtherClipboard : public ClipboardTextHook {
public:
    void Publish(const std::string* gbkText) override
    {
        published.push_back(gbkText ? *gbkText : "<none>");
        held = gbkText ? std::optional<std::string>(*gbkText) : std::nullopt;
    }
    std::optional<std::string> Fetch() override
    {
        ++fetches;
        return held;
    }

    std::vector<std::string> published;
    std::optional<std::string> held;
    int fetches = 0;
};

class ClipboardHook : public ::testing::Test {
protected:
    void SetUp() override
    {
        CleanClipboard();
        blocks = GlobalMemory::BlockCount();
        ASSERT_TRUE(window.CreateEx(0, "ClipboardHookTest", "owner", WS_OVERLAPPED, CRect(0, 0, 50, 50), nullptr, 0));
        SetClipboardTextHook(&other);
    }
    void TearDown() override
    {
        SetClipboardTextHook(nullptr);
        CleanClipboard();
        EXPECT_EQ(GlobalMemory::BlockCount(), blocks);
        window.DestroyWindow();
    }

    OtherClipboard other;
    CWnd window;
    size_t blocks = 0;
};

}  // namespace

TEST_F(ClipboardHook, ContentSetHereIsPublishedOnceWhenTheClipboardCloses)
{
    ASSERT_TRUE(OpenClipboard(window.GetSafeHwnd()));
    ASSERT_TRUE(EmptyClipboard());
    ASSERT_NE(SetClipboardData(CF_TEXT, GlobalText::Alloc("first\r\nsecond")), nullptr);
    EXPECT_TRUE(other.published.empty());  // not while it is open
    ASSERT_TRUE(CloseClipboard());
    EXPECT_EQ(other.published, std::vector<std::string>{"first\r\nsecond"});

    // Opening and closing to read publishes nothing new.
    std::string text;
    EXPECT_TRUE(GetClipboardText(window.GetSafeHwnd(), &text));
    EXPECT_EQ(text, "first\r\nsecond");
    EXPECT_EQ(other.published.size(), 1u);
    EXPECT_EQ(GetClipboardOwner(), window.GetSafeHwnd());  // its own text came back: still the owner
}

TEST_F(ClipboardHook, EmptyingWithoutTextPublishesThatThereIsNone)
{
    other.held = "old";
    ASSERT_TRUE(OpenClipboard(window.GetSafeHwnd()));
    ASSERT_TRUE(EmptyClipboard());
    ASSERT_TRUE(CloseClipboard());
    EXPECT_EQ(other.published, std::vector<std::string>{"<none>"});
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_TEXT));
}

TEST_F(ClipboardHook, TextCopiedElsewhereReplacesWhatTheClipboardHeld)
{
    ASSERT_TRUE(SetClipboardText(window.GetSafeHwnd(), "ours"));
    ASSERT_EQ(other.held, "ours");
    other.held = GBK(u8"别处复制的");

    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
    EXPECT_EQ(ClipboardText(), GBK(u8"别处复制的"));
    EXPECT_EQ(GetClipboardOwner(), nullptr);  // another application's now
    EXPECT_EQ(CountClipboardFormats(), 1);
}

TEST_F(ClipboardHook, TextGoneElsewhereEmptiesTheClipboard)
{
    ASSERT_TRUE(SetClipboardText(window.GetSafeHwnd(), "ours"));
    other.held.reset();  // another application copied something that is not text
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_TEXT));
    EXPECT_EQ(CountClipboardFormats(), 0);
    std::string text = "unchanged";
    EXPECT_FALSE(GetClipboardText(window.GetSafeHwnd(), &text));
    EXPECT_EQ(text, "unchanged");
}

TEST_F(ClipboardHook, WhileOpenTheContentStaysWhatTheOpenerSees)
{
    ASSERT_TRUE(SetClipboardText(window.GetSafeHwnd(), "ours"));
    ASSERT_TRUE(OpenClipboard(window.GetSafeHwnd()));
    const int fetches = other.fetches;
    other.held = "theirs";
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
    std::string text;
    EXPECT_TRUE(GlobalText::Read(GetClipboardData(CF_TEXT), &text));
    EXPECT_EQ(text, "ours");
    EXPECT_EQ(other.fetches, fetches);
    ASSERT_TRUE(CloseClipboard());
    EXPECT_EQ(ClipboardText(), "theirs");
}

TEST_F(ClipboardHook, WithoutAHookTheClipboardIsItsOwn)
{
    SetClipboardTextHook(nullptr);
    ASSERT_TRUE(SetClipboardText(window.GetSafeHwnd(), "alone"));
    EXPECT_TRUE(other.published.empty());
    other.held = "elsewhere";
    EXPECT_EQ(ClipboardText(), "alone");
    EXPECT_EQ(other.fetches, 0);
}
