// A docking frame with bars the way a host makes them: each bar holds one
// edit as its view, fitted to the bar and given the focus the bar gets, so
// tests can type into a pane and read back what it kept.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/controls/edit.h"
#include "platform/core/paint.h"
#include "platform/docking/bcgp_frame_wnd.h"
#include "platform/input/input.h"

namespace docktest {

// Where a test grabs a splitter, a tab or a caption.
inline CPoint Centre(const CRect& r)
{
    return CPoint((r.left + r.right) / 2, (r.top + r.bottom) / 2);
}

class EditBar : public CBCGPDockingControlBar {
public:
    CEdit view;

    std::string Text() const
    {
        CString text;
        view.GetWindowText(text);
        return text.str();
    }

protected:
    DECLARE_MESSAGE_MAP()
    int OnCreate(LPCREATESTRUCT lpCreateStruct);
    void OnSize(UINT nType, int cx, int cy);
    void OnSetFocus(CWnd* pOldWnd);
};

class DockFrameFixture : public ::testing::Test {
protected:
    static inline const CSize kClient{800, 600};

    void SetUp() override;
    void TearDown() override;

    // A new bar, created as a child of the frame with its title.
    EditBar& MakeBar(const char* title);
    // A bar's window rectangle in the frame's client coordinates.
    CRect BarRect(const CWnd& bar) const;

    CBCGPFrameWnd frame;
    CWnd central;
    std::vector<std::unique_ptr<EditBar>> bars;
};

}  // namespace docktest
