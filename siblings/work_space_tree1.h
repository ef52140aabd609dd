// Stand-in for the project module's file tree: the project's source files
// under their groups. The workspace pane hosts it; the host fills it.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/tree_ctrl.h"

struct WorkSpaceGroup {
    std::string name;                // GBK
    std::vector<std::string> files;  // GBK, as the project names them
};

// The one command of the file tree's menu: refresh the host's windows.
constexpr UINT ID_WORKSPACE_REFRESH = 0xE140;

class AFX_EXT_CLASS CWorkSpaceTree1 : public CTreeCtrl {
public:
    CWorkSpaceTree1();
    ~CWorkSpaceTree1() override;

    // Creates the tree as a visible child of the pane, showing the groups set so far.
    virtual BOOL Create(CWnd* pParentWnd);
    void ShowMenu(CPoint point);

    // Replaces the groups; shown at once when the tree exists.
    void SetGroups(std::vector<WorkSpaceGroup> groups);

protected:
    DECLARE_MESSAGE_MAP()
    void OnRefresh();

private:
    void Fill();
    std::vector<WorkSpaceGroup> m_groups;
};
