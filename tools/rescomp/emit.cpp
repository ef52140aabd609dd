#include "tools/rescomp/emit.h"

#include <cstdio>
#include <sstream>

namespace rescomp {

namespace {

const char* TypeName(ResourceType type)
{
    switch (type) {
    case ResourceType::Bitmap: return "Bitmap";
    case ResourceType::Menu: return "Menu";
    case ResourceType::String: return "String";
    case ResourceType::Icon: return "Icon";
    case ResourceType::Toolbar: return "Toolbar";
    }
    return nullptr;
}

// Make-style escaping of a path in a dependency line.
std::string DepfilePath(const std::string& path)
{
    std::string out;
    for (const char c : path) {
        if (c == ' ' || c == '#' || c == '\\') out += '\\';
        if (c == '$') out += '$';
        out += c;
    }
    return out;
}

}  // namespace

bool IsIdentifier(std::string_view name)
{
    if (name.empty() || (name[0] >= '0' && name[0] <= '9')) return false;
    for (const char c : name)
        if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_')) return false;
    return true;
}

std::string GenerateSource(const CompileResult& result, const std::string& symbol, const std::string& scriptName)
{
    std::ostringstream out;
    out << "// Resources compiled by dp_rescomp from " << scriptName << "; rebuilt with it, not edited by hand.\n"
        << "#include \"platform/core/resources.h\"\n\n"
        << "namespace {\n\n";
    for (size_t i = 0; i < result.resources.size(); ++i) {
        const CompiledResource& resource = result.resources[i];
        out << "// " << TypeName(resource.type) << " " << resource.id << " (" << scriptName << ":" << resource.line << ")\n";
        if (resource.data.empty()) {
            // An empty string still needs an object to point at.
            out << "alignas(8) const unsigned char kResource" << i << "[1] = {0};\n\n";
            continue;
        }
        out << "alignas(8) const unsigned char kResource" << i << "[" << resource.data.size() << "] = {";
        for (size_t k = 0; k < resource.data.size(); ++k) {
            char byte[8];
            std::snprintf(byte, sizeof byte, "0x%02x,", resource.data[k]);
            out << (k % 16 == 0 ? "\n    " : " ") << byte;
        }
        out << "\n};\n\n";
    }
    if (result.resources.empty()) {
        out << "const ResourceTable kTable = {nullptr, 0};\n\n";
    } else {
        out << "const ResourceEntry kEntries[] = {\n";
        for (size_t i = 0; i < result.resources.size(); ++i) {
            const CompiledResource& resource = result.resources[i];
            out << "    {ResourceType::" << TypeName(resource.type) << ", " << resource.id << "u, kResource" << i << ", " << resource.data.size() << "u},\n";
        }
        out << "};\n\n"
            << "const ResourceTable kTable = {kEntries, sizeof kEntries / sizeof kEntries[0]};\n\n";
    }
    out << "}  // namespace\n\n"
        << "extern \"C\" __attribute__((visibility(\"default\"))) const ResourceTable* " << symbol << "()\n"
        << "{\n"
        << "    return &kTable;\n"
        << "}\n";
    return out.str();
}

std::string GenerateDepfile(const std::string& output, const std::vector<std::string>& inputs)
{
    std::string out = DepfilePath(output) + ":";
    for (const std::string& input : inputs) out += " \\\n  " + DepfilePath(input);
    out += "\n";
    return out;
}

}  // namespace rescomp
