#include "mfc/String.h"

#include <clocale>
#include <gtest/gtest.h>

namespace
{

CString Formatted(LPCWSTR pszFormat, ...)
{
    CString str;
    va_list args;
    va_start(args, pszFormat);
    str.FormatV(pszFormat, args);
    va_end(args);
    return str;
}

} // namespace

TEST(StringTest, FormatsFollowTheWindowsRules)
{
    EXPECT_EQ(Formatted(L"%s and %S", L"wide \x00D7", "narrow \xC3\x97"), L"wide \x00D7 and narrow \x00D7");
    EXPECT_EQ(Formatted(L"%ls %hs %ws", L"a", "b", L"c"), L"a b c");
    EXPECT_EQ(Formatted(L"%c%C", L'x', 'y'), L"xy");
    EXPECT_EQ(Formatted(L"%ld %lu %lx", LONG{-5}, 4000000000u, 255u), L"-5 4000000000 ff");
    EXPECT_EQ(Formatted(L"%I64d %I32d %lld", 1LL << 40, 7, 1LL << 40), L"1099511627776 7 1099511627776");
    EXPECT_EQ(Formatted(L"%5.1f|%-4d|%04X|%%", 2.25, 7, 0xABu), L"  2.2|7   |00AB|%");
    EXPECT_EQ(Formatted(L"%.*s|%8s", 2, L"abcdef", L"right"), L"ab|   right");
    EXPECT_EQ(Formatted(L"ends in %"), L"ends in %");
    EXPECT_EQ(Formatted(L"%s", std::wstring(100000, L'z').c_str()).GetLength(), 100000);
}

TEST(StringTest, TheProgramsLocaleChangesNothing)
{
    const char* pszOld = std::setlocale(LC_ALL, nullptr);
    const std::string strOld = pszOld ? pszOld : "C";
    for (const char* pszLocale : {"de_DE.UTF-8", "fr_FR.UTF-8", "C"})
    {
        std::setlocale(LC_ALL, pszLocale);
        EXPECT_EQ(Formatted(L"%.2f %S", 1.5, "\xC3\xA9"), L"1.50 \x00E9");
    }
    std::setlocale(LC_ALL, strOld.c_str());
}
