// Mouse events at screen points, gesture events and modifier keys, routed as the client-point calls of
// input.h route theirs: what queued gestures deliver, their windows being
// turned into screen points when queued.
#pragma once

#include "platform/core/win_types.h"

namespace Input::Screen {

// One event of a gesture, at a screen point.
struct Event {
    enum class Kind { kPress, kRelease, kMove, kKeyDown, kKeyUp };
    Kind kind = Kind::kMove;
    POINT screen{};
    UINT key = 0;       // keys
    bool right = false;  // buttons

    // Delivers it, as the calls of input.h deliver theirs.
    void Play() const;
};

void Button(POINT screen, bool right, bool down, unsigned modifiers);
void Move(POINT screen, unsigned modifiers);
// The wheel turned by `delta` (WHEEL_DELTA a notch) with the mouse at the
// point: to the focus window, else the window under the point.
void Wheel(POINT screen, int delta);
// Presses or releases the modifier keys, as real key events.
void PressModifiers(unsigned modifiers, bool down);

}  // namespace Input::Screen
