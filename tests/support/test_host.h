// The host a test talks to: a main frame that answers the panes' requests
// from its own AppData and ProjectContext and records every message and
// command it receives, so a test can check what the host was asked.
#pragma once

#include <string>
#include <vector>

#include "host/host_messages.h"
#include "host/host_records.h"
#include "platform/core/thread.h"
#include "platform/docking/frame_wnd.h"

struct HostRecord {
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    std::string text;  // UWM_GOTO_SOURCE and the like: the text wParam pointed to
};

class TestHost : public CFrameWnd {
public:
    // Creates the frame (800 x 600 at the screen origin) and makes it the main
    // window of its own application object.
    TestHost();
    ~TestHost() override;

    AppData appData;
    ProjectContext context;
    std::string projectPath = "C:\\work\\demo\\demo.prj";  // GBK; what UWM_GET_PROJECT_PATH answers
    bool answersAppData = true;
    bool answersProjectPath = true;

    const std::vector<HostRecord>& Received() const { return m_received; }
    // Records of one message, in order.
    std::vector<HostRecord> Received(UINT message) const;
    int Count(UINT message) const;
    // Commands (WM_COMMAND ids) received, in order.
    std::vector<UINT> Commands() const;
    void Clear() { m_received.clear(); }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    CWinApp m_app;
    std::vector<HostRecord> m_received;
};
