#include "tests/ole/drag_fixture.h"

namespace drag_test {

BEGIN_MESSAGE_MAP(DragWnd, CWnd)
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEMOVE()
    ON_WM_LBUTTONUP()
    ON_MESSAGE(WM_CAPTURECHANGED, &DragWnd::OnCaptureChanged)
END_MESSAGE_MAP()

}  // namespace drag_test
