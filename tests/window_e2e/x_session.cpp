#include "tests/window_e2e/x_session.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstring>
#include <thread>

namespace {

constexpr const char* kXvfb = "/usr/bin/Xvfb";
// Big enough for the demo's 1280 x 900 frame.
constexpr const char* kScreenGeometry = "1400x1000x24";
constexpr std::chrono::milliseconds kConnectLimit(10000);
constexpr std::chrono::milliseconds kPoll(50);

// Depth first through the tree below `window`.
Window FindNamed(Display* display, Window window, const std::string& title)
{
    char* name = nullptr;
    if (XFetchName(display, window, &name) && name) {
        const bool match = std::strncmp(name, title.c_str(), title.size()) == 0;
        XFree(name);
        XWindowAttributes attributes;
        if (match && XGetWindowAttributes(display, window, &attributes) && attributes.map_state == IsViewable) return window;
    }
    Window root = 0, parent = 0;
    Window* children = nullptr;
    unsigned int count = 0;
    if (!XQueryTree(display, window, &root, &parent, &children, &count)) return 0;
    Window found = 0;
    for (unsigned int i = 0; i < count && !found; ++i) found = FindNamed(display, children[i], title);
    if (children) XFree(children);
    return found;
}

}  // namespace

XSession::XSession(int number) : m_number(number)
{
    m_server = std::make_unique<ChildProcess>(
        std::vector<std::string>{kXvfb, ":" + std::to_string(number), "-screen", "0", kScreenGeometry, "-nolisten", "tcp"},
        std::vector<std::string>{});
    if (!m_server->Started()) return;
    const std::string name = ":" + std::to_string(number);
    const auto deadline = std::chrono::steady_clock::now() + kConnectLimit;
    while (!m_display && std::chrono::steady_clock::now() < deadline && m_server->Running()) {
        m_display = XOpenDisplay(name.c_str());
        if (!m_display) std::this_thread::sleep_for(kPoll);
    }
}

XSession::~XSession()
{
    if (m_display) XCloseDisplay(m_display);
}

std::optional<unsigned long> XSession::WaitForWindow(const std::string& title, std::chrono::milliseconds limit)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (m_display && std::chrono::steady_clock::now() < deadline) {
        if (const Window window = FindNamed(m_display, DefaultRootWindow(m_display), title)) return window;
        std::this_thread::sleep_for(kPoll);
    }
    return std::nullopt;
}

std::optional<std::pair<int, int>> XSession::Origin(unsigned long window)
{
    if (!m_display) return std::nullopt;
    int x = 0, y = 0;
    Window child = 0;
    if (!XTranslateCoordinates(m_display, window, DefaultRootWindow(m_display), 0, 0, &x, &y, &child)) return std::nullopt;
    return std::pair(x, y);
}

std::optional<ScreenPixel> XSession::Pixel(int x, int y)
{
    if (!m_display) return std::nullopt;
    XImage* image = XGetImage(m_display, DefaultRootWindow(m_display), x, y, 1, 1, AllPlanes, ZPixmap);
    if (!image) return std::nullopt;
    const unsigned long value = XGetPixel(image, 0, 0);
    ScreenPixel pixel{static_cast<int>((value & image->red_mask) >> 16), static_cast<int>((value & image->green_mask) >> 8),
                      static_cast<int>(value & image->blue_mask)};
    XDestroyImage(image);
    return pixel;
}

bool XSession::RequestClose(unsigned long window)
{
    if (!m_display) return false;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(m_display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(m_display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    const bool sent = XSendEvent(m_display, window, False, NoEventMask, &event) != 0;
    XFlush(m_display);
    return sent;
}
