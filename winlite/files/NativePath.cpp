#include "files/NativePath.h"

#include "base/Utf8.h"
#include "files/LastError.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

namespace winlite
{

namespace
{

bool IsFolder(const std::string& strPath)
{
    struct stat status = {};
    return ::stat(strPath.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

std::string NativePath(LPCWSTR pszPath)
{
    std::string strPath = pszPath ? ToUtf8(pszPath) : std::string();
    std::ranges::replace(strPath, '\\', '/');
    return strPath;
}

std::string FolderOf(const std::string& strPath) { return strPath.substr(0, strPath.rfind('/') + 1); }

DWORD ErrorOfPath(const std::string& strPath, int iErrno)
{
    const std::string strFolder = FolderOf(strPath);
    const bool bFolderMissing = strPath.empty() || (!strFolder.empty() && !IsFolder(strFolder));
    return iErrno == ENOENT && bFolderMissing ? ERROR_PATH_NOT_FOUND : ErrorOfErrno(iErrno);
}

} // namespace winlite
