// The context-menu routine every view shares: load the view's menu from the
// module chain, take its first popup, and hand it to a popup menu that routes
// commands and update handlers to the view itself.
#pragma once

#include "platform/core/wnd.h"

// Does nothing when the menu cannot be loaded or has no popup.
void ShowViewMenu(CWnd* view, UINT menuId, CPoint screenPoint);
