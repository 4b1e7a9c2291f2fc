#include "brushes/PenTable.h"

#include "brushes/PenFile.h"
#include "view/Log.h"

#include <string_view>

namespace Pixtane
{

namespace
{

constexpr const wchar_t* FUNCTION = L"Pixtane::LoadSketchPens";

std::vector<EmbeddedTool::Sketcher::SketchPen> s_vPens;

/// A search for files, which ends with the object.
class CFileSearch
{
public:
    explicit CFileSearch(const CString& strPattern) : m_hFind(::FindFirstFile(strPattern, &m_Found)) {}
    CFileSearch(const CFileSearch&) = delete;
    CFileSearch& operator=(const CFileSearch&) = delete;
    ~CFileSearch()
    {
        if (HasFound())
            ::FindClose(m_hFind);
    }

    bool HasFound() const { return m_hFind != INVALID_HANDLE_VALUE; }
    const WIN32_FIND_DATA& Found() const { return m_Found; }
    bool Next() { return ::FindNextFile(m_hFind, &m_Found) != FALSE; }

private:
    WIN32_FIND_DATA m_Found = {};
    HANDLE m_hFind;
};

bool IsFolder(const wchar_t* pszPath)
{
    const DWORD dwAttributes = pszPath ? ::GetFileAttributes(pszPath) : INVALID_FILE_ATTRIBUTES;
    return dwAttributes != INVALID_FILE_ATTRIBUTES && (dwAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

void LogOpenFailure(const wchar_t* pszName, const CFileException& error)
{
    constexpr DWORD MOST_LENGTH = 1024;
    wchar_t szError[MOST_LENGTH + 1] = {};
    ::FormatMessage(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                    static_cast<DWORD>(error.m_lOsError), 0, szError, MOST_LENGTH + 1, nullptr);
    QLWriteLog(QL_WARNING, MODULE_NAME, FUNCTION, L"Failed open file '%s'. Error: %s", pszName, szError);
}

void LoadPenFile(const CString& strFolder, const wchar_t* pszName)
{
    CFileException error;
    CFile file;
    if (!file.Open(strFolder + pszName, CFile::modeRead | CFile::shareDenyWrite, &error))
    {
        LogOpenFailure(pszName, error);
        return;
    }
    if (!ReadPenMagic(file))
    {
        QLWriteLog(QL_WARNING, MODULE_NAME, FUNCTION, L"File '%s' is not a valid SketchPen file.", pszName);
        return;
    }
    const std::optional<DWORD> dwDeclared = ReadPenCount(file);
    if (!dwDeclared)
        return;
    const int iLoaded = AppendPens(file, *dwDeclared, s_vPens);
    QLWriteLog(QL_INFO, MODULE_NAME, FUNCTION, L"File '%s' contains %d pens, %d pens are loaded.", pszName,
               static_cast<int>(*dwDeclared), iLoaded);
}

} // namespace

const std::vector<EmbeddedTool::Sketcher::SketchPen>& SketchPens() { return s_vPens; }

int LoadSketchPens(const wchar_t* pszFolder)
{
    if (!IsFolder(pszFolder))
    {
        QLWriteLog(QL_ERROR, MODULE_NAME, FUNCTION, L"Invalid Parameter.");
        return FALSE;
    }
    s_vPens.clear();
    const CString strFolder = CString(pszFolder) + (std::wstring_view(pszFolder).ends_with(L'\\') ? L"" : L"\\");
    CFileSearch search(strFolder + L"*.sp");
    for (bool bFound = search.HasFound(); bFound; bFound = search.Next())
    {
        if (!(search.Found().dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
            LoadPenFile(strFolder, search.Found().cFileName);
    }
    return TRUE;
}

} // namespace Pixtane
