#include "tests/demo_ucsim/sample_build.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

bool OnPath(const std::string& program)
{
    const char* path = std::getenv("PATH");
    if (!path) return false;
    std::stringstream folders(path);
    std::string folder;
    while (std::getline(folders, folder, ':')) {
        if (!folder.empty() && access((std::filesystem::path(folder) / program).c_str(), X_OK) == 0) return true;
    }
    return false;
}

struct Build {
    std::filesystem::path folder;
    std::string hex;
    bool built = false;

    ~Build()
    {
        std::error_code ignored;
        if (!folder.empty()) std::filesystem::remove_all(folder, ignored);
    }
};

Build& TheBuild()
{
    static Build build = [] {
        Build b;
        char pattern[] = "/tmp/ucsim_sample_XXXXXX";
        if (!mkdtemp(pattern)) return b;
        b.folder = pattern;
        const std::string command = "sh '" DEMO_SAMPLE_DIR "/build.sh' '" + b.folder.string() + "' >'" +
                                    (b.folder / "build.log").string() + "' 2>&1";
        b.hex = (b.folder / "traffic.ihx").string();
        b.built = std::system(command.c_str()) == 0 && std::filesystem::exists(b.hex);
        return b;
    }();
    return build;
}

}  // namespace

std::string SkipReason()
{
    if (!OnPath("s51")) return "s51 (ucsim, Debian package sdcc-ucsim) is not on PATH";
    if (!OnPath("sdcc")) return "sdcc (Debian package sdcc) is not on PATH";
    if (!TheBuild().built) return "the sample did not build; see " + (TheBuild().folder / "build.log").string();
    return {};
}

const std::string& SampleHex()
{
    return TheBuild().hex;
}

std::optional<std::uint32_t> FunctionAddress(const std::string& name)
{
    // Map lines read: "C:   00000C23  _lights_pass   lights".
    std::ifstream map(TheBuild().folder / "traffic.map");
    std::string line;
    while (std::getline(map, line)) {
        std::istringstream fields(line);
        std::string area, address, symbol;
        if (fields >> area >> address >> symbol && area == "C:" && symbol == "_" + name)
            return static_cast<std::uint32_t>(std::stoul(address, nullptr, 16));
    }
    return std::nullopt;
}

std::unique_ptr<UcsimProcess> StartSample(bool captureUart)
{
    UcsimLaunch launch;
    launch.program = SampleHex();
    launch.captureUart = captureUart;
    return std::make_unique<UcsimProcess>(launch);
}

bool ChildExists(pid_t pid)
{
    return pid > 0 && (kill(pid, 0) == 0 || errno != ESRCH);
}
