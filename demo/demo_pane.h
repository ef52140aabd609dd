// A pane of the demo host: a caption bar above one view, framed as the
// docking panes frame theirs, forwarding context-menu requests to the view.
#pragma once

#include <functional>
#include <string>

#include "platform/core/wnd.h"

class DemoPane : public CWnd {
public:
    explicit DemoPane(std::string caption) : m_caption(std::move(caption)) {}

    CWnd* view = nullptr;
    std::function<void(CPoint)> showMenu;
    // Lays the view out in the client rectangle under the caption, for a view
    // that sizes itself (the watch); without it the view fills that rectangle
    // inside a one-pixel frame.
    std::function<void(const CRect&)> layout;
    static constexpr int kCaptionHeight = 20;

protected:
    DECLARE_MESSAGE_MAP()
    void OnSize(UINT, int cx, int cy);
    void OnContextMenu(CWnd*, CPoint point);
    void OnPaint();

private:
    std::string m_caption;
};
