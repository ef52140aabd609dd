// The dockable pane that shows one watch of the debugger. The host numbers
// its watch panes so that it knows which one the user worked in last; -1
// marks a pane that mirrors the service's own list and takes no new rows.
#pragma once

#include <cstdint>

#include "panes/view_pane.h"
#include "watch/watch_grid_ctrl.h"

// The number of a watch pane that mirrors a fixed list.
constexpr std::int32_t kFixedWatchNumb = -1;

class AFX_EXT_CLASS CDockBarWatch : public CViewPane<CWatchGridCtrl, PaneSizing::ClientRect> {
public:
    CDockBarWatch();
    ~CDockBarWatch() override;

    void SetWatchNumb(int numb);

protected:
    DECLARE_MESSAGE_MAP()
    void OnSize(UINT nType, int cx, int cy);
    void OnSetFocus(CWnd* pOldWnd);
    void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);

private:
    // Until the host numbers the pane it counts as the first, editable watch,
    // which matches the grid's own starting state.
    std::int32_t m_watchNumb = 0;
};
