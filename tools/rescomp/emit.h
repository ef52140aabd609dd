// Output of the resource compiler: a C++ source holding the resource table and
// a make-style dependency file naming every input the table was built from.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/rescomp/rc_compiler.h"

namespace rescomp {

bool IsIdentifier(std::string_view name);

// Defines extern "C" const ResourceTable* <symbol>(), exported from the module.
std::string GenerateSource(const CompileResult& result, const std::string& symbol, const std::string& scriptName);

std::string GenerateDepfile(const std::string& output, const std::vector<std::string>& inputs);

}  // namespace rescomp
