#include "mfc/File.h"
#include "files/LastError.h"
#include "support/TestFolder.h"

namespace
{

/// The cause of what the call throws; none when it throws nothing.
template<class Call>
int CauseOf(Call call)
{
    try
    {
        call();
        return CFileException::none;
    }
    catch (CFileException* pException)
    {
        const int cause = pException->m_cause;
        pException->Delete();
        return cause;
    }
}

} // namespace

TEST(FileTest, OpeningAnswersTheCauseAndReadingGoesOnWhereThePositionIs)
{
    const CTestFolder folder;
    folder.Write("file", "0123456789");
    CFile file;
    const std::pair<const wchar_t*, int> vCauses[] = {
        {L"\\none", CFileException::fileNotFound},
        {L"\\no\\ne", CFileException::badPath},
        {L"\\Sub", CFileException::accessDenied},
        {L"/Sub\\../file", CFileException::none},
    };
    for (const auto& [pszPath, cause] : vCauses)
    {
        const std::wstring strPath = folder + pszPath;
        CFileException error;
        EXPECT_EQ(file.Open(strPath.c_str(), CFile::modeRead, &error), cause == CFileException::none);
        EXPECT_EQ(error.m_cause, cause);
        EXPECT_EQ(error.m_strFileName == strPath.c_str(), cause != CFileException::none);
    }
    char szBytes[20] = {};
    EXPECT_EQ(file.Read(szBytes, 3), 3u);
    EXPECT_EQ(file.Seek(-4, CFile::end), 6u);
    EXPECT_EQ(file.Seek(-2, CFile::current), 4u);
    EXPECT_EQ(CauseOf([&] { file.Seek(-5, CFile::current); }), CFileException::badSeek);
    EXPECT_EQ(file.Read(szBytes, 20), 6u);
    EXPECT_STREQ(szBytes, "456789");
    EXPECT_EQ(file.Read(szBytes, 20), 0u) << "at the end";
    file.Close();
    file.Close();
    EXPECT_EQ(CauseOf([&] { file.Read(szBytes, 1); }), CFileException::invalidFile);
    EXPECT_FALSE(file.Open(L"", CFile::modeRead));
    EXPECT_EQ(::GetLastError(), ERROR_PATH_NOT_FOUND);
    CFileException error(CFileException::fileNotFound, ERROR_FILE_NOT_FOUND);
    WCHAR szText[9];
    EXPECT_TRUE(error.GetErrorMessage(szText, 9));
    EXPECT_STREQ(szText, L"The file");
    EXPECT_FALSE(CFileException().GetErrorMessage(szText, 9));
    EXPECT_STREQ(szText, L"");
}
