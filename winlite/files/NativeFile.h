#pragma once

#include "base/Types.h"

#include <string>

namespace winlite
{

/// An open file of the system, closed with the object. Each function gives a Windows error, ERROR_SUCCESS when it did
/// what it should. Any thread, one at a time.
class NativeFile
{
public:
    NativeFile() = default;
    ~NativeFile() { Close(); }
    NativeFile(const NativeFile&) = delete;
    NativeFile& operator=(const NativeFile&) = delete;

    /// Opens to read. A folder is refused.
    DWORD Open(const std::string& strPath);
    bool IsOpen() const { return m_iFile >= 0; }
    DWORD Close();

    /// Reads up to nBytes; fewer only at the end of the file.
    DWORD Read(void* pBytes, std::size_t nBytes, std::size_t& nRead);

    /// Moves to an offset from the place that SEEK_SET, SEEK_CUR or SEEK_END tells.
    DWORD Seek(std::int64_t llOffset, int iFrom, std::uint64_t& ullPosition);

private:
    int m_iFile = -1;
};

} // namespace winlite
