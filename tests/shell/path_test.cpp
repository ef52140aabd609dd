// The shell's path helper on the paths a host hands over: drive, root and
// UNC forms, POSIX paths, and GBK names whose second byte is a backslash.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/shell/path.h"
#include "platform/text/gbk.h"

namespace {

struct Removed {
    BOOL result;
    std::string path;
};

Removed RemoveFileSpec(const std::string& path)
{
    char buffer[64];
    EXPECT_LT(path.size(), sizeof buffer);
    std::memset(buffer, 0x7F, sizeof buffer);
    std::memcpy(buffer, path.c_str(), path.size() + 1);
    const BOOL result = PathRemoveFileSpec(buffer);
    // At most one byte changes, to the new terminator; nothing past the old one.
    const size_t kept = std::strlen(buffer);
    EXPECT_LE(kept, path.size());
    for (size_t i = 0; i <= path.size(); ++i) {
        if (i == kept) continue;
        EXPECT_EQ(buffer[i], path.c_str()[i]) << path << " byte " << i;
    }
    EXPECT_EQ(buffer[path.size() + 1], 0x7F) << path << ": written past the terminator";
    return {result, buffer};
}

void ExpectRemoved(const std::string& path, const std::string& expected)
{
    const Removed r = RemoveFileSpec(path);
    EXPECT_TRUE(r.result) << path;
    EXPECT_EQ(r.path, expected) << path;
}

void ExpectKept(const std::string& path)
{
    const Removed r = RemoveFileSpec(path);
    EXPECT_FALSE(r.result) << path;
    EXPECT_EQ(r.path, path);
}

}  // namespace

TEST(PathRemoveFileSpec, RemovesTheLastComponent)
{
    ExpectRemoved("C:\\work\\demo\\demo.prj", "C:\\work\\demo");
    ExpectRemoved("C:\\work\\demo\\", "C:\\work\\demo");
    ExpectRemoved("C:\\demo.prj", "C:\\");
    ExpectRemoved("demo.prj", "");
    ExpectRemoved("src\\a.c", "src");
    ExpectRemoved("/home/u/p/p.prj", "/home/u/p");

    // Removing again walks up to the root and stops there.
    char path[32];
    std::strcpy(path, "C:\\a\\b");
    EXPECT_TRUE(PathRemoveFileSpec(path));
    EXPECT_TRUE(PathRemoveFileSpec(path));
    EXPECT_STREQ(path, "C:\\");
    EXPECT_FALSE(PathRemoveFileSpec(path));
    EXPECT_STREQ(path, "C:\\");
}

TEST(PathRemoveFileSpec, RootsStayWhole)
{
    ExpectKept("C:\\");
    ExpectKept("C:");
    ExpectKept("\\");
    ExpectKept("\\\\");
    ExpectKept("/");
    ExpectKept("");
    ExpectRemoved("\\x.prj", "\\");
    ExpectRemoved("/x.prj", "/");
    ExpectRemoved("C:x.prj", "C:");
    ExpectRemoved("\\\\server\\share", "\\\\server");
    ExpectRemoved("\\\\server", "\\\\");
    EXPECT_FALSE(PathRemoveFileSpec(nullptr));
}

TEST(PathRemoveFileSpec, GbkTrailBytesAreNotSeparators)
{
    // 俓 is 0x82 0x5C in GBK: its second byte is the byte of a backslash.
    const std::string trail = GBK(u8"俓");
    ASSERT_EQ(trail, "\x82\\");
    ExpectRemoved(GBK(u8"C:\\工程\\俓"), GBK(u8"C:\\工程"));
    ExpectRemoved(GBK(u8"C:\\俓\\x.prj"), GBK(u8"C:\\俓"));
    ExpectRemoved(GBK(u8"C:\\俓"), "C:\\");
    ExpectRemoved(GBK(u8"俓俓"), "");
    ExpectRemoved(GBK(u8"\\\\服务器\\俓"), GBK(u8"\\\\服务器"));
    // A lead byte cut off at the end is a character of its own.
    ExpectRemoved("C:\\a\\\x82", "C:\\a");
}
