// Text dragged in from another application and dropped on the window: the
// platform's drag loop runs with it as CF_TEXT where the mouse is, so the
// drop target under it applies its own rules.
#pragma once

#include <string>
#include <string_view>

#include "platform/core/win_types.h"

class CWnd;

class TextDrop {
public:
    // A drop begins; its text may come in several pieces (lines).
    void Begin();
    void AddText(std::string_view utf8);
    // The drop is complete: drags what came over the frame to the screen
    // point where the mouse is and releases it there. Nothing happens for a
    // drop without text.
    void Complete(CWnd& frame, POINT screen);

private:
    std::string m_utf8;
    bool m_hasText = false;
};
