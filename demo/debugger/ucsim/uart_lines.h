// Cuts the serial port's byte stream into lines for a listener: each line
// without its CR LF, as soon as its line feed arrives.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

class UartLines {
public:
    // A line longer than this is handed on in pieces: a program printing
    // without line feeds must not grow the buffer without end.
    static constexpr std::size_t kMaxLine = 4096;

    explicit UartLines(std::function<void(const std::string& line)> listener) : m_listener(std::move(listener)) {}

    void Feed(std::string_view bytes);

private:
    std::function<void(const std::string& line)> m_listener;
    std::string m_partial;
};
