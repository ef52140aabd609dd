// The hot (highlighted) item of one level of an open popup menu, apart from
// any window: where the mouse and the arrow keys put it. Separators and
// disabled items are never hot; a popup item is, and opens its submenu.
#pragma once

#include <vector>

#include "platform/menu/menu_driver.h"

class AFX_EXT_CLASS MenuTracker {
public:
    static constexpr int kNone = -1;

    // The items must outlive the tracker.
    explicit MenuTracker(const std::vector<ShownMenuItem>& items) : m_items(&items) {}

    // An item that can be hot: an enabled command or a popup.
    static bool Selectable(const ShownMenuItem& item);
    // An item whose command choosing it sends.
    static bool IsCommand(const ShownMenuItem& item);

    int Hot() const { return m_hot; }
    // The item at an index; null outside the menu.
    const ShownMenuItem* At(int index) const;

    // The mouse is over an item (kNone: over nothing selectable). True when
    // the hot item changed.
    bool Hover(int index);
    // Up (-1) or Down (+1) to the next selectable item, wrapping; from no hot
    // item Down starts at the top and Up at the bottom. True when it changed.
    bool Step(int direction);
    // The first selectable item with this mnemonic; kNone when none has it.
    int FindMnemonic(UINT key) const;

private:
    bool IsSelectable(int index) const;

    const std::vector<ShownMenuItem>* m_items;
    int m_hot = kNone;
};
