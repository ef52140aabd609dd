// The function list's records for one file, made from scanned functions.
#pragma once

#include <vector>

#include "demo/project/function_scanner.h"
#include "funclist/func_seek_items.h"

// Replaces the entries of `items` with one per function, ordered as the
// view's letter search needs them: by the first byte of the name, ASCII
// letters folded, and in file order among equal first bytes.
void FillFuncSeekItems(const std::vector<ScannedFunction>& functions, CFuncSeekItems& items);
