#include "siblings/one_command_menu.h"

#include "platform/menu/popup_menu.h"

void ShowOneCommandMenu(CWnd* owner, UINT id, const char* text, CPoint point)
{
    CMenu menu;
    if (!menu.CreatePopupMenu() || !menu.AppendMenu(MF_STRING, id, text)) return;
    // The popup keeps its own copy of the items and owns itself from Create on.
    auto* popup = new CBCGPPopupMenu;
    popup->Create(owner, point.x, point.y, menu.GetSafeHmenu(), FALSE, TRUE);
}
