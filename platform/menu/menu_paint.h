// Measuring and drawing a popup menu's items: shared by a menu and the
// submenus it opens.
#pragma once

#include <vector>

#include "platform/gdi/dc.h"
#include "platform/menu/menu_driver.h"

// The size of a menu window for its items and their MenuLayout::RowTops.
AFX_API CSize MeasureMenu(const std::vector<ShownMenuItem>& items, const std::vector<int>& rowTops);
// Draws the whole menu into its client area; `hot` is the highlighted item
// (-1 for none).
AFX_API void PaintMenu(CDC& dc, const CRect& client, const std::vector<ShownMenuItem>& items,
                       const std::vector<int>& rowTops, int hot);
