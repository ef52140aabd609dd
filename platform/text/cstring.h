// CString: a byte string of the ANSI code page (GBK at run time). Lengths and
// positions count bytes, as the library's padding and fitting rules require.
#pragma once

#include <cstdarg>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/core/win_types.h"

class AFX_EXT_CLASS CString {
public:
    CString() = default;
    CString(const char* text) : m_text(text ? text : "") {}
    // At most length bytes, fewer when the text ends first: a length past the
    // terminator never reads beyond it.
    CString(const char* text, int length)
        : m_text(text ? std::string(text, strnlen(text, static_cast<size_t>(std::max(length, 0)))) : std::string()) {}
    CString(std::string_view text) : m_text(text) {}
    CString(char ch, int repeat = 1) : m_text(static_cast<size_t>(std::max(repeat, 0)), ch) {}

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    operator const char*() const { return m_text.c_str(); }
    const char* GetString() const { return m_text.c_str(); }
    const std::string& str() const { return m_text; }
    char GetAt(int index) const { return index >= 0 && index < GetLength() ? m_text[static_cast<size_t>(index)] : '\0'; }
    char operator[](int index) const { return GetAt(index); }

    CString& operator=(const char* text) { m_text = text ? text : ""; return *this; }
    CString& operator+=(const CString& other) { m_text += other.m_text; return *this; }
    CString& operator+=(const char* text) { if (text) m_text += text; return *this; }
    CString& operator+=(char ch) { m_text += ch; return *this; }
    friend CString operator+(const CString& a, const CString& b) { return CString(a.m_text + b.m_text); }
    friend CString operator+(const CString& a, const char* b) { return a + CString(b); }
    friend CString operator+(const char* a, const CString& b) { return CString(a) + b; }
    friend bool operator==(const CString& a, const CString& b) { return a.m_text == b.m_text; }
    friend bool operator==(const CString& a, const char* b) { return a.m_text == (b ? b : ""); }

    // Byte-wise comparison, as strcmp.
    int Compare(const char* other) const;
    // Folds ASCII letters only, as _stricmp on GBK text does.
    int CompareNoCase(const char* other) const;

    void Format(const char* format, ...) __attribute__((format(printf, 2, 3)));
    void FormatV(const char* format, va_list args);

    // Pieces are cut to the string: a position or count past its end stops
    // at the end, one before its start at the start. Mid's negative count
    // takes the rest of the string.
    CString Left(int count) const;
    CString Mid(int first, int count = -1) const;
    CString Right(int count) const;
    int Find(char ch, int start = 0) const;
    int Find(const char* sub, int start = 0) const;
    int ReverseFind(char ch) const;

    // Writable buffer of at least minLength bytes plus a terminator; the length
    // is taken from the terminator again by ReleaseBuffer.
    char* GetBuffer(int minLength);
    void ReleaseBuffer(int newLength = -1);

    bool LoadString(UINT id);

private:
    std::string m_text;
};
