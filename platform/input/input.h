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
// such a modal loop of the platform runs it takes every mouse and key event,
// keys even when no window has the focus. Otherwise keys go to the focus
// window.
// A second left click at the same place within the double-click time becomes
// a double click; Input::Wait moves the simulated clock on.
//
// Gestures and calls that wait for the user. Some calls return only when the
// user has finished with them: DoDragDrop, called from a mouse-move handler,
// holds the mouse until the button is released. Everything runs on one
// thread, so the events that finish such a call must be queued before the
// event that makes it. A Gesture is a list of events queued and then played
// one by one. When one of them starts a nested loop (the drag), the loop
// takes the events still queued, so the rest of the gesture reaches it while
// DoDragDrop is on the stack; what is left after it returns is played as
// usual. A nested loop that finds the queue empty ends: a drag then ends
// cancelled, it never hangs. A drag started by the plain calls below (a
// MouseMove) therefore ends at once.
//
//   Input::Gesture()
//       .Press(&list, row)                        // the list remembers the row
//       .MoveTo(&list, CPoint(row.x, row.y + 8))  // its handler starts the drag
//       .MoveTo(&editor, dropPoint, 4)            // four moves on the way
//       .KeyDown(VK_CONTROL)                      // the target is asked again
//       .Release()                                // the drop; DoDragDrop returns
//       .KeyUp(VK_CONTROL)
//       .Play();
//
// Data dragged in from another application goes through the same loop:
// DropFromOutside plays a path of moves and a release (no press: the button
// was pressed in the other application) over the windows with the data.
//
// This is the only way tests and the demo script drive windows as a user
// would; together with host messages it is all a test needs.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/core/wnd.h"
#include "platform/input/screen_input.h"
#include "platform/ole/ole_types.h"

class FormatBlocks;

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

// Events queued and played in order (see the top of this header). Points are
// turned into screen points as they are added, so a window destroyed
// mid-gesture leaves the later events where they were. Modifiers are keys
// like any other here: KeyDown(VK_CONTROL) holds Control for what follows.
class Gesture {
public:
    Gesture& Press(CWnd* window, CPoint clientPoint, bool right = false);
    // `steps` moves along the line from the gesture's last point; the first
    // move of a gesture without a press goes straight to the point. A gone
    // window adds nothing.
    Gesture& MoveTo(CWnd* window, CPoint clientPoint, int steps = 1);
    // Releases the button last pressed (the left one when none was), or the
    // one named, where the mouse then is.
    Gesture& Release();
    Gesture& Release(bool right);
    Gesture& KeyDown(UINT virtualKey);
    Gesture& KeyUp(UINT virtualKey);
    Gesture& Key(UINT virtualKey) { return KeyDown(virtualKey).KeyUp(virtualKey); }

    // Queues the events behind any already queued, then plays the queue.
    void Play() const;
    // Queues them only: for a nested loop the caller starts next.
    void Queue() const;

private:
    std::vector<Screen::Event> m_events;
    std::optional<POINT> m_last;  // screen point of the last press or move
    bool m_right = false;         // the button last pressed
};

// Plays the next queued event; false when none is queued.
bool PlayNext();
// Plays queued events until none is left.
void PlayQueued();
// A left-button drag from one client point of `window` to another, which may
// lie outside it over another window: press, `steps` moves, release, with
// the modifiers held throughout.
void Drag(CWnd* window, CPoint from, CPoint to, int steps = 4, unsigned modifiers = kNone);
// Drags data from another application along `path` (moves and a release)
// and returns the effect of the drop, DROPEFFECT_NONE when nothing took it.
// The left button is held from the start; it is up again afterwards even if
// the path ends without a release (the drag then ends cancelled).
DROPEFFECT DropFromOutside(const FormatBlocks& data, const Gesture& path, DWORD effects = DROPEFFECT_COPY);

}  // namespace Input
