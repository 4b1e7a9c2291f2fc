#pragma once

#include "base/Types.h"

#include <cstdarg>
#include <string>
#include <string_view>

/// A wide string. Formats follow the Windows rules of a Unicode build: %s and %c take wide text, %S and %hs narrow
/// (UTF-8) text, %ld is 32 bits, %I64d is 64 bits; the program's locale never changes a result. Any thread, one at a
/// time.
class CString
{
public:
    CString() = default;
    CString(LPCWSTR pszText);
    CString(std::wstring_view strText) : m_strText(strText) {}

    int GetLength() const { return static_cast<int>(m_strText.size()); }
    BOOL IsEmpty() const { return m_strText.empty(); }
    void Empty() { m_strText.clear(); }
    LPCWSTR GetString() const { return m_strText.c_str(); }
    operator LPCWSTR() const { return GetString(); }

    /// Replaces the text by the formatted one, of any length. A format that cannot be carried out leaves an empty text.
    void Format(LPCWSTR pszFormat, ...);
    void FormatV(LPCWSTR pszFormat, va_list args);

    CString& operator+=(const CString& str);
    friend CString operator+(CString strLeft, const CString& strRight) { return strLeft += strRight; }
    friend bool operator==(const CString&, const CString&) = default;
    friend bool operator==(const CString& str, LPCWSTR psz) { return str.m_strText == (psz ? psz : L""); }

private:
    std::wstring m_strText;
};
