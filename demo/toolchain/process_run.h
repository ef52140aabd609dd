// Runs a program with an argument vector (no shell, so no quoting to get
// wrong) and collects what it writes to stdout and stderr, interleaved as
// written, line by line.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct ProcessResult {
    bool started = false;  // false: the program could not be run at all
    int exitCode = -1;     // -1 when it did not exit normally
    std::vector<std::string> lines;
};

// argv[0] is looked up on PATH.
ProcessResult RunProcess(const std::vector<std::string>& argv);

// The program's full path when PATH holds an executable of that name.
std::optional<std::filesystem::path> FindOnPath(std::string_view program);
