// The window of a combo box's drop-down list: a popup owned by the combo box
// that hands every message to the combo box's control.
#pragma once

#include "platform/core/wnd.h"

namespace combo {

class ComboControl;

class DropDownList : public CWnd {
public:
    explicit DropDownList(ComboControl* owner) : m_owner(owner) {}
    ~DropDownList() override;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    ComboControl* m_owner;
};

}  // namespace combo
