#include "siblings/work_space_tree1.h"

#include "platform/core/thread.h"
#include "siblings/one_command_menu.h"
#include "siblings/orv_project_misc.h"

BEGIN_MESSAGE_MAP(CWorkSpaceTree1, CTreeCtrl)
    ON_COMMAND(ID_WORKSPACE_REFRESH, &CWorkSpaceTree1::OnRefresh)
    ON_WM_LBUTTONDBLCLK()
END_MESSAGE_MAP()

CWorkSpaceTree1::CWorkSpaceTree1() = default;

CWorkSpaceTree1::~CWorkSpaceTree1() = default;

BOOL CWorkSpaceTree1::Create(CWnd* pParentWnd)
{
    constexpr DWORD kStyles = WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS;
    if (!CTreeCtrl::Create(kStyles, CRect(0, 0, 100, 100), pParentWnd, 0)) return FALSE;
    Fill();
    return TRUE;
}

void CWorkSpaceTree1::SetGroups(std::string folder, std::vector<WorkSpaceGroup> groups)
{
    m_folder = std::move(folder);
    m_groups = std::move(groups);
    if (GetSafeHwnd()) Fill();
}

void CWorkSpaceTree1::Fill()
{
    DeleteAllItems();
    for (const WorkSpaceGroup& group : m_groups) {
        const HTREEITEM node = InsertItem(group.name.c_str());
        for (const std::string& file : group.files) InsertItem(file.c_str(), node);
        Expand(node, TVE_EXPAND);
    }
}

void CWorkSpaceTree1::ShowMenu(CPoint point)
{
    ShowOneCommandMenu(this, ID_WORKSPACE_REFRESH, "Refresh", point);
}

void CWorkSpaceTree1::OnRefresh()
{
    KeyF5RefreshWnd();
}

// Only file nodes open: a group's double click keeps the tree's own meaning
// (expand or collapse).
void CWorkSpaceTree1::OnLButtonDblClk(UINT, CPoint point)
{
    Default();
    UINT flags = 0;
    const HTREEITEM node = HitTest(point, &flags);
    if (!node || !(flags & TVHT_ONITEM) || !GetParentItem(node)) return;
    const std::string path = m_folder + static_cast<const char*>(GetItemText(node));
    if (CWnd* host = AfxGetMainWnd()) host->SendMessage(UWM_WORKSPACE_OPEN_FILE, reinterpret_cast<WPARAM>(path.c_str()), 0);
}
