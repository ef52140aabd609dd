// The docking library's popup menu: created at a screen point for a parent
// window from a menu handle, it keeps its own copy of the items, runs the menu
// loop (WM_ENTERMENULOOP to the parent, update handlers through CCmdUI, a
// choice from the menu driver or, when the driver is interactive, from the
// user's mouse and keys, WM_EXITMENULOOP) and sends the chosen command.
// With bOwnMessage the commands and update handlers go to the parent itself,
// otherwise to the main frame. It shows as a window while the loop runs and
// deletes itself when it closes: create it with new and keep no pointer.
#pragma once

#include <vector>

#include "platform/core/wnd.h"
#include "platform/menu/menu.h"
#include "platform/menu/menu_driver.h"
#include "platform/menu/menu_tracker.h"

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
    class TrackLoop;

    // The user's choice from the open window, through a nested input loop.
    UINT Track();
    ShownMenuItem Describe(const MenuItemData& item, CCmdTarget* target) const;

    std::vector<MenuItemData> m_items;
    ShownMenu m_shown;
    std::vector<int> m_rowTops;  // MenuLayout::RowTops of the shown items
    MenuTracker m_tracker{m_shown.items};
    bool m_tracking = false;  // Create is on the stack: the window's end must not delete this
    UINT m_chosen = 0;        // what the user chose while tracking; 0 when dismissed
};
