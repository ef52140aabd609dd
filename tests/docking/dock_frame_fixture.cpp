#include "tests/docking/dock_frame_fixture.h"

namespace docktest {

namespace {
constexpr UINT kFirstBarId = 0xE900;
constexpr UINT kViewId = 1;
constexpr UINT kCentralId = 0xE8FF;
}  // namespace

BEGIN_MESSAGE_MAP(EditBar, CBCGPDockingControlBar)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_SETFOCUS()
END_MESSAGE_MAP()

int EditBar::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CBCGPDockingControlBar::OnCreate(lpCreateStruct) == -1) return -1;
    return view.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(0, 0, 10, 10), this, kViewId) ? 0 : -1;
}

void EditBar::OnSize(UINT nType, int cx, int cy)
{
    CBCGPDockingControlBar::OnSize(nType, cx, cy);
    if (view.GetSafeHwnd()) view.MoveWindow(0, 0, cx, cy);
}

void EditBar::OnSetFocus(CWnd* pOldWnd)
{
    CBCGPDockingControlBar::OnSetFocus(pOldWnd);
    view.SetFocus();
}

void DockFrameFixture::SetUp()
{
    // The frame's outer size is chosen so that its client is exactly kClient.
    ASSERT_TRUE(frame.Create(nullptr, "frame", WS_POPUP | WS_VISIBLE, CRect(0, 0, kClient.cx, kClient.cy)));
    CRect client;
    frame.GetClientRect(&client);
    ASSERT_EQ(client.Size(), kClient);
    ASSERT_TRUE(central.Create("Central", "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10), &frame, kCentralId));
    frame.SetCentralView(&central);
}

void DockFrameFixture::TearDown()
{
    bars.clear();
    central.DestroyWindow();
    frame.DestroyWindow();
}

EditBar& DockFrameFixture::MakeBar(const char* title)
{
    auto bar = std::make_unique<EditBar>();
    const UINT id = kFirstBarId + static_cast<UINT>(bars.size());
    EXPECT_TRUE(bar->Create(title, &frame, CRect(0, 0, 50, 50), id));
    bars.push_back(std::move(bar));
    return *bars.back();
}

CRect DockFrameFixture::BarRect(const CWnd& bar) const
{
    CRect rect;
    bar.GetWindowRect(&rect);
    frame.ScreenToClient(&rect);
    return rect;
}

}  // namespace docktest
