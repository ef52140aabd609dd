// What a WM_VSCROLL or WM_HSCROLL request asks of a view that scrolls in its
// own units (lines or pixels): the position to scroll to, before the view
// clamps it to its content.
#pragma once

#include "platform/core/wnd.h"

// step: one arrow click; page: one click on the track. SB_BOTTOM asks for
// INT_MAX, which the view clamps; a code that moves nothing gives `current`.
int RequestedScroll(HWND hwnd, UINT message, WPARAM wParam, int current, int step, int page);
