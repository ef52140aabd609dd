// Events from a real keyboard and mouse (a desktop window), delivered along
// the same path as simulated ones (input.h): key state, pre-translation,
// dispatch, paint. Mouse buttons, moves and the wheel go through
// Input::Screen; this adds what differs for real events: their times, and
// keys whose typed text arrives on its own.
#pragma once

#include "platform/core/win_types.h"

namespace Input::Real {

// The input clock reads real event times from here on (milliseconds, a
// display's event timestamps), so that double clicks follow real time.
void SetTime(DWORD milliseconds);
// Back to the simulated clock, which moves on by itself with each event.
void UseSimulatedClock();
// A key going down (repeats too) or up, to the focus window. Of what it
// types only control characters follow as WM_CHAR (Ctrl+letter, Enter,
// Backspace, Escape, Tab): a display sends printable text apart, through an
// input method, and Char delivers it.
void Key(UINT virtualKey, bool down);
// One byte of typed GBK text, as WM_CHAR to the focus window.
void Char(unsigned char byte);

}  // namespace Input::Real
