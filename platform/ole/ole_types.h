// The small types of drag and drop: clipboard formats, drop effects and the
// key state bit the mouse messages do not carry.
#pragma once

#include "platform/core/win_types.h"

using CLIPFORMAT = WORD;

using DROPEFFECT = DWORD;
constexpr DROPEFFECT DROPEFFECT_NONE = 0;
constexpr DROPEFFECT DROPEFFECT_COPY = 1;
constexpr DROPEFFECT DROPEFFECT_MOVE = 2;
constexpr DROPEFFECT DROPEFFECT_LINK = 4;
constexpr DROPEFFECT DROPEFFECT_SCROLL = 0x80000000;

// A drag's key state is MK_LBUTTON, MK_RBUTTON, MK_SHIFT, MK_CONTROL and this.
constexpr DWORD MK_ALT = 0x0020;
