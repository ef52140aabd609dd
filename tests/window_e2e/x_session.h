// An X server of the test's own (Xvfb) and what the test asks of it
// directly: the demo's window, pixels of the screen as the server has them,
// and the window manager's polite request to close a window.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "tests/window_e2e/child_process.h"

struct _XDisplay;

struct ScreenPixel {
    int r = 0, g = 0, b = 0;
};

class XSession {
public:
    // Starts Xvfb on display `number` and connects to it; Ready() tells
    // whether both worked.
    explicit XSession(int number);
    ~XSession();

    bool Ready() const { return m_display != nullptr; }
    // "DISPLAY=:n", for the programs the test starts.
    std::string DisplayEnv() const { return "DISPLAY=:" + std::to_string(m_number); }

    // The top-level window whose name starts with `title`, once it is mapped.
    std::optional<unsigned long> WaitForWindow(const std::string& title, std::chrono::milliseconds limit);
    // The window's top-left corner on the screen.
    std::optional<std::pair<int, int>> Origin(unsigned long window);
    // A pixel of the screen, read from the server.
    std::optional<ScreenPixel> Pixel(int x, int y);
    // Asks the window to close, as a window manager does (WM_DELETE_WINDOW).
    bool RequestClose(unsigned long window);

private:
    int m_number;
    std::unique_ptr<ChildProcess> m_server;
    _XDisplay* m_display = nullptr;
};
