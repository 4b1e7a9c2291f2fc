#include "mfc/FileException.h"

#include "files/LastError.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CFileException, CException)

namespace
{

constexpr struct
{
    DWORD dwError;
    int cause;
} CAUSES[] = {
    {ERROR_SUCCESS, CFileException::none},
    {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
    {ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
    {ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_INVALID_HANDLE, CFileException::fileNotFound},
    {ERROR_GEN_FAILURE, CFileException::hardIO},
    {ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
    {ERROR_DISK_FULL, CFileException::diskFull},
    {ERROR_NEGATIVE_SEEK, CFileException::badSeek},
};

} // namespace

int CFileException::OsErrorToException(LONG lOsError)
{
    const auto it =
        std::ranges::find_if(CAUSES, [=](const auto& entry) { return entry.dwError == static_cast<DWORD>(lOsError); });
    return it == std::end(CAUSES) ? int{genericException} : it->cause;
}

BOOL CFileException::GetErrorMessage(LPWSTR pszError, UINT nMaxError, UINT* pnHelpContext) const
{
    WCHAR szText[128];
    const DWORD nLength = ::FormatMessage(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                          static_cast<DWORD>(m_lOsError), 0, szText, 128, nullptr);
    if (nLength == 0 || nMaxError == 0)
        return CException::GetErrorMessage(pszError, nMaxError, pnHelpContext);
    *std::copy_n(szText, std::min<UINT>(nLength, nMaxError - 1), pszError) = 0;
    return TRUE;
}

void AfxThrowFileException(int cause, LONG lOsError, LPCWSTR pszFileName)
{
    throw new CFileException(cause, lOsError, pszFileName);
}
