// Default processing of the non-client messages, for CWnd::DefWindowProc.
#pragma once

#include "platform/core/win_types.h"

// HT* code of a screen point over a window.
AFX_API int NonClientHitTest(HWND hwnd, POINT screen);
// Draws the window's scroll bars and the corner between them.
AFX_API void PaintWindowFrame(HWND hwnd);
// A left press on the non-client area (WM_NCLBUTTONDOWN or its double click).
AFX_API void PressNonClient(HWND hwnd, int hit, POINT screen);
