#include "platform/core/thread.h"

#include <algorithm>
#include <vector>

namespace {
std::vector<CWinThread*>& Threads()
{
    static std::vector<CWinThread*> threads;
    return threads;
}
}  // namespace

CWinThread::CWinThread()
{
    Threads().push_back(this);
}

CWinThread::~CWinThread()
{
    std::erase(Threads(), this);
}

BOOL CWinThread::PreTranslateMessage(MSG* pMsg)
{
    CWnd* main = GetMainWnd();
    return WalkPreTranslateTree(main ? main->GetSafeHwnd() : nullptr, pMsg);
}

CWinApp::CWinApp(const char* appName) : m_pszAppName(appName) {}

CWinThread* AfxGetThread()
{
    return Threads().empty() ? nullptr : Threads().back();
}

CWinApp* AfxGetApp()
{
    return dynamic_cast<CWinApp*>(AfxGetThread());
}

CWnd* AfxGetMainWnd()
{
    CWinThread* thread = AfxGetThread();
    return thread ? thread->GetMainWnd() : nullptr;
}

BOOL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    if (!pMsg) return FALSE;
    for (HWND hwnd = pMsg->hwnd; hwnd; hwnd = ::GetParent(hwnd)) {
        if (CWnd* wnd = CWnd::FromHandle(hwnd); wnd && wnd->PreTranslateMessage(pMsg)) return TRUE;
        if (hwnd == hWndStop) break;
    }
    return FALSE;
}
