// A real desktop window showing a top-level window of the platform, driven
// by the user's mouse and keyboard. Built into the platform only when SDL2 is
// found (DOCKPANES_HAVE_DESKTOP is then defined for users of the platform);
// nothing else of the platform knows the desktop exists.
//
// While Run runs:
//  - the screen (the frame at its origin, popups over it) shows in the
//    window; after each event what was painted is copied to it;
//  - mouse, wheel and keys go through the platform's input layer as the
//    simulated ones do, typed text (input methods included) as GBK WM_CHAR;
//  - nested loops (drag and drop, menus) take the window's events;
//  - CF_TEXT on the platform's clipboard is the desktop clipboard's text;
//  - text dropped from another application is dropped where the mouse is.
#pragma once

#include <functional>

#include "platform/core/wnd.h"

namespace Desktop {

// Whether a display can be had to open a window on.
AFX_API bool Available();

// Shows `frame` (a top-level window, moved to the screen's origin) in a real
// window of its size titled `utf8Title`, and runs until the user closes the
// window or the frame is destroyed. `shown` is called once the window shows
// and again each time a resize has laid the frame out anew. Returns 0 on a
// clean close, 1 when no window could be had.
AFX_API int Run(CWnd& frame, const char* utf8Title, const std::function<void()>& shown = {});

}  // namespace Desktop
