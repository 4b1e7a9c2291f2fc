#include "document/SafeFile.h"

#include "document/Message.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{

namespace fs = std::filesystem;

/// An open file or folder.
class CDescriptor
{
public:
    CDescriptor(const fs::path& path, int iFlags) : m_iFile(::open(path.c_str(), iFlags | O_CLOEXEC, 0666)) {}
    ~CDescriptor() { Close(); }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;

    bool IsOpen() const { return m_iFile >= 0; }
    int Get() const { return m_iFile; }

    /// FALSE when the system tells only now that bytes did not arrive.
    bool Close()
    {
        const int iFile = std::exchange(m_iFile, -1);
        return iFile < 0 || ::close(iFile) == 0;
    }

private:
    int m_iFile;
};

/// The path of a file that goes when the scope ends, unless it went into its place.
struct ScopedName
{
    fs::path path;

    ~ScopedName()
    {
        if (!path.empty())
            ::unlink(path.c_str());
    }
};

std::string LastReason() { return std::strerror(errno); }

/// A name in the same folder, so that putting the file into its place moves no bytes; short, since the file's own may
/// be as long as names can be.
fs::path NameBeside(const fs::path& path)
{
    static std::atomic<int> s_iNext = 0;
    return path.parent_path() / (".retouch-" + std::to_string(::getpid()) + "-" + std::to_string(++s_iNext));
}

bool WriteAll(int iFile, const QByteArray& bytes)
{
    for (qsizetype i = 0; i < bytes.size();)
    {
        const ssize_t nWritten = ::write(iFile, bytes.constData() + i, static_cast<std::size_t>(bytes.size() - i));
        if (nWritten < 0 && errno != EINTR)
            return false;
        i += std::max<ssize_t>(nWritten, 0);
    }
    return true;
}

/// Owner and group as far as this user may; rights after them, since a new owner takes some away.
void TakeOverRights(int iFile, const struct stat& old)
{
    if (::fchown(iFile, old.st_uid, old.st_gid) != 0) [[maybe_unused]]
        const int iIgnored = ::fchown(iFile, static_cast<uid_t>(-1), old.st_gid);
    ::fchmod(iFile, old.st_mode & 07777);
}

/// Why the file that is there cannot be replaced; nothing when it can, or when there is none.
std::optional<std::string> WhyNotReplaced(const fs::path& path, bool bReplace, std::optional<struct stat>& old)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return errno == ENOENT ? std::nullopt : std::optional(LastReason());
    if (S_ISDIR(status.st_mode))
        return Message(QT_TRANSLATE_NOOP("Program", "is a folder"));
    if (!S_ISREG(status.st_mode))
        return Message(QT_TRANSLATE_NOOP("Program", "is not an ordinary file"));
    if (!bReplace)
        return Message(QT_TRANSLATE_NOOP("Program", "exists already"));
    if (::access(path.c_str(), W_OK) != 0)
        return Message(
            QT_TRANSLATE_NOOP("Program", "is write-protected")); // The folder's rights alone would allow to replace it.
    old = status;
    return std::nullopt;
}

bool PutInPlace(const fs::path& pathFrom, const fs::path& pathTo, bool bReplace)
{
    if (bReplace)
        return ::rename(pathFrom.c_str(), pathTo.c_str()) == 0;
    // A file that appeared meanwhile stays. Where the file system does not know how, the look taken before must do.
    return ::renameat2(AT_FDCWD, pathFrom.c_str(), AT_FDCWD, pathTo.c_str(), RENAME_NOREPLACE) == 0 ||
           (errno == EINVAL && ::rename(pathFrom.c_str(), pathTo.c_str()) == 0);
}

} // namespace

std::optional<std::string> WriteWhole(const std::string& strPath, const QByteArray& bytes, bool bReplace)
{
    std::error_code error;
    const fs::path path = fs::weakly_canonical(strPath, error);
    if (error)
        return error.message();
    std::optional<struct stat> old;
    if (auto reason = WhyNotReplaced(path, bReplace, old))
        return reason;

    ScopedName beside{NameBeside(path)};
    CDescriptor file(beside.path, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.IsOpen())
    {
        beside.path.clear();
        return LastReason();
    }
    if (old)
        TakeOverRights(file.Get(), *old);
    if (!WriteAll(file.Get(), bytes) || ::fsync(file.Get()) != 0 || !file.Close() ||
        !PutInPlace(beside.path, path, bReplace))
        return LastReason();
    beside.path.clear();
    // The file is there; that its name reaches the disk too can fail without harm to either file.
    if (const CDescriptor folder(path.parent_path(), O_RDONLY | O_DIRECTORY); folder.IsOpen())
        ::fsync(folder.Get());
    return std::nullopt;
}
