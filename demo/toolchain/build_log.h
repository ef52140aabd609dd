// A build's output as the build messages view shows it: a header, a
// "compiling" line per source (level 1), each compiler diagnostic located
// at its project file and line (level 2, with the lines that continue it),
// the link with the linker's lines, and a summary of errors and warnings.
// A diagnostic shows as "lights.c(65): warning 158: ..." (the project's
// file name and line, then the compiler's own words).
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "demo/toolchain/sample_build.h"
#include "output/message_line_record.h"

// The project path (GBK) of a file the compiler names, as the project shows it.
using ProjectPathOf = std::function<std::string(const std::filesystem::path& compilerPath)>;

// A ProjectPathOf that puts the file's name under a project folder ("C:\\8051\\traffic\\").
ProjectPathOf UnderProjectFolder(std::string folder);

std::vector<MessageLineRecord> BuildLogRecords(const BuildResult& build, const ProjectPathOf& projectPath);
