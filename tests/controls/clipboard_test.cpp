// The clipboard's rules and the global memory it trades in.
#include <cstring>

#include "platform/core/wnd.h"
#include "tests/support/clipboard_text.h"

using test_clipboard::CleanClipboard;

namespace {

class ClipboardGlobalMemory : public ::testing::Test {
protected:
    void SetUp() override { blocks = GlobalMemory::BlockCount(); }
    void TearDown() override { EXPECT_EQ(GlobalMemory::BlockCount(), blocks); }
    size_t blocks = 0;
};

// Two windows to hold the clipboard; it is left closed and empty.
class ClipboardRules : public ::testing::Test {
protected:
    void SetUp() override
    {
        CleanClipboard();
        blocks = GlobalMemory::BlockCount();
        ASSERT_TRUE(first.CreateEx(0, "ClipboardTest", "first", WS_OVERLAPPED, CRect(0, 0, 50, 50), nullptr, 0));
        ASSERT_TRUE(second.CreateEx(0, "ClipboardTest", "second", WS_OVERLAPPED, CRect(0, 0, 50, 50), nullptr, 0));
    }
    void TearDown() override
    {
        CleanClipboard();
        EXPECT_EQ(GlobalMemory::BlockCount(), blocks);
        first.DestroyWindow();
        second.DestroyWindow();
    }
    static HGLOBAL Text(const char* text)
    {
        HGLOBAL mem = GlobalAlloc(GMEM_MOVEABLE, std::strlen(text) + 1);
        std::memcpy(GlobalLock(mem), text, std::strlen(text) + 1);
        GlobalUnlock(mem);
        return mem;
    }

    CWnd first;
    CWnd second;
    size_t blocks = 0;
};

}  // namespace

TEST_F(ClipboardGlobalMemory, MovableBlocksCountLocksAndRefuseStaleHandles)
{
    HGLOBAL mem = GlobalAlloc(GHND, 10);
    ASSERT_NE(mem, nullptr);
    EXPECT_EQ(GlobalSize(mem), 10u);
    auto* bytes = static_cast<unsigned char*>(GlobalLock(mem));
    ASSERT_NE(bytes, nullptr);
    for (int i = 0; i < 10; ++i) EXPECT_EQ(bytes[i], 0);
    EXPECT_EQ(GlobalFlags(mem) & GMEM_LOCKCOUNT, 1u);
    EXPECT_EQ(GlobalLock(mem), bytes);  // the same memory, locked twice
    EXPECT_TRUE(GlobalUnlock(mem));
    EXPECT_FALSE(GlobalUnlock(mem));
    EXPECT_FALSE(GlobalUnlock(mem));  // not locked at all
    EXPECT_EQ(GlobalFlags(mem), 0u);

    EXPECT_EQ(GlobalFree(mem), nullptr);
    EXPECT_EQ(GlobalLock(mem), nullptr);
    EXPECT_EQ(GlobalSize(mem), 0u);
    EXPECT_EQ(GlobalFlags(mem), GMEM_INVALID_HANDLE);
    EXPECT_EQ(GlobalFree(mem), mem);  // freeing twice fails
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
    EXPECT_EQ(GlobalLock(reinterpret_cast<HGLOBAL>(std::uintptr_t{0x1234})), nullptr);
}

TEST_F(ClipboardGlobalMemory, FixedEmptyAndOversizedBlocks)
{
    HGLOBAL fixed = GlobalAlloc(GPTR, 4);
    ASSERT_NE(fixed, nullptr);
    EXPECT_EQ(GlobalLock(fixed), reinterpret_cast<void*>(fixed));  // its handle is its address
    EXPECT_EQ(GlobalFlags(fixed), 0u);  // fixed blocks keep no lock count
    EXPECT_EQ(GlobalFree(fixed), nullptr);

    HGLOBAL empty = GlobalAlloc(GMEM_MOVEABLE, 0);
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(GlobalLock(empty), nullptr);
    EXPECT_EQ(GlobalSize(empty), 0u);
    EXPECT_EQ(GlobalFree(empty), nullptr);

    EXPECT_EQ(GlobalAlloc(GMEM_MOVEABLE, kMaxGlobalBlock + 1), nullptr);
}

