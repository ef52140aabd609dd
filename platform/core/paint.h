// The platform's painting: invalid areas, the pass that sends WM_PAINT, and the
// surfaces top-level windows draw into. Painting is never done by
// invalidation; it happens only in a paint pass, which the input layer runs
// after each simulated event and tests may run at will.
#pragma once

#include "platform/core/win_types.h"

struct WindowData;
class Surface;

namespace Paint {

// Makes a top-level window's surface match its size.
AFX_API void ResizeSurface(WindowData* data);
// Drops any painting state of a window being destroyed (the update lock).
AFX_API void ForgetWindow(HWND hwnd);
// Paints every window that has an invalid area, parents before children.
AFX_API void UpdateAllWindows();
// The surface a window's pixels live in, and the offset of its client area in it.
AFX_API Surface* SurfaceOf(HWND hwnd, POINT* clientOrigin);
// Paints what is pending, then writes the window's pixels (its whole
// rectangle, frame included) to a PNG file. False if the window or the file
// cannot be had.
AFX_API bool CaptureWindow(HWND hwnd, const char* path);
// Paints what is pending, then writes what the screen shows in an area:
// every visible top-level window (popup menus included) in z-order.
AFX_API bool CaptureScreen(const RECT& area, const char* path);
// What the screen shows in `area` as it stands (nothing is painted first),
// written into `target` with the area's top-left corner at `at`; what falls
// outside the target is left out.
AFX_API void ComposeScreen(const CRect& area, Surface& target, POINT at);
// The screen area whose pixels may have changed since the last call, as one
// box: areas painted into top-level surfaces, and the old and new places of
// top-level windows that moved, were resized, shown, hidden, restacked or
// destroyed. Empty when nothing changed. A display that shows the screen
// recomposes just this area.
AFX_API CRect TakeDirtyScreenArea();
// Notes that pixels of a screen area were drawn (the DCs call it).
AFX_API void MarkScreenPainted(const CRect& screenArea);
// Whether painting of this window is held back (hidden, redraw off, locked).
AFX_API bool IsPaintSuppressed(HWND hwnd);

}  // namespace Paint

// Default WM_ERASEBKGND: fills the client area with the window colour.
AFX_API LRESULT EraseBackground(HWND hwnd, HDC hdc);
