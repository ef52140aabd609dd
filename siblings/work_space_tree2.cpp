#include "siblings/work_space_tree2.h"

#include "siblings/one_command_menu.h"
#include "siblings/orv_project_misc.h"

BEGIN_MESSAGE_MAP(CWorkSpaceTree2, CTreeCtrl)
    ON_COMMAND(ID_WORKSPACE_STOP, &CWorkSpaceTree2::OnStop)
END_MESSAGE_MAP()

CWorkSpaceTree2::CWorkSpaceTree2() = default;

CWorkSpaceTree2::~CWorkSpaceTree2() = default;

BOOL CWorkSpaceTree2::Create(CWnd* pParentWnd)
{
    constexpr DWORD kStyles = WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS;
    if (!CTreeCtrl::Create(kStyles, CRect(0, 0, 100, 100), pParentWnd, 0)) return FALSE;
    Fill();
    return TRUE;
}

void CWorkSpaceTree2::SetTargets(std::vector<WorkSpaceTarget> targets)
{
    m_targets = std::move(targets);
    if (GetSafeHwnd()) Fill();
}

void CWorkSpaceTree2::Fill()
{
    DeleteAllItems();
    for (const WorkSpaceTarget& target : m_targets) {
        const HTREEITEM node = InsertItem(target.name.c_str());
        for (const std::string& option : target.options) InsertItem(option.c_str(), node);
        Expand(node, TVE_EXPAND);
    }
}

void CWorkSpaceTree2::ShowMenu(CPoint point)
{
    ShowOneCommandMenu(this, ID_WORKSPACE_STOP, "Stop", point);
}

void CWorkSpaceTree2::OnStop()
{
    CleanTerminate(1);
}
