// How the service's objects read as watch records, and how a record the
// watch sends back names its object again: by its space, address, size and
// type code, and for a structure, union or array by its typeRef, which is
// the type's id in the program's type table.
#pragma once

#include <cstdint>

#include "demo/debugger/evaluated.h"
#include "watch/debug_protocol.h"

class DebugTarget;
class TypeTable;

// The type a record names: its typeRef when the table has that type with
// the record's code, else the scalar of the record's code, else kNoType.
TypeId RecordType(const WatchRecord& record, const TypeTable& types);

// Fills record as the description of what: status 1 and every field the
// watch reads, the value read from the target. The name is left alone.
void Describe(const Evaluated& what, const TypeTable& types, DebugTarget& target, WatchRecord& record);
// A record naming nothing: status 0, no space, and the message id.
void DescribeError(std::uint32_t errorId, WatchRecord& record);

// Members of a structure or union, elements of an array, else 0.
std::int32_t CountOf(const WatchRecord& record, const TypeTable& types);
// Replaces the parent's copy, whose count is a member index, by that
// member's description with its name ("[02]" for an element of an array of
// structures). False, changing nothing, for an index out of range or a
// parent without members.
bool DescribeMember(WatchRecord& record, const TypeTable& types, DebugTarget& target);
