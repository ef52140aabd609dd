// The resource compiler on mutated scripts, and the platform's readers on
// what it makes. The input is a script, then (after the first NUL) the text
// every art file the script names reads as. A script either fails with a
// CompileError or compiles into blobs the readers take whole: a menu, a
// toolbar, a string, a bitmap or an icon set the compiler wrote that its
// reader rejects is a finding, as is any crash or sanitizer report.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/resource_formats.h"
#include "platform/gdi/dib.h"
#include "platform/gdi/icon_file.h"
#include "tools/rescomp/emit.h"
#include "tools/rescomp/rc_compiler.h"

namespace {

bool ReaderTakes(const rescomp::CompiledResource& resource)
{
    // An empty string resource points at a byte of its own in the generated
    // table, never at null; read it the same way.
    static constexpr unsigned char kEmpty[1] = {0};
    const unsigned char* data = resource.data.empty() ? kEmpty : resource.data.data();
    const size_t size = resource.data.size();
    switch (resource.type) {
    case ResourceType::Menu: return ParseMenuTemplate(data, size).has_value();
    case ResourceType::Toolbar: return ParseToolbar(data, size).has_value();
    case ResourceType::String: return StringFromBlob(data, size).has_value();
    case ResourceType::Bitmap: {
        gdi::DibImage image;
        return gdi::DecodeDib(data, size, image);
    }
    case ResourceType::Icon: {
        std::vector<gdi::DibImage> images;
        return gdi::DecodeIconFile(data, size, images);
    }
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const size_t split = input.find('\0');
    const std::string_view script = input.substr(0, split);
    const std::string art = split == std::string_view::npos ? std::string() : std::string(input.substr(split + 1));
    const rescomp::FileReader read = [&art](const std::string&) { return std::optional<std::string>(art); };

    try {
        const rescomp::CompileResult result = rescomp::CompileScript(script, "fuzz.rc", read);
        for (const rescomp::CompiledResource& resource : result.resources) {
            if (ReaderTakes(resource)) continue;
            std::fprintf(stderr, "the reader rejects resource %u of type %u, declared at line %d\n", resource.id,
                         static_cast<unsigned>(resource.type), resource.line);
            std::abort();
        }
        rescomp::GenerateSource(result, "FuzzResources", "fuzz.rc");
    } catch (const rescomp::CompileError&) {
        // A script the compiler refuses, with its file and line: what it is for.
    }
    return 0;
}
