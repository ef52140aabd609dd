// Modal input loops. Some of the platform's own operations hold the mouse
// until they end (dragging a scroll bar's thumb, drag and drop): while one
// runs, every mouse and key event goes to it instead of being routed to a
// window, as the platform's nested message loops would take them.
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

// Starts a loop; a loop already running is ended first.
AFX_API void Begin(std::unique_ptr<ModalLoop> loop);
// Ends the loop; safe from inside its own OnInput.
AFX_API void End(const ModalLoop* loop);
AFX_API bool Active();
// Hands an event to the running loop; false when none runs.
AFX_API bool Dispatch(const MSG& msg);

}  // namespace ModalInput
