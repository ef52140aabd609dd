// Simulated user input, delivered the way a message loop delivers it:
//   1. the cursor position and key state are set for the event;
//   2. the message is offered to PreTranslateMessage from its window up to the
//      thread's main window (AfxGetThread()->PreTranslateMessage);
//   3. a key down is translated into WM_CHAR for keys that type a character;
//   4. the message is dispatched to its window;
//   5. windows with invalid areas are painted.
// Mouse events go to the capture window if there is one, else to the
// child-most visible window under the point, as a non-client message
// (WM_NCLBUTTONDOWN, ...) when the point is over its frame: a click on a
// scroll bar scrolls, a press on its thumb drags it until the release. While
// such a modal loop of the platform runs it takes every mouse and key event.
// Keys go to the focus window.
// A second left click at the same place within the double-click time becomes
// a double click; Input::Wait moves the simulated clock on.
//
// This is the only way tests and the demo script drive windows as a user
// would; together with host messages it is all a test needs.
#pragma once

#include <string_view>

#include "platform/core/wnd.h"

namespace Input {

// Modifier keys held around a key or click.
enum Modifiers : unsigned {
    kNone = 0,
    kShift = 1,
    kControl = 2,
    kAlt = 4,
};

// Milliseconds within which a second click in place is a double click.
constexpr unsigned kDoubleClickTime = 500;
// How far the simulated clock moves with each event.
constexpr unsigned kEventSpacing = 50;

// Mouse, at a point in the client coordinates of `window` (turned into a
// screen point, then routed as the platform routes it).
void Click(CWnd* window, CPoint clientPoint, unsigned modifiers = kNone);
void RightClick(CWnd* window, CPoint clientPoint, unsigned modifiers = kNone);
void DoubleClick(CWnd* window, CPoint clientPoint, unsigned modifiers = kNone);
void MouseDown(CWnd* window, CPoint clientPoint, bool right = false, unsigned modifiers = kNone);
void MouseUp(CWnd* window, CPoint clientPoint, bool right = false, unsigned modifiers = kNone);
void MouseMove(CWnd* window, CPoint clientPoint, unsigned modifiers = kNone);
void Wheel(CWnd* window, CPoint clientPoint, int delta);

// Keyboard, to the focus window. Key = down then up; modifiers are pressed
// before and released after, as real key events.
void Key(UINT virtualKey, unsigned modifiers = kNone);
void KeyDown(UINT virtualKey, unsigned modifiers = kNone);
void KeyUp(UINT virtualKey, unsigned modifiers = kNone);
// Types GBK text: ASCII letters, digits and spaces as key presses, other
// bytes (double-byte characters) as WM_CHAR alone, as an input method does.
void Type(std::string_view gbkText);

// Moves the simulated clock, so that the next click is a single click.
void Wait(unsigned milliseconds = kDoubleClickTime + 1);

// Delivers one message through pre-translation and dispatch, then paints.
// Returns true when a PreTranslateMessage took it.
bool Deliver(MSG message);

}  // namespace Input
