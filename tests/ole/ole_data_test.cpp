// Data sources own the blocks they cache; data objects hand out copies;
// text blocks read safely whatever they hold.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/ole/clipboard.h"
#include "platform/ole/global_text.h"
#include "platform/ole/ole_data_object.h"
#include "platform/ole/ole_data_source.h"

namespace {

class OleData : public ::testing::Test {
protected:
    void SetUp() override { blocks = GlobalMemory::BlockCount(); }
    void TearDown() override { EXPECT_EQ(GlobalMemory::BlockCount(), blocks); }

    static std::string TextOf(HGLOBAL mem)
    {
        std::string text = "<unreadable>";
        GlobalText::Read(mem, &text);
        return text;
    }

    size_t blocks = 0;
};

TEST_F(OleData, ASourceOwnsTheBlocksItCaches)
{
    HGLOBAL first = GlobalText::Alloc("one");
    HGLOBAL second = GlobalText::Alloc("two");
    HGLOBAL loose = GlobalText::Alloc("loose");
    {
        COleDataSource source;
        source.CacheGlobalData(CF_TEXT, first);
        EXPECT_EQ(GlobalFree(first), first) << "taken over: not the caller's to free";
        // Another block for the format frees the one it replaces.
        source.CacheGlobalData(CF_TEXT, second);
        EXPECT_EQ(GlobalSize(first), 0u);
        EXPECT_EQ(TextOf(source.Blocks().Find(CF_TEXT)), "two");
        // Refused, and left to their owners: no block, format 0, a block
        // already held by another source or under another format.
        COleDataSource other;
        other.CacheGlobalData(CF_TEXT, nullptr);
        other.CacheGlobalData(0, loose);
        other.CacheGlobalData(CF_OEMTEXT, second);
        source.CacheGlobalData(CF_OEMTEXT, second);
        EXPECT_EQ(other.Blocks().Count(), 0);
        EXPECT_EQ(source.Blocks().Count(), 1);
        EXPECT_EQ(GlobalFree(loose), nullptr);
        // Emptied: its blocks are freed.
        source.Empty();
        EXPECT_EQ(GlobalMemory::BlockCount(), blocks);
        source.CacheGlobalData(CF_TEXT, GlobalText::Alloc("three"));
    }
    // Destroyed with its block: the fixture checks the count.
    EXPECT_TRUE(RUNTIME_CLASS(COleDataSource)->IsDerivedFrom(RUNTIME_CLASS(CCmdTarget)));
}

TEST_F(OleData, ADataObjectHandsOutCopiesTheCallerFrees)
{
    COleDataSource source;
    source.CacheGlobalData(CF_TEXT, GlobalText::Alloc("hello"));
    COleDataObject data;
    EXPECT_FALSE(data.IsDataAvailable(CF_TEXT));
    EXPECT_EQ(data.GetGlobalData(CF_TEXT), nullptr);

    data.Attach(&source.Blocks());
    EXPECT_TRUE(data.IsDataAvailable(CF_TEXT));
    EXPECT_FALSE(data.IsDataAvailable(CF_DIB));
    EXPECT_EQ(data.GetGlobalData(CF_DIB), nullptr);
    HGLOBAL copy = data.GetGlobalData(CF_TEXT);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, source.Blocks().Find(CF_TEXT));
    EXPECT_EQ(GlobalSize(copy), 6u);
    // Writing into the copy leaves the offered data alone.
    static_cast<char*>(GlobalLock(copy))[0] = 'j';
    GlobalUnlock(copy);
    EXPECT_EQ(TextOf(copy), "jello");
    EXPECT_EQ(TextOf(source.Blocks().Find(CF_TEXT)), "hello");
    EXPECT_EQ(GlobalFree(copy), nullptr);

    EXPECT_EQ(data.Detach(), &source.Blocks());
    EXPECT_FALSE(data.IsDataAvailable(CF_TEXT));
}

TEST_F(OleData, TextBlocksReadSafelyWhateverTheyHold)
{
    // No zero byte: read to the block's end, never past it.
    HGLOBAL raw = GlobalAlloc(GMEM_MOVEABLE, 3);
    std::memcpy(GlobalLock(raw), "abc", 3);
    GlobalUnlock(raw);
    EXPECT_EQ(TextOf(raw), "abc");
    // A zero byte inside: the text ends there.
    static_cast<char*>(GlobalLock(raw))[1] = '\0';
    GlobalUnlock(raw);
    EXPECT_EQ(TextOf(raw), "a");
    EXPECT_EQ(GlobalFree(raw), nullptr);
    // Empty text is one zero byte; an empty block has nothing to read, and
    // copies to another empty block.
    HGLOBAL none = GlobalText::Alloc("");
    EXPECT_EQ(GlobalSize(none), 1u);
    EXPECT_EQ(TextOf(none), "");
    EXPECT_EQ(GlobalFree(none), nullptr);
    HGLOBAL empty = GlobalAlloc(GMEM_MOVEABLE, 0);
    EXPECT_EQ(TextOf(empty), "<unreadable>");
    HGLOBAL emptyCopy = GlobalMemory::Copy(empty);
    ASSERT_NE(emptyCopy, nullptr);
    EXPECT_EQ(GlobalSize(emptyCopy), 0u);
    EXPECT_EQ(GlobalFree(emptyCopy), nullptr);
    EXPECT_EQ(GlobalFree(empty), nullptr);
    // Bad handles and a missing destination.
    EXPECT_EQ(GlobalMemory::Copy(nullptr), nullptr);
    EXPECT_EQ(GlobalMemory::Copy(empty), nullptr);
    EXPECT_EQ(TextOf(empty), "<unreadable>");
    HGLOBAL text = GlobalText::Alloc("t");
    EXPECT_FALSE(GlobalText::Read(text, nullptr));
    EXPECT_EQ(GlobalFlags(text), 0u) << "left locked";
    EXPECT_EQ(GlobalFree(text), nullptr);
}

}  // namespace
