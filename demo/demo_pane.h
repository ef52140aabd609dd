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
    static constexpr int kCaptionHeight = 20;

protected:
    DECLARE_MESSAGE_MAP()
    void OnSize(UINT, int cx, int cy);
    void OnContextMenu(CWnd*, CPoint point);
    void OnPaint();

private:
    std::string m_caption;
};
