// The glyphs of the gutter's marks, drawn from rectangles alone (the DC has
// no ellipse): a red disc for a breakpoint, a hollow one when disabled, a
// blue flag for a bookmark, a red cross for an error, an amber triangle for
// a warning.
#pragma once

#include "demo/views/line_mark.h"
#include "platform/gdi/dc.h"

// Draws one mark centred in `cell`; `back` is the colour behind it, which
// shows through a hollow mark.
void DrawLineMark(CDC& dc, const CRect& cell, LineMark::Kind kind, COLORREF back);

// The colour a mark is drawn in.
COLORREF LineMarkColour(LineMark::Kind kind);
