// Stand-in for the project module's file tree: the project's source files
// under their groups. The workspace pane hosts it; the host fills it. A double
// click on a file asks the host to open it.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/tree_ctrl.h"

struct WorkSpaceGroup {
    std::string name;                // GBK
    std::vector<std::string> files;  // GBK, relative to the project's folder
};

// The one command of the file tree's menu: refresh the host's windows.
constexpr UINT ID_WORKSPACE_REFRESH = 0xE140;
// Sent to the main window when the user opens a file of the tree: wParam is
// the file's full path (GBK, valid during the call), lParam 0.
constexpr UINT UWM_WORKSPACE_OPEN_FILE = 1650;

class AFX_EXT_CLASS CWorkSpaceTree1 : public CTreeCtrl {
public:
    CWorkSpaceTree1();
    ~CWorkSpaceTree1() override;

    // Creates the tree as a visible child of the pane, showing the groups set so far.
    virtual BOOL Create(CWnd* pParentWnd);
    void ShowMenu(CPoint point);

    // Replaces the groups; shown at once when the tree exists. Files are
    // opened as folder + name, so folder ends with its separator.
    void SetGroups(std::string folder, std::vector<WorkSpaceGroup> groups);

protected:
    DECLARE_MESSAGE_MAP()
    void OnRefresh();
    void OnLButtonDblClk(UINT nFlags, CPoint point);

private:
    void Fill();
    std::string m_folder;
    std::vector<WorkSpaceGroup> m_groups;
};
