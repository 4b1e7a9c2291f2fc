#pragma once

#include "mfc/FileException.h"

#include <memory>

namespace winlite
{
class NativeFile;
}

/// A file to read, without a buffer; closed when the object ends. Failures throw a CFileException*, except in
/// Open; what needs an open file throws invalidFile without one. Any thread, one at a time. Different from Windows: the
/// share flags have no effect, others may always open the file too.
class CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)

public:
    enum OpenFlags
    {
        modeRead = 0x0000,
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
    };
    enum SeekPosition
    {
        begin = 0,
        current = 1,
        end = 2,
    };

    CFile();
    ~CFile() override;

    /// Opens a file. FALSE on failure, with the cause in *pError unless NULL. Folders are refused. The object must not
    /// be open.
    virtual BOOL Open(LPCWSTR pszFileName, UINT nOpenFlags, CFileException* pError = nullptr);

    /// The bytes read; fewer than nBytes only at the end of the file.
    virtual UINT Read(void* pBytes, UINT nBytes);

    /// Moves by an offset from begin, current or end, and returns the new position; badSeek before the beginning.
    virtual ULONGLONG Seek(LONGLONG llOffset, UINT nFrom);

    /// Closes the file; nothing when it is not open.
    virtual void Close();

private:
    void Check(DWORD dwError) const;
    winlite::NativeFile& OpenFile() const;

    std::unique_ptr<winlite::NativeFile> m_pFile;
    CString m_strFileName;
};
