#include "marks/bookmark_tree_ctrl.h"

BEGIN_MESSAGE_MAP(CBookMarkListTreeCtrl, CMarkTreeCtrl<BookMarkTreeTraits>)
    ON_WM_LBUTTONDOWN()
    ON_WM_RBUTTONDOWN()
    ON_COMMAND(ID_BOOKMARK_SEEK, &CBookMarkListTreeCtrl::OnBookmarkSeek)
    ON_UPDATE_COMMAND_UI(ID_BOOKMARK_SEEK, &CBookMarkListTreeCtrl::OnUpdateBookmarkSeek)
    ON_COMMAND(ID_EDIT_CLEAR_ALL_BOOKMARK, &CBookMarkListTreeCtrl::OnEditClearAllBookmark)
END_MESSAGE_MAP()

CBookMarkListTreeCtrl::CBookMarkListTreeCtrl() = default;
CBookMarkListTreeCtrl::~CBookMarkListTreeCtrl() = default;

void CBookMarkListTreeCtrl::OnBookmarkSeek() { GotoSelected(); }
void CBookMarkListTreeCtrl::OnUpdateBookmarkSeek(CCmdUI* pCmdUI) { EnableWhenSelected(pCmdUI); }

// The host clears the bookmarks; the view shows the result at the next refresh.
void CBookMarkListTreeCtrl::OnEditClearAllBookmark() { HostLink::SendCommand(ID_HOST_CLEAR_ALL_BOOKMARKS); }
