#include "demo/sample_project.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "demo/project/function_items.h"
#include "demo/project/source_search.h"
#include "funclist/func_seek_items.h"
#include "platform/text/gbk.h"
#include "siblings/work_space_tree1.h"
#include "siblings/work_space_tree2.h"

namespace {

bool IsSource(const std::filesystem::path& path)
{
    return path.extension() == ".c" || path.extension() == ".h";
}

std::string ReadWhole(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// Line starts are found afresh for each question: the project is a handful
// of small files and asks only while it sets itself up.
std::string_view NthLine(std::string_view text, int line)
{
    for (int at = 1; !text.empty(); ++at) {
        const std::size_t end = text.find('\n');
        std::string_view current = text.substr(0, end);
        if (!current.empty() && current.back() == '\r') current.remove_suffix(1);
        if (at == line) return current;
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return {};
}

// One diagnostic the compiler reports at the first line holding `at`.
struct Diagnostic {
    const char* file;
    const char* at;
    const char* kind;  // "warning" or "error"
    const char* code;
    const char* text;
};

// What the build reports: it points at real lines of the sample, found by
// their text, so the log stays right when the sample is edited.
constexpr Diagnostic kDiagnostics[] = {
    {"main.c", "temperature += DRIFT", "warning", "C259", "'DRIFT': double constant converted to float"},
    {"lights.c", "P1 = ~lamp_mask", "warning", "C182", "'~': result truncated to 8 bits"},
    {"uart.c", "SBUF = c", "error", "C202", "'SBUF': undefined identifier"},
};

}  // namespace

SampleProject::SampleProject(const std::filesystem::path& folder) : m_folder(folder)
{
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        if (entry.is_regular_file() && IsSource(entry.path())) {
            m_files.push_back({entry.path().filename().string(), ReadWhole(entry.path())});
        }
    }
    // main.c first, then by name: the order a project file keeps them in.
    std::sort(m_files.begin(), m_files.end(), [](const SourceFile& a, const SourceFile& b) {
        return std::pair(a.name != "main.c", a.name) < std::pair(b.name != "main.c", b.name);
    });
}

SourceFile* SampleProject::FileNamed(const std::string& name)
{
    for (SourceFile& file : m_files) {
        if (file.name == name) return &file;
    }
    return nullptr;
}

bool SampleProject::UseVariant(const std::string& name, const std::filesystem::path& variant)
{
    Revert();
    SourceFile* file = FileNamed(name);
    std::error_code error;
    if (!file || !std::filesystem::is_regular_file(variant, error)) return false;
    m_originalText = file->text;
    file->text = ReadWhole(variant);
    m_variantName = name;
    m_variantPath = variant;
    return true;
}

void SampleProject::Revert()
{
    if (SourceFile* file = FileNamed(m_variantName)) file->text = m_originalText;
    m_variantName.clear();
    m_variantPath.clear();
    m_originalText.clear();
}

const SourceFile* SampleProject::FileAt(std::string_view path) const
{
    const std::string_view folder = kFolder;
    if (path.substr(0, folder.size()) != folder) return nullptr;
    const std::string_view name = path.substr(folder.size());
    for (const SourceFile& file : m_files) {
        if (file.name == name) return &file;
    }
    return nullptr;
}

int SampleProject::LineOf(std::string_view name, std::string_view text) const
{
    for (const SourceFile& file : m_files) {
        if (file.name != name) continue;
        for (const SearchHit& hit : SearchText(file.name, file.text, text, true)) return hit.line;
    }
    return 0;
}

std::string SampleProject::LineText(std::string_view name, int line) const
{
    for (const SourceFile& file : m_files) {
        if (file.name == name) return std::string(NthLine(file.text, line));
    }
    return {};
}

std::vector<WorkSpaceGroup> SampleProject::Groups() const
{
    WorkSpaceGroup sources{GBK("源文件"), {}};
    WorkSpaceGroup headers{GBK("头文件"), {}};
    for (const SourceFile& file : m_files) (file.name.ends_with(".c") ? sources : headers).files.push_back(file.name);
    return {sources, headers};
}

std::vector<WorkSpaceTarget> SampleProject::Targets() const
{
    return {
        {GBK("目标 1: 调试"), {GBK("器件: 8051"), GBK("存储模式: small"), GBK("晶振: 11.0592 MHz"), GBK("优化: 无")}},
        {GBK("目标 2: 发布"), {GBK("器件: 8051"), GBK("存储模式: small"), GBK("优化: 代码尺寸")}},
    };
}

std::unique_ptr<CFuncSeekItems> SampleProject::Functions(std::string_view path) const
{
    auto list = std::make_unique<CFuncSeekItems>();
    const SourceFile* file = FileAt(path);
    if (!file) return list;
    FillFuncSeekItems(ScanFunctions(file->text), *list);
    return list;
}

std::vector<MessageLineRecord> SampleProject::BuildLog() const
{
    std::vector<MessageLineRecord> log{MessageLine(0, GBK("构建目标 'traffic'"))};
    int warnings = 0;
    int errors = 0;
    for (const SourceFile& file : m_files) {
        if (!file.name.ends_with(".c")) continue;
        log.push_back(MessageLine(1, GBK("正在编译 " + file.name + "...")));
        for (const Diagnostic& diagnostic : kDiagnostics) {
            const int line = diagnostic.file == file.name ? LineOf(file.name, diagnostic.at) : 0;
            if (line == 0) continue;
            char text[400];
            std::snprintf(text, sizeof text, "%s(%d): %s %s: %s", file.name.c_str(), line, diagnostic.kind,
                          diagnostic.code, diagnostic.text);
            log.push_back(MessageLine(2, text, PathOf(file), line));
            ++(std::string_view(diagnostic.kind) == "error" ? errors : warnings);
        }
    }
    log.push_back(MessageLine(1, GBK("\"traffic\" - " + std::to_string(errors) + " 个错误, " + std::to_string(warnings) + " 个警告")));
    return log;
}

std::vector<MessageLineRecord> SampleProject::Search(std::string_view needle) const
{
    std::vector<MessageLineRecord> results{MessageLine(0, GBK("查找 \"") + std::string(needle) + "\"")};
    int count = 0;
    for (const SourceFile& file : m_files) {
        const std::vector<SearchHit> hits = SearchText(PathOf(file), file.text, needle, true);
        if (hits.empty()) continue;
        results.push_back(MessageLine(1, PathOf(file)));
        for (const SearchHit& hit : hits) {
            char text[400];
            std::snprintf(text, sizeof text, "%s(%d): %s", file.name.c_str(), hit.line, hit.text.c_str());
            results.push_back(MessageLine(2, text, hit.file, hit.line));
        }
        count += static_cast<int>(hits.size());
    }
    results.push_back(MessageLine(0, GBK("共找到 " + std::to_string(count) + " 处")));
    return results;
}

std::vector<MessageLineRecord> SampleProject::DebugMessages() const
{
    const auto located = [this](int level, const std::string& gbkText, const char* name, const char* at) {
        const int line = LineOf(name, at);
        return MessageLine(level, gbkText + " " + name + "(" + std::to_string(line) + ")", kFolder + std::string(name), line);
    };
    return {
        MessageLine(0, GBK("装入 traffic.hex 到模拟目标")),
        MessageLine(1, GBK("复位: PC = 0x0000")),
        located(1, GBK("停在断点:"), "main.c", "timer0_init();"),
        located(1, GBK("单步:"), "timer0.c", "TH0 = RELOAD_HIGH"),
        MessageLine(1, GBK("定时器 0 中断已使能 (IE = 0x82)")),
    };
}
