// The debugger service's symbol table from a program's debug information:
// every variable at file level that has an address, typed with the watch's
// type codes and placed in its memory space codes.
#pragma once

#include "demo/debugger/symbol_table.h"
#include "demo/toolchain/debug_info.h"

// Globals come first, then file-level statics; a name already taken keeps
// its first symbol. Functions, locals and the compiler's string literals are
// left out, as are types the watch cannot show (long long, function values).
SymbolTable SymbolsFromDebugInfo(const DebugInfo& info);
