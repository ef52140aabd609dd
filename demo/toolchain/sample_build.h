// Builds the sample program with SDCC as demo/sample/build.sh does, with
// debug information: each .c file to its own object, then one link. Every
// output goes into the output folder; the sources are only read.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

struct BuildOptions {
    std::string compiler = "sdcc";  // looked up on PATH
    // Compile `replacement` in place of the source file of this name (a
    // broken variant, say). It is copied into the output folder under the
    // replaced name first, so messages and line records name the project's file.
    std::string replacedFile;
    std::filesystem::path replacement;
    std::vector<std::string> extraFlags;  // added to every compile and the link
};

// One run of the compiler and what it wrote.
struct BuildStep {
    std::string source;  // the .c file compiled; empty for the link
    std::vector<std::string> command;
    bool started = false;
    int exitCode = -1;
    std::vector<std::string> lines;
};

struct BuildResult {
    bool success = false;
    std::vector<BuildStep> steps;  // the compiles in order, then the link when every compile succeeded
    std::filesystem::path ihx;     // set when the link wrote them
    std::filesystem::path cdb;

    // Every line of every step, in order.
    std::vector<std::string> Lines() const;
};

BuildResult BuildSample(const std::filesystem::path& sources, const std::filesystem::path& out, const BuildOptions& options = {});
