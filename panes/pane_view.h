// What every pane does with its one view: place it inside a one-pixel frame
// and draw that frame. The panes differ only in which size they lay out by.
#pragma once

#include "platform/core/wnd.h"

namespace PaneView {

// Places the view inside the pane's client rectangle, one pixel in on every side.
void FitToClient(const CWnd& pane, CWnd& view);
// Places the view inside a cx x cy area at the pane's origin, one pixel in.
void FitToSize(CWnd& view, int cx, int cy);
// Paints the pane: a one-pixel button-shadow frame just around the view's
// window, nothing else. A view without a window gets no frame.
void PaintFrame(CWnd& pane, const CWnd& view);

}  // namespace PaneView
