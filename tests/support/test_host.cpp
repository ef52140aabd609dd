#include "tests/support/test_host.h"

#include <algorithm>
#include <cstring>

#include "siblings/work_space_tree1.h"

TestHost::TestHost()
{
    appData.context = &context;
    Create(nullptr, "test host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 800, 600));
    m_app.m_pMainWnd = this;
}

TestHost::~TestHost()
{
    m_app.m_pMainWnd = nullptr;
    DestroyWindow();
}

std::vector<HostRecord> TestHost::Received(UINT message) const
{
    std::vector<HostRecord> result;
    std::copy_if(m_received.begin(), m_received.end(), std::back_inserter(result),
                 [message](const HostRecord& record) { return record.message == message; });
    return result;
}

int TestHost::Count(UINT message) const
{
    return static_cast<int>(Received(message).size());
}

std::vector<UINT> TestHost::Commands() const
{
    std::vector<UINT> ids;
    for (const HostRecord& record : Received(WM_COMMAND)) ids.push_back(LOWORD(record.wParam));
    return ids;
}

LRESULT TestHost::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case UWM_GET_APP_DATA:
        m_received.push_back({message, wParam, lParam, {}});
        if (answersAppData && lParam) *reinterpret_cast<AppData**>(lParam) = &appData;
        return 0;
    case UWM_GET_PROJECT_PATH:
        m_received.push_back({message, wParam, lParam, {}});
        if (answersProjectPath && wParam) {
            const size_t count = std::min(projectPath.size(), static_cast<size_t>(kPathBytes - 1));
            std::memcpy(reinterpret_cast<char*>(wParam), projectPath.data(), count);
            reinterpret_cast<char*>(wParam)[count] = '\0';
        }
        return 0;
    case UWM_GOTO_SOURCE:
    case UWM_FUNCLIST_SELECTED:
    case UWM_MSGVIEW_GOTO:
    case UWM_WORKSPACE_OPEN_FILE:
        m_received.push_back({message, wParam, lParam, wParam ? reinterpret_cast<const char*>(wParam) : ""});
        return 0;
    case WM_COMMAND:
        m_received.push_back({message, wParam, lParam, {}});
        return 0;
    default:
        if (message >= WM_USER) m_received.push_back({message, wParam, lParam, {}});
        return CFrameWnd::WindowProc(message, wParam, lParam);
    }
}
