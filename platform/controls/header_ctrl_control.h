// The header control's state and behaviour behind CHeaderCtrl::DefWindowProc:
// the items, the HDM_* messages, divider dragging with its notifications,
// button clicks and painting.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/header_ctrl.h"
#include "platform/gdi/font_model.h"

class CDC;

namespace header {

// Height of the header for its font: the text plus room above and below.
constexpr int kTextVerticalSpace = 8;
// Space between a button's edge and its text.
constexpr int kTextPadding = 6;
// A divider can be grabbed this far either side of a column's right edge.
constexpr int kDividerGrip = 3;

// The height a header wants for text of this font.
int HeightFor(const gdi::FontMetrics& font);
// DrawText flags for a heading of this HDF_* format; the list draws its cells
// with them too, so a column's cells line up with its heading.
UINT TextFormat(int format);

struct Item {
    std::string text;  // GBK
    int width = 0;
    int format = HDF_LEFT | HDF_STRING;
    LPARAM lParam = 0;
    int image = 0;
};

class HeaderControl {
public:
    explicit HeaderControl(CWnd* wnd);
    HeaderControl(const HeaderControl&) = delete;
    HeaderControl& operator=(const HeaderControl&) = delete;

    // Handles a message; false leaves it to CWnd::DefWindowProc.
    bool Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

private:
    // ---- items (header_ctrl_control.cpp)
    int Count() const { return static_cast<int>(m_items.size()); }
    bool Valid(int index) const { return index >= 0 && index < Count(); }
    int OnInsertItem(int index, const HDITEM* item);
    BOOL OnDeleteItem(int index);
    BOOL OnGetItem(int index, HDITEM* item) const;
    // Applies a change after asking the parent. False when refused, when
    // the index is bad, or when the window went away meanwhile.
    bool ChangeItem(int index, const HDITEM& change);
    bool SetWidth(int index, int width);
    // The x where an item starts: the widths of those before it (any index
    // past the last gives the right end of all items).
    int LeftOf(int index) const;
    CRect ItemRect(int index) const;
    int HitTest(POINT pt, UINT* flags) const;
    // Sends a notification about one item; false when the window went away.
    bool Notify(UINT code, int index, HDITEM* item, LRESULT* result = nullptr);
    void InvalidateFrom(int index);

    // ---- mouse (header_ctrl_input.cpp)
    void OnLButtonDown(POINT pt, bool doubleClick);
    void OnMouseMove(POINT pt);
    void OnLButtonUp(POINT pt);
    // Ends a divider drag (apply: the width shown so far stays) or lets a
    // pressed button spring back without a click.
    void EndTracking(bool apply);

    // ---- painting (header_ctrl_paint.cpp)
    void Paint(CDC& dc);
    void PaintButton(CDC& dc, const CRect& rect, const Item* item, bool pressed) const;

    HWND Hwnd() const { return m_wnd->GetSafeHwnd(); }

    CWnd* m_wnd;
    std::vector<Item> m_items;

    // Divider dragging: the item being resized and where its edge was grabbed.
    int m_tracking = -1;
    int m_grabOffset = 0;   // pointer x minus the edge's x at the press
    int m_pendingWidth = 0; // width shown while dragging without HDS_FULLDRAG
    // Button press: the item pressed and whether the pointer is still on it.
    int m_pressed = -1;
    bool m_pressedInside = false;
};

}  // namespace header
