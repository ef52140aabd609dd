#include "platform/text/cstring.h"

#include <cstdio>
#include <cstring>
#include <vector>

#include "platform/text/compare.h"

int CString::Compare(const char* other) const
{
    return std::strcmp(m_text.c_str(), other ? other : "");
}

int CString::CompareNoCase(const char* other) const
{
    return _stricmp(m_text.c_str(), other ? other : "");
}

void CString::Format(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

void CString::FormatV(const char* format, va_list args)
{
    if (!format) {
        m_text.clear();
        return;
    }
    va_list copy;
    va_copy(copy, args);
    const int needed = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (needed < 0) {
        m_text.clear();
        return;
    }
    std::vector<char> buffer(static_cast<size_t>(needed) + 1);
    std::vsnprintf(buffer.data(), buffer.size(), format, args);
    m_text.assign(buffer.data(), static_cast<size_t>(needed));
}

CString CString::Left(int count) const
{
    count = std::clamp(count, 0, GetLength());
    return CString(m_text.substr(0, static_cast<size_t>(count)));
}

CString CString::Mid(int first, int count) const
{
    first = std::clamp(first, 0, GetLength());
    const int available = GetLength() - first;
    if (count < 0 || count > available) count = available;
    return CString(m_text.substr(static_cast<size_t>(first), static_cast<size_t>(count)));
}

CString CString::Right(int count) const
{
    count = std::clamp(count, 0, GetLength());
    return CString(m_text.substr(m_text.size() - static_cast<size_t>(count)));
}

int CString::Find(char ch, int start) const
{
    if (start < 0 || start >= GetLength()) return -1;
    const auto pos = m_text.find(ch, static_cast<size_t>(start));
    return pos == std::string::npos ? -1 : static_cast<int>(pos);
}

int CString::Find(const char* sub, int start) const
{
    if (!sub || start < 0 || start > GetLength()) return -1;
    const auto pos = m_text.find(sub, static_cast<size_t>(start));
    return pos == std::string::npos ? -1 : static_cast<int>(pos);
}

int CString::ReverseFind(char ch) const
{
    const auto pos = m_text.rfind(ch);
    return pos == std::string::npos ? -1 : static_cast<int>(pos);
}

char* CString::GetBuffer(int minLength)
{
    if (minLength > GetLength()) m_text.resize(static_cast<size_t>(minLength));
    return m_text.data();
}

void CString::ReleaseBuffer(int newLength)
{
    if (newLength < 0) newLength = static_cast<int>(std::strlen(m_text.c_str()));
    m_text.resize(static_cast<size_t>(std::min(newLength, GetLength())));
}
