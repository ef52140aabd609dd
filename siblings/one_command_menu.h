// A context menu of a single command, for the workspace trees, whose menus
// are not resources of the panes' module.
#pragma once

#include "platform/core/wnd.h"

// Shows the menu at a screen point; the chosen command goes to owner.
void ShowOneCommandMenu(CWnd* owner, UINT id, const char* text, CPoint point);
