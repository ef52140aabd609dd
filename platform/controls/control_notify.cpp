#include "platform/controls/control_notify.h"

bool SendNotify(CWnd* control, NMHDR& header, UINT code, LRESULT* result)
{
    const HWND self = control->GetSafeHwnd();
    header.hwndFrom = self;
    header.idFrom = static_cast<UINT_PTR>(control->GetDlgCtrlID());
    header.code = code;
    const HWND parent = ::GetParent(self);
    const LRESULT answer = parent ? ::SendMessage(parent, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header)) : 0;
    if (result) *result = answer;
    return IsWindow(self) != FALSE;
}

bool SendCommandNotify(CWnd* control, UINT code)
{
    const HWND self = control->GetSafeHwnd();
    const HWND parent = ::GetParent(self);
    if (parent) ::SendMessage(parent, WM_COMMAND, MAKEWPARAM(control->GetDlgCtrlID(), static_cast<int>(code)), reinterpret_cast<LPARAM>(self));
    return IsWindow(self) != FALSE;
}
