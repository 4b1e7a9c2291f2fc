#include "files/NativeFile.h"

#include "files/LastError.h"
#include "files/NativePath.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace winlite
{

DWORD NativeFile::Open(const std::string& strPath)
{
    Close();
    m_iFile = ::open(strPath.c_str(), O_RDONLY | O_CLOEXEC);
    if (m_iFile < 0)
        return ErrorOfPath(strPath, errno);
    struct stat status = {};
    if (::fstat(m_iFile, &status) == 0 && !S_ISDIR(status.st_mode))
        return ERROR_SUCCESS;
    Close();
    return ERROR_ACCESS_DENIED;
}

DWORD NativeFile::Close()
{
    const int iFile = std::exchange(m_iFile, -1);
    return iFile < 0 || ::close(iFile) == 0 ? ERROR_SUCCESS : ErrorOfErrno(errno);
}

DWORD NativeFile::Read(void* pBytes, std::size_t nBytes, std::size_t& nRead)
{
    nRead = 0;
    while (nRead < nBytes)
    {
        const ssize_t nPart = ::read(m_iFile, static_cast<char*>(pBytes) + nRead, nBytes - nRead);
        if (nPart == 0)
            break;
        if (nPart > 0)
            nRead += static_cast<std::size_t>(nPart);
        else if (errno != EINTR)
            return ErrorOfErrno(errno);
    }
    return ERROR_SUCCESS;
}

DWORD NativeFile::Seek(std::int64_t llOffset, int iFrom, std::uint64_t& ullPosition)
{
    const off_t llPosition = ::lseek(m_iFile, llOffset, iFrom);
    if (llPosition < 0)
        return errno == EINVAL ? ERROR_NEGATIVE_SEEK : ErrorOfErrno(errno);
    ullPosition = static_cast<std::uint64_t>(llPosition);
    return ERROR_SUCCESS;
}

} // namespace winlite
