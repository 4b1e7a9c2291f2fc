#include "base/HandleTable.h"
#include "files/Files.h"

#include <thread>
#include "support/TestFolder.h"

namespace
{

/// The names found, those of folders with a slash, and the sizes of files; or the last error.
std::string Found(const std::wstring& strPath)
{
    WIN32_FIND_DATA data;
    const HANDLE hFind = ::FindFirstFile(strPath.c_str(), &data);
    if (hFind == INVALID_HANDLE_VALUE)
        return "error " + std::to_string(::GetLastError());
    std::string strFound;
    do
    {
        const bool bFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        strFound += winlite::ToUtf8(data.cFileName) + (bFolder ? "/ " : " " + std::to_string(data.nFileSizeLow) + " ");
    } while (::FindNextFile(hFind, &data));
    EXPECT_EQ(::GetLastError(), ERROR_NO_MORE_FILES);
    EXPECT_TRUE(::FindClose(hFind));
    EXPECT_FALSE(::FindClose(hFind) || ::FindNextFile(hFind, &data));
    EXPECT_EQ(::GetLastError(), ERROR_INVALID_HANDLE);
    return strFound;
}

} // namespace

TEST(FindFileTest, PatternsDisregardCaseAndPathsTakeBothSeparators)
{
    const std::size_t nHandles = winlite::OpenHandleCount();
    const CTestFolder folder;
    for (const char* pszName : {"b.sp", "A.SP", "c.spx", "\xC3\x89t\xC3\xA9.sp", "plain", "\xFFnot utf-8.sp"})
        folder.Write(pszName, "12345");
    folder.Write("Sub/deep.Sp", "");
    const struct
    {
        const wchar_t* pszPath;
        const char* pszFound;
    } vCases[] = {
        {L"\\*.sp", "A.SP 5 b.sp 5 \xC3\x89t\xC3\xA9.sp 5 "},
        {L"/*.SP", "A.SP 5 b.sp 5 \xC3\x89t\xC3\xA9.sp 5 "},
        {L"\\\xC9T\xC9.*", "\xC3\x89t\xC3\xA9.sp 5 "},
        {L"\\?.sp?", "A.SP 5 b.sp 5 c.spx 5 "},
        {L"\\b?.sp", "b.sp 5 "},
        {L"\\*p*x", "c.spx 5 "},
        {L"\\PLAIN", "plain 5 "},
        {L"\\s*", "Sub/ "},
        {L"\\Sub\\*.*", "./ ../ deep.Sp 0 "},
        {L"\\Sub/*", "./ ../ deep.Sp 0 "},
        {L"\\*.txt", "error 2"},
        {L"\\", "error 2"},
        {L"\\none\\*.sp", "error 3"},
        {L"\\plain\\*.sp", "error 3"},
    };
    for (const auto& c : vCases)
        EXPECT_EQ(Found(folder + c.pszPath), c.pszFound) << winlite::ToUtf8(c.pszPath);
    EXPECT_EQ(winlite::OpenHandleCount(), nHandles);
}

TEST(FindFileTest, FilesThatGoDuringTheSearchAreLeftOut)
{
    const CTestFolder folder;
    for (const char* pszName : {"1", "2", "3"})
        folder.Write(pszName, "");
    WIN32_FIND_DATA data;
    const HANDLE hFind = ::FindFirstFile((folder + L"\\?").c_str(), &data);
    std::filesystem::remove(winlite::ToUtf8(folder + L"/2"));
    EXPECT_TRUE(::FindNextFile(hFind, &data));
    EXPECT_STREQ(data.cFileName, L"3");
    EXPECT_FALSE(::FindNextFile(hFind, &data));
    EXPECT_TRUE(::FindClose(hFind));
}

TEST(FindFileTest, ErrorsOfAThreadHaveTexts)
{
    const CTestFolder folder;
    folder.Write("file", "");
    EXPECT_EQ(::GetFileAttributes((folder + L"\\Sub").c_str()), FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(::GetFileAttributes((folder + L"\\file").c_str()), FILE_ATTRIBUTE_NORMAL);
    const struct
    {
        std::wstring strPath;
        DWORD dwError;
    } vMissing[] = {{folder + L"\\none", ERROR_FILE_NOT_FOUND},
                    {folder + L"\\no\\ne", ERROR_PATH_NOT_FOUND},
                    {folder + L"\\file\\x", ERROR_PATH_NOT_FOUND},
                    {L"", ERROR_PATH_NOT_FOUND}};
    for (const auto& missing : vMissing)
    {
        EXPECT_EQ(::GetFileAttributes(missing.strPath.c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(::GetLastError(), missing.dwError) << winlite::ToUtf8(missing.strPath);
    }
    const auto format = [](DWORD dwFlags, DWORD dwError, WCHAR* pszText, DWORD nSize)
    { return ::FormatMessage(dwFlags, nullptr, dwError, 0, pszText, nSize, nullptr); };
    constexpr DWORD FLAGS = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    WCHAR szText[100];
    const DWORD nLength = format(FLAGS, ERROR_PATH_NOT_FOUND, szText, 100);
    EXPECT_EQ(std::wstring(szText), L"The folder was not found.\r\n");
    EXPECT_EQ(nLength, std::wcslen(szText));
    EXPECT_EQ(format(FLAGS, ERROR_PATH_NOT_FOUND, szText, nLength + 1), nLength);
    EXPECT_EQ(format(FLAGS, ERROR_PATH_NOT_FOUND, szText, nLength), 0u);
    EXPECT_EQ(::GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(format(FLAGS, 54321, szText, 100), 0u);
    EXPECT_EQ(::GetLastError(), ERROR_MR_MID_NOT_FOUND);
    EXPECT_EQ(format(0x400, ERROR_PATH_NOT_FOUND, szText, 100), 0u);
    EXPECT_EQ(::GetLastError(), ERROR_INVALID_PARAMETER);
    std::thread([] { EXPECT_EQ(::GetLastError(), ERROR_SUCCESS); }).join();
}
