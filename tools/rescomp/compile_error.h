// Errors of the resource compiler: each names the file and line at fault, in
// the form compilers use so that build logs and editors can jump to it.
#pragma once

#include <stdexcept>
#include <string>

namespace rescomp {

class CompileError : public std::runtime_error {
public:
    CompileError(const std::string& file, int line, const std::string& message)
        : std::runtime_error(file + ":" + std::to_string(line) + ": error: " + message), m_file(file), m_line(line), m_message(message)
    {
    }

    const std::string& file() const { return m_file; }
    int line() const { return m_line; }
    const std::string& message() const { return m_message; }

private:
    std::string m_file;
    int m_line;
    std::string m_message;
};

}  // namespace rescomp
