// Reads SDCC's debug information file (.cdb) into DebugInfo. The parser
// works on text alone; a line that does not parse is counted and left out,
// never half-trusted.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "demo/toolchain/debug_info.h"

DebugInfo ParseDebugInfo(std::string_view cdbText);
// nullopt when the file cannot be read.
std::optional<DebugInfo> LoadDebugInfo(const std::filesystem::path& cdbFile);
