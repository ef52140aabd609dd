// A record's value against its object in target memory.
#pragma once

#include "watch/debug_protocol.h"

class DebugTarget;

// Reads value and unavailable anew. A computed value keeps its own; a
// structure, union or array has none (0).
void RefreshValue(WatchRecord& record, DebugTarget& target);
// Stores the record's value into its object, cut to the object's size (a bit
// takes any non-zero value as 1). False, storing nothing, for a computed
// value, an aggregate, or an object in code memory.
bool StoreValue(const WatchRecord& record, DebugTarget& target);
