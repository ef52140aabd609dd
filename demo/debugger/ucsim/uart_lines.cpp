#include "demo/debugger/ucsim/uart_lines.h"

void UartLines::Feed(std::string_view bytes)
{
    for (const char c : bytes) {
        if (c == '\n' || m_partial.size() >= kMaxLine) {
            if (!m_partial.empty() && m_partial.back() == '\r') m_partial.pop_back();
            if (m_listener) m_listener(m_partial);
            m_partial.clear();
            if (c == '\n') continue;
        }
        m_partial += c;
    }
}
