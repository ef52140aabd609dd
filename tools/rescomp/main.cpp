// dp_rescomp: compiles a resource script into a C++ source holding the
// module's resource table. The script format is described in rc_compiler.h,
// the art files in art.h.
//
//   dp_rescomp SCRIPT.rc OUTPUT.cpp [--symbol NAME] [--depfile FILE]
//
// --symbol names the function returning the table (AfxModuleResources unless
// given); --depfile writes the inputs read, for the build system to track.
// Exit status 0 on success, 1 on an error in the inputs, 2 on bad arguments.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "tools/rescomp/emit.h"
#include "tools/rescomp/rc_compiler.h"

namespace {

int Usage(const std::string& problem)
{
    std::cerr << "dp_rescomp: " << problem << "\n"
              << "usage: dp_rescomp SCRIPT.rc OUTPUT.cpp [--symbol NAME] [--depfile FILE]\n";
    return 2;
}

// Writes beside the target and renames, so that a failed run never leaves a
// half-written file that a later build would take as up to date.
void WriteFile(const std::filesystem::path& path, const std::string& contents)
{
    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path());
    std::filesystem::path temporary = path;
    temporary += ".tmp";
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        out << contents;
        out.close();
        if (!out) throw std::runtime_error("cannot write '" + temporary.string() + "'");
    }
    std::filesystem::rename(temporary, path);
}

}  // namespace

int main(int argc, char** argv)
{
    std::string input, output, symbol = "AfxModuleResources", depfile;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--symbol" || arg == "--depfile") {
            if (i + 1 >= argc) return Usage(arg + " needs a value");
            (arg == "--symbol" ? symbol : depfile) = argv[++i];
        } else if (!arg.empty() && arg[0] == '-') {
            return Usage("unknown option " + arg);
        } else if (input.empty()) {
            input = arg;
        } else if (output.empty()) {
            output = arg;
        } else {
            return Usage("too many arguments");
        }
    }
    if (input.empty() || output.empty()) return Usage("a script and an output file are needed");
    if (!rescomp::IsIdentifier(symbol)) return Usage("'" + symbol + "' is not a C identifier");

    try {
        const rescomp::CompileResult result = rescomp::CompileScriptFile(input);
        WriteFile(output, rescomp::GenerateSource(result, symbol, std::filesystem::path(input).filename().string()));
        if (!depfile.empty()) WriteFile(depfile, rescomp::GenerateDepfile(output, result.inputs));
    } catch (const rescomp::CompileError& error) {
        std::cerr << error.what() << "\n";
        return 1;
    } catch (const std::exception& error) {
        std::cerr << "dp_rescomp: error: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
