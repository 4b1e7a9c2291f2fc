#include "base/HandleTable.h"
#include "base/StateLock.h"
#include "base/Utf8.h"
#include "files/Files.h"
#include "files/NamePattern.h"
#include "files/NativePath.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <map>
#include <optional>
#include <sys/stat.h>

using namespace winlite;

namespace
{

/// A search: the names that fitted when it began, under their capital letters.
class FileSearch : public HandleObject
{
public:
    FileSearch(std::string strFolder, const std::wstring& strPattern)
        : m_strFolder(std::move(strFolder)), m_strPattern(Uppercase(strPattern))
    {
    }

    /// Reads the folder; an errno on failure.
    int Read()
    {
        DIR* pFolder = ::opendir(m_strFolder.empty() ? "." : m_strFolder.c_str());
        if (!pFolder)
            return errno;
        while (const dirent* pEntry = ::readdir(pFolder))
            Add(pEntry->d_name);
        ::closedir(pFolder);
        return 0;
    }

    /// Describes the next file that is still there; false after the last.
    bool Next(WIN32_FIND_DATA& data)
    {
        while (const auto strName = TakeName())
        {
            struct stat status = {};
            if (::stat((m_strFolder + ToUtf8(*strName)).c_str(), &status) == 0)
            {
                data = Description(*strName, status);
                return true;
            }
        }
        return false;
    }

    static DWORD Attributes(const struct stat& status)
    {
        const bool bFolder = S_ISDIR(status.st_mode);
        const bool bReadOnly = !bFolder && !(status.st_mode & S_IWUSR);
        const DWORD dwAttributes = (bFolder ? FILE_ATTRIBUTE_DIRECTORY : 0) | (bReadOnly ? FILE_ATTRIBUTE_READONLY : 0);
        return dwAttributes ? dwAttributes : FILE_ATTRIBUTE_NORMAL;
    }

private:
    void Add(const char* pszName)
    {
        const std::optional<std::wstring> strName = FromUtf8(pszName);
        if (!strName || strName->size() >= MAX_PATH)
            return;
        const std::wstring strUpper = Uppercase(*strName);
        if (FitsPattern(strUpper, m_strPattern))
            m_Names.insert({strUpper, *strName});
    }

    std::optional<std::wstring> TakeName()
    {
        StateLock lock;
        return m_Names.empty() ? std::nullopt : std::optional(std::move(m_Names.extract(m_Names.begin()).mapped()));
    }

    static WIN32_FIND_DATA Description(const std::wstring& strName, const struct stat& status)
    {
        const auto uSize = S_ISDIR(status.st_mode) ? 0 : static_cast<std::uint64_t>(status.st_size);
        WIN32_FIND_DATA data = {Attributes(status), static_cast<DWORD>(uSize >> 32), static_cast<DWORD>(uSize), {}};
        strName.copy(data.cFileName, MAX_PATH - 1);
        return data;
    }

    std::string m_strFolder; ///< With its slash; empty for the current one.
    std::wstring m_strPattern;
    std::multimap<std::wstring, std::wstring> m_Names; ///< Those still to come; guarded by StateLock.
};

HANDLE SearchFailed(DWORD dwError)
{
    ::SetLastError(dwError);
    return INVALID_HANDLE_VALUE;
}

} // namespace

HANDLE FindFirstFile(LPCWSTR pszPath, WIN32_FIND_DATA* pData)
{
    const std::string strPath = NativePath(pszPath);
    const std::string strFolder = FolderOf(strPath);
    const auto strPattern = FromUtf8(strPath.substr(strFolder.size()));
    const auto pSearch = std::make_shared<FileSearch>(strFolder, *strPattern);
    if (const int iErrno = pSearch->Read())
        return SearchFailed(iErrno == ENOENT ? ERROR_PATH_NOT_FOUND : ErrorOfErrno(iErrno));
    if (!pSearch->Next(*pData))
        return SearchFailed(ERROR_FILE_NOT_FOUND);
    return OpenHandle(pSearch);
}

BOOL FindNextFile(HANDLE hFind, WIN32_FIND_DATA* pData)
{
    const auto pSearch = FindHandleAs<FileSearch>(hFind);
    if (pSearch && pSearch->Next(*pData))
        return TRUE;
    ::SetLastError(pSearch ? ERROR_NO_MORE_FILES : ERROR_INVALID_HANDLE);
    return FALSE;
}

BOOL FindClose(HANDLE hFind)
{
    if (FindHandleAs<FileSearch>(hFind))
        return CloseHandleEntry(hFind) != nullptr;
    ::SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}

DWORD GetFileAttributes(LPCWSTR pszPath)
{
    const std::string strPath = NativePath(pszPath);
    struct stat status = {};
    if (::stat(strPath.c_str(), &status) == 0)
        return FileSearch::Attributes(status);
    ::SetLastError(ErrorOfPath(strPath, errno));
    return INVALID_FILE_ATTRIBUTES;
}
