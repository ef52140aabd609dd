#include "platform/docking/bcgp_list_ctrl.h"

IMPLEMENT_DYNAMIC(CBCGPListCtrl, CListCtrl)

BEGIN_MESSAGE_MAP(CBCGPListCtrl, CListCtrl)
END_MESSAGE_MAP()

CBCGPListCtrl::CBCGPListCtrl() = default;

CBCGPListCtrl::~CBCGPListCtrl() = default;
