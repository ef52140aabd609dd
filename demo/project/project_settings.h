// What the host keeps with a project besides its sources: the watch list and
// the frame's layout. A small text file, one setting a line:
//
//   watch <expression, GBK, to the end of the line>
//   region left|right|bottom <pixels>
//
// Lines end in LF, CR LF or a lone CR. Lines it does not know are skipped,
// so an older or damaged file still opens with what it holds.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct ProjectSettings {
    // A region wider than any screen is a damaged file, not a layout.
    static constexpr int kLargestRegion = 100000;

    std::vector<std::string> watch;
    std::map<std::string, int> regions;  // "left", "right", "bottom"

    // Nothing when the file cannot be read.
    static std::optional<ProjectSettings> Load(const std::filesystem::path& file);
    bool Save(const std::filesystem::path& file) const;

    // The file's text and back. An expression holding a line break is left
    // out, as it would end early on reading.
    static ProjectSettings Parse(std::string_view text);
    std::string Text() const;
};
