#include "host/show_menu.h"

#include "platform/menu/popup_menu.h"

void ShowViewMenu(CWnd* view, UINT menuId, CPoint screenPoint)
{
    CMenu menu;
    if (!menu.LoadMenu(menuId)) return;
    CMenu* popup = menu.GetSubMenu(0);
    if (!popup) return;
    // The popup menu owns itself from Create on and keeps its own copy of the
    // items, so the loaded menu is destroyed when this routine returns.
    auto* popupMenu = new CBCGPPopupMenu;
    popupMenu->Create(view, screenPoint.x, screenPoint.y, popup->GetSafeHmenu(), FALSE, TRUE);
}
