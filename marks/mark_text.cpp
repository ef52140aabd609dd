#include "marks/mark_text.h"

#include <charconv>

#include "siblings/orv_project_misc.h"

namespace {

// "(文件:" and ", 行:" in GBK.
constexpr std::string_view kFileLabel = "(\xCE\xC4\xBC\xFE:";
constexpr std::string_view kLineLabel = ", \xD0\xD0:";

}  // namespace

void CMarkTextMaker::BeginFile(const char* file, const char* baseDirectory)
{
    char relative[kPathBytes];
    PathRelativePathToEx(relative, file, baseDirectory);
    m_prefix.assign(kFileLabel);
    m_prefix += relative;
    m_prefix += kLineLabel;
}

const std::string& CMarkTextMaker::Text(int line, std::string_view markText)
{
    char digits[16];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, line);
    m_text.assign(m_prefix);
    m_text.append(digits, error == std::errc() ? end : digits);
    m_text += ')';
    if (m_text.size() < kMarkPositionWidth) m_text.append(kMarkPositionWidth - m_text.size(), ' ');
    m_text += markText;
    return m_text;
}
