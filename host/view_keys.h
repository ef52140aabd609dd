// What every view does alike: outside a menu loop, Esc stops the running tool
// and F5 refreshes the views; and each view follows its menu loop so that the
// menu's own keys are left alone.
#pragma once

#include <cstdint>

#include "platform/core/messages.h"

// Takes Esc or F5 from a key-down outside a menu loop; true when taken.
bool TakeStopOrRefreshKey(const MSG* pMsg, std::int32_t menuLoop);
// Sets the flag on WM_ENTERMENULOOP and clears it on WM_EXITMENULOOP.
void TrackMenuLoop(UINT message, std::int32_t& menuLoop);
