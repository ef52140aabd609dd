// Panes created in a test host the way a host creates them, with helpers that
// read where a pane put its view and what menu it showed.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "platform/menu/menu.h"
#include "platform/menu/menu_driver.h"
#include "tests/support/test_host.h"

class PaneFixture : public ::testing::Test {
protected:
    static constexpr UINT kPaneId = 0xE800;

    void SetUp() override { MenuDriver::Reset(); }
    void TearDown() override { MenuDriver::Reset(); }

    template <class Pane>
    BOOL CreatePane(Pane& pane, const CRect& rect = CRect(0, 0, 200, 100))
    {
        return pane.Create("pane", &host, rect, kPaneId);
    }

    template <class View, class Pane>
    static View* ViewOf(const Pane& pane)
    {
        return dynamic_cast<View*>(CWnd::FromHandle(pane.GetViewHwnd()));
    }

    // The view's window rectangle in the pane's client coordinates.
    template <class Pane>
    static CRect ViewRect(const Pane& pane)
    {
        CRect rect;
        ::GetWindowRect(pane.GetViewHwnd(), &rect);
        pane.ScreenToClient(&rect);
        return rect;
    }

    // Command ids of the first popup of a menu resource, separators left out.
    static std::vector<UINT> ResourceMenuIds(UINT menuId)
    {
        std::vector<UINT> ids;
        CMenu menu;
        if (!menu.LoadMenu(menuId)) return ids;
        const CMenu* popup = menu.GetSubMenu(0);
        for (int i = 0; popup && i < popup->GetMenuItemCount(); ++i) {
            const UINT id = popup->GetMenuItemID(i);
            if (id != 0 && id != static_cast<UINT>(-1)) ids.push_back(id);
        }
        return ids;
    }

    // Command ids of the last menu shown, separators and popups left out.
    static std::vector<UINT> ShownMenuIds()
    {
        std::vector<UINT> ids;
        const ShownMenu* shown = MenuDriver::LastShown();
        if (!shown) return ids;
        for (const ShownMenuItem& item : shown->items)
            if (!item.separator && !item.IsPopup()) ids.push_back(item.id);
        return ids;
    }

    // Asks a pane for its menu as the platform passes a request up from the view.
    template <class Pane>
    static void RequestMenu(Pane& pane, CPoint screenPoint)
    {
        pane.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(pane.GetViewHwnd()),
                         MAKELPARAM(screenPoint.x, screenPoint.y));
    }

    TestHost host;
};
