// The docking library's popup menu: created at a screen point for a parent
// window from a menu handle, it keeps its own copy of the items, runs the menu
// loop (WM_ENTERMENULOOP to the parent, update handlers through CCmdUI, a
// choice from the menu driver, WM_EXITMENULOOP) and sends the chosen command.
// With bOwnMessage the commands and update handlers go to the parent itself,
// otherwise to the main frame. It shows as a window while the loop runs and
// deletes itself when it closes: create it with new and keep no pointer.
#pragma once

#include <vector>

#include "platform/core/wnd.h"
#include "platform/menu/menu.h"
#include "platform/menu/menu_driver.h"

class AFX_EXT_CLASS CBCGPPopupMenu : public CWnd {
public:
    CBCGPPopupMenu();
    ~CBCGPPopupMenu() override;

    virtual BOOL Create(CWnd* pWndParent, int x, int y, HMENU hMenu, BOOL bLocked = FALSE, BOOL bOwnMessage = FALSE);

    // How many popup menu objects exist; lets tests prove they free themselves.
    static int LiveCount();

    const ShownMenu& Shown() const { return m_shown; }

protected:
    DECLARE_MESSAGE_MAP()
    void OnPaint();
    void PostNcDestroy() override;

private:
    ShownMenuItem Describe(const MenuItemData& item, CCmdTarget* target) const;
    CSize MeasureItems() const;

    std::vector<MenuItemData> m_items;
    ShownMenu m_shown;
};
