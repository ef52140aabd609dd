// What the user does to an open popup menu, apart from any window: the hot
// (highlighted) item, moving it, and choosing or dismissing. Separators,
// disabled items and popup items (whose submenus do not open) are never
// hot from the keyboard and never chosen.
#pragma once

#include <vector>

#include "platform/menu/menu_driver.h"

class AFX_EXT_CLASS MenuTracker {
public:
    static constexpr int kNone = -1;

    // The items must outlive the tracker.
    explicit MenuTracker(const std::vector<ShownMenuItem>& items) : m_items(&items) {}

    static bool Choosable(const ShownMenuItem& item);

    int Hot() const { return m_hot; }
    bool Done() const { return m_done; }
    // The command chosen; 0 when dismissed or still open.
    UINT Chosen() const { return m_chosen; }

    // The mouse is over an item (kNone: over nothing choosable). True when
    // the hot item changed.
    bool Hover(int index);
    // Up (-1) or Down (+1) to the next choosable item, wrapping; from no hot
    // item Down starts at the top and Up at the bottom. True when it changed.
    bool Step(int direction);
    // Chooses an item; nothing happens for one that cannot be chosen.
    void Choose(int index);
    // Enter: the hot item, or a dismissal when none is hot.
    void ChooseHot();
    // The first choosable item with this mnemonic; nothing when none has it.
    void ChooseByMnemonic(UINT key);
    void Dismiss();

private:
    bool IsChoosable(int index) const;

    const std::vector<ShownMenuItem>* m_items;
    int m_hot = kNone;
    bool m_done = false;
    UINT m_chosen = 0;
};
