// The combo box's state and behaviour behind CComboBox::DefWindowProc: the
// CB_* messages, the selection with its notifications, the drop-down list
// window, keyboard, mouse and painting.
#pragma once

#include <memory>

#include "platform/controls/combo_box.h"
#include "platform/controls/combo_box_items.h"
#include "platform/gdi/font_model.h"

class CDC;

namespace combo {

class DropDownList;

// An item's box: the text plus room above and below.
constexpr int kItemVerticalSpace = 2;
// The sunken edge round the box, and the room inside it round the item.
constexpr int kEdge = 2;
constexpr int kItemInset = 1;
// The drop button: as wide as a vertical scroll bar.
constexpr int kButtonWidth = 16;
// Between an item's box and its text.
constexpr int kTextPadding = 2;
// The drop-down list's frame.
constexpr int kListBorder = 1;

class ComboControl {
public:
    explicit ComboControl(CWnd* wnd);
    ~ComboControl();
    ComboControl(const ComboControl&) = delete;
    ComboControl& operator=(const ComboControl&) = delete;

    // Handles a message; false leaves it to CWnd::DefWindowProc.
    bool Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    // Messages of the drop-down list window.
    bool HandleList(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

private:
    // ---- messages (combo_box_control.cpp)
    void OnCreate(const CREATESTRUCT* create);
    void FitHeight();
    int OnAddString(const char* text, bool sorted, int index);
    int OnDeleteString(int index);
    void OnResetContent();
    int OnSetCurSel(int index);
    LRESULT OnGetLBText(int index, char* buffer) const;
    LRESULT OnGetText(WPARAM size, char* buffer) const;
    LRESULT OnSetText(const char* text);
    void OnSetFont(HGDIOBJ font, bool redraw);
    void OnFocus(bool gained);
    void FillInfo(COMBOBOXINFO* info) const;

    // ---- selection: false when the window went away meanwhile
    // Selects as the user does: nothing happens for the same item; a new one
    // is told to the parent with CBN_SELCHANGE.
    bool SelectByUser(int index);

    // ---- the drop-down list (combo_box_dropdown.cpp)
    bool Open();
    // Closes the list; `accept` tells the parent CBN_SELENDOK, else
    // CBN_SELENDCANCEL, and choose (>= 0) is the item picked with it.
    bool Close(bool accept, int choose = -1);
    int VisibleItems() const;
    CRect ListScreenRect() const;
    int ListTopClamped(int top) const;
    void EnsureListShows(int index);
    int ListItemAt(POINT pt) const;
    void OnListMouse(UINT message, POINT pt);
    void PaintList(CDC& dc);

    // ---- keyboard and mouse on the box (combo_box_input.cpp)
    void OnKeyDown(UINT key);
    void OnChar(UINT ch);
    void OnLButtonDown();
    void OnMouseWheel(int delta);

    // ---- geometry and painting (combo_box_paint.cpp)
    HGDIOBJ FontHandle() const;
    gdi::FontMetrics Font() const;
    int ItemHeight() const { return Font().height + kItemVerticalSpace; }
    int BoxHeight() const { return ItemHeight() + 2 * (kEdge + kItemInset); }
    CRect ButtonRect() const;
    CRect ItemRect() const;
    void Paint(CDC& dc);
    void PaintButton(CDC& dc, const CRect& rect) const;

    HWND Hwnd() const { return m_wnd->GetSafeHwnd(); }

    CWnd* m_wnd;
    ItemList m_items;
    int m_selected = -1;
    HGDIOBJ m_font = nullptr;
    int m_dropHeight = 0;  // how far down the box reaches with its list shown
    int m_boxHeight = 0;   // the height last given to the window
    bool m_fitting = false;
    int m_wheelRemainder = 0;

    std::unique_ptr<DropDownList> m_list;
    bool m_dropped = false;
    int m_listTop = 0;
    int m_hot = -1;              // the item lit in the list
    bool m_listPressed = false;  // the button went down or moved inside the list
};

}  // namespace combo
