#include "platform/core/current_message.h"

namespace {
CurrentMessage g_current;
}

const CurrentMessage& CurrentMessage::Get()
{
    return g_current;
}

CurrentMessageScope::CurrentMessageScope(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) : m_saved(g_current)
{
    g_current = CurrentMessage{hwnd, message, wParam, lParam};
}

CurrentMessageScope::~CurrentMessageScope()
{
    g_current = m_saved;
}
