#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

/// A file that nobody but its user may read, locked while the program runs. One thread appends, any thread reads.
class CLockedFile
{
public:
    /// Makes one in a folder, which is made too, under a name that nobody has; NULL and errno when that is not possible.
    static std::shared_ptr<CLockedFile> Make(const std::string& strFolder);

    /// Opens one that a program has left, to append to it or, where that is not allowed, to read it; NULL when there is
    /// none or another program holds it.
    static std::shared_ptr<CLockedFile> TakeOver(const std::string& strPath);

    ~CLockedFile();
    CLockedFile(const CLockedFile&) = delete;
    CLockedFile& operator=(const CLockedFile&) = delete;

    const std::string& Path() const { return m_strPath; }
    bool IsWritable() const { return m_bWritable; }

    /// How long it is by what was appended.
    std::uint64_t Size() const { return m_nSize; }

    /// Appends bytes; 0, or the errno of what went wrong.
    int Append(const char* pBytes, std::size_t nBytes);

    /// Gives up what comes after so many bytes.
    void CutAt(std::uint64_t nBytes);

    /// Reads bytes that were appended; FALSE when that is not possible.
    bool Read(std::uint64_t iFirst, char* pBytes, std::size_t nBytes) const;

    /// Takes its name away: it is gone once nobody reads it any more.
    void Remove();

private:
    CLockedFile(std::string strPath, int iFile, bool bWritable);

    const std::string m_strPath;
    const int m_iFile;
    const bool m_bWritable;
    std::uint64_t m_nSize = 0;
};
