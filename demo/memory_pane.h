// The host's own memory pane: a docking pane around the memory view, which
// the debugger service fills when the watch asks to show an object's memory.
#pragma once

#include "demo/views/memory_view.h"
#include "platform/docking/bcgp_docking_control_bar.h"

class CMemoryPane : public CBCGPDockingControlBar {
public:
    CMemoryView& View() { return m_view; }

protected:
    DECLARE_MESSAGE_MAP()
    int OnCreate(LPCREATESTRUCT lpCreateStruct);
    void OnSize(UINT nType, int cx, int cy);
    void OnSetFocus(CWnd* pOldWnd);

private:
    CMemoryView m_view;
};
