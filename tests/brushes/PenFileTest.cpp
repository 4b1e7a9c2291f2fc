#include "brushes/PenFile.h"

#include "base/HandleTable.h"
#include "brushes/PenTable.h"
#include "support/LogRecorder.h"
#include "support/ShortMemory.h"
#include "support/TestFolder.h"

#include <cstring>
#include <numeric>

namespace
{

using SketchPens = std::vector<Pixtane::EmbeddedTool::Sketcher::SketchPen>;

std::string Words(const std::vector<int>& vWords)
{
    return {reinterpret_cast<const char*>(vWords.data()), vWords.size() * sizeof(int)};
}

/// The record of a pen: "a" is small, the weights of "b" take two reads.
std::string Pen(char cPen)
{
    const int iSize = cPen == 'a' ? 2 : 65;
    std::vector<int> vWords(4 + iSize * iSize);
    std::iota(vWords.begin(), vWords.end(), -iSize);
    vWords[1] = iSize;
    return Words(vWords);
}

std::string File(int iDeclared, const std::string& strPens)
{
    std::string strFile = "SKPN" + Words({iDeclared});
    for (const char cPen : strPens)
        strFile += Pen(cPen);
    return strFile;
}

std::string Names(const SketchPens& vPens)
{
    std::string strNames;
    for (const auto& pen : vPens)
    {
        EXPECT_TRUE(pen.iHardness == 100 && pen.iStrength == 100);
        const auto strRecord = Words({pen.eStyle, pen.iSize, pen.ptCenter.x, pen.ptCenter.y}) + Words(pen.vMask);
        strNames += strRecord == Pen('a') ? 'a' : strRecord == Pen('b') ? 'b' : '?';
    }
    return strNames;
}

/// What Load gives for x.sp.
std::string Loaded(int iDeclared, const std::string& strPens)
{
    return "1|3 File 'x.sp' contains " + std::to_string(iDeclared) + " pens, " + std::to_string(strPens.size()) +
           " pens are loaded.|" + strPens;
}

/// The result, the records in the log, and the pens in the table.
std::string Load(const wchar_t* pszFolder)
{
    CLogRecorder records;
    const int iResult = Pixtane::LoadSketchPens(pszFolder);
    for (const QLRecord& record : records.vRecords)
        EXPECT_TRUE(record.strModule == L"Pixtane" && record.strFunction == L"Pixtane::LoadSketchPens");
    return std::to_string(iResult) + "|" + records.Take() + Names(Pixtane::SketchPens());
}

TEST(PenFileTest, AFileGivesItsWholePensAndItsSummary)
{
    const CTestFolder folder;
    const std::string strInvalid = "1|2 File 'x.sp' is not a valid SketchPen file.|";
    const auto check = [&](const std::string& strFile, const std::string& strExpected)
    {
        folder.Write("x.sp", strFile);
        LetMemoryRunOut(Shortage::Standard, 0x10000); // No size is believed before the weights are there.
        EXPECT_EQ(Load((folder + L"").c_str()), strExpected) << strFile.size();
        EXPECT_FALSE(HasMemoryRunOut()) << strFile.size();
    };
    check(File(2, "ba"), Loaded(2, "ba"));
    check(File(1, "ab"), Loaded(1, "a"));
    check(File(-1, "a"), Loaded(-1, "a"));
    check(File(0, ""), Loaded(0, ""));
    check("SKPM" + File(1, "a").substr(4), strInvalid);
    // Squared and times 4, most of the last ones are little or nothing in 32 bits.
    for (const int iSize : {0, -1, 0x7FFF, 0x8000, 40000, 0x40000000, 0x7FFFFFFF, -0x7FFFFFFF - 1})
        check(File(3, "a") + Words({0, iSize, 0, 0}) + Pen('a'), Loaded(3, "a"));
    const std::string strTwo = File(2, "aa");
    for (std::size_t n = 0; n < strTwo.size(); ++n)
        check(strTwo.substr(0, n), n < 4 ? strInvalid : n < 8 ? "1|" : Loaded(2, n < File(1, "a").size() ? "" : "a"));
}

TEST(PenFileTest, FailuresEndAFileWithThePensReadBefore)
{
    const CTestFolder folder;
    folder.Write("x.sp", File(2, "ab"));
    for (const Shortage eShortage : {Shortage::Standard, Shortage::Framework})
    {
        LetMemoryRunOut(eShortage, 16000);
        EXPECT_EQ(Load((folder + L"").c_str()), Loaded(2, "a"));
        EXPECT_TRUE(HasMemoryRunOut());
    }
    struct CFailingFile : CFile
    {
        UINT Read(void* pBytes, UINT nBytes) override
        {
            return nReads-- > 0 ? CFile::Read(pBytes, nBytes) : (AfxThrowFileException(CFileException::hardIO), 0);
        }
        int nReads = 0;
    } file;
    ASSERT_TRUE(file.Open((folder + L"\\x.sp").c_str(), CFile::modeRead));
    const char* const vRead[] = {"", "", "a", "a", "a", "ab"}; // By the number of reads that succeed.
    for (int i = 0; i < 6; ++i)
    {
        file.Seek(8, CFile::begin);
        file.nReads = i;
        SketchPens vPens;
        EXPECT_EQ(Pixtane::AppendPens(file, 2, vPens), static_cast<int>(std::strlen(vRead[i])));
        EXPECT_EQ(Names(vPens), vRead[i]);
    }
}

TEST(PenFileTest, AFolderGivesThePensOfItsFilesAndRefusalsKeepThem)
{
    const CTestFolder folder;
    const std::size_t nHandles = winlite::OpenHandleCount();
    for (const char* pszName : {"b.sp", "A.SP", "c\\.sp", "d.sp", "e.spx"})
        folder.Write(pszName, File(1, *pszName == 'd' ? "a" : "b"));
    std::filesystem::create_directory(winlite::ToUtf8(folder + L"/a.dir.sp"));
    // No path can name the file with the backslash, so that one does not open.
    const std::string strAll = "1|3 File 'A.SP' contains 1 pens, 1 pens are loaded.|"
                               "3 File 'b.sp' contains 1 pens, 1 pens are loaded.|"
                               "2 Failed open file 'c\\.sp'. Error: The folder was not found.\r\n|"
                               "3 File 'd.sp' contains 1 pens, 1 pens are loaded.|bba";
    EXPECT_EQ(Load((folder + L"").c_str()), strAll);
    EXPECT_EQ(Load((folder + L"\\Sub").c_str()), "1|");
    EXPECT_EQ(Load((folder + L"\\").c_str()), strAll);
    const std::string strRefused = "0|1 Invalid Parameter.|bba";
    EXPECT_EQ(Load(nullptr), strRefused);
    for (const std::wstring& strPath : {std::wstring(), folder + L"\\none", folder + L"\\d.sp"})
        EXPECT_EQ(Load(strPath.c_str()), strRefused) << winlite::ToUtf8(strPath);
    EXPECT_EQ(winlite::OpenHandleCount(), nHandles);
}

} // namespace
