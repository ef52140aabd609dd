// The demo host's project settings file, as a damaged or hand-edited file
// gives it: any bytes, any line endings, NULs, numbers of any length. What
// is read holds only what a file may hold (expressions without a line break,
// the three regions within their bounds), and reads back the same from the
// text it is saved as.
#include <cstdint>
#include <string>
#include <string_view>

#include "demo/project/project_settings.h"
#include "fuzz/support/fuzz_check.h"

namespace {

bool KnownRegion(const std::string& name)
{
    return name == "left" || name == "right" || name == "bottom";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    const ProjectSettings settings = ProjectSettings::Parse(file);
    for (const std::string& expression : settings.watch) {
        FUZZ_CHECK(!expression.empty() && expression.find_first_of("\r\n") == std::string::npos);
    }
    for (const auto& [name, pixels] : settings.regions) {
        FUZZ_CHECK(KnownRegion(name) && pixels > 0 && pixels <= ProjectSettings::kLargestRegion);
    }
    const ProjectSettings again = ProjectSettings::Parse(settings.Text());
    FUZZ_CHECK(again.watch == settings.watch && again.regions == settings.regions);
    return 0;
}
