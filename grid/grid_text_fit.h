// Fitting a cell's text to its width: the longest prefix that fits, followed
// by one period.
#pragma once

#include <string_view>

#include "platform/gdi/dc.h"

// Room kept right of a text that is shown whole; texts also start this far in.
constexpr int kGridTextPad = 5;

// Extents are measured in dc with its current font.
AFX_EXT_CLASS CString FitCellText(CDC& dc, std::string_view text, int width);
