// The sample 8051 project the demo host opens: its C sources read from
// demo/sample, under a project folder of the kind a user's machine has, and
// everything a host derives from them: file groups, targets, bookmarks,
// breakpoints, function lists, a build log, search results, debug messages.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "demo/toolchain/message_line.h"
#include "output/message_line_record.h"

class CFuncSeekItems;
struct WorkSpaceGroup;
struct WorkSpaceTarget;

struct SourceFile {
    std::string name;  // relative to the project folder, as the project names it
    std::string text;  // GBK
};

class SampleProject {
public:
    // Reads every .c and .h file of the folder; an unreadable folder gives
    // an empty project.
    explicit SampleProject(const std::filesystem::path& folder);

    // Where the project lives as its paths show it: a folder, with its separator.
    static constexpr const char* kFolder = "C:\\8051\\traffic\\";
    static constexpr const char* kProjectFile = "C:\\8051\\traffic\\traffic.prj";

    const std::vector<SourceFile>& Files() const { return m_files; }
    const std::filesystem::path& Folder() const { return m_folder; }
    // An edited copy of one file stands in for it (its text is what the
    // views show and what a build compiles) until Revert; false when the
    // project has no such file or the copy cannot be read.
    bool UseVariant(const std::string& name, const std::filesystem::path& variant);
    void Revert();
    // The file an edited copy stands in for, and the copy; empty without one.
    const std::string& VariantName() const { return m_variantName; }
    const std::filesystem::path& VariantPath() const { return m_variantPath; }
    // The file a full project path names; null for a path outside the project.
    const SourceFile* FileAt(std::string_view path) const;
    std::string PathOf(const SourceFile& file) const { return kFolder + file.name; }
    // The first 1-based line of a file holding the text; 0 when none does.
    int LineOf(std::string_view name, std::string_view text) const;
    // A line's text without its line break; empty beyond the file.
    std::string LineText(std::string_view name, int line) const;

    std::vector<WorkSpaceGroup> Groups() const;
    std::vector<WorkSpaceTarget> Targets() const;
    // The functions a file defines, by name as the function list wants them.
    std::unique_ptr<CFuncSeekItems> Functions(std::string_view path) const;
    // A build of the project: the compiler's lines, warnings and errors with
    // their locations, and its summary.
    std::vector<MessageLineRecord> BuildLog() const;
    // Every line of every file holding the text, grouped under its file.
    std::vector<MessageLineRecord> Search(std::string_view needle) const;
    // What the debugger reports while loading and running the program.
    std::vector<MessageLineRecord> DebugMessages() const;

private:
    SourceFile* FileNamed(const std::string& name);

    std::filesystem::path m_folder;
    std::vector<SourceFile> m_files;
    std::string m_variantName;
    std::filesystem::path m_variantPath;
    std::string m_originalText;  // of the file a variant stands in for
};
