// The breakpoint pane's view: as the bookmark view, with each node's image
// showing its breakpoint's state, and every node outlined while the host
// holds the view.
#pragma once

#include "marks/mark_tree_ctrl.h"

// The image a breakpoint's node shows: the filled one while the breakpoint is
// active and the view is not held, the outline otherwise (and for no breakpoint).
inline int BreakPointImage(const CBreakPointItem* item, std::int32_t hold)
{
    return item && item->active && !hold ? kImageBreakpointActive : kImageBreakpointInactive;
}

struct BreakPointTreeTraits {
    using List = CBreakPointList;
    static constexpr UINT kMenuId = IDR_BREAKPOINT_MENU;
    static constexpr DWORD kTreeStyles =
        TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS | TVS_TRACKSELECT | TVS_INFOTIP;
    static constexpr bool kSwallowsFontChange = false;
    static constexpr bool kRefreshesImages = true;
    static List* ListOf(const ProjectContext& context) { return context.breakPointList; }
    static int ImageOf(const CBreakPointItem& item, std::int32_t hold) { return BreakPointImage(&item, hold); }
};

class AFX_EXT_CLASS CBreakPointListTreeCtrl : public CMarkTreeCtrl<BreakPointTreeTraits> {
public:
    CBreakPointListTreeCtrl();
    ~CBreakPointListTreeCtrl() override;

protected:
    DECLARE_MESSAGE_MAP()
    int GetImageId(CBreakPointItem* item) const { return BreakPointImage(item, m_hold); }
    void OnBreakpointSeek();
    void OnUpdateBreakpointSeek(CCmdUI* pCmdUI);
    void OnEditClearAllBkpt();
};
