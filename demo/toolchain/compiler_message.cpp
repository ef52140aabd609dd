#include "demo/toolchain/compiler_message.h"

#include "demo/toolchain/text_fields.h"

namespace {

constexpr std::string_view kLinkerPrefix = "?ASlink-";
constexpr std::string_view kLinkerWarning = "?ASlink-Warning-";
constexpr std::string_view kLinkerError = "?ASlink-Error-";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The digits at `at` up to the next ':'; npos when not that shape.
std::size_t NumberField(std::string_view text, std::size_t at)
{
    std::size_t end = at;
    while (end < text.size() && IsDigit(text[end])) ++end;
    return end > at && end < text.size() && text[end] == ':' ? end : std::string_view::npos;
}

Severity SeverityOf(std::string_view text)
{
    if (text.starts_with("warning")) return Severity::Warning;
    if (text.starts_with("error") || text.starts_with("syntax error") || text.starts_with("fatal error")) return Severity::Error;
    return Severity::None;
}

}  // namespace

CompilerMessage ParseCompilerLine(std::string_view line)
{
    CompilerMessage message;
    while (!line.empty() && (line.back() == ' ' || line.back() == '\r')) line.remove_suffix(1);
    message.text = std::string(line);
    if (line.starts_with(kLinkerPrefix)) {
        message.kind = MessageKind::Linker;
        if (line.starts_with(kLinkerWarning)) message.severity = Severity::Warning;
        if (line.starts_with(kLinkerError)) message.severity = Severity::Error;
        return message;
    }
    // The path ends at the first ":<digits>:"; from the second character on,
    // so a drive letter's colon is part of the path.
    for (std::size_t colon = line.find(':', 1); colon != std::string_view::npos; colon = line.find(':', colon + 1)) {
        const std::size_t lineEnd = NumberField(line, colon + 1);
        if (lineEnd == std::string_view::npos) continue;
        const auto number = ParseInt(line.substr(colon + 1, lineEnd - colon - 1));
        if (!number) return message;
        std::size_t textStart = lineEnd + 1;
        int column = 0;
        const std::size_t columnEnd = NumberField(line, textStart);
        if (columnEnd != std::string_view::npos) {
            column = ParseInt(line.substr(textStart, columnEnd - textStart)).value_or(0);
            textStart = columnEnd + 1;
        }
        if (textStart >= line.size() || line[textStart] != ' ') return message;
        message.kind = MessageKind::Diagnostic;
        message.column = column;
        message.file = std::string(line.substr(0, colon));
        message.line = *number;
        message.text = std::string(line.substr(textStart + 1));
        message.severity = SeverityOf(message.text);
        return message;
    }
    return message;
}
