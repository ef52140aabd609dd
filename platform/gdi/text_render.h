// Drawing a run of GBK text into a target: one cell per character, advanced
// by the font model, ink from the glyph cache (or a hollow box when no font
// file is available).
#pragma once

#include <string_view>

#include "platform/gdi/font_model.h"
#include "platform/gdi/raster.h"

namespace gdi {

struct TextRun {
    int x = 0;  // surface pixels: top-left of the first cell
    int y = 0;
    std::string_view text;
    std::uint32_t ink = 0;
    CRect clip;                    // surface pixels; the target's clip applies too
    const int* widths = nullptr;   // optional advance of each byte
};

// Returns the x just past the last cell.
int DrawTextRun(const Target& target, const FontMetrics& metrics, const TextRun& run);

}  // namespace gdi
