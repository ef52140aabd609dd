// What the demo host writes down: every message the library sent it, what
// the debugger service answered, and the tour's steps between them (UTF-8).
#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>

class HostTranscript {
public:
    // A step of the tour, as a reader follows it.
    void Step(std::string_view utf8) { m_text << "-- " << utf8 << "\n"; }
    // A message the host received, with what it did about it.
    void Received(std::string_view message, std::string_view details) { m_text << Padded(message) << details << "\n"; }
    void Line(std::string_view utf8) { m_text << utf8 << "\n"; }

    std::string Text() const { return m_text.str(); }

private:
    // Messages line up in a column wide enough for the longest name.
    static std::string Padded(std::string_view message)
    {
        constexpr std::size_t kColumn = 26;
        std::string padded(message);
        padded.resize(std::max(kColumn, padded.size() + 1), ' ');
        return padded;
    }

    std::ostringstream m_text;
};
