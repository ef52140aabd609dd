// The message now being handled, so that a handler's Default() can run the
// default processing of exactly that message. Saved and restored around each
// send, because sends nest.
#pragma once

#include "platform/core/win_types.h"

struct AFX_EXT_CLASS CurrentMessage {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;

    static const CurrentMessage& Get();
};

// Makes a message current for the lifetime of the scope.
class AFX_EXT_CLASS CurrentMessageScope {
public:
    CurrentMessageScope(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    ~CurrentMessageScope();
    CurrentMessageScope(const CurrentMessageScope&) = delete;
    CurrentMessageScope& operator=(const CurrentMessageScope&) = delete;

private:
    CurrentMessage m_saved;
};
