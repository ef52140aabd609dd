// CHeaderCtrl: each member sends its HDM_* message; the behaviour is in
// HeaderControl, reached from DefWindowProc.
#include "platform/controls/header_ctrl.h"

#include "platform/controls/header_ctrl_control.h"

CHeaderCtrl::CHeaderCtrl() : m_control(std::make_unique<header::HeaderControl>(this)) {}

CHeaderCtrl::~CHeaderCtrl()
{
    // Destroy while this class's DefWindowProc can still hear the window go.
    if (m_hWnd) DestroyWindow();
}

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("SysHeader32", nullptr, dwStyle, rect, pParentWnd, nID);
}

LRESULT CHeaderCtrl::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (m_control->Handle(message, wParam, lParam, &result)) return result;
    return CWnd::DefWindowProc(message, wParam, lParam);
}

int CHeaderCtrl::GetItemCount() const
{
    return static_cast<int>(SendMessage(HDM_GETITEMCOUNT));
}

int CHeaderCtrl::InsertItem(int nPos, HDITEM* phdi)
{
    return static_cast<int>(SendMessage(HDM_INSERTITEM, static_cast<WPARAM>(nPos), reinterpret_cast<LPARAM>(phdi)));
}

BOOL CHeaderCtrl::DeleteItem(int nPos)
{
    return static_cast<BOOL>(SendMessage(HDM_DELETEITEM, static_cast<WPARAM>(nPos)));
}

BOOL CHeaderCtrl::GetItem(int nPos, HDITEM* pHeaderItem) const
{
    return static_cast<BOOL>(SendMessage(HDM_GETITEM, static_cast<WPARAM>(nPos), reinterpret_cast<LPARAM>(pHeaderItem)));
}

BOOL CHeaderCtrl::SetItem(int nPos, HDITEM* pHeaderItem)
{
    return static_cast<BOOL>(SendMessage(HDM_SETITEM, static_cast<WPARAM>(nPos), reinterpret_cast<LPARAM>(pHeaderItem)));
}

BOOL CHeaderCtrl::GetItemRect(int nIndex, LPRECT lpRect) const
{
    return static_cast<BOOL>(SendMessage(HDM_GETITEMRECT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpRect)));
}

int CHeaderCtrl::HitTest(LPHDHITTESTINFO pHeaderHitTestInfo) const
{
    return static_cast<int>(SendMessage(HDM_HITTEST, 0, reinterpret_cast<LPARAM>(pHeaderHitTestInfo)));
}
