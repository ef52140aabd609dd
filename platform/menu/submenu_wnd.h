// The window of a submenu opened from a popup menu's item while the user
// tracks the menu: it shows the item's children beside it and keeps their
// hot item. It goes with the object.
#pragma once

#include <vector>

#include "platform/core/wnd.h"
#include "platform/menu/menu_tracker.h"

class SubmenuWnd : public CWnd {
public:
    // The items must outlive the window.
    explicit SubmenuWnd(const std::vector<ShownMenuItem>& items);
    ~SubmenuWnd() override;

    // Shows it beside `item`, a screen rectangle of the item's row in the
    // menu `owner`.
    BOOL Open(CWnd* owner, const CRect& item);

    const std::vector<ShownMenuItem>& Items() const { return *m_items; }
    const std::vector<int>& RowTops() const { return m_rowTops; }
    MenuTracker& Tracker() { return m_tracker; }

protected:
    DECLARE_MESSAGE_MAP()
    void OnPaint();

private:
    const std::vector<ShownMenuItem>* m_items;
    std::vector<int> m_rowTops;
    MenuTracker m_tracker;
};