TEST_F(ClipboardRules, OneWindowAtATimeHoldsItOpen)
{
    EXPECT_FALSE(CloseClipboard());
    EXPECT_FALSE(EmptyClipboard());
    ASSERT_TRUE(OpenClipboard(first));
    EXPECT_EQ(GetOpenClipboardWindow(), first.GetSafeHwnd());
    EXPECT_FALSE(OpenClipboard(second));
    EXPECT_FALSE(OpenClipboard(nullptr));
    EXPECT_TRUE(OpenClipboard(first));  // the holder may open it again
    EXPECT_TRUE(CloseClipboard());
    EXPECT_FALSE(CloseClipboard());
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);

    // A destroyed window lets go of it.
    const HWND gone = second.GetSafeHwnd();
    ASSERT_TRUE(OpenClipboard(gone));
    second.DestroyWindow();
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    EXPECT_TRUE(OpenClipboard(first));
    EXPECT_TRUE(CloseClipboard());
    EXPECT_FALSE(OpenClipboard(gone));  // no longer a window
}

TEST_F(ClipboardRules, DataNeedsTheClipboardOpenAndAnOwner)
{
    HGLOBAL mem = Text("hello");
    EXPECT_EQ(SetClipboardData(CF_TEXT, mem), nullptr);
    EXPECT_EQ(GetClipboardData(CF_TEXT), nullptr);

    // Opened with no window and emptied, there is no owner to give data.
    ASSERT_TRUE(OpenClipboard(nullptr));
    ASSERT_TRUE(EmptyClipboard());
    EXPECT_EQ(SetClipboardData(CF_TEXT, mem), nullptr);
    CloseClipboard();

    ASSERT_TRUE(OpenClipboard(first));
    ASSERT_TRUE(EmptyClipboard());
    EXPECT_EQ(GetClipboardOwner(), first.GetSafeHwnd());
    EXPECT_EQ(SetClipboardData(0, mem), nullptr);
    EXPECT_EQ(SetClipboardData(CF_TEXT, nullptr), nullptr);
    EXPECT_EQ(SetClipboardData(CF_TEXT, mem), mem);
    EXPECT_EQ(GetClipboardData(CF_TEXT), mem);
    EXPECT_EQ(GetClipboardData(CF_UNICODETEXT), nullptr);
    EXPECT_EQ(EnumClipboardFormats(0), CF_TEXT);
    EXPECT_EQ(EnumClipboardFormats(CF_TEXT), 0u);
    CloseClipboard();

    // Anyone may look; only an open clipboard lends its data.
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
    EXPECT_EQ(CountClipboardFormats(), 1);
    EXPECT_EQ(GetClipboardData(CF_TEXT), nullptr);
    ASSERT_TRUE(OpenClipboard(second));
    const HGLOBAL lent = GetClipboardData(CF_TEXT);
    ASSERT_EQ(lent, mem);
    EXPECT_STREQ(static_cast<const char*>(GlobalLock(lent)), "hello");
    GlobalUnlock(lent);
    CloseClipboard();
}

TEST_F(ClipboardRules, TheClipboardOwnsWhatItIsGiven)
{
    const HGLOBAL one = Text("one");
    const HGLOBAL two = Text("two");
    ASSERT_TRUE(OpenClipboard(first));
    EmptyClipboard();
    ASSERT_EQ(SetClipboardData(CF_TEXT, one), one);
    EXPECT_EQ(GlobalFree(one), one);  // refused: no longer the caller's
    EXPECT_EQ(GlobalSize(one), 4u);
    EXPECT_EQ(SetClipboardData(CF_OEMTEXT, one), nullptr);  // one block, one format
    EXPECT_EQ(SetClipboardData(CF_TEXT, one), one);         // the same again is no change

    // Replacing a format frees the block it held.
    EXPECT_EQ(SetClipboardData(CF_TEXT, two), two);
    EXPECT_EQ(GlobalSize(one), 0u);
    EXPECT_EQ(GlobalMemory::BlockCount(), blocks + 1);

    // Emptying frees everything.
    const HGLOBAL three = Text("three");
    EXPECT_EQ(SetClipboardData(CF_OEMTEXT, three), three);
    EXPECT_EQ(CountClipboardFormats(), 2);
    EXPECT_TRUE(EmptyClipboard());
    EXPECT_EQ(CountClipboardFormats(), 0);
    EXPECT_EQ(GlobalSize(two), 0u);
    EXPECT_EQ(GlobalSize(three), 0u);
    EXPECT_EQ(GlobalMemory::BlockCount(), blocks);
    CloseClipboard();
}
