// DRQ_GET_ELEMENTS: an array's elements as one block of bytes.
#pragma once

#include <cstddef>

#include "watch/debug_protocol.h"

class DebugTarget;
class TypeTable;

// Fills the template as element 0 and hands back two std::malloc'ed arrays
// of count x element-size bytes, count taken from the array's record (cut to
// what a 64 KiB space holds): each element's bytes most significant first,
// and 1 in valid where a byte was read. Elements past the declared array are
// no elements: their bytes are 0 and not valid. Does nothing for a block
// without both records, or a record that names no array. Returns the
// number of elements handed back.
std::size_t FillElements(ElementBlock& block, const TypeTable& types, DebugTarget& target);
