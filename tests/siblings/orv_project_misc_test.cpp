// The sibling routines the views rely on: relative paths, the stop and refresh keys and the
// value display setting.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/text/gbk.h"
#include "siblings/orv_project_misc.h"

namespace {

std::string Relative(const std::string& path, const std::string& base)
{
    char out[kPathBytes];
    std::memset(out, 0x7F, sizeof out);
    PathRelativePathToEx(out, path.c_str(), base.c_str());
    EXPECT_NE(std::memchr(out, '\0', sizeof out), nullptr) << "result must be terminated inside the buffer";
    return out;
}

TEST(PathRelativePathToEx, BelowBesideAndElsewhere)
{
    EXPECT_EQ(Relative("C:\\work\\demo\\a.c", "C:\\work\\demo"), "a.c");
    EXPECT_EQ(Relative("C:\\work\\demo\\src\\b.c", "C:\\work\\demo"), "src\\b.c");
    EXPECT_EQ(Relative("c:\\WORK\\Demo\\a.c", "C:\\work\\demo"), "a.c");  // letters compare without case
    EXPECT_EQ(Relative("C:\\work\\lib\\x.c", "C:\\work\\demo"), "..\\lib\\x.c");
    EXPECT_EQ(Relative("C:\\a.c", "C:\\work\\demo"), "..\\..\\a.c");
    EXPECT_EQ(Relative("D:\\other\\x.c", "C:\\work\\demo"), "D:\\other\\x.c");
    EXPECT_EQ(Relative("C:\\work\\demo\\a.c", ""), "C:\\work\\demo\\a.c");
    EXPECT_EQ(Relative("/home/u/p/src/m.c", "/home/u/p"), "src/m.c");
}

TEST(PathRelativePathToEx, GbkTrailBytesAreNotSeparators)
{
    // 俓 is 0x82 0x5C in GBK: its second byte is the byte of a backslash.
    const std::string dir = GBK(u8"C:\\工程\\俓");
    ASSERT_EQ(dir.back(), '\\');
    EXPECT_EQ(Relative(dir + "\\a.c", dir), "a.c");
    EXPECT_EQ(Relative(GBK(u8"C:\\工程\\源\\主.c"), GBK(u8"C:\\工程")), GBK(u8"源\\主.c"));
}

TEST(PathRelativePathToEx, LongAndBadInputStaysInsideTheBuffer)
{
    const std::string longPath = "C:\\" + std::string(600, 'x') + "\\a.c";
    const std::string result = Relative(longPath, "D:\\");
    EXPECT_EQ(result.size(), static_cast<size_t>(kPathBytes - 1));
    // A double-byte character straddling the end is not cut in half.
    std::string chinese = "C:\\";
    for (int i = 0; i < 200; ++i) chinese += GBK(u8"中");
    const std::string cut = Relative(chinese, "D:\\");
    EXPECT_EQ((cut.size() - 3) % 2, 0u);
    EXPECT_LE(cut.size(), static_cast<size_t>(kPathBytes - 1));
    char out[kPathBytes];
    EXPECT_FALSE(PathRelativePathToEx(out, nullptr, nullptr));
    EXPECT_STREQ(out, "");
}

TEST(SiblingKeys, StopAndRefreshReachTheListener)
{
    std::string log;
    OrvProjectMisc::SetListener([&](std::string_view routine, int argument) {
        log += std::string(routine) + "(" + std::to_string(argument) + ");";
    });
    CleanTerminate(1);
    KeyF5RefreshWnd();
    OrvProjectMisc::SetListener({});
    CleanTerminate(2);
    EXPECT_EQ(log, "CleanTerminate(1);KeyF5RefreshWnd(0);");
}

TEST(ValueDisplayMode, IsZeroUntilTheHostSetsIt)
{
    EXPECT_EQ(CustomGetValueDisplayMode(), 0);
    OrvProjectMisc::SetValueDisplayMode(2);
    EXPECT_EQ(CustomGetValueDisplayMode(), 2);
    OrvProjectMisc::SetValueDisplayMode(-7);
    EXPECT_EQ(CustomGetValueDisplayMode(), -7);
    OrvProjectMisc::SetValueDisplayMode(0);
}

}  // namespace
