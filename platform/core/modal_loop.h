// Modal input loops. Some of the platform's own operations hold the mouse
// until they end (dragging a scroll bar's thumb, drag and drop): while one
// runs, every mouse and key event goes to it instead of being routed to a
// window, as the platform's nested message loops would take them.
//
// Most loops live between two input events (a scroll bar drag begins in one
// press handler and ends in a later release). Drag and drop is different: its
// caller waits for the answer, so the loop runs nested inside that call and
// pulls events itself from the event source (Run).
#pragma once

#include <memory>

#include "platform/core/win_types.h"

class ModalLoop {
public:
    virtual ~ModalLoop() = default;
    // One event: msg.pt is the screen point, msg.message the client mouse
    // message or the key message, msg.hwnd the window under the point (may
    // be null).
    virtual void OnInput(const MSG& msg) = 0;
};

namespace ModalInput {

// Delivers the next pending input event; false when none is pending.
using EventSource = bool (*)();

// Starts a loop; a loop already running is ended first.
AFX_API void Begin(std::unique_ptr<ModalLoop> loop);
// Ends the loop; safe from inside its own OnInput.
AFX_API void End(const ModalLoop* loop);
AFX_API bool Active();
// Hands an event to the running loop; false when none runs.
AFX_API bool Dispatch(const MSG& msg);

// Where nested loops take their events from: the input layer's queue of
// pending events, or a real window's event queue.
AFX_API void SetEventSource(EventSource source);
// Pulls events from the source until the loop ends. When the source runs dry
// first the loop is ended, so that a nested loop never waits for ever;
// returns false then.
AFX_API bool Run(const ModalLoop* loop);

}  // namespace ModalInput
