#include "document/LockedFile.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

std::shared_ptr<CLockedFile> CLockedFile::Make(const std::string& strFolder)
{
    std::error_code error;
    std::filesystem::create_directories(strFolder, error);
    ::chmod(strFolder.c_str(), S_IRWXU);
    // Another program, or another session of this one, may have taken a name.
    constexpr int TRIES = 100;
    for (int i = 0; i < TRIES; ++i)
    {
        std::string strPath = strFolder + "/" + std::to_string(::getpid()) + "-" + std::to_string(i) + ".session";
        const int iFile = ::open(strPath.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (iFile >= 0 && ::flock(iFile, LOCK_EX | LOCK_NB) == 0)
            return std::shared_ptr<CLockedFile>(new CLockedFile(std::move(strPath), iFile, true));
        if (iFile >= 0)
            ::close(iFile);
        else if (errno != EEXIST)
            break;
    }
    return nullptr;
}

std::shared_ptr<CLockedFile> CLockedFile::TakeOver(const std::string& strPath)
{
    int iFile = ::open(strPath.c_str(), O_RDWR | O_CLOEXEC);
    const bool bWritable = iFile >= 0;
    if (!bWritable)
        iFile = ::open(strPath.c_str(), O_RDONLY | O_CLOEXEC);
    if (iFile < 0)
        return nullptr;
    if (::flock(iFile, LOCK_EX | LOCK_NB) != 0)
    {
        ::close(iFile);
        return nullptr;
    }
    return std::shared_ptr<CLockedFile>(new CLockedFile(strPath, iFile, bWritable));
}

CLockedFile::CLockedFile(std::string strPath, int iFile, bool bWritable)
    : m_strPath(std::move(strPath)), m_iFile(iFile), m_bWritable(bWritable)
{
    struct stat status = {};
    if (::fstat(iFile, &status) == 0)
        m_nSize = static_cast<std::uint64_t>(status.st_size);
}

CLockedFile::~CLockedFile() { ::close(m_iFile); }

int CLockedFile::Append(const char* pBytes, std::size_t nBytes)
{
    while (nBytes > 0)
    {
        const ssize_t nDone = ::pwrite(m_iFile, pBytes, nBytes, static_cast<off_t>(m_nSize));
        if (nDone < 0 && errno == EINTR)
            continue;
        if (nDone <= 0)
            return nDone < 0 ? errno : ENOSPC;
        pBytes += nDone;
        nBytes -= static_cast<std::size_t>(nDone);
        m_nSize += static_cast<std::uint64_t>(nDone);
    }
    return 0;
}

void CLockedFile::CutAt(std::uint64_t nBytes)
{
    m_nSize = nBytes;
    if (::ftruncate(m_iFile, static_cast<off_t>(nBytes)) != 0)
        return; // What is there is written over.
}

bool CLockedFile::Read(std::uint64_t iFirst, char* pBytes, std::size_t nBytes) const
{
    while (nBytes > 0)
    {
        const ssize_t nDone = ::pread(m_iFile, pBytes, nBytes, static_cast<off_t>(iFirst));
        if (nDone < 0 && errno == EINTR)
            continue;
        if (nDone <= 0)
            return false;
        pBytes += nDone;
        iFirst += static_cast<std::uint64_t>(nDone);
        nBytes -= static_cast<std::size_t>(nDone);
    }
    return true;
}

void CLockedFile::Remove()
{
    if (m_bWritable)
        ::unlink(m_strPath.c_str());
}
