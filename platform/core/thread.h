// The application thread object: it knows the main window, which is how every
// part of the library reaches the host, and it walks the pre-translation chain.
#pragma once

#include "platform/core/wnd.h"

class AFX_EXT_CLASS CWinThread : public CCmdTarget {
public:
    CWinThread();
    ~CWinThread() override;

    CWnd* m_pMainWnd = nullptr;

    virtual CWnd* GetMainWnd() { return m_pMainWnd; }
    // Offers a message to the windows from its target up to the main window.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
};

class AFX_EXT_CLASS CWinApp : public CWinThread {
public:
    explicit CWinApp(const char* appName = nullptr);
    const char* m_pszAppName = nullptr;
};

// The thread object of the running program: the most recently constructed
// one that still exists, or null.
AFX_API CWinThread* AfxGetThread();
AFX_API CWinApp* AfxGetApp();
AFX_API CWnd* AfxGetMainWnd();

// Walks PreTranslateMessage from the message's window up to hWndStop (included).
AFX_API BOOL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);
