#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <unistd.h>

#include "platform/gdi/png_io.h"
#include "platform/gdi/surface.h"

namespace {

std::string TempPath(const char* name)
{
    return "/tmp/dockpanes_gdi_" + std::to_string(getpid()) + "_" + name;
}

Surface Pattern(int w, int h)
{
    Surface s(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) s.SetPixel(x, y, static_cast<std::uint32_t>((x * 37 + y * 101) * 2654435761u));
    return s;
}

}  // namespace

TEST(Png, RoundTripKeepsEveryPixel)
{
    const Surface original = Pattern(23, 17);
    const std::string path = TempPath("round.png");
    ASSERT_TRUE(WritePng(original, path.c_str()));
    Surface back;
    ASSERT_TRUE(ReadPng(path.c_str(), back));
    EXPECT_EQ(back.Width(), 23);
    EXPECT_EQ(back.Pixels(), original.Pixels());
    std::remove(path.c_str());
}

TEST(Png, AreaIsCutToTheSurface)
{
    const Surface original = Pattern(10, 10);
    const std::string path = TempPath("area.png");
    ASSERT_TRUE(WritePng(original, CRect(6, -5, 20, 3), path.c_str()));
    Surface back;
    ASSERT_TRUE(ReadPng(path.c_str(), back));
    EXPECT_EQ(back.Pixels(), original.Copy(CRect(6, 0, 10, 3)).Pixels());
    EXPECT_FALSE(WritePng(original, CRect(20, 20, 30, 30), path.c_str()));
    EXPECT_FALSE(WritePng(Surface(), path.c_str()));
    std::remove(path.c_str());
}

TEST(Png, FailuresLeaveTheSurfaceAlone)
{
    const Surface original = Pattern(4, 4);
    EXPECT_FALSE(WritePng(original, "/nonexistent-dir/x.png"));
    Surface kept(2, 2, 0x123456);
    EXPECT_FALSE(ReadPng("/nonexistent-dir/x.png", kept));
    const std::string path = TempPath("not.png");
    std::ofstream(path) << "this is not a picture";
    EXPECT_FALSE(ReadPng(path.c_str(), kept));
    EXPECT_EQ(kept.Pixels(), std::vector<std::uint32_t>(4, 0x123456));
    std::remove(path.c_str());
}

TEST(Png, NullAndEmptyPathsFailWithoutTouchingAnything)
{
    const Surface original = Pattern(4, 4);
    EXPECT_FALSE(WritePng(original, nullptr));
    EXPECT_FALSE(WritePng(original, CRect(0, 0, 2, 2), nullptr));
    EXPECT_FALSE(WritePng(original, ""));
    Surface kept(2, 2, 0x123456);
    EXPECT_FALSE(ReadPng(nullptr, kept));
    EXPECT_FALSE(ReadPng("", kept));
    EXPECT_EQ(kept.Width(), 2);
    EXPECT_EQ(kept.Pixels(), std::vector<std::uint32_t>(4, 0x123456));
}
