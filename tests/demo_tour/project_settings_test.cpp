// What the host keeps with a project: written and read back, and what a
// damaged file still gives.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "demo/project/project_settings.h"

namespace {

class ProjectSettingsFile : public ::testing::Test {
protected:
    void TearDown() override { std::filesystem::remove(m_file); }
    void Write(const std::string& text) { std::ofstream(m_file, std::ios::binary) << text; }

    std::filesystem::path m_file =
        std::filesystem::temp_directory_path() / ("dockpanes_settings_" + std::to_string(getpid()) + ".prj");
};

TEST_F(ProjectSettingsFile, KeepsTheWatchListInOrderAndTheRegionSizes)
{
    ProjectSettings settings;
    settings.watch = {"phase", "cfg.red_time > 5 && phase == 0", "\xce\xc2\xb6\xc8 + 1"};  // GBK text survives
    settings.regions = {{"left", 180}, {"bottom", 333}};
    ASSERT_TRUE(settings.Save(m_file));
    const auto read = ProjectSettings::Load(m_file);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->watch, settings.watch);
    EXPECT_EQ(read->regions, settings.regions);
}

TEST_F(ProjectSettingsFile, ADamagedFileGivesWhatItStillHolds)
{
    Write("watch ticks\r\n"
          "watch \n"              // no expression
          "region left -5\n"      // no size
          "region right 12x\n"    // not a number
          "region top 100\n"      // no such region
          "region bottom 99999999999\n"
          "region bottom 240\n"
          "garbage line\n"
          "watch total");
    const auto read = ProjectSettings::Load(m_file);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->watch, (std::vector<std::string>{"ticks", "total"}));
    EXPECT_EQ(read->regions, (std::map<std::string, int>{{"bottom", 240}}));
}

TEST_F(ProjectSettingsFile, LinesEndInLineFeedsCarriageReturnsOrBoth)
{
    Write("watch a\rwatch b\r\r\nregion left 5\rwatch c\n\rwatch d");
    const auto read = ProjectSettings::Load(m_file);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->watch, (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(read->regions, (std::map<std::string, int>{{"left", 5}}));
}

TEST_F(ProjectSettingsFile, AnExpressionWithALineBreakIsNotWrittenAndNoFileIsNothing)
{
    ProjectSettings settings;
    settings.watch = {"a\nwatch b", "c"};
    ASSERT_TRUE(settings.Save(m_file));
    EXPECT_EQ(ProjectSettings::Load(m_file)->watch, std::vector<std::string>{"c"});
    EXPECT_FALSE(ProjectSettings::Load(m_file.string() + ".missing"));
}

}  // namespace
