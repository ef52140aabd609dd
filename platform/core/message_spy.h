// Observers of every message sent, the way a call-window hook sees them:
// before the window procedure runs. Tests count what a view sends its
// controls; nothing else depends on it.
#pragma once

#include <functional>

#include "platform/core/win_types.h"

namespace MessageSpy {

using Observer = std::function<void(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)>;

// Returns a cookie for Remove.
AFX_API int Add(Observer observer);
AFX_API void Remove(int cookie);
// Called by SendMessage.
AFX_API void Notify(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// Counts the messages of one kind sent to one window while it lives.
class AFX_EXT_CLASS Counter {
public:
    Counter(HWND hwnd, UINT message);
    ~Counter();
    Counter(const Counter&) = delete;
    Counter& operator=(const Counter&) = delete;
    int Count() const { return m_count; }
    void Reset() { m_count = 0; }

private:
    int m_cookie;
    int m_count = 0;
};

}  // namespace MessageSpy
