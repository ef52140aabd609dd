// Notifications a control sends its parent. Both return whether the control's
// window still exists: the parent's handler may destroy it (and delete the
// object that sent), so a caller touches nothing of itself when they say no.
#pragma once

#include "platform/core/messages.h"
#include "platform/core/wnd.h"

// WM_NOTIFY with the header filled in from the control; the parent's answer
// goes to *result when given.
AFX_API bool SendNotify(CWnd* control, NMHDR& header, UINT code, LRESULT* result = nullptr);
// WM_COMMAND with the control's id and the notification code.
AFX_API bool SendCommandNotify(CWnd* control, UINT code);
