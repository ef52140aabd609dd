// The tree control's state and behaviour behind CTreeCtrl::DefWindowProc:
// the TVM_* messages, selection and expansion with their notifications,
// scrolling, painting, mouse and keyboard.
#pragma once

#include <string>

#include "platform/controls/tree_ctrl.h"
#include "platform/controls/tree_layout.h"
#include "platform/controls/tree_model.h"
#include "platform/gdi/font.h"

class CDC;

namespace tree {

// State image index bits of TVITEM::state.
constexpr UINT kStateImageMask = 0xF000;

class TreeControl {
public:
    explicit TreeControl(CWnd* wnd);
    TreeControl(const TreeControl&) = delete;
    TreeControl& operator=(const TreeControl&) = delete;

    // Handles a message; false leaves it to CWnd::DefWindowProc.
    bool Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // Draws the rows that meet clip (client coordinates) into dc.
    void Paint(CDC& dc, const CRect& clip);

    // CTreeCtrl::PeekItem.
    bool Peek(HTREEITEM handle, TreeItemPeek& peek) const;

private:
    // ---- messages (tree_control.cpp)
    HTREEITEM OnInsertItem(const TVINSERTSTRUCT* insert);
    BOOL OnDeleteItem(HTREEITEM handle);
    void DeleteAll(bool notify);
    HTREEITEM OnGetNextItem(UINT code, HTREEITEM handle);
    BOOL OnGetItem(TVITEM* item);
    BOOL OnSetItem(const TVITEM* item);
    BOOL OnGetItemRect(BOOL textOnly, RECT* rect);
    HTREEITEM OnHitTest(TVHITTESTINFO* info);
    BOOL OnSelectItem(UINT code, HTREEITEM handle);
    HIMAGELIST OnSetImageList(int kind, HIMAGELIST list);
    void OnSetFont();
    void OnFocusChange(bool gained);

    // ---- selection, expansion, scrolling
    // Makes target (kNone: nothing) the caret. False when the parent vetoes
    // or the window goes away meanwhile.
    bool SelectCaret(Slot target, UINT action, bool ensureVisible);
    // TVE_* on one item. byUser scrolls newly shown children into view.
    bool Expand(Slot slot, UINT code, bool byUser);
    void ExpandSubtree(Slot slot);
    // After a user expanded it: scrolls so the children show, the item stays.
    void ShowChildren(Slot slot);
    bool EnsureVisible(Slot slot);
    // Index of the first row shown, kept on the same item while rows change
    // and clamped so the last page stays full.
    int TopIndex(const Metrics& m);
    int TopIndex() { return TopIndex(ComputeMetrics()); }
    void ScrollTo(int top);
    void ScrollBy(int rows) { ScrollTo(TopIndex() + rows); }
    void OnVScroll(UINT code, int position);
    void ScrollXTo(int x);
    void OnHScroll(UINT code, int position);
    // The widest row's right edge, unscrolled; measured again only after
    // the rows, a text, the font or the images changed.
    int ContentWidth(const Metrics& m);
    // Shows the bars while the rows overflow, and keeps them in step.
    void FitScrollBars();
    void OnMouseWheel(int delta);

    // ---- notifications: false when the window went away in the handler
    bool Notify(NMHDR& header, UINT code, LRESULT* result = nullptr);
    bool NotifySimple(UINT code, LRESULT* result = nullptr);
    void Describe(Slot slot, TVITEM& item) const;

    // ---- geometry (tree_layout.cpp holds the arithmetic)
    Metrics ComputeMetrics() const;
    HGDIOBJ FontHandle() const;
    int TextWidth(const Metrics& m, const Item& item) const;
    RowLayout Layout(const Metrics& m, Slot slot, int row, int top) const;
    // TVHT_* flags and item for a client point.
    HTREEITEM HitTest(POINT pt, UINT* flags);
    // The item's row if shown (and with toBottom all below it); everything
    // when rows are being rebuilt.
    void InvalidateRows(Slot slot, bool toBottom);
    void InvalidateItem(Slot slot) { InvalidateRows(slot, false); }
    void InvalidateFrom(Slot slot) { InvalidateRows(slot, true); }
    // Before the item's children are shown or hidden.
    void InvalidateRowsChange(Slot slot, bool shrinking);
    void InvalidateAll();

    // ---- painting (tree_paint.cpp)
    // What one paint resolves once for all its rows.
    struct PaintState {
        int top = 0;  // the first row shown
        bool focused = false;
        Slot caret = kNone;
        Slot drop = kNone;
        Slot hot = kNone;        // kNone without TVS_TRACKSELECT
        HGDIOBJ font = nullptr;  // selected for the whole paint; the hot row swaps it
    };
    void PaintRow(CDC& dc, const Metrics& m, const PaintState& p, Slot slot, int row);
    // Draws with the pen selected. yOffset turns client y into content y, so
    // dots stay put while scrolling.
    void PaintLines(CDC& dc, const Metrics& m, const RowLayout& r, Slot slot, int yOffset) const;
    void PaintButton(CDC& dc, const Metrics& m, const RowLayout& r, bool expanded) const;
    CFont* HotFont();

    // ---- input (tree_input.cpp)
    void OnLButtonDown(POINT pt);
    void OnLButtonUp();
    void OnLButtonDblClk(POINT pt);
    LRESULT OnRButtonUp(WPARAM wParam, LPARAM lParam);
    void OnMouseMove(POINT pt);
    void OnMouseLeave();
    void OnKeyDown(UINT key);
    void OnChar(UINT ch);
    void MoveCaretToRow(int row);
    void ResetTypeAhead();

    Slot Resolve(HTREEITEM handle) const { return m_model.Find(handle); }
    Slot Caret() const { return Resolve(m_caret); }
    HWND Hwnd() const { return m_wnd->GetSafeHwnd(); }

    CWnd* m_wnd;
    TreeModel m_model;

    HTREEITEM m_caret = nullptr;
    HTREEITEM m_drop = nullptr;
    HTREEITEM m_hot = nullptr;
    HTREEITEM m_topItem = nullptr;
    int m_topIndex = 0;
    int m_scrollX = 0;
    int m_contentWidth = 0;
    bool m_contentWidthKnown = false;
    std::uint64_t m_contentWidthRows = 0;  // the row list it was measured on
    int m_wheelRemainder = 0;

    HIMAGELIST m_images = nullptr;
    HIMAGELIST m_stateImages = nullptr;
    CFont m_hotFont;
    HGDIOBJ m_hotFontSource = nullptr;

    bool m_leftPressed = false;
    bool m_skipNextChar = false;
    std::string m_typed;        // type-ahead text so far (GBK)
    std::string m_pendingLead;  // a lead byte waiting for its trail byte
};

}  // namespace tree
