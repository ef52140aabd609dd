#include "panes/dock_bar_message.h"

CDockBarMessage::CDockBarMessage()
{
    m_view.SetGotoMode(kGotoSendsMessageViewGoto);
}

CDockBarMessage::~CDockBarMessage() = default;
