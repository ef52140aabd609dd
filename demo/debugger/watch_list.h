// The service's own list of watched objects, as DRQ_GET_LIST hands it over.
#pragma once

#include <string>
#include <vector>

#include "watch/debug_protocol.h"

class DebugTarget;
class SymbolTable;

// One entry a named global, in the order given; names no symbol has are left out.
std::vector<WatchListEntry> MakeWatchList(const SymbolTable& symbols, const std::vector<std::string>& names,
                                          DebugTarget& target);
