// Stand-in for the project module's target tree: the project's build targets,
// each with its options under it. The second workspace pane hosts it; the
// host fills it.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/tree_ctrl.h"

struct WorkSpaceTarget {
    std::string name;                  // GBK
    std::vector<std::string> options;  // GBK, one line each ("Memory model: small")
};

// The one command of the target tree's menu: stop the running build.
constexpr UINT ID_WORKSPACE_STOP = 0xE141;

class AFX_EXT_CLASS CWorkSpaceTree2 : public CTreeCtrl {
public:
    CWorkSpaceTree2();
    ~CWorkSpaceTree2() override;

    // Creates the tree as a visible child of the pane, showing the targets set so far.
    virtual BOOL Create(CWnd* pParentWnd);
    void ShowMenu(CPoint point);

    // Replaces the targets; shown at once when the tree exists.
    void SetTargets(std::vector<WorkSpaceTarget> targets);

protected:
    DECLARE_MESSAGE_MAP()
    void OnStop();

private:
    void Fill();
    std::vector<WorkSpaceTarget> m_targets;
};
