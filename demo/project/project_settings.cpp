#include "demo/project_settings.h"

#include <charconv>
#include <fstream>

namespace {

constexpr std::string_view kWatch = "watch ";
constexpr std::string_view kRegion = "region ";
// A region wider than any screen is a damaged file, not a layout.
constexpr int kLargestRegion = 100000;

void ReadRegion(std::string_view rest, std::map<std::string, int>& regions)
{
    const std::size_t blank = rest.find(' ');
    if (blank == std::string_view::npos) return;
    const std::string name(rest.substr(0, blank));
    if (name != "left" && name != "right" && name != "bottom") return;
    const std::string_view number = rest.substr(blank + 1);
    int pixels = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), pixels);
    if (error != std::errc() || end != number.data() + number.size() || pixels <= 0 || pixels > kLargestRegion) return;
    regions[name] = pixels;
}

}  // namespace

std::optional<ProjectSettings> ProjectSettings::Load(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in) return std::nullopt;
    ProjectSettings settings;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const std::string_view text = line;
        if (text.starts_with(kWatch) && text.size() > kWatch.size()) {
            settings.watch.emplace_back(text.substr(kWatch.size()));
        } else if (text.starts_with(kRegion)) {
            ReadRegion(text.substr(kRegion.size()), settings.regions);
        }
    }
    return settings;
}

bool ProjectSettings::Save(const std::filesystem::path& file) const
{
    std::ofstream out(file, std::ios::binary);
    for (const std::string& expression : watch) {
        // A line break would end the expression early on reading.
        if (expression.find_first_of("\r\n") == std::string::npos) out << kWatch << expression << '\n';
    }
    for (const auto& [name, pixels] : regions) out << kRegion << name << ' ' << pixels << '\n';
    return out.good();
}
