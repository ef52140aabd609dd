#include "demo/project/project_settings.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>

namespace {

constexpr std::string_view kWatch = "watch ";
constexpr std::string_view kRegion = "region ";

void ReadRegion(std::string_view rest, std::map<std::string, int>& regions)
{
    const std::size_t blank = rest.find(' ');
    if (blank == std::string_view::npos) return;
    const std::string name(rest.substr(0, blank));
    if (name != "left" && name != "right" && name != "bottom") return;
    const std::string_view number = rest.substr(blank + 1);
    int pixels = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), pixels);
    if (error != std::errc() || end != number.data() + number.size() || pixels <= 0 || pixels > ProjectSettings::kLargestRegion) return;
    regions[name] = pixels;
}

}  // namespace

std::optional<ProjectSettings> ProjectSettings::Load(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in) return std::nullopt;
    const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    return Parse(text);
}

ProjectSettings ProjectSettings::Parse(std::string_view text)
{
    ProjectSettings settings;
    while (!text.empty()) {
        // Lines end in LF, CR LF or a lone CR, as files edited elsewhere have them.
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end);
        text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
        if (line.starts_with(kWatch) && line.size() > kWatch.size()) {
            settings.watch.emplace_back(line.substr(kWatch.size()));
        } else if (line.starts_with(kRegion)) {
            ReadRegion(line.substr(kRegion.size()), settings.regions);
        }
    }
    return settings;
}

std::string ProjectSettings::Text() const
{
    std::string text;
    for (const std::string& expression : watch) {
        if (expression.find_first_of("\r\n") == std::string::npos) text.append(kWatch).append(expression).append("\n");
    }
    for (const auto& [name, pixels] : regions) text.append(kRegion).append(name).append(" ").append(std::to_string(pixels)).append("\n");
    return text;
}

bool ProjectSettings::Save(const std::filesystem::path& file) const
{
    std::ofstream out(file, std::ios::binary);
    out << Text();
    return out.good();
}
