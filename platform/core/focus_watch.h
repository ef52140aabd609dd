// Watchers of the keyboard focus: each hears, after WM_KILLFOCUS and
// WM_SETFOCUS have been delivered, which window lost the focus and which has
// it now. A frame that marks the part holding the focus repaints from here
// rather than hooking every window's messages.
#pragma once

#include <functional>

#include "platform/core/win_types.h"

namespace FocusWatch {

using Watcher = std::function<void(HWND lost, HWND gained)>;

// Returns a cookie for Remove.
AFX_API int Add(Watcher watcher);
AFX_API void Remove(int cookie);

}  // namespace FocusWatch
