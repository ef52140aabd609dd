// The docking library's list control: the platform's report list, as the
// library hands it to its users. It adds nothing the grid relies on.
#pragma once

#include "platform/controls/list_ctrl.h"

class AFX_EXT_CLASS CBCGPListCtrl : public CListCtrl {
    DECLARE_DYNAMIC(CBCGPListCtrl)

    CBCGPListCtrl();
    ~CBCGPListCtrl() override;

protected:
    DECLARE_MESSAGE_MAP()
};
