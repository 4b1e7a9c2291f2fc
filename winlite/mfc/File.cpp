#include "mfc/File.h"

#include "files/LastError.h"
#include "files/NativeFile.h"
#include "files/NativePath.h"

#include <cassert>
#include <unistd.h>

IMPLEMENT_DYNAMIC(CFile, CObject)

CFile::CFile() : m_pFile(std::make_unique<winlite::NativeFile>()) {}

CFile::~CFile() = default;

BOOL CFile::Open(LPCWSTR pszFileName, UINT, CFileException* pError)
{
    assert(!m_pFile->IsOpen());
    m_strFileName = pszFileName;
    const DWORD dwError = m_pFile->Open(winlite::NativePath(pszFileName));
    if (dwError == ERROR_SUCCESS)
        return TRUE;
    ::SetLastError(dwError);
    if (pError)
    {
        pError->m_lOsError = static_cast<LONG>(dwError);
        pError->m_cause = CFileException::OsErrorToException(pError->m_lOsError);
        pError->m_strFileName = m_strFileName;
    }
    return FALSE;
}

void CFile::Check(DWORD dwError) const
{
    if (dwError == ERROR_SUCCESS)
        return;
    ::SetLastError(dwError);
    const auto lOsError = static_cast<LONG>(dwError);
    AfxThrowFileException(CFileException::OsErrorToException(lOsError), lOsError, m_strFileName);
}

winlite::NativeFile& CFile::OpenFile() const
{
    if (!m_pFile->IsOpen())
        AfxThrowFileException(CFileException::invalidFile, static_cast<LONG>(ERROR_INVALID_HANDLE), m_strFileName);
    return *m_pFile;
}

UINT CFile::Read(void* pBytes, UINT nBytes)
{
    std::size_t nRead = 0;
    Check(OpenFile().Read(pBytes, nBytes, nRead));
    return static_cast<UINT>(nRead);
}

ULONGLONG CFile::Seek(LONGLONG llOffset, UINT nFrom)
{
    static_assert(begin == SEEK_SET && current == SEEK_CUR && end == SEEK_END);
    std::uint64_t ullPosition = 0;
    Check(OpenFile().Seek(llOffset, static_cast<int>(nFrom), ullPosition));
    return ullPosition;
}

void CFile::Close() { Check(m_pFile->Close()); }
