// The platform's CF_TEXT on the desktop's clipboard, while a window shows.
#pragma once

#include "platform/ole/clipboard.h"

class DesktopClipboard : public ClipboardTextHook {
public:
    // Hooks itself into the platform's clipboard for its lifetime.
    DesktopClipboard();
    ~DesktopClipboard() override;
    DesktopClipboard(const DesktopClipboard&) = delete;
    DesktopClipboard& operator=(const DesktopClipboard&) = delete;

    void Publish(const std::string* gbkText) override;
    std::optional<std::string> Fetch() override;
};
