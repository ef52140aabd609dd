#include "panes/dock_bar_debug_message.h"

CDockBarDebugMessage::CDockBarDebugMessage()
{
    m_view.SetGotoMode(kGotoMarksOnly);
}

CDockBarDebugMessage::~CDockBarDebugMessage() = default;
