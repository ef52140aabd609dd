// What the host keeps with a project besides its sources: the watch list and
// the frame's layout. A small text file, one setting a line:
//
//   watch <expression, GBK, to the end of the line>
//   region left|right|bottom <pixels>
//
// Lines it does not know are skipped, so an older or damaged file still
// opens with what it holds.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

struct ProjectSettings {
    std::vector<std::string> watch;
    std::map<std::string, int> regions;  // "left", "right", "bottom"

    // Nothing when the file cannot be read.
    static std::optional<ProjectSettings> Load(const std::filesystem::path& file);
    bool Save(const std::filesystem::path& file) const;
};
