// The platform's side of every window: what the system keeps per handle.
// Handles are numbers, never addresses, so a stale handle finds nothing.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/core/scroll_bar_state.h"
#include "platform/core/win_types.h"

class CWnd;
class Surface;

struct WindowData {
    HWND handle = nullptr;
    CWnd* object = nullptr;             // the C++ window object; null once detached
    HWND parent = nullptr;              // child windows only
    HWND owner = nullptr;               // top-level windows: the owning window
    std::vector<HWND> children;         // bottom to top in z-order
    CRect rect;                         // parent's client coordinates; screen for top level
    DWORD style = 0;
    DWORD exStyle = 0;
    UINT id = 0;
    std::string className;
    std::string text;
    HGDIOBJ font = nullptr;
    bool redraw = true;                 // WM_SETREDRAW
    bool destroying = false;
    CRect update;                       // invalid area, client coordinates (bounding box)
    bool eraseNeeded = false;
    bool frameNeeded = false;           // the non-client area (scroll bars) waits for WM_NCPAINT
    ScrollBarState vertical;            // shown while style has WS_VSCROLL
    ScrollBarState horizontal;          // shown while style has WS_HSCROLL
    std::unique_ptr<Surface> surface;   // top-level windows own the pixels they show
};

namespace WindowRegistry {

AFX_API WindowData* Create();
AFX_API WindowData* Find(HWND hwnd);
// Forgets the handle; the data is freed.
AFX_API void Remove(HWND hwnd);
// Every top-level window, in creation order.
AFX_API std::vector<HWND> TopLevelWindows();

}  // namespace WindowRegistry
