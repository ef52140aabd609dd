#include "siblings/orv_project_misc.h"

#include <cstring>
#include <string>
#include <vector>

#include "platform/shell/path.h"
#include "platform/text/compare.h"
#include "platform/text/gbk.h"

namespace {

OrvProjectMisc::Listener& ListenerSlot()
{
    static OrvProjectMisc::Listener listener;
    return listener;
}

// The components of a path, split on separators that are not trail bytes.
std::vector<std::string> SplitPath(std::string_view path)
{
    std::vector<std::string> parts;
    std::string current;
    for (size_t i = 0; i < path.size();) {
        const int length = GbkCharLength(path, i);
        if (length == 1 && IsPathSeparator(path[i])) {
            if (!current.empty()) parts.push_back(std::move(current));
            current.clear();
        } else {
            current.append(path.substr(i, static_cast<size_t>(length)));
        }
        i += static_cast<size_t>(length);
    }
    if (!current.empty()) parts.push_back(std::move(current));
    return parts;
}

// Copies text into out, cut at a character boundary to fit with its terminator.
void CopyBounded(char* out, std::string_view text)
{
    size_t used = 0;
    while (used < text.size()) {
        const auto length = static_cast<size_t>(GbkCharLength(text, used));
        if (used + length > kPathBytes - 1) break;
        used += length;
    }
    if (used > 0) std::memcpy(out, text.data(), used);
    out[used] = '\0';
}

std::string_view BoundedView(const char* text)
{
    return text ? std::string_view(text, strnlen(text, 4096)) : std::string_view();
}

}  // namespace

BOOL PathRelativePathToEx(char* out, const char* path, const char* baseDir)
{
    if (!out) return FALSE;
    const std::string_view full = BoundedView(path);
    const std::string_view base = BoundedView(baseDir);
    const auto fileParts = SplitPath(full);
    const auto baseParts = SplitPath(base);
    // Paths on different roots (drives, or one relative and one absolute) have
    // no relative form.
    const bool rooted = !full.empty() && IsPathSeparator(full.front());
    const bool baseRooted = !base.empty() && IsPathSeparator(base.front());
    if (base.empty() || fileParts.empty() || baseParts.empty() || rooted != baseRooted ||
        _stricmp(fileParts.front().c_str(), baseParts.front().c_str()) != 0) {
        CopyBounded(out, full);
        return FALSE;
    }
    size_t common = 0;
    while (common < baseParts.size() && common + 1 < fileParts.size() &&
           _stricmp(fileParts[common].c_str(), baseParts[common].c_str()) == 0) {
        ++common;
    }
    const char separator = full.find('\\') != std::string_view::npos || full.find('/') == std::string_view::npos ? '\\' : '/';
    std::string relative;
    for (size_t i = common; i < baseParts.size(); ++i) (relative += "..") += separator;
    for (size_t i = common; i < fileParts.size(); ++i) {
        relative += fileParts[i];
        if (i + 1 < fileParts.size()) relative += separator;
    }
    CopyBounded(out, relative);
    return TRUE;
}

void CleanTerminate(int code)
{
    if (ListenerSlot()) ListenerSlot()("CleanTerminate", code);
}

void KeyF5RefreshWnd()
{
    if (ListenerSlot()) ListenerSlot()("KeyF5RefreshWnd", 0);
}

namespace {
struct DockFont {
    std::string face = "\xCB\xCE\xCC\xE5";  // 宋体
    int points = 9;
};
DockFont& DockFontSetting()
{
    static DockFont font;
    return font;
}
}  // namespace

int GetDockFontInfo(char* faceName)
{
    const DockFont& font = DockFontSetting();
    if (faceName) CopyBounded(faceName, font.face);
    return font.points;
}

namespace OrvProjectMisc {
void SetDockFont(const char* faceName, int points)
{
    DockFontSetting() = DockFont{faceName ? std::string(BoundedView(faceName)) : std::string(), points};
}

void SetListener(Listener listener)
{
    ListenerSlot() = std::move(listener);
}
}  // namespace OrvProjectMisc

namespace {
long& ValueDisplayModeSetting()
{
    static long mode = 0;
    return mode;
}
}  // namespace

long CustomGetValueDisplayMode()
{
    return ValueDisplayModeSetting();
}

namespace OrvProjectMisc {
void SetValueDisplayMode(long mode)
{
    ValueDisplayModeSetting() = mode;
}
}  // namespace OrvProjectMisc
