// The bookmark pane's view: every bookmark of the project as one node, a
// click goes to it, the menu goes to it or asks the host to clear them all.
#pragma once

#include "marks/mark_tree_ctrl.h"

struct BookMarkTreeTraits {
    using List = CBookMarkList;
    static constexpr UINT kMenuId = IDR_BOOKMARK_MENU;
    static constexpr DWORD kTreeStyles = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS |
                                         TVS_TRACKSELECT | TVS_INFOTIP | TVS_FULLROWSELECT;
    static constexpr bool kSwallowsFontChange = true;
    static constexpr bool kRefreshesImages = false;  // every node shows the bookmark badge
    static List* ListOf(const ProjectContext& context) { return context.bookMarkList; }
    static int ImageOf(const CBookMarkItem&, std::int32_t) { return kImageBookmark; }
};

class AFX_EXT_CLASS CBookMarkListTreeCtrl : public CMarkTreeCtrl<BookMarkTreeTraits> {
public:
    CBookMarkListTreeCtrl();
    ~CBookMarkListTreeCtrl() override;

protected:
    DECLARE_MESSAGE_MAP()
    void OnBookmarkSeek();
    void OnUpdateBookmarkSeek(CCmdUI* pCmdUI);
    void OnEditClearAllBookmark();
};
