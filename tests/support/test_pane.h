// A stand-in for a docking pane: hosts one view, lays it out inside a
// one-pixel frame and forwards context-menu requests to it, as the panes do.
#pragma once

#include <functional>

#include "platform/core/wnd.h"

class TestPane : public CWnd {
public:
    // The view laid out inside the pane's one-pixel frame at each size change.
    CWnd* view = nullptr;
    // Called with the screen point of each context-menu request.
    std::function<void(CPoint)> onContextMenu;

    // Creates the pane as a visible child of the parent at the given rectangle.
    BOOL CreatePane(CWnd* parent, const CRect& rect);

protected:
    DECLARE_MESSAGE_MAP()
    void OnSize(UINT type, int cx, int cy);
    void OnContextMenu(CWnd* wnd, CPoint point);
};
