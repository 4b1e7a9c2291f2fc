#include "mfc/String.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cwchar>
#include <locale.h>
#include <vector>

namespace
{

/// Formats with a locale of its own while it lives, whatever the program has set: decimal points, and narrow text as
/// UTF-8.
class CNeutralLocale
{
public:
    CNeutralLocale() : m_Previous(uselocale(Neutral())) {}
    ~CNeutralLocale() { uselocale(m_Previous); }
    CNeutralLocale(const CNeutralLocale&) = delete;
    CNeutralLocale& operator=(const CNeutralLocale&) = delete;

private:
    static locale_t Neutral()
    {
        static const locale_t loc = newlocale(LC_ALL_MASK, "C.UTF-8", locale_t{});
        return loc ? loc : LC_GLOBAL_LOCALE;
    }
    locale_t m_Previous;
};

/// The length modifier and conversion of one Windows format item, as the C library wants them.
std::wstring TranslateConversion(std::wstring_view strLength, wchar_t chConversion)
{
    const bool bNarrowAsked = strLength == L"h";
    switch (chConversion)
    {
    case L's':
    case L'c':
        return std::wstring(bNarrowAsked ? L"" : L"l") + chConversion;
    case L'S':
    case L'C':
        return std::wstring(strLength == L"l" ? L"l" : L"") + (chConversion == L'S' ? L's' : L'c');
    default:
        break;
    }
    if (strLength == L"l" || strLength == L"I32")
        return std::wstring(1, chConversion);
    if (strLength == L"I64")
        return std::wstring(L"ll") + chConversion;
    if (strLength == L"I")
        return std::wstring(L"z") + chConversion;
    return std::wstring(strLength) + chConversion;
}

/// A format for the C library's wide printf that means what the given one means on Windows.
std::wstring TranslateFormat(std::wstring_view strFormat)
{
    std::wstring strResult;
    for (std::size_t i = 0; i < strFormat.size(); ++i)
    {
        strResult += strFormat[i];
        if (strFormat[i] != L'%')
            continue;
        const std::size_t iFlagsEnd =
            std::min(strFormat.find_first_not_of(L"-+ #0123456789.*", i + 1), strFormat.size());
        std::size_t iConversion = iFlagsEnd;
        for (const std::wstring_view strLength : {L"I64", L"I32", L"I", L"ll", L"l", L"h", L"w"})
        {
            if (strFormat.substr(iFlagsEnd, strLength.size()) == strLength)
            {
                iConversion += strLength.size();
                break;
            }
        }
        if (iConversion >= strFormat.size())
        {
            // Cut off in the middle of an item: a percent sign is all that is left of it.
            strResult += L'%';
            break;
        }
        strResult += strFormat.substr(i + 1, iFlagsEnd - i - 1);
        strResult += TranslateConversion(strFormat.substr(iFlagsEnd, iConversion - iFlagsEnd), strFormat[iConversion]);
        i = iConversion;
    }
    return strResult;
}

} // namespace

CString::CString(LPCWSTR pszText)
{
    if (pszText)
        m_strText = pszText;
}

CString& CString::operator+=(const CString& str)
{
    m_strText += str.m_strText;
    return *this;
}

void CString::Format(LPCWSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    FormatV(pszFormat, args);
    va_end(args);
}

void CString::FormatV(LPCWSTR pszFormat, va_list args)
{
    // vswprintf does not tell the length it needs, so the buffer grows until the text fits; a text that never does is
    // one with an invalid character.
    constexpr std::size_t MAX_LENGTH = std::size_t{1} << 26;
    const CNeutralLocale locale;
    const std::wstring strFormat = TranslateFormat(pszFormat);
    for (std::vector<wchar_t> vBuffer(256); vBuffer.size() <= MAX_LENGTH; vBuffer.resize(vBuffer.size() * 4))
    {
        va_list argsTry;
        va_copy(argsTry, args);
        errno = 0;
        const int nLength = std::vswprintf(vBuffer.data(), vBuffer.size(), strFormat.c_str(), argsTry);
        va_end(argsTry);
        if (nLength >= 0)
        {
            m_strText.assign(vBuffer.data(), static_cast<std::size_t>(nLength));
            return;
        }
        if (errno == EILSEQ)
            break;
    }
    m_strText.clear();
}
