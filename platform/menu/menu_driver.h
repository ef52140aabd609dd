// The menu driver answers popup menus: a test or the demo script queues
// answers, and each popup menu that opens takes the next one. A menu that
// opens with no answer queued is dismissed, as if the user pressed Escape,
// unless the driver is interactive: then the user at the screen tracks it
// with the mouse and keys. Every menu shown is recorded with its items' texts
// and the enabled state its update handlers gave them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/core/win_types.h"

struct ShownMenuItem {
    UINT id = 0;
    std::string text;  // GBK, as in the resource ('&' access-key marker kept)
    bool enabled = true;
    bool checked = false;
    bool separator = false;
    std::vector<ShownMenuItem> children;  // a popup item's items

    bool IsPopup() const { return !children.empty(); }
};

struct ShownMenu {
    HWND owner = nullptr;   // the window that receives the menu-loop messages
    HWND target = nullptr;  // the window its commands go to
    POINT point{};          // screen position it opened at
    std::vector<ShownMenuItem> items;

    // The item with a command id, searched through popups; null if none.
    const ShownMenuItem* Find(UINT id) const;
};

namespace MenuDriver {

// Receives the open menu while its loop runs; returns the command to choose,
// or 0 to dismiss the menu. A disabled or unknown command dismisses it too.
using Answer = std::function<UINT(const ShownMenu&)>;

AFX_API void Queue(Answer answer);
// Queues an answer that chooses one command.
AFX_API void Choose(UINT id);
// Queues an answer that looks and dismisses.
AFX_API void Dismiss();
// Lets the user choose from the open menu; returns the command, 0 to dismiss.
using Track = std::function<UINT()>;

// Called by the popup menu: takes the next answer; with none queued the user
// tracks the menu when the driver is interactive, else it is dismissed.
AFX_API UINT Run(const ShownMenu& menu, const Track& track = nullptr);

// Off by default: with nobody at the screen a menu must never wait for input.
AFX_API void SetInteractive(bool on);
AFX_API bool IsInteractive();

AFX_API int ShownCount();
// The last menu shown; null before any.
AFX_API const ShownMenu* LastShown();
// Forgets queued answers and shown menus.
AFX_API void Reset();

}  // namespace MenuDriver
