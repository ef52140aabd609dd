// Differences between two symbol tables, described for a failure message:
// each symbol of `expected` against the symbol of that name in `actual`,
// its space, address and type compared all the way down.
#pragma once

#include <string>
#include <vector>

#include "demo/debugger/symbol_table.h"

std::vector<std::string> CompareSymbols(const SymbolTable& expected, const SymbolTable& actual);
